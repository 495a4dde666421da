"""The commands of docs/walkthrough.md print what stands there: walkthrough_test.py ZU SAMPLES [--update]"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs/walkthrough.md"
BLOCK = re.compile(r"^( *)```console\n(.*?)^ *```$", re.MULTILINE | re.DOTALL)


def recorded(commands, folder, environment):
    lines = []
    for command in commands:
        done = subprocess.run(command, shell=True, executable="/bin/bash", cwd=folder, env=environment, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        lines.append(f"$ {command}\n{done.stdout}")
    return "".join(lines)


def main():
    zu, samples = (pathlib.Path(path).resolve() for path in sys.argv[1:3])
    environment = {**os.environ, "PATH": f"{zu.parent}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8",
                   "QT_QPA_PLATFORM": "offscreen"}
    page = PAGE.read_text(encoding="utf-8")
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "samples").symlink_to(samples)
        now = BLOCK.sub(lambda block: "```console\n" + recorded(re.findall(r"^\$ (.*)$", block[2], re.MULTILINE), folder,
                                                               environment) + "```", page)
    if "--update" in sys.argv:
        PAGE.write_text(now, encoding="utf-8")
    elif now != page:
        (found, expected) = next(pair for pair in zip(now.splitlines(), page.splitlines()) if pair[0] != pair[1])
        sys.exit(f"{PAGE}: expected {expected!r}, printed was {found!r}")


main()
