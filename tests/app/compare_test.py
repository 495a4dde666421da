"""Differences of edited drawings equal those that a separate program finds with another reader of drawings."""
import json
import os
import random
import subprocess
import tempfile

import ezdxf

from drawing_differences import differences, near
from program import ZU, check, run, sample

VALVE, DUCT, LAST_DUCT, SHELF = "17A", "110", "122", "106"


def items(element):
    return list(element.get_xdata("ZU_ATTR"))


def move(doc, handle, by):
    element = doc.entitydb[handle]
    element.dxf.insert = element.dxf.insert + ezdxf.math.Vec3(by)


def set_value(doc, handle, place, text):
    doc.entitydb[handle].set_xdata("ZU_ATTR", [(1000, text) if i == place else t
                                               for i, t in enumerate(items(doc.entitydb[handle]))])


def regroup(doc, old, new):
    """Puts an entity, or nothing, in the place of another in all groups."""
    for _, group in doc.groups:
        if old in list(group):
            members = [new if e is old else e for e in group]
            group.clear()
            group.extend(e for e in members if e is not None)


def remove(doc, handle):
    element = doc.entitydb[handle]
    regroup(doc, element, None)
    doc.modelspace().delete_entity(element)


def copy(doc, handle):
    copied = doc.entitydb[handle].copy()
    doc.modelspace().add_entity(copied)
    return copied


def add(doc, handle, by):
    added = copy(doc, handle)
    move(doc, added.dxf.handle, by)
    return added


def renumber(doc, handle):
    regroup(doc, doc.entitydb[handle], copy(doc, handle))
    doc.modelspace().delete_entity(doc.entitydb[handle])


def moved(doc):
    move(doc, VALVE, (0.05, 0, 0))  # within the tolerance of joints
    move(doc, LAST_DUCT, (0, 30, 5))


def turned(doc):
    doc.entitydb[DUCT].dxf.rotation += 15
    doc.entitydb[SHELF].dxf.yscale = -2


def attributes(doc):
    set_value(doc, DUCT, 5, "S302|350|P|ｻｲｽﾞ|5|1|")
    set_value(doc, "114", 0, "6|矩形ダクト|給気-99|")
    doc.entitydb["118"].set_xdata("ZU_ATTR", items(doc.entitydb["118"])[:-1] + [(1000, "S999|x|P|追加|6|1|")])
    doc.entitydb["11A"].discard_xdata("ZU_ATTR")
    doc.entitydb["11C"].set_xdata("ZU_LINK", [(1000, "2|還気|1|")])
    doc.entitydb["11E"].dxf.layer = "RA-ダクト"


def removed(doc):
    remove(doc, "114")
    remove(doc, SHELF)


def added(doc):
    add(doc, DUCT, (0, 4000, 0))
    regroup(doc, doc.entitydb[SHELF], add(doc, SHELF, (500, 0, 0)))


def renumbered(doc):
    for handle in (VALVE, "178", "164", "108"):
        renumber(doc, handle)


def renumbered_and_changed(doc):
    renumber(doc, VALVE)
    move(doc, DUCT, (10, 0, 0))


def groups(doc):
    groups = dict(doc.groups)
    group = groups["*A2"]
    group.set_data(list(group)[1:])
    doc.groups.new("新しい").extend([doc.entitydb[SHELF], doc.entitydb[DUCT]])
    doc.groups.delete("家具")


def others(doc):
    lines = list(doc.modelspace().query("LINE"))
    lines[0].dxf.end = lines[0].dxf.end + ezdxf.math.Vec3(1, 0)
    lines[1].dxf.layer = "建築-壁"
    doc.modelspace().delete_entity(lines[2])
    doc.modelspace().add_circle((1, 2), 3)
    doc.modelspace().query("TEXT")[0].dxf.text = "変更"
    list(doc.blocks.get("RBV-P50").query("LINE"))[0].dxf.color = 1
    list(doc.blocks.get("RT-P50").query("POINT"))[1].dxf.location += ezdxf.math.Vec3(0.1, 0)  # in all pipes


def random_edits(seed):
    def edit(doc):
        rnd = random.Random(seed)
        handles = [e.dxf.handle for e in doc.modelspace().query("INSERT")]
        for handle in rnd.sample(handles, len(handles) // 10):
            rnd.choice((lambda: move(doc, handle, (rnd.choice((0.05, 20.0)), 0, 0)), lambda: remove(doc, handle),
                        lambda: add(doc, handle, (rnd.uniform(1, 9), 7, 0)), lambda: renumber(doc, handle),
                        lambda: doc.entitydb[handle].set_xdata("ZU_ATTR", [(1000, "1|新|x|"), (1000, "S1|9||||1|")])))()
    return edit


def plan(count):
    """Runs of lines and tees, a group for each."""
    doc = ezdxf.new("R2010")
    for name in ("ZU_ATTR", "ZU_LINK"):
        doc.appids.new(name)
    for name, points in (("RT-1", ((0, 0), (500, 0))), ("RBT-1", ((0, 0), (500, 0), (250, 300)))):
        block = doc.blocks.new(name)
        for point in points:
            block.add_point(point, dxfattribs={"layer": "_ZU_CONNECT"})
    for i in range(count):
        element = doc.modelspace().add_blockref(("RT-1", "RBT-1")[i % 2], (i % 50 * 500, i // 50 * 300))
        element.set_xdata("ZU_ATTR", [(1000, "1|管|%d|" % i), (1000, "S1|%d||||1|" % (i % 7))])
        if i % 50 == 0:
            group = doc.groups.new("RTGR%05d" % (i // 50))
        group.extend([element])
    return doc


def found(first, second, status):
    """What the program finds, in the form of the other."""
    done = subprocess.run([ZU, "compare", first, second, "--json"], capture_output=True, text=True)
    check(done.returncode == status, "status %d: %s" % (done.returncode, done.stderr))
    f = json.loads(done.stdout)
    check(f["same"] == (status == 0), "same or not")
    return {"added": set(f["added"]), "removed": set(f["removed"]),
            "moved": {m["handle"]: (m.get("was", m["handle"]), near(m["from"]), near(m["to"])) for m in f["moved"]},
            "changed": {c["handle"]: (c.get("was", c["handle"]), {a["key"]: tuple(map(number_list, (a["key"],) * 2, (a["old"], a["new"])))
                                                                  for a in c["attributes"]}) for c in f["changed"]},
            "groups": {g["name"]: (set(g["added"]), set(g["removed"])) for g in f["groups"]},
            "made": set(map(frozenset, f["joints"]["made"])), "broken": set(map(frozenset, f["joints"]["broken"])),
            "other": tuple(set(f["other"][k]) for k in ("added", "removed", "changed"))}


def number_list(key, value):
    return near(map(float, value.split(","))) if key in ("rotation", "scale") else value


def compare(base, edit, folder, count):
    edited = os.path.join(folder, "edited.dxf")
    doc = ezdxf.readfile(base)
    edit(doc)
    doc.saveas(edited)
    wanted, got = differences(base, edited), found(base, edited, 1)
    for kind, value in wanted.items():
        check(got[kind] == value, "%s, %s: %r instead of %r" % (edit.__name__, kind, got[kind], value))
    check(sum(map(bool, wanted.values())) >= count, "%s changes only %r" % (edit.__name__, wanted))


with tempfile.TemporaryDirectory() as folder:
    base, large = os.path.join(folder, "base.dxf"), os.path.join(folder, "large.dxf")
    ezdxf.readfile(sample("drawings/office-floor.dxf")).saveas(base)
    check(not any(map(any, found(sample("drawings/office-floor.dxf"), base, 0).values())), "saved by another program: the same")
    check(run("compare", sample("drawings/office-floor.dxf"), sample("drawings/office-floor-932.dxf")) == "no differences\n",
          "the same in another encoding")
    for edit, count in ((moved, 2), (turned, 2), (attributes, 1), (removed, 3), (added, 2), (renumbered_and_changed, 2),
                        (groups, 1), (others, 2), (random_edits(1), 4)):
        compare(base, edit, folder, count)
    plan(2000).saveas(large)
    compare(large, random_edits(2), folder, 6)
    other = os.path.join(folder, "edited.dxf")
    doc = ezdxf.readfile(base)
    renumbered(doc)
    doc.saveas(other)
    check(not any(map(any, found(base, other, 0).values())), "other handles alone are no difference")
    doc = ezdxf.readfile(base)
    attributes(doc)
    doc.saveas(other)
    listing = subprocess.run([ZU, "compare", base, other], capture_output=True, text=True).stdout
    for line in ('110 RT-D300 (route line): S302 ｻｲｽﾞ "300" -> "350"', 'S999 追加 none -> "x"', 'layer "SA-ダクト" -> "RA-ダクト"'):
        check(line in listing, "%s in:\n%s" % (line, listing))
    removed(doc)
    others(doc)
    doc.saveas(other)
    picture = os.path.join(folder, "picture.svg")
    subprocess.run([ZU, "compare", base, other, "-o", picture], capture_output=True)
    with open(picture, encoding="utf-8") as svg:
        drawn = svg.read().lower()
    counts = [drawn.count(colour) for colour in ("d0212a", "1a8f3c", "d58300")]
    # Each colour stands in the legend too.
    check(min(counts) > 1, "removed, added and changed things in their colours: %r" % counts)
    run("compare", base, os.path.join(folder, "missing.dxf"), status=2)
    run("compare", base, status=2)
print("differences are those of the other program")
