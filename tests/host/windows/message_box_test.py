"""Shows message boxes on an X server of its own, answered by key presses, and without a desktop."""
import subprocess
import sys

from desktop import PATIENCE, Desktop, environment, wait_for

PROGRAM = sys.argv[1]
OK, YES_NO, YES_NO_CANCEL, STOP = 0x00, 0x04, 0x03, 0x10
ID_OK, ID_CANCEL, ID_YES, ID_NO = 1, 2, 6, 7
LINE = "配管: 属性を<b>保存</b>できません。\n850㎥/h\n"


def check(condition, what):
    if not condition:
        sys.exit("FAILED: " + what)


def start(style, **variables):
    return subprocess.Popen([PROGRAM, str(style)], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                            encoding="utf-8", env=environment(**variables))


def visible_box(desktop, program):
    check(program.poll() is None, "the program waits for a button")
    return desktop.focused("^配管$")


def answers_keys(desktop):
    """Each box has room for its text, and each key presses the expected button."""
    for style, key, answer in ((OK | STOP, "Return", ID_OK), (YES_NO, "Return", ID_YES), (YES_NO, "Escape", ID_NO),
                               (YES_NO_CANCEL, "Escape", ID_CANCEL)):
        program = start(style, DISPLAY=desktop.display)
        box = wait_for("a box", lambda: visible_box(desktop, program))
        shape = desktop.xdotool("getwindowgeometry", "--shell", box)
        size = dict(line.split("=") for line in shape.split())
        check(int(size["WIDTH"]) > 150 and int(size["HEIGHT"]) > 60, "the box has room for its text: " + shape)
        desktop.xdotool("key", key)
        out, err = program.communicate(timeout=PATIENCE)
        check(program.returncode == 0 and int(out) == answer, "%s answers %d: %s%s" % (key, answer, out, err))
        check("配管" not in err, "a box that is shown is not printed")


def prints_a_line(**variables):
    out, err = start(YES_NO, **variables).communicate(timeout=PATIENCE)
    check(int(out) == ID_YES, "the first button is returned: " + out)
    check(err.endswith(LINE), "a line on standard error: " + err)
    return err


def main():
    with Desktop() as desktop:
        check(len(desktop.display) > 1, "an X server starts")
        answers_keys(desktop)
        check(prints_a_line(DISPLAY=desktop.display, QT_QPA_PLATFORM="offscreen") == LINE,
              "prints only the line when off-screen")
    check(prints_a_line() == LINE, "prints only the line without a desktop")
    # The server has ended: a desktop that does not answer counts as none.
    prints_a_line(DISPLAY=desktop.display)


main()
