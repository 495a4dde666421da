#!/usr/bin/env python3
"""Compares what the program built for Windows prints and writes, under Wine, with what the one built for Linux does.

    compare_outputs.py LINUX_ZU WINE WINDOWS_ZU SAMPLES

Every command runs on the samples in a folder of the same name, in English and in Japanese; standard output, standard
error, status and the files left have to be the same bytes.
"""
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

FLOOR = "samples/drawings/office-floor.dxf"
OLD = "samples/drawings/office-floor-932.dxf"
SETTINGS = "samples/system/master.ini"
TABLE = "samples/system/属性IDタイトル.csv"
FORMS = ([], ["--json"], ["--csv"])
LOCALES = ("C.UTF-8", "ja_JP.UTF-8")


def listings():
    commands = []
    for form in FORMS:
        for drawing in (FLOOR, OLD):
            commands += [[name, drawing, *form] for name in ("elements", "groups", "attributes", "check", "quantities")]
            commands += [["connected", drawing, "--all", *form], ["elements", drawing, "--routes", *form],
                         ["quantities", drawing, "--by", "kind,group,what,block", "--settings", SETTINGS, *form],
                         ["attributes", drawing, "--settings", SETTINGS, *form]]
        commands += [["compare", FLOOR, OLD, *form], ["part", "samples/parts", *form],
                     ["elements", FLOOR, "--where", "S501=給気", *form], ["attributes", FLOOR, "10C", *form],
                     ["connected", FLOOR, "10C", *form], ["elements", FLOOR, "--layer", "*家*", *form],
                     ["elements", FLOOR, "--kind", "1", *form], ["part", "samples/parts", "-r", *form],
                     ["set-attribute", FLOOR, "S401", "2850", "-o", "out.dxf", *form],
                     ["set-attribute", OLD, "S401", "2850", "-o", "out.dxf", "--settings", SETTINGS, *form]]
    parts = ["equip-fan-utf8", "equip-fan", "fitting-01", "fitting-02", "fitting-03"]
    commands += [["part", "samples/parts/%s.dxf" % name, "--strict"] for name in parts]
    return commands


def edits():
    commands = []
    for drawing in (FLOOR, OLD):
        commands += [["save", drawing, "-o", "out.dxf"], ["save", drawing, "-o", "out.dxf", "--binary"],
                     ["save", drawing, "-o", "-"], ["save", drawing, "-o", "new/folder/"],
                     ["check", drawing, "--repair", "-o", "out.dxf"], ["save", drawing, "-o", "保存 図.dxf"],
                     ["save", drawing, "-o", drawing], ["check", drawing, "--fail-on", "warning"]]
    commands += [["save", "samples/drawings", "-o", "out/{}.dxf"], ["groups", "samples/drawings", "--jobs", "2"],
                 ["groups", FLOOR, OLD, "missing.dxf", "--json"], ["attributes", FLOOR, OLD, "--csv"],
                 ["table", TABLE], ["table", TABLE, "--json"], ["table", "samples/parts/fitting.csv", "--skip", "1"],
                 ["table", "-"], ["link", "get", "samples/system/LinkInfo.lif", "a"],
                 ["link", "save", "out.lif", "鍵", "値", "b", "2"], ["link", "save", "samples/system/LinkInfo.lif", "c", "3"]]
    return commands


def mistakes():
    return [["elements", "missing.dxf"], ["elements", "samples"], ["elements"], ["element", FLOOR],
            ["save", FLOOR, "-o", "missing/out.dxf"], ["save", FLOOR, "-o", "samples"], ["table", "missing.csv"],
            ["elements", SETTINGS], ["part", FLOOR], ["attributes", FLOOR, "FFFF"], ["elements", FLOOR, "--strange"],
            ["set-attribute", FLOOR, "X", "1", "-o", "out.dxf"], ["run-command", "missing", "X", FLOOR],
            ["save", FLOOR, "-o", ""], ["groups", "--help"], ["check", "--help"], ["--version"]]


def left(folder):
    return {str(path.relative_to(folder)): path.read_bytes() for path in sorted(folder.rglob("*")) if path.is_file()}


def prepare(folder, samples):
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(samples, folder / "samples")
    master = folder / SETTINGS
    master.write_bytes(master.read_bytes().replace(b"@ROOT@", str(folder / "samples").encode()))


def run(program, words, locale, folder, samples):
    """What a command prints and leaves in the folder, which is made as it was only when a command has changed it."""
    if not folder.exists():
        prepare(folder, samples)
    before = left(folder)
    # Files, not pipes: services that Wine starts would keep these open.
    with open(folder / "samples/parts/fitting.csv", "rb") as given, tempfile.TemporaryFile() as output, \
            tempfile.TemporaryFile() as errors:
        done = subprocess.run([*program, *words], cwd=folder, stdin=given, stdout=output, stderr=errors, timeout=120,
                              env=environment(locale))
        # Times differ.
        printed = [re.sub(rb"[0-9.e-]+ (s:|\xe7\xa7\x92)", rb"T \1", stream.seek(0) or stream.read())
                   for stream in (output, errors)]
    after = left(folder)
    if after != before:
        prepare(folder, samples)
    return done.returncode, *printed, {n: b for n, b in after.items() if before.get(n) != b}


def environment(locale):
    """Wine reads arguments and names of files by LC_CTYPE; the program takes its language from LC_MESSAGES."""
    kept = {name: value for name, value in os.environ.items() if not name.startswith(("LC_", "LANG"))}
    return {**kept, "LC_CTYPE": "C.UTF-8", "LC_MESSAGES": locale}


def difference(linux, windows):
    for name, a, b in zip(("status", "output", "errors", "files"), linux, windows):
        if a == b:
            continue
        if name == "files":
            return "files %s instead of %s" % (sorted(b), sorted(a)) if sorted(a) != sorted(b) else "contents of files"
        if name == "status":
            return "status %d instead of %d: %s" % (b, a, windows[2].decode("utf-8", "replace"))
        at = next((i for i, (x, y) in enumerate(zip(a, b)) if x != y), min(len(a), len(b)))
        return "%s: %r instead of %r" % (name, b[max(at - 40, 0):at + 60], a[max(at - 40, 0):at + 60])
    return None


def compare(linux_zu, windows_zu, samples, locale):
    """Returns how many commands ran, how many files they wrote, and the differences."""
    commands, wrote, differences = listings() + edits() + mistakes(), 0, []
    with tempfile.TemporaryDirectory() as parent:
        folder = pathlib.Path(parent) / "folder"
        for words in commands:
            linux = run(linux_zu, words, locale, folder, samples)
            windows = run(windows_zu, words, locale, folder, samples)
            wrote += len(linux[3])
            if problem := difference(linux, windows):
                differences.append("zu %s (%s): %s" % (" ".join(words), locale, problem))
    return len(commands), wrote, differences


def main():
    linux_zu, wine, windows_zu, samples = (os.path.abspath(argument) for argument in sys.argv[1:])
    with concurrent.futures.ThreadPoolExecutor() as pool:
        results = list(pool.map(lambda locale: compare([linux_zu], [wine, windows_zu], samples, locale), LOCALES))
    count, wrote = (sum(result[i] for result in results) for i in (0, 1))
    differences = [line for result in results for line in result[2]]
    print(*differences, sep="\n", end="\n" if differences else "")
    if wrote < 20:
        sys.exit("the commands write files: only %d were" % wrote)
    print("%d commands, %d files, %d differ" % (count, wrote, len(differences)))
    sys.exit(1 if differences else 0)


main()
