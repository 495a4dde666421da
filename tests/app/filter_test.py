"""Filters of the listings and of set-attribute, against the same demands applied by an independent reader."""
import os
import re
import subprocess
import sys
import tempfile

import ezdxf

from program import ZU, check, run, run_json, sample

DRAWING = sample("drawings/office-floor.dxf")


class Element:
    def __init__(self, entity):
        self.handle, self.layer, self.block = entity.dxf.handle, entity.dxf.layer, entity.dxf.name
        texts = lambda name: [t.value for t in entity.get_xdata(name) if t.code == 1000] if entity.has_xdata(name) else []
        stored, link = texts("ZU_ATTR"), (texts("ZU_LINK") or [""])[0]
        self.values = {s.split("|")[0]: s.split("|")[1].strip() for s in reversed(stored[1:])}
        self.kind = int(link[0]) if re.match(r"[0-6]\|", link) else -1

    def number(self, attribute):
        return float(self.values[attribute]) if re.fullmatch(r"[\d.]+", self.values.get(attribute, "")) else None


drawing = ezdxf.readfile(DRAWING)
ELEMENTS = [Element(e) for e in drawing.modelspace().query("INSERT")]
MEMBERS = {"*A3": {e.dxf.handle for e in dict(drawing.groups)["*A3"]}}
use = lambda e: e.values.get("S501", "")
size = lambda e: e.number("S302") or 0
PASSING = {
    ("--where", "S501=給気 and S302>=300"): lambda e: use(e) == "給気" and size(e) >= 300,
    ("--where", "S501 = '冷水' OR (S302=300.0 and not S401<3000)"):
        lambda e: use(e) == "冷水" or size(e) == 300 and e.number("S401") >= 3000,
    ("--where", "not S501=給気"): lambda e: use(e) != "給気",
    ("--where", "S501!=給気"): lambda e: use(e) != "給気",
    ("--where", "S501=''"): lambda e: use(e) == "",
    ("--where", "S302>=50"): lambda e: size(e) >= 50,
    ("--where", "S302<=50B"): lambda e: e.values.get("S302") == "50A",
    ("--where", "S601<鋼板製　or S601>='鋼板製'"): lambda e: "S601" in e.values,
    ("--where", "S501=給気 or S501=冷水 and S302=0"): lambda e: use(e) == "給気",
    ("--where", "not(S501=給気)and not not S302=50A"): lambda e: e.values.get("S302") == "50A",
    ("--where", " "): lambda e: True,
    ("--layer", "sa-*,機器-??"): lambda e: e.layer in ("SA-ダクト", "機器-固定"),
    ("--block", "*D?00,rb*-*-200, 書棚"): lambda e: re.fullmatch(r".*D.00|RB.*-.*-200|書棚", e.block),
    ("--kind=-1,3",): lambda e: e.kind in (-1, 3),
    ("--group", "*a3"): lambda e: e.handle in MEMBERS["*A3"],
    ("--layer", "RA*", "--where", "S501!=''", "--kind", "2"): lambda e: e.layer == "RA-ダクト" and use(e) and e.kind == 2,
}
for options, passes in PASSING.items():
    wanted = [e.handle for e in ELEMENTS if passes(e)]
    check([e["handle"] for e in run_json("elements", DRAWING, *options)] == wanted and wanted, "%s passes" % (options,))

    rows = run_json("attributes", DRAWING, *options)
    check([e["handle"] for e in rows] == [e.handle for e in ELEMENTS if passes(e) and e.values], "attributes of %s" % (options,))
    check(all(e["attributes"] == run_json("attributes", DRAWING, e["handle"]) for e in rows[:2]), "the same by handle")

# What elements are joined to: with a handle the others are filtered, with --all the elements themselves.
every = run_json("connected", DRAWING, "--all")
pipes = {e.handle for e in ELEMENTS if e.block.startswith("RT-P")}
check(run_json("connected", DRAWING, "10C", "--block", "RT-P*") == [h for h in every["10C"] if h in pipes] != every["10C"], "joined pipes")
check(run_json("connected", DRAWING, "--all", "--block", "RT-P*") == {h: o for h, o in every.items() if h in pipes}, "joints of pipes")
run("attributes", DRAWING, "10C", "--block", "RT*", status=2)

# A condition that cannot be parsed is wrong usage, and the message points at the place.
for where, place in {"and": 0, "S501": 4, "S501=": 5, "S501=給気 S302": 8, "(S501=給気": 8, "S501='給気": 5, "S501=給気)": 7,
                     "S501 ! 5": 5, "'' = 5": 0, "S501==5": 5, "not": 3, "(" * 101: 100, "S1=a or": 7}.items():
    done = subprocess.run([ZU, "elements", "missing.dxf", "--where", where], capture_output=True, text=True)
    lines = done.stderr.splitlines()
    check(done.returncode == 2 and ("character %d:" % (place + 1)) in lines[0], "place in " + where)
    columns = sum(2 if c > "\u2E80" else 1 for c in where[:place])
    check(lines[1:] == ["  " + where, "  " + " " * columns + "^"], "mark in " + where)
run("elements", DRAWING, "--kind", "7", status=2)
run("elements", DRAWING, "--group", "missing", status=1)

groups = lambda *options: [g["name"] for g in run_json("groups", DRAWING, *options)]
check(groups("--layer", "SA-*") == ["*A1", "*A3"], "groups with an element that passes")
check(groups("--group", "*A3") == ["*A3"] and len(groups()) == 5, "a group by its name, and all")
findings = lambda *options: [f for f in run_json("check", DRAWING, *options)]
on_layer = {e.handle for e in ELEMENTS if e.layer == "CH-配管"}
check(findings("--layer", "CH-*") == [f for f in findings() if on_layer & {f["handle"], *f["with"]}] != [], "findings")
japanese = subprocess.run([ZU, "quantities", DRAWING], capture_output=True, env={**os.environ, "LC_ALL": "ja_JP.UTF-8"})
check(all(w in japanese.stdout.decode() for w in ("個数", "平面長", "エルボ", "合計")), "words of the user's language")
with tempfile.TemporaryDirectory() as folder:
    out = os.path.join(folder, "out.dxf")
    edited = run_json("set-attribute", DRAWING, "S501", "外気", "--where", "S501=給気 and S302=300", "--block", "RT-*", "-o", out)
    check(edited["changed"] == [e.handle for e in ELEMENTS if use(e) == "給気" and e.block.startswith("RT-") and size(e) == 300]
          and not edited["skipped"], "elements edited")
    run("set-attribute", DRAWING, "S501", "外気", "--layer", "none", "-o", out, status=1)
print("filters agree")
