"""The names that a shared library exports."""
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
