"""A message box on a real desktop, an X server of its own, answered by real keys; and where there is no desktop."""
import os
import subprocess
import sys
import time

PROGRAM = sys.argv[1]
PATIENCE = 60
OK, YES_NO, YES_NO_CANCEL, STOP = 0x00, 0x04, 0x03, 0x10
ID_OK, ID_CANCEL, ID_YES, ID_NO = 1, 2, 6, 7
LINE = "配管: 属性を<b>保存</b>できません。\n850㎥/h\n"


def check(condition, what):
    if not condition:
        sys.exit("FAILED: " + what)


def environment(**variables):
    kept = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    return {**kept, **variables}


def start(style, **variables):
    return subprocess.Popen([PROGRAM, str(style)], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                            encoding="utf-8", env=environment(**variables))


def xdotool(display, *arguments):
    return subprocess.run(["xdotool", *arguments], env=environment(DISPLAY=display), capture_output=True,
                          text=True, timeout=PATIENCE)


def wait_for(what, happened):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if result := happened():
            return result
        time.sleep(0.05)
    sys.exit("FAILED: %s did not happen" % what)


def visible_box(display, program):
    check(program.poll() is None, "the program waits for a button")
    found = xdotool(display, "search", "--onlyvisible", "--name", "^配管$").stdout.split()
    focused = xdotool(display, "getwindowfocus").stdout.split()
    return found[0] if found and found == focused else None


def answers_keys(display):
    """The box shows with text and buttons, and each key leaves it by its button."""
    for style, key, answer in ((OK | STOP, "Return", ID_OK), (YES_NO, "Return", ID_YES), (YES_NO, "Escape", ID_NO),
                               (YES_NO_CANCEL, "Escape", ID_CANCEL)):
        program = start(style, DISPLAY=display)
        box = wait_for("a box", lambda: visible_box(display, program))
        shape = xdotool(display, "getwindowgeometry", "--shell", box).stdout
        size = dict(line.split("=") for line in shape.split())
        check(int(size["WIDTH"]) > 150 and int(size["HEIGHT"]) > 60, "the box has room for its text: " + shape)
        xdotool(display, "key", key)
        out, err = program.communicate(timeout=PATIENCE)
        check(program.returncode == 0 and int(out) == answer, "%s answers %d: %s%s" % (key, answer, out, err))
        check("配管" not in err, "what the desktop shows is not printed too")


def prints_a_line(**variables):
    out, err = start(YES_NO, **variables).communicate(timeout=PATIENCE)
    check(int(out) == ID_YES, "the first button is taken: " + out)
    check(err.endswith(LINE), "a line on standard error: " + err)
    return err


def main():
    read_end, write_end = os.pipe()
    # Without -noreset the server starts anew whenever a program leaves it, and shuts out the next one meanwhile.
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-nolisten", "tcp", "-noreset"],
                              pass_fds=[write_end], stderr=subprocess.DEVNULL)
    os.close(write_end)
    try:
        display = ":" + os.read(read_end, 32).decode().strip()
        check(len(display) > 1, "an X server starts")
        answers_keys(display)
        check(prints_a_line(DISPLAY=display, QT_QPA_PLATFORM="offscreen") == LINE, "nothing but the line")
    finally:
        server.terminate()
        server.wait()
    check(prints_a_line() == LINE, "nothing but the line")
    # The server is gone: a desktop that does not answer is none.
    prints_a_line(DISPLAY=display)


main()
