"""Quantities, against those that this program works out on its own from the drawings with an independent reader."""
import collections
import math
import os
import random
import subprocess
import sys
import tempfile

import ezdxf

from program import ZU, check, run, run_json, sample

MANY = 20000 if len(sys.argv) < 4 else int(sys.argv[3])
WHAT = {"KK": "equipment", "RTM": "main route line", "RT": "route line", "RBL": "elbow", "RBTH": "fitting 21",
        "RBTD": "fitting 22", "RBT": "tee", "RBC": "reducer", "RB45L": "45° elbow", "RB90LU": "90° elbow up",
        "RB90LD": "90° elbow down", "RB90L": "90° elbow", "RBS": "S fitting", "RBV": "valve", "RB45T": "45° tee",
        "RBE": "end", "RB-": "fitting"}
LINES = ("main route line", "route line")
TOLERANCE = 0.1


def number(text):
    try:
        return float(text)
    except ValueError:
        return None


class Element:
    def __init__(self, entity, points):
        texts = lambda name: [t.value for t in entity.get_xdata(name) if t.code == 1000] if entity.has_xdata(name) else []
        values = {s.split("|")[0]: s.split("|")[1].strip() for s in reversed(texts("ZU_ATTR")[1:])}
        link = (texts("ZU_LINK") or [""])[0]
        self.handle, self.block, self.groups = entity.dxf.handle, entity.dxf.name, []
        self.kind = int(link[0]) if link[:1] in "0123456" and link[1:2] == "|" else -1
        self.what = max(((p, w) for p, w in WHAT.items() if self.block.upper().startswith(p)),
                        key=lambda p: len(p[0]), default=("", "-"))[1]
        self.size, self.use = values.get("S302") or values.get("S303", ""), values.get("S501", "")
        self.low = self.high = number(values.get("S401", ""))
        if self.what == "S fitting" and self.low is not None and self.block.startswith("RBS-"):
            self.high = self.low + float(values.get("S304") or 0)
        elif self.what not in LINES and number(values.get("S402", "")):
            self.low = None
        matrix = entity.matrix44() if points else None
        self.points = [matrix.transform(p).vec2 for p in points]
        self.length = self.true = 0.0


def read(path):
    drawing = ezdxf.readfile(path)
    points = {block.name: [p.dxf.location for p in block.query("POINT") if p.dxf.layer.upper() == "_ZU_CONNECT"]
              for block in drawing.blocks}
    elements = [Element(e, points[e.dxf.name]) for e in drawing.modelspace().query("INSERT")]
    by_handle = {e.handle: e for e in elements}
    for name, group in drawing.groups:
        for handle in {e.dxf.handle for e in group if e.is_alive} & by_handle.keys():
            by_handle[handle].groups.append(name)
    measure(elements)
    return [e for e in elements if e.what != "-"]


def measure(elements):
    cells = collections.defaultdict(list)
    for e in elements:
        for p in e.points:
            cells[int(p.x // 1), int(p.y // 1)].append((p, e))

    def end_height(line, end):
        near = [q for i in (-1, 0, 1) for j in (-1, 0, 1) for q in cells.get((int(end.x // 1) + i, int(end.y // 1) + j), ())]
        joined = {e for p, e in near if e is not line and p.distance(end) <= TOLERANCE}
        if len(joined) != 1:
            return None
        other = joined.pop()
        if other.what in LINES or other.what in ("equipment", "-") or other.low is None:
            return None
        if other.low == other.high:
            return other.low
        return None if line.low is None else sorted((other.low, line.low, other.high))[1]

    for e in elements:
        if e.what in LINES and len(e.points) == 2:
            e.length = e.true = e.points[0].distance(e.points[1])
            ends = [end_height(e, p) for p in e.points]
            if None not in ends:
                e.true = math.hypot(e.length, ends[0] - ends[1])


def key(value):
    return (1, value, "") if isinstance(value, int) else \
        (0, 0, "") if value == "" else (2, 0, value) if number(value) is None else (1, float(value), value)


def summed(elements, by):
    rows = collections.defaultdict(lambda: [0, 0.0, 0.0])
    for e in elements:
        for group in (e.groups or [""]) if "group" in by else [""]:
            row = rows[tuple(group if f == "group" else getattr(e, f) for f in by)]
            for i, amount in enumerate((1, e.length, e.true)):
                row[i] += amount
    return [(dict(zip(by, fields)), *rows[fields]) for fields in sorted(rows, key=lambda r: list(map(key, r)))]


def agree(found, wanted, where):
    check(len(found) == len(wanted), "%s: %d rows instead of %d" % (where, len(found), len(wanted)))
    for row, (fields, count, length, true) in zip(found, wanted):
        lengths = abs(row["length"] - length) < 1e-6 * (1 + length) and abs(row["true_length"] - true) < 1e-6 * (1 + true)
        check(row == {**row, **fields, "count": count} and len(row) == len(fields) + 3 and lengths,
              "%s: %r instead of %r" % (where, row, (fields, count, length, true)))


DEFAULT = ["kind", "what", "block", "size"]


def compare(path, *orders):
    elements = read(path)
    for by in (DEFAULT, *orders):
        found = run_json("quantities", path, *([] if by is DEFAULT else ["--by", ",".join(by)]))
        agree(found["rows"], summed(elements, by), "%s by %s" % (os.path.basename(path), by))
        agree(found["totals"], summed(elements, ["kind", "what"]), os.path.basename(path) + " totals")
    check(run("quantities", path) == run("quantities", path), "the same text twice")
    return elements


def dress(entity, kind, **attributes):
    entity.set_xdata("ZU_LINK", [(1000, "%d|x|" % kind)])
    entity.set_xdata("ZU_ATTR", [(1000, "%d|a|b|" % len(attributes))] +
                     [(1000, "%s|%s|E|||1|" % item) for item in attributes.items()])
    return entity


BLOCKS = {"RT-1": [(0, 0), (1, 0)], "RTM-1": [(0, 0), (1, 0)], "rt-short": [(0, 0)], "RT-3": [(0, 0), (1, 0), (2, 0)],
          "RBL-1": [(0, 0), (0, 0)], "RBS-1": [(0, 0), (0, 0)], "RBTH-1": [(0, 0)] * 3, "RB90LU-1": [(0, 0)],
          "KK-1": [(0, 0)], "desk": [(0, 0)]}


def new_drawing():
    drawing = ezdxf.new("R2018")
    for name in ("ZU_ATTR", "ZU_LINK"):
        drawing.appids.new(name)
    for name, points in BLOCKS.items():
        block = drawing.blocks.new(name, base_point=(10, 20, 5))
        for x, y in points:
            block.add_point((10 + x, 20 + y, 5), dxfattribs={"layer": "_ZU_CONNECT"})
    return drawing


def sloping(path):
    """Lines between fittings of different heights, stretched, turned and mirrored; groups that no element names."""
    drawing = new_drawing()
    space = drawing.modelspace()
    fittings = ["RBL-1", "RBS-1", "RBTH-1", "RB90LU-1", "KK-1", "desk", "RBL-1"]
    made = []
    for i, (a, b) in enumerate((a, b) for a in fittings for b in fittings):
        start, turn = (0, 5000 * i), 7 * i
        flip = -1 if i % 3 == 0 else 1
        end = (start[0] + 3000 * flip * math.cos(math.radians(turn)), start[1] + 3000 * flip * math.sin(math.radians(turn)))
        line = space.add_blockref(("RT-1", "RTM-1")[i % 2], start,
                                  dxfattribs={"xscale": 3000 * flip, "yscale": -1, "rotation": turn})
        made.append(dress(line, 1 + i % 3, S401=str(2500 + i), S302=("", "80", "1000", "25A", "80.0")[i % 5], S303="50A"))
        for k, (place, block) in enumerate(((start, a), (end, b))):
            made.append(dress(space.add_blockref(block, place), i % 7, S401=("2500", "3000", "x", "2400")[(i + k) % 4], S304="200",
                              S402=("", "0", "1")[i % 3], S501=" 給気 " if i % 2 else ""))
    for i, block in enumerate(("rt-short", "RT-3", "RBL-1", "RBL-1")):
        space.add_blockref(block, (i * 9000 if i < 3 else 3000, -9000))
    space.add_blockref("RBL-1", (0, 0))
    for i in range(4):
        drawing.groups.new("Z%d" % (9 + i)).extend(made[i::5] + made[i + 1::5])
    drawing.saveas(path)


def plan(path, count):
    """Runs of lines and fittings, most of them written as bare records."""
    drawing = new_drawing()
    drawing.saveas(path)
    with open(path, encoding="utf-8") as file:
        text = file.read()
    chance, records = random.Random(7), []
    for i in range(count):
        block = "RT-1" if i % 2 == 0 else chance.choice(("RBL-1", "RBS-1", "KK-1"))
        records.append("0\nINSERT\n5\n%X\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockReference\n2\n%s\n10\n%.2f\n20\n%d.0\n41\n%d\n"
                       "1001\nZU_ATTR\n1000\n3|a|b|\n1000\nS302|%d|P|||1|\n1000\nS501|%s|A|||1|\n1000\nS401|%d|E|||1|\n"
                       "1001\nZU_LINK\n1000\n%d|\n" % (0x100000 + i, block, 1000 * (i % 500 + 1) // 2, 700 * (i // 500),
                                                     1000 if i % 2 == 0 else 1, chance.choice((50, 100, 200)),
                                                     chance.choice("給還排"), chance.choice((2500, 2600)), 1 + i // 500 % 4))
    with open(path, "w", encoding="utf-8") as file:
        file.write(text.replace("ENTITIES\n", "ENTITIES\n" + "".join(records), 1))


with tempfile.TemporaryDirectory() as folder:
    for name in ("office-floor", "office-floor-932"):
        elements = compare(sample("drawings/%s.dxf" % name), ["group", "use"], ["size"], ["block", "group"])
        check(len(elements) == 59 and sum(e.length for e in elements) > 30000, "elements of " + name)
    path = os.path.join(folder, "made.dxf")
    sloping(path)
    elements = compare(path, ["group", "what"], ["use", "size", "kind"])
    check(sum(e.true > e.length + 1 for e in elements) > 5 and any(len(e.groups) > 1 for e in elements), "slopes and groups")
    done = subprocess.run([ZU, "quantities", path], capture_output=True, text=True)
    check(done.stderr.count("does not have two connection points") == 2, "lines without a length:\n" + done.stderr)
    some = [e for e in elements if e.use == "給気" and e.kind == 3]
    found = run_json("quantities", path, "--where", "S501=給気", "--kind", "3", "--by", "what")
    agree(found["rows"], summed(some, ["what"]), "a filter")
    grouped = run_json("quantities", path, "--group", "Z9", "--by", "group")["rows"]
    check([(r["group"], r["count"]) for r in grouped] == [("Z9", sum("Z9" in e.groups for e in elements))], "one group")
    everything = run_json("quantities", path, "--all")["totals"]
    check(sum(t["count"] for t in everything if t["what"] == "-") == 14, "other block references")
    settings = os.path.join(folder, "settings.ini")
    for file, lines in (("settings.ini", "[環境設定]\nｼｽﾃﾑ=%s\n" % folder), ("ZuConfig.ini", "[数量集計]\nサイズ=S303\n取付高=S999\n")):
        with open(os.path.join(folder, file), "w", encoding="utf-8-sig") as f:
            f.write(lines)
    other = run_json("quantities", path, "--by", "size", "--settings", settings)["rows"]
    check([r["size"] for r in other] == ["", "50A"] and all(r["length"] == r["true_length"] for r in other), "other ids")
    run("quantities", path, "--by", "kind,nonsense", status=2)
    many = os.path.join(folder, "many.dxf")
    plan(many, MANY)
    check(len(compare(many, ["size", "use"])) == MANY, "all elements of the plan")
print("quantities agree")
