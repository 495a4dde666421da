"""The names that a shared library exports, and those that headers mark for it."""
import re
import subprocess


def output_of(*command, text=None):
    return subprocess.run(command, input=text, capture_output=True, text=True, check=True).stdout


def exported_names(library, objdump="objdump"):
    """Returns the demangled names that an ELF or PE file exports."""
    if not library.endswith(".dll"):
        return {line.split(" ", 2)[2] for line in output_of("nm", "-D", "--defined-only", "-C", library).splitlines()}
    table = output_of(objdump, "-p", library).split("[Ordinal/Name Pointer] Table", 1)[1].split("\n\n", 1)[0]
    mangled = re.findall(r"^\s*\[ *\d+\].* (\S+)$", table, re.MULTILINE)
    return set(output_of("c++filt", text="\n".join(mangled)).splitlines())


def code_of(path):
    """Returns a header without its comments and directives."""
    with open(path, encoding="utf-8") as file:
        return re.sub(r"//[^\n]*|#(?:[^\n]*\\\n)*[^\n]*", "", file.read())


def marked_names(code, mark):
    """Returns the names of the classes, functions and variables that the code marks."""
    classes = set(re.findall(r"\b(?:class|struct)\s+%s\s+(\w+)" % mark, code))
    functions, variables = set(), set()
    for declaration in re.findall(r"(?<!class )(?<!struct )\b%s\b([^;{]*)" % mark, code):
        declaration = re.sub(r"decltype\(\w+\)", "", declaration)
        call = re.search(r"(operator(?=\W)|\w+(?=\s*\())", declaration)
        if call:
            functions.add(call.group(1))
        else:
            variables.add(re.findall(r"\w+", declaration)[-1])
    return classes, functions, variables
