#!/usr/bin/env python3
"""The idioms of the host's interface: each stands once, in idioms/HEADER.idioms, with its state.

    idioms.py source FILE.idioms OUT.cpp    the test that compiles the rows that are there, and runs those that return
    idioms.py missing DIRECTORY COMMAND...  compiles what is said to be missing; every row has to be refused
    idioms.py table DIRECTORY PAGE [--update]   compares the page of documentation with the rows, or writes it

The form of a file:

    # Title of the table
    #include "dbents.h"                          code before the rows: includes, functions that rows call
    there    AcDbLine line; return line.isA() == AcDbLine::desc();
    differs  acedUpdateDisplay();
             -- Does nothing: nothing is displayed.
    missing  AcDbSpline spline;
             -- Use acdbEntGet.

Indented lines go on with the row; a note begins with "--". Code that returns is run, on a new drawing that is the
working database, and has to return true.
"""
import dataclasses
import pathlib
import re
import subprocess
import sys
import tempfile

STATES = ("there", "differs", "missing")


@dataclasses.dataclass
class Row:
    line: int
    state: str
    code: str
    note: str = ""

    @property
    def runs(self):
        return re.search(r"\breturn\b", self.code) is not None


@dataclasses.dataclass
class Table:
    path: pathlib.Path
    title: str = ""
    prelude: str = ""
    rows: list = dataclasses.field(default_factory=list)


def read(path):
    table = Table(path)
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        word, _, rest = line.partition(" ")
        if line.startswith("# "):
            table.title = rest
        elif word in STATES:
            table.rows.append(Row(number, word, rest.strip()))
        elif table.rows and line.startswith(" "):
            text = line.strip()
            row = table.rows[-1]
            if text.startswith("-- ") or row.note:
                row.note = (row.note + " " + text.removeprefix("-- ")).strip()
            else:
                row.code += "\n" + text
        elif line and table.rows:
            sys.exit(f"{path}:{number}: a row begins with one of: {', '.join(STATES)}")
        else:
            table.prelude += line + "\n"
    for row in table.rows:
        if row.state != "there" and not row.note:
            sys.exit(f"{path}:{row.line}: '{row.state}' needs a note")
    return table


def tables(directory):
    return [read(path) for path in sorted(pathlib.Path(directory).glob("*.idioms"))]


def function_of(row, path, result="bool", end="return true;"):
    return (f'[[maybe_unused]] {result} row{row.line}() {{\n#line {row.line} "{path}"\n{row.code}\n'
            f";{end}\n}}\n")


def source(path, out):
    table = read(path)
    present = [row for row in table.rows if row.state != "missing"]
    parts = [f'#line 2 "{path}"\n{table.prelude}\n#include "idiom_test.h"\nnamespace {{\n']
    parts += [function_of(row, path) for row in present]
    parts.append("constexpr Idiom kIdioms[] = {\n")
    parts += [f'    {{{row.line}, row{row.line}}},\n' for row in present if row.runs]
    parts.append("    {0, nullptr},\n};\n} // namespace\n")
    name = re.sub(r"\W", "_", path.stem)
    parts.append(f'TEST(Idioms, {name}) {{\n    expectAll("{path.name}", kIdioms);\n}}\n')
    out.write_text("".join(parts), encoding="utf-8")


def refused_lines(table, command):
    """The lines of the table at which the compiler finds an error."""
    with tempfile.NamedTemporaryFile("w", suffix=".cpp", encoding="utf-8") as file:
        file.write(table.prelude)
        for row in table.rows:
            if row.state != "missing":
                continue
            if row.code.startswith("#include"):
                header = row.code.split(maxsplit=1)[1]
                file.write(f'#if !__has_include({header})\n#line {row.line} "{table.path}"\n#error missing\n#endif\n')
            else:
                file.write("namespace {\n" + function_of(row, table.path, "auto", "") + "}\n")
        file.flush()
        run = subprocess.run([*command, "-fsyntax-only", "-w", "-fmax-errors=0", file.name], capture_output=True,
                             text=True, check=False)
    errors = re.findall(r"^(.+?):(\d+):\d+: (?:fatal )?error: .*", run.stderr, re.MULTILINE)
    if any(path != str(table.path) for path, _ in errors):
        sys.exit(f"{table.path}: the code before the rows does not compile:\n{run.stderr}")
    return {int(line) for _, line in errors}


def missing(directory, command):
    wrong = []
    for table in tables(directory):
        rows = [row for row in table.rows if row.state == "missing"]
        refused = refused_lines(table, command) if rows else set()
        for row in rows:
            if not any(row.line <= line <= row.line + row.code.count("\n") for line in refused):
                wrong.append(f"{table.path}:{row.line}: compiles, so it is not missing: {row.code}")
    if wrong:
        sys.exit("\n".join(wrong))


HEAD = """# The host's interface: what is there

One table for each subject. Every row is compiled by a test: `there` and `differs` compile, and where a row returns a
value, it runs and the value is true; `missing` does not compile. The rows stand in
`tests/interface/idioms`; `tests/interface/idioms.py table tests/interface/idioms docs/host-interface.md --update`
writes this page.
"""


def cell(text):
    return text.replace("\n", " ").replace("|", "\\|")


def page(directory):
    parts = [HEAD]
    for table in tables(directory):
        headers = " ".join(f"`{name}`" for name in re.findall(r'#include ["<](.*?)[">]', table.prelude))
        parts.append(f"\n## {table.title}\n\nHeaders: {headers}\n\n| idiom | state | what differs, what to use instead |\n"
                     "|---|---|---|\n")
        parts += [f"| `{cell(row.code)}` | {row.state} | {cell(row.note)} |\n" for row in table.rows]
    return "".join(parts)


def compare_page(directory, path, update):
    text = page(directory)
    if update:
        path.write_text(text, encoding="utf-8")
    elif path.read_text(encoding="utf-8") != text:
        sys.exit(f"{path}: differs from the rows; write it again with --update")


def main():
    what, *arguments = sys.argv[1:]
    if what == "source":
        source(pathlib.Path(arguments[0]), pathlib.Path(arguments[1]))
    elif what == "missing":
        missing(arguments[0], arguments[1:])
    elif what == "table":
        compare_page(arguments[0], pathlib.Path(arguments[1]), "--update" in arguments[2:])
    else:
        sys.exit(__doc__)


main()
