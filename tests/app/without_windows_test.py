"""A program without windows and pictures says what is missing, whatever it is asked to draw."""
import os
import subprocess
import tempfile

from program import ZU, check, run, sample

FLOOR = sample("drawings/office-floor.dxf")
PART = sample("parts/" + sorted(n for n in os.listdir(sample("parts")) if n.endswith(".dxf"))[0])

with tempfile.TemporaryDirectory() as folder:
    picture = os.path.join(folder, "x.svg")
    for arguments, status in ((("plan", FLOOR, "-o", picture, "--labels", "names"), 1), (("report", FLOOR, "--json"), 1),
                              (("window", FLOOR, "110"), 1), (("parts-list", "x.csv"), 1), (("demo",), 1),
                              (("part", PART, "--preview", picture), 1), (("part", sample("parts"), "--preview-dir", folder), 1),
                              (("compare", FLOOR, FLOOR, "-o", picture), 2)):
        done = subprocess.run([ZU, *arguments], capture_output=True, text=True)
        check(done.returncode == status and "without windows and pictures" in done.stderr, "%r: %s" % (arguments, done.stderr))
    check(os.listdir(folder) == [], "no file is left")
    one = run("groups", FLOOR)
    check(run("groups", FLOOR, FLOOR, "--jobs", "2").count(one) == 2, "several drawings in processes of their own")
print("what is missing is said")
