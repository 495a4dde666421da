#!/usr/bin/env python3
"""Writes texts as a string table of resources, for hosts whose modules hold their texts as such.

    make_string_table.py TEXTS.strings LANGUAGE-ID OUTPUT.rc
"""
import re
import sys

LINE = re.compile(r'\s*(\d+)\s*=\s*"((?:[^"\\]|\\.)*)"\s*')
ESCAPES = {"n": "\\n", "t": "\\t", '"': '""', "\\": "\\\\"}


def resource_text(text):
    """The text as resource compilers read it whatever their code page: quotes are doubled, the rest is ASCII."""
    text = re.sub(r"\\(.)", lambda match: ESCAPES[match.group(1)], text)
    units = text.encode("utf-16-be")
    numbers = (units[i] << 8 | units[i + 1] for i in range(0, len(units), 2))
    return "".join(chr(n) if n < 128 else "\\x%04X" % n for n in numbers)


def main():
    source, language, output = sys.argv[1:]
    entries = []
    with open(source, encoding="utf-8-sig") as file:
        for number, line in enumerate(file, 1):
            if not line.strip() or line.lstrip().startswith("#"):
                continue
            match = LINE.fullmatch(line.rstrip("\n"))
            if not match:
                sys.exit("%s:%d: not of the form  id = \"text\"" % (source, number))
            entries.append((int(match.group(1)), resource_text(match.group(2))))
    primary, sub = int(language) & 0x3FF, int(language) >> 10
    with open(output, "w", encoding="ascii", newline="\n") as file:
        file.write("LANGUAGE %d, %d\nSTRINGTABLE\nBEGIN\n" % (primary, sub))
        file.writelines('  %d L"%s"\n' % entry for entry in sorted(entries))
        file.write("END\n")


main()
