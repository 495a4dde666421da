"""Many drawings in one call: what is damaged or crashes the program harms no other, and streams."""
import glob
import json
import os
import shutil
import signal
import subprocess
import tempfile
import time

from program import ZU, check, run, sample

FLOOR = sample("drawings/office-floor.dxf")


def zu(*arguments, **options):
    return subprocess.run([ZU, *arguments], capture_output=True, **options)


def lines(*arguments, status):
    done = zu(*arguments, "--json", text=True)
    check(done.returncode == status, "%r: status %d\n%s" % (arguments, done.returncode, done.stderr))
    return [json.loads(line) for line in done.stdout.splitlines()], done.stderr


def damaged_among_sound(folder):
    damaged = {7, 50, 51, 120, 199}
    text = open(FLOOR, "rb").read()
    for i in range(200):
        with open(os.path.join(folder, "d%03d.dxf" % i), "wb") as file:
            file.write(text[:3000 + 50 * i] if i in damaged else text)
    alone = json.loads(run("groups", FLOOR, "--json"))
    results, errors = lines("groups", folder, status=1)
    for i, result in enumerate(results):
        failed = i in damaged
        check(result["drawing"].endswith("d%03d.dxf" % i) and result["status"] == failed, "order: %r" % result)
        check(result["result"] == (None if failed else alone), "result of drawing %d" % i)
        check(("d%03d.dxf:" % i in result["error"]) if failed else result["error"] is None, "error: %r" % result)
    check(len(results) == 200 and errors.count("zu: ") == 5, "five errors:\n" + errors)
    check("195" in errors.splitlines()[-1] and "\r" not in errors, "a summary, no progress: " + errors)


def process_on(drawing):
    """The number of the process that works on the drawing; None before it started."""
    for file in glob.glob("/proc/[0-9]*/cmdline"):
        try:
            if open(file, "rb").read().endswith(b"--\0%s\0" % drawing.encode()):
                return int(file.split("/")[2])
        except OSError:
            pass  # another process, which has ended meanwhile
    return None


def crash(folder):
    """A pipe as drawing keeps its process waiting until it is killed."""
    pipe = os.path.join(folder, "pipe.dxf")
    os.mkfifo(pipe)
    writer = os.open(pipe, os.O_RDWR)
    program = subprocess.Popen([ZU, "groups", "--json", FLOOR, pipe, FLOOR, "--jobs", "2"], stdout=subprocess.PIPE,
                               stderr=subprocess.PIPE, text=True)
    process = None
    while not process and program.poll() is None:
        time.sleep(0.01)
        process = process_on(pipe)
    if process:
        os.kill(process, signal.SIGKILL)
    output, errors = program.communicate()
    os.close(writer)
    results = [json.loads(line) for line in output.splitlines()]
    check([r["status"] for r in results] == [0, 1, 0] and program.returncode == 1, output + errors)
    check("crashed" in results[1]["error"] and results[2]["result"], "the others have results")


def outputs(folder):
    os.makedirs(os.path.join(folder, "in/sub/deep"))
    for name in ("in/a.dxf", "in/sub/a.DXF", "in/sub/deep/b.dxf"):
        shutil.copy(FLOOR, os.path.join(folder, name))
    source, pattern = os.path.join(folder, "in"), os.path.join(folder, "out/{}.dxf")
    run("save", "-r", source, "-o", pattern)
    for name in ("a", "sub/a", "sub/deep/b"):
        check(open(os.path.join(folder, "out", name + ".dxf"), "rb").read() == open(FLOOR, "rb").read(), name)
    check(len(lines("groups", source, status=0)[0]) == 1, "one line for a folder of one, without its folders")
    run("save", FLOOR, source, "-o", os.path.join(folder, "x.dxf"), status=2)
    run("save", source + "/a.dxf", source + "/sub/a.DXF", "-o", pattern, status=2)
    run("groups", os.path.join(folder, "out/sub/deep/none"), FLOOR, status=1)
    run("groups", os.path.join(folder, "in/sub/deep/.."), "--jobs", "0", status=2)
    os.mkdir(os.path.join(folder, "edited"))
    run("set-attribute", "-r", source, "S401", "2850", "-o", os.path.join(folder, "edited"))
    run("set-attribute", FLOOR, "S401", "2850", "-o", os.path.join(folder, "new/"))
    alone = open(os.path.join(folder, "new/office-floor.dxf"), "rb").read()
    check(all(open(os.path.join(folder, "edited", name), "rb").read() == alone for name in ("a.dxf", "sub/a.DXF", "sub/deep/b.dxf")),
          "a file for each drawing in the folder")
    run("set-attribute", FLOOR, "S401", "-o", folder, status=2)
    run("plan", FLOOR, source, "-o", folder, status=2)
    rows = json.loads(run("attributes", FLOOR, "110", "--json"))
    check([r["result"] for r in lines("attributes", FLOOR, source + "/a.dxf", "110", status=0)[0]] == [rows, rows], "one handle in both")
    check([len(r["result"]["entities"]) > 0 for r in lines("part", sample("parts"), status=0)[0]] == [True] * 5, "part drawings")
    text = run("groups", FLOOR, FLOOR)
    check(text.count(FLOOR + ":\n" + run("groups", FLOOR)) == 2, "texts below names: " + text)


def streams():
    floor = open(FLOOR, "rb").read()
    binary = zu("save", "-", "-o", "-", "--binary", input=floor).stdout
    check(binary.startswith(b"AutoCAD Binary DXF\r\n\x1a\0"), "binary output")
    again = zu("save", "-", "-o", "-", "--ascii", input=binary).stdout
    check(zu("groups", "-", input=again).stdout.decode() == run("groups", FLOOR), "binary input")
    check([r["status"] for r in lines("groups", FLOOR, "-", status=1)[0]] == [0, 1], "an empty input among others")


def languages():
    for locale, command, there in (("ja_JP.UTF-8", "groops", "groups ではありませんか"), ("C", "groops", "did you mean groups?"),
                                   ("ja_JP.UTF-8", "connected %s 10C --group RTGR0007" % FLOOR, "RTGR00007 ではありませんか"),
                                   ("ja_JP.UTF-8", "set-attribute %s S410 1 -o x.dxf" % FLOOR, "S401 ではありませんか"),
                                   ("ja_JP.UTF-8", "plan %s -o x.png --layout y" % FLOOR, "図面にレイアウト"),
                                   ("ja_JP.UTF-8", "plan %s -o x.png --scale y" % FLOOR, "縮尺を指定"),
                                   ("ja_JP.UTF-8", "check %s --fail-on error" % FLOOR, "修復されていない指摘"),
                                   ("ja_JP.UTF-8", "check %s --only x" % FLOOR, "コード x はありません"),
                                   ("ja_JP.UTF-8", "set-attribute %s S401 | -o x.dxf" % FLOOR, "項目の区切り"),
                                   ("ja_JP.UTF-8", "groups --help", "使い方"), ("de_DE.UTF-8", "groups --help", "Usage")):
        done = zu(*command.split(), env={**os.environ, "LC_ALL": locale})
        check(there in (done.stdout + done.stderr).decode(), "%s under %s" % (command, locale))
    listed = [line for line in zu("--help-all", env={**os.environ, "LC_ALL": "ja_JP.UTF-8"}).stdout.decode().splitlines()]
    check(sum(any(ord(c) > 0x3000 for c in line) for line in listed) > len(listed) // 2, "help is in Japanese")
    check("\x1b" not in zu("groops").stderr.decode(), "no colours in a file")


with tempfile.TemporaryDirectory() as folder:
    for name, test in (("damaged", damaged_among_sound), ("crash", crash), ("outputs", outputs)):
        os.mkdir(os.path.join(folder, name))
        test(os.path.join(folder, name))
    streams()
    languages()
print("many drawings are worked on, each on its own")
