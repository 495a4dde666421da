"""An attribute edited in the program's window on a desktop, with real clicks and keys, and the drawing saved or not."""
import os
import shutil
import subprocess
import tempfile

from desktop import PATIENCE, Desktop, environment, wait_for
from program import ZU, check, run, sample

DUCT, FLOW_ROW, WRITE_BUTTON = "110", (450, 79), (76, 12)
SAMPLE = sample("drawings/office-floor.dxf")


def flow(drawing):
    """The volume flow of the duct, its last attribute."""
    return run("attributes", drawing, DUCT).splitlines()[-1].split()[1]


def edit(desktop, drawing, *arguments, value=None, answer=None):
    """Opens the window, writes the value if there is one, closes the window and answers the question."""
    program = subprocess.Popen([ZU, "window", drawing, DUCT, *arguments], stderr=subprocess.PIPE, text=True,
                               env=environment(DISPLAY=desktop.display))
    window = wait_for("the window", lambda: desktop.shown(os.path.basename(drawing)))
    desktop.xdotool("windowfocus", window)
    if value:
        desktop.click(window, *FLOW_ROW)
        desktop.xdotool("type", value)
        desktop.xdotool("key", "Return")
        desktop.click(window, *WRITE_BUTTON)
    desktop.close(window)
    if answer:
        wait_for("the question", lambda: desktop.focused("^ZuComn$"))
        desktop.xdotool("key", answer)
    _, error = program.communicate(timeout=PATIENCE)
    check(program.returncode == 0, "the window ends well: " + error)


with tempfile.TemporaryDirectory() as folder, Desktop() as desktop:
    run("demo", "--samples", sample(""), "--output", folder)
    settings = ("--settings", os.path.join(folder, "settings", "system", "master.ini"))
    drawing, copy = (os.path.join(folder, name) for name in ("floor.dxf", "copy.dxf"))
    shutil.copyfile(SAMPLE, drawing)
    before = flow(drawing)
    edit(desktop, drawing, *settings)
    edit(desktop, drawing, *settings, value="900", answer="Escape")
    edit(desktop, drawing, *settings, "-o", copy, value="900")
    with open(drawing, "rb") as kept, open(SAMPLE, "rb") as original:
        check(kept.read() == original.read(), "a drawing that was not to be saved stays as it was")
    check(flow(copy) == "900" != before, "the other drawing has the value")
    edit(desktop, drawing, *settings, value="900", answer="Return")
    check(flow(drawing) == "900", "the drawing is saved when asked to")
print("window edited")
