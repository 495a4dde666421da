"""The exported set of the library is exactly what its public headers declare: the names of the interface, and namespace
zucomn by the headers in model/. Functions that a build leaves out are given by name."""
import glob
import re
import sys

from exported_names import exported_names

library, headers, objdump, *left_out = sys.argv[1:]
functions, variables, classes, modern = set(), set(), set(), set()
for path in glob.glob(headers + "/**/*.h", recursive=True):
    with open(path, encoding="utf-8") as f:
        text = re.sub(r"//[^\n]*", "", f.read())
    text = re.sub(r"#[^\n]*", "", text)
    classes |= set(re.findall(r"\b(?:class|struct)\s+ZUCOMN_API\s+(\w+)", text))
    for declaration in re.findall(r"(?<!class )(?<!struct )\bZUCOMN_API\b([^;{]*)", text):
        call = re.search(r"(\w+)\s*\(", declaration)
        name = call.group(1) if call else declaration.split()[-1]
        if "/zucomn/model/" in path:
            modern.add("zucomn::" + name)
        else:
            (functions if call else variables).add(name)

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
