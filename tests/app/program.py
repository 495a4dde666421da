"""Runs the program for the tests of its commands."""
import json
import os
import subprocess
import sys

ZU = sys.argv[1]
SAMPLES = sys.argv[2]


def run(*arguments, status=0):
    """Standard output of a command, which must end with the status."""
    done = subprocess.run([ZU, *arguments], capture_output=True, text=True)
    if done.returncode != status:
        sys.exit("zu %s: status %d instead of %d\n%s" % (" ".join(arguments), done.returncode, status, done.stderr))
    if status != 0 and not done.stderr.strip():
        sys.exit("zu %s failed without a message" % " ".join(arguments))
    return done.stdout


def run_json(*arguments):
    return json.loads(run(*arguments, "--json"))


def sample(name):
    return os.path.join(SAMPLES, name)


def expected(name):
    with open(sample("expected/" + name), encoding="utf-8") as f:
        return json.load(f)


def check(condition, what):
    if not condition:
        sys.exit("FAILED: " + what)
