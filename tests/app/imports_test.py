"""Modules import the host's data by the marks at its declarations: imports_test.py NM IMPORT_LIBRARY OBJECT...

The linker could import data without them (automatic import), functions through a jump of the import library.
"""
import sys

from exported_names import output_of

nm, library, *objects = sys.argv[1:]


def names(*arguments):
    lines = output_of(nm, "--extern-only", *arguments).splitlines()
    return {(line.split()[-2], line.split()[-1]) for line in lines if len(line.split()) > 1}


offered = names("--defined-only", library)
data = {name.removeprefix("__imp_") for kind, name in offered if kind == "I"} - {name for kind, name in offered if kind == "T"}
used = {name for _, name in names("--undefined-only", *objects)}
automatic = sorted(data & used)
if automatic or not any(name.startswith("__imp_") and name.removeprefix("__imp_") in data for name in used):
    sys.exit("imported without a mark: %s" % automatic[:20])
print("%d names of data are offered, %d of them imported" % (len(data), len({"__imp_" + name for name in data} & used)))
