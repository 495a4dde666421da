"""The windows that the program draws into pictures, without a desktop."""
import os
import tempfile

from program import check, run, sample

for name in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
    os.environ.pop(name, None)


def picture(folder, *arguments):
    path = os.path.join(folder, "window.png")
    run(*arguments, "--screenshot", path)
    with open(path, "rb") as f:
        data = f.read()
    os.remove(path)
    check(data.startswith(b"\x89PNG") and data.endswith(b"IEND\xaeB`\x82"), "a whole picture of %s" % arguments[0])
    return data


with tempfile.TemporaryDirectory() as folder:
    place = os.path.join(folder, "出力 表 Ώ")
    run("demo", "--samples", sample(""), "--output", place)
    settings = ("--settings", os.path.join(place, "settings", "system", "master.ini"))
    lines = os.path.join(folder, "parts.txt")
    with open(lines, "w", encoding="cp932") as f:
        f.write("S401|2700|E|取付高|1|1|S501|給気|A|用途|4|1|S401|2400|A|取付高|1|1|")
    for arguments in (("window", sample("drawings/office-floor.dxf"), "110"), ("parts-list", lines)):
        plain = picture(folder, *arguments)
        check(plain != picture(folder, *arguments, *settings), "the settings give the names of attributes")
        run(*arguments, status=1)
        run(*arguments, "--screenshot", os.path.join(folder, "missing", "window.png"), status=1)
    check(open(lines, "rb").read().endswith(b"|1|1|"), "looking changes nothing")
    run("parts-list", os.path.join(folder, "missing.txt"), "--screenshot", lines, status=1)
    run("parts-list", status=2)
print("windows drawn")
