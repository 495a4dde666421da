#!/usr/bin/env python3
"""Writes the exports of a DLL: what its objects define for others, without what the standard library's templates bring.

    make_exports.py NM OUTPUT.def OBJECT...
"""
import re
import subprocess
import sys

# Types, functions and constants of namespace std and of the compiler's library, by their mangled names.
STANDARD = re.compile(r"_Z(?:T[VISTC]|GV|Z)*(?:N[KVRO]*)?(?:S[tabdios]|9__gnu_cxx|10__cxxabiv1)|_Zn|_Zd|_ZT[hv]|_GLOBAL_|DW\.")
CODE = "Tt"


def main():
    nm, output, *objects = sys.argv[1:]
    listed = subprocess.run([nm, "--defined-only", "--extern-only", "--format=posix", *objects], capture_output=True,
                            text=True, check=True).stdout
    found = {}
    for line in listed.splitlines():
        parts = line.split()
        if len(parts) >= 3 and re.fullmatch(r"[A-Za-z_]\w*", parts[0]) and not STANDARD.match(parts[0]):
            found[parts[0]] = "" if parts[1] in CODE else " DATA"
    with open(output, "w", encoding="ascii") as file:
        file.write("EXPORTS\n" + "".join("%s%s\n" % item for item in sorted(found.items())))


main()
