"""What the host exports: everything exported is named in one of its headers, and what modules use is there."""
import glob
import re
import sys

from exported_names import exported_names

library, host, *tools = sys.argv[1:]
headers = glob.glob(host + "/**/*.h", recursive=True)
words = set()
for path in headers:
    with open(path, encoding="utf-8") as file:
        words |= set(re.findall(r"\w+", file.read()))


def subject(name):
    """The first name in a symbol that the standard library does not own."""
    name = re.sub(r"^(vtable|typeinfo|typeinfo name|VTT|guard variable) for ", "", name)
    name = re.sub(r"^(non-)?virtual thunk to ", "", name)
    name = name.replace("(anonymous namespace)::", "")
    before = re.split(r"[(\[]", name)[0].split("<")[0].split(" ")[-1]
    return next((word for word in re.findall(r"\w+", before) if word != "zuhost"), name)


exported = exported_names(library, *tools)
strange = sorted(name for name in exported if subject(name) not in words or name.startswith(("std::", "__")))
missing = [name for name in ("acdbHostApplicationServices()", "LoadLibraryW(wchar_t const*)", "vtable for AcDbLine",
                             "AfxGetResourceHandle()")
           # Where the system has functions of the same name, the host's begin so.
           if name not in exported and "zuhost_" + name not in exported]
if strange or missing:
    sys.exit("exported by accident: %s\nnot exported: %s" % (strange[:20], missing))
print("%d names exported, each in one of %d headers" % (len(exported), len(headers)))
