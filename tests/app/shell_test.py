"""What shells and the manual ask of the program."""
import os
import pathlib
import subprocess
import sys
import tempfile

from program import ZU, check, run, sample

FLOOR = sample("drawings/office-floor.dxf")
PACKAGING = pathlib.Path(__file__).resolve().parents[2] / "packaging"


def words(*typed):
    return [line.split("\t")[0] for line in run("--complete", *typed).splitlines()]


for typed, first in ((["el"], "elements"), (["link", "s"], "save"), (["elements", ""], ":files"), (["elements", FLOOR, "--ro"], "--routes"),
                     (["connected", FLOOR, "11"], "110"), (["connected", FLOOR, "--group", "RT"], "RTGR00007"),
                     (["set-attribute", FLOOR, "S3"], "S304"), (["attributes", FLOOR, FLOOR, "11"], "110"), (["plan", FLOOR, "--theme", "d"], "dark")):
    check(words(*typed)[:1] == [first], "%r: %r" % (typed, words(*typed)))
check(words("connected", "missing.dxf", "") == [":files"], "without a drawing there are no handles, but perhaps more drawings")

typed = "zu connected '%s' 11" % FLOOR
done = subprocess.run(["bash", "-c", "source %s/completions/zu.bash; COMP_WORDS=(%s); COMP_CWORD=3; _zu; echo ${COMPREPLY[0]}" % (PACKAGING, typed)],
                      capture_output=True, text=True, env={**os.environ, "PATH": "%s:%s" % (os.path.dirname(ZU), os.environ["PATH"])})
check(done.stdout == "110\n", "bash completes a handle: " + done.stdout + done.stderr)

with tempfile.TemporaryDirectory() as folder:
    subprocess.run([sys.executable, PACKAGING / "manual.py", ZU, folder, "1.0", "2026-01-01"], check=True)
    commands = run("--complete", "").split("\n")
    check(len(os.listdir(folder)) == len([c for c in commands if "\t" in c]) + 1, "a page for each command, and one for all")
    page = (pathlib.Path(folder) / "zu-set-attribute.1").read_text(encoding="utf-8")
    check(all(text in page for text in (".TH", "\\fIDRAWING\\fR ... \\fIKEY", "\\fB\\-\\-where\\fR", "EXIT STATUS")), "a page names arguments and options")
