"""An attribute edited in the program's window on a desktop, with real clicks and keys, and the drawing saved or not."""
import os
import shutil
import subprocess
import tempfile

from desktop import PATIENCE, Desktop, environment, wait_for
from program import ZU, check, run, sample

DUCT, FLOW, FLOW_ROW, WRITE_BUTTON = "110", "S310", (650, 109), (76, 42)
SAMPLE = sample("drawings/office-floor.dxf")


def flow(drawing):
    """The volume flow of the duct, its last attribute."""
    return run("attributes", drawing, DUCT).splitlines()[-1].split()[1]


def edit(desktop, drawing, *arguments, value=None, meanwhile=None, answers=(), status=0):
    """Opens the window, writes the value if there is one, edits the file by the command line, closes the window and
    answers its questions."""
    program = subprocess.Popen([ZU, "window", drawing, DUCT, *arguments], stderr=subprocess.PIPE, text=True,
                               env=environment(DISPLAY=desktop.display))
    window = wait_for("the window", lambda: desktop.shown(os.path.basename(drawing)))
    desktop.xdotool("windowfocus", window)
    if value:
        desktop.click(window, *FLOW_ROW)
        desktop.xdotool("type", value)
        desktop.xdotool("key", "Return")
        desktop.click(window, *WRITE_BUTTON)
    if meanwhile:
        run("set-attribute", drawing, FLOW, meanwhile, "--handles", DUCT, "-o", drawing)
    desktop.close(window)
    question = None
    for answer in answers:
        before = question
        question = wait_for("a question", lambda: (asked := desktop.focused("^ZuComn$")) != before and asked)
        desktop.xdotool("key", answer)
    _, error = program.communicate(timeout=PATIENCE)
    check(program.returncode == status, "how the window ends: " + error)


with tempfile.TemporaryDirectory() as folder, Desktop() as desktop:
    run("demo", "--samples", sample(""), "--output", folder)
    settings = ("--settings", os.path.join(folder, "settings", "system", "master.ini"))
    drawing, copy = (os.path.join(folder, name) for name in ("floor.dxf", "copy.dxf"))
    shutil.copyfile(SAMPLE, drawing)
    before = flow(drawing)
    edit(desktop, drawing, *settings)
    edit(desktop, drawing, *settings, value="900", answers=["Escape"])
    edit(desktop, drawing, *settings, "-o", copy, value="900")
    with open(drawing, "rb") as kept, open(SAMPLE, "rb") as original:
        check(kept.read() == original.read(), "a drawing that was not to be saved stays as it was")
    check(flow(copy) == "900" != before, "the other drawing has the value")
    edit(desktop, drawing, *settings, value="900", answers=["Return"])
    check(flow(drawing) == "900", "the drawing is saved when asked to")
    for force, value, answers, status, left in (((), "600", ["Return", "Escape"], 1, "800"),
                                                ((), "600", ["Return", "Return"], 0, "600"),
                                                (("--force",), "700", ["Return"], 0, "700")):
        edit(desktop, drawing, *settings, *force, value=value, meanwhile="800", answers=answers, status=status)
        check(flow(drawing) == left, "a file that was edited meanwhile: %r, not %s" % (answers, flow(drawing)))
print("window edited")
