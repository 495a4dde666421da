"""Part drawings listed and drawn: sizes and paths of pictures, and malicious drawings."""
import json
import os
import struct
import subprocess
import tempfile

from program import SAMPLES, ZU, check, run, run_json, sample


def size_of_picture(path):
    with open(path, "rb") as f:
        start = f.read(24)
    check(start[:8] == b"\x89PNG\r\n\x1a\n", path + " is a picture")
    return struct.unpack(">II", start[16:])


def check_folder(folder):
    """Every drawing has its picture under the same relative path."""
    output = run("part", "--preview-dir", folder, "--size", "64", os.path.join(SAMPLES, "parts"))
    drawings = [os.path.relpath(os.path.join(where, name), os.path.join(SAMPLES, "parts"))
                for where, _, names in os.walk(os.path.join(SAMPLES, "parts")) for name in names
                if name.endswith(".dxf")]
    check(output == "%d pictures\n" % len(drawings) and len(drawings) > 5, "number of pictures")
    for drawing in drawings:
        width, height = size_of_picture(os.path.join(folder, drawing + ".png"))
        check((width == 64 and 12 <= height <= 48) or (height == 48 and 9 <= width < 64), "size of a thumbnail")


def check_names(folder):
    """Control characters of a name don't reach the terminal."""
    path = os.path.join(folder, "name.dxf")
    with open(path, "w") as f:
        f.write("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nl^[[31m\x7f\n0\nENDTAB\n0\nENDSEC\n0\nEOF\n")
    listing = run("part", path)
    check("l?[31m?" in listing and all(c.isprintable() or c == "\n" for c in listing), "control characters")
    check(run_json("part", path)["layers"][0]["name"] == "l\x1b[31m\x7f", "JSON keeps the name")


def check_foreign(folder):
    """A file that is no drawing fails; an empty drawing is valid."""
    path = os.path.join(folder, "some.dxf")
    for contents, status in (("", 1), ("hello\nworld\n", 1), ("0\nEOF\n", 0),
                             ("999\nby hand\n0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n", 0)):
        with open(path, "w") as f:
            f.write(contents)
        run("part", path, status=status)


def check_faults():
    """A drawing is read from a pipe; its faults are listed up to a limit."""
    lines = "0\nSECTION\n2\nENTITIES\n0\nLINE\n" + "10\n12abc\n" * 60 + "0\nENDSEC\n0\nEOF\n"
    done = subprocess.run([ZU, "part", "/dev/stdin", "--json"], input=lines, capture_output=True, text=True)
    check(done.returncode == 0 and json.loads(done.stdout)["entities"][0]["p1"] == [12, 0], "a pipe is read")
    warnings = done.stderr.splitlines()
    check(warnings[0].startswith("/dev/stdin:7: warning: group code 10: "), "place of a fault")
    check(len(warnings) == 51 and "10 more" in warnings[-1], "number of warnings")


with tempfile.TemporaryDirectory() as folder:
    check_faults()
    picture = os.path.join(folder, "fan.png")
    listing = run("part", sample("parts/binary/equip-fan.dxf"), "--preview", picture)
    check(listing.startswith("binary, version 1015, "), "form and version")
    check(size_of_picture(picture) == (800, 400), "size of a picture")
    check_folder(os.path.join(folder, "pictures"))
    check_names(folder)
    check_foreign(folder)
    run("part", sample("parts/fitting-01.dxf"), "--preview", os.path.join(folder, "missing", "a.png"), status=1)
    run("part", os.path.join(folder, "missing.dxf"), status=1)
    run("part", "--preview-dir", folder, os.path.join(folder, "missing"), status=1)
    run("part", sample("parts/fitting-01.dxf"), "--size", "15", status=2)
print("parts agree")
