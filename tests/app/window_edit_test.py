"""An attribute edited in the program's window on a desktop, with real clicks and keys, and the drawing saved or not."""
import os
import shutil
import subprocess
import tempfile

from desktop import PATIENCE, Desktop, environment, wait_for
from program import ZU, check, run, sample

DUCT, FLOW, FLOW_ROW, WRITE_BUTTON = "110", "S310", (650, 109), (76, 42)
OTHER_DUCT, ITS_PLACE_IN_THE_PLAN = "114", (369, 556)
SAMPLE = sample("drawings/office-floor.dxf")


def flow(drawing, duct=DUCT):
    """The volume flow of the duct, its last attribute."""
    return run("attributes", drawing, duct).splitlines()[-1].split()[1]


def edit(desktop, drawing, *arguments, elements=(DUCT,), place=None, value=None, meanwhile=None,
         answers=(), status=0):
    """Opens the window on the elements (none: all), clicks the place and writes the value if there are any, edits the
    file by the command line, closes the window and answers its questions."""
    program = subprocess.Popen([ZU, "window", drawing, *elements, *arguments], stderr=subprocess.PIPE, text=True,
                               env=environment(DISPLAY=desktop.display, XDG_CONFIG_HOME=folder))
    window = wait_for("the window", lambda: desktop.shown(os.path.basename(drawing)))
    desktop.xdotool("windowfocus", window)
    if place:
        desktop.click(window, *place)
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
    edit(desktop, drawing, *settings, "-o", copy, elements=(), place=ITS_PLACE_IN_THE_PLAN, value="500")
    check((flow(copy), flow(copy, OTHER_DUCT)) == ("700", "500"), "a click in the plan selects the element there")
print("window edited")
