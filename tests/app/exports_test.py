"""The exported set of the library is exactly what its public headers declare: the names of the interface, and namespace
zucomn by the headers in model/. Functions that a build leaves out are given by name."""
import glob
import re
import sys

from exported_names import code_of, exported_names, marked_names

library, headers, objdump, *left_out = sys.argv[1:]
functions, variables, classes, modern = set(), set(), set(), set()
for path in glob.glob(headers + "/**/*.h", recursive=True):
    marked = marked_names(code_of(path), "ZUCOMN_API")
    classes |= marked[0]
    if "/zucomn/model/" in path:
        modern |= {"zucomn::" + name for name in marked[1] | marked[2]}
    else:
        functions |= marked[1]
        variables |= marked[2]

exported = exported_names(library, objdump)
exported_functions, exported_variables, exported_modern, strange = set(), set(), set(), []
for symbol in exported:
    name = re.split(r"[(\[]", symbol)[0].split(" ")[-1] if " for " not in symbol else symbol
    described = re.fullmatch(r"(?:vtable|typeinfo|typeinfo name) for (\w+)", symbol)
    if described and described.group(1) in classes or name.split("::")[0] in classes:
        continue
    if symbol.startswith(("non-virtual thunk", "virtual thunk", "guard variable")) and any(c in symbol for c in classes):
        continue
    if name in modern:
        exported_modern.add(name)
    elif name in functions:
        exported_functions.add(name)
    elif name in variables:
        exported_variables.add(name)
    elif name != "acrxEntryPoint":
        strange.append(symbol)

missing = sorted((functions - exported_functions - set(left_out)) | (variables - exported_variables) | (modern - exported_modern))
if missing or strange or "acrxEntryPoint" not in exported:
    sys.exit("declared but not exported: %s\nexported but not declared: %s" % (missing, sorted(strange)[:20]))
print("interface: %d functions, %d variables, %d classes; zucomn: %d functions; exported as declared"
      % (len(functions), len(variables), len(classes), len(modern)))
