"""Listings as CSV, read by an independent reader and compared with the same listings as JSON."""
import csv
import io
import json
import subprocess
import tempfile

from program import ZU, check, run, run_json, sample

DRAWING = sample("drawings/office-floor.dxf")


def rows(*arguments, status=0):
    """The records by their headings; the table must begin with the mark and end each line with CR LF."""
    output = subprocess.run([ZU, *arguments, "--csv"], capture_output=True)
    check(output.returncode == status, "status of %r" % (arguments,))
    output = output.stdout
    check(output.startswith(b"\xef\xbb\xbf") and output.count(b"\n") == output.count(b"\r\n"), "form of %r" % (arguments,))
    return list(csv.DictReader(io.StringIO(output.decode("utf-8-sig"), newline=""), strict=True))


def plain(value):
    if isinstance(value, list):
        return ("; " if value and isinstance(value[0], list) else " ").join(map(plain, value))
    return "" if value is None else str(value).lower() if isinstance(value, bool) else str(value)


for command in (("elements", DRAWING), ("groups", DRAWING), ("check", DRAWING)):
    table, wanted = rows(*command), run_json(*command)
    check(len(table) == len(wanted) > 0, "rows of %r" % (command,))
    for row, value in zip(table, wanted):
        common = value.keys() & row.keys()
        check(len(common) >= 5 and all(row[k] == plain(value[k]) for k in common), "%r for %r" % (row, value))
first = rows("elements", DRAWING)[0]
check([float(first[c]) for c in "xyz"] == run_json("elements", DRAWING)[0]["origin"] and first["what"] == "-", "place")
check([list(r.values()) for r in rows("attributes", DRAWING, "110")] == run_json("attributes", DRAWING, "110"), "attributes")
joined = run_json("connected", DRAWING, "--all")
check([tuple(r.values()) for r in rows("connected", DRAWING, "--all")] == [(h, o) for h in joined for o in joined[h]], "pairs")

with tempfile.TemporaryDirectory() as folder:
    other = folder + "/other.dxf"
    run("set-attribute", DRAWING, "S401", "=1", "--handles", "110,10E", "-o", other)
    changes = json.loads(subprocess.run([ZU, "compare", DRAWING, other, "--json"], capture_output=True).stdout)["changed"]
    wanted = [["changed", c["handle"], "", v["key"], v["old"], "'" + v["new"], "", ""] for c in changes for v in c["attributes"]]
    check([list(r.values()) for r in rows("compare", DRAWING, other, status=1)] == wanted and len(wanted) == 2, "changed values")

# Fields that need quotes, and those that a spreadsheet would take for formulas.
FIELDS = {'say "a, b"': 'say "a, b"', "=1+1": "'=1+1", "-1.5": "-1.5", "+5": "+5", "-": "-", "@SUM(A1)": "'@SUM(A1)",
          "+81-3": "'+81-3", "＝1＋1": "'＝1＋1", "給気": "給気", "": ""}
with tempfile.NamedTemporaryFile("w", encoding="utf-8-sig") as file:
    file.write("|".join(["x", *FIELDS, "z"]) + "\n")
    file.flush()
    check(list(rows("table", file.name)[0].values()) == ["x", *FIELDS.values(), "z"], "fields of a table")
run("elements", DRAWING, "--csv", "--json", status=2)
print("CSV agrees")
