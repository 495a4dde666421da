"""The constants of the headers that stand for the platform's have the platform's values: constants_test.py COMPILER HOST"""
import pathlib
import re
import subprocess
import sys

compiler, host = sys.argv[1], pathlib.Path(sys.argv[2])
HEADERS = ("mfc/include/windef.h", "mfc/include/windows.h", "mfc/include/fileapi.h", "mfc/windows/include/winuser.h",
           "mfc/windows/include/commctrl.h")
CONSTANT = re.compile(r"^inline constexpr (?:\w+::)?\w+ (\w+) =\s*([^;]+);", re.MULTILINE)
FRAMEWORK = {"WM_INITIALUPDATE"}  # of the framework's headers, which the cross compiler lacks

constants = {}
for header in HEADERS:
    constants.update(CONSTANT.findall((host / header).read_text(encoding="utf-8")))
assert FRAMEWORK < constants.keys() and len(constants) > 200, len(constants)
lines = ["static_assert(static_cast<unsigned>(%s) == static_cast<unsigned>(%s), \"%s\");" % (name, value, name)
         for name, value in constants.items() if name not in FRAMEWORK]
source = "\n".join(["#define UNICODE", "#include <windows.h>", "#include <commctrl.h>", *lines, ""])
done = subprocess.run([compiler, "-std=c++20", "-fsyntax-only", "-x", "c++", "-"], input=source, text=True, capture_output=True)
if done.returncode != 0:
    sys.exit(done.stderr)
print("%d constants have the platform's values" % len(lines))
