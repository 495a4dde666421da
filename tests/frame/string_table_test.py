"""The texts survive as a string table of resources: compiled by the cross compiler's resource compiler and read back."""
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile

COMPILER = "x86_64-w64-mingw32-windres"
STRING_TABLE = b"\xff\xff\x06\x00"


def string_table(path):
    """The texts of a file of compiled resources by their ids: each resource holds sixteen."""
    with open(path, "rb") as file:
        data = file.read()
    at, texts = 0, {}
    while at < len(data):
        size, head = struct.unpack_from("<II", data, at)
        if data[at + 8:at + 12] == STRING_TABLE:
            first, place = (struct.unpack_from("<H", data, at + 14)[0] - 1) * 16, at + head
            for i in range(first, first + 16):
                length = struct.unpack_from("<H", data, place)[0]
                if length:
                    texts[i] = data[place + 2:place + 2 + 2 * length].decode("utf-16-le")
                place += 2 + 2 * length
        at += (head + size + 3) // 4 * 4
    return texts


def texts_of(path):
    with open(path, encoding="utf-8-sig") as file:
        found = re.findall(r'^\s*(\d+)\s*=\s*"(.+)"\s*$', file.read(), re.MULTILINE)
    return {int(n): re.sub(r"\\(.)", lambda m: {"n": "\n", "t": "\t"}.get(m[1], m[1]), text) for n, text in found}


if not shutil.which(COMPILER):
    print("no " + COMPILER)
    sys.exit(77)
resources = sys.argv[1]
with tempfile.TemporaryDirectory() as folder:
    for name, language in (("ja", "1041"), ("en", "1033")):
        strings, script, compiled = os.path.join(resources, name + ".strings"), folder + "/x.rc", folder + "/x.res"
        subprocess.run([sys.executable, resources + "/make_string_table.py", strings, language, script], check=True)
        subprocess.run([COMPILER, script, "-O", "res", "-o", compiled], check=True)
        made, wanted = string_table(compiled), texts_of(strings)
        if made != wanted or len(wanted) < 100:
            sys.exit("%s: %s" % (name, [(n, wanted.get(n), made.get(n)) for n in {*made, *wanted} if made.get(n) != wanted.get(n)][:5]))
print("all texts are the same")
