"""Holds each language file to the built-in texts: no text that is never asked for, none twice, and the same
conversions in the same order."""
import pathlib
import re
import sys

LINE = re.compile(r'(\d+) = "((?:[^"\\]|\\.)*)"')
CONVERSION = re.compile(r"%(?!%)[-+ #0]*[\d*]*(?:\.[\d*]+)?[hlIL\d]*[a-zA-Z]")


def texts(path, faults):
    found = {}
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        match = LINE.fullmatch(line.strip())
        if not match:
            faults.append("%s:%d: no text" % (path.name, number))
        elif match[1] in found:
            faults.append("%s:%d: text %s comes twice" % (path.name, number, match[1]))
        else:
            found[match[1]] = match[2]
    return found


def conversions(text):
    return CONVERSION.findall(text.replace("%%", "")) + sorted(re.findall(r"\{\d\}", text))


def main():
    folder, faults = pathlib.Path(sys.argv[1]), []
    built_in = texts(folder / "ja.strings", faults)
    others = [path for path in folder.glob("*.strings") if path.name != "ja.strings"]
    for path in others:
        for number, text in texts(path, faults).items():
            if number not in built_in:
                faults.append("%s: text %s is not among the built-in texts" % (path.name, number))
            elif conversions(text) != conversions(built_in[number]):
                faults.append("%s: text %s has other conversions than the built-in text" % (path.name, number))
    if not built_in or not others:
        faults.append("no language files in " + str(folder))
    sys.exit("\n".join(faults) or 0)


main()
