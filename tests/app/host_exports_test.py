"""The host exports exactly what its headers mark, and they mark all that they declare and its sources define."""
import glob
import os
import re
import sys

from exported_names import code_of, exported_names, marked_names, output_of

library, nm, objdump, folders, *objects = sys.argv[1:]
headers = {}
for folder in folders.split(":"):
    for path in glob.glob(folder + "/**/*.h", recursive=True):
        if not path.endswith("/on_windows/include/tchar.h"):  # leads to the host's
            headers.setdefault(os.path.relpath(path, folder), path)  # the first folder's hides the others
code = "\n".join(code_of(path) for path in headers.values())
classes, functions, variables = marked_names(code, "ZUHOST_API")
all_classes = set(re.findall(r"^\s*(?:class|struct)\s+(?:ZUHOST_API\s+)?(\w+)[^;{()]*\{", code, re.MULTILINE))
all_functions = set(re.findall(r"^(?!template|inline|using)[\w\[][^;{}()=\n]*?(\w+)\(", code, re.MULTILINE))
namespaces = set(re.findall(r"\w+", " ".join(re.findall(r"^namespace ([\w:]+)", code, re.MULTILINE))))


def parts(symbol):
    """The qualified name in a symbol, in parts: scopes and the name itself."""
    name = re.sub(r"^(?:.* for |(?:non-)?virtual thunk to )", "", symbol).replace("(anonymous namespace)::", "")
    name = re.split(r"[(\[<]|operator", name)[0].split(" ")[-1]
    return re.findall(r"\w+", name) or ["operator"]


def own(name):
    # Where the system has functions of the same name, the host's begin so.
    return name.removeprefix("zuhost").lstrip("_")


exported = exported_names(library, objdump)
names = {own(part) for symbol in exported for part in parts(symbol)}
marked = {own(name) for name in classes | functions | variables}
strange = [symbol for symbol in exported if not marked & {own(part) for part in parts(symbol)}]
missing = marked - names

# In objects for Windows, inline functions look like others.
symbols = "" if library.endswith(".dll") else output_of(nm, "-C", "--defined-only", "--extern-only", *objects)
strong = {match.group(1) for match in (re.fullmatch(r"[0-9a-f]+ [TDBR] (.*)", line) for line in symbols.splitlines()) if match}
unmarked = []
for symbol in strong - exported:
    *scopes, name = parts(symbol)
    # A function in sources may have the name of a marked one.
    if all_classes & set(scopes) or name in all_functions - functions and namespaces.issuperset(scopes):
        unmarked.append(symbol)
if strange or missing or unmarked:
    sys.exit("exported by accident: %s\nmarked, not exported: %s\ndeclared, not marked: %s"
             % (sorted(strange)[:20], sorted(missing), sorted(unmarked)[:20]))
print("%d names exported: %d classes, %d functions and variables" % (len(exported), len(classes), len(functions | variables)))
