"""Drawings with very many things of one kind: 60,000 of them would take minutes if the cost of one grew with
their number. Under the sanitizers there are fewer."""
import os
import sys
import tempfile

from program import check, run, run_json, sample
from records import Drawing, places, record, text

SUPPLY, DUCT, DANGLING = "183", "110", "126"
MANY = int(sys.argv[3])


def handles():
    return ("%X" % (0x1000000 + i) for i in range(MANY))


def group_dictionary(d):
    return next(o for o in d.objects if places(o, 3, "*A1"))


def add(d, like, objects):
    """Inserts objects, lists of (code, value), after another."""
    place = d.objects.index(like) + 1
    d.objects[place:place] = [[record(like[0], *r) for r in records] for records in objects]


def names_without_groups(d):
    like = group_dictionary(d)
    like.extend(record(like[0], *r) for h in handles() for r in ((3, "N" + h), (350, h)))


def groups_without_members(d):
    names_without_groups(d)
    add(d, d.at(SUPPLY), (((0, "GROUP"), (5, h), (330, "C"), (100, "AcDbGroup")) for h in handles()))


def groups_that_do_not_list_the_element(d):
    names_without_groups(d)
    add(d, d.at(SUPPLY),
        (((0, "GROUP"), (5, h), (330, "C"), (100, "AcDbGroup"), (340, DUCT + "0")) for h in handles()))
    duct = d.at(DUCT)
    reactors = places(duct, 330, SUPPLY)[0]
    duct[reactors:reactors] = [record(duct[0], 330, h) for h in handles()]


def groups_that_change_their_kind_in_turn(d):
    """An element that leaves a group changes its kind, so that the element before it leaves the next group."""
    lines, groups = list(handles()), ["2" + h for h in handles()]
    add(d, d.at(DUCT), ([(0, "LINE"), (5, h), (100, "AcDbEntity"), (8, "0"), (100, "AcDbLine"), (1001, "ZU_LINK"),
                         (1000, "%d|" % (1 + i % 2))] for i, h in enumerate(lines)))
    add(d, d.at(SUPPLY), ([(0, "GROUP"), (5, g), (330, "C"), (100, "AcDbGroup"),
                           *((340, h) for h in (lines[i:i + 1] if i else []) + [lines[i - 1]])]
                          for i, g in enumerate(groups)))
    like = group_dictionary(d)
    like.extend(record(like[0], *r) for i, g in enumerate(groups)
                for r in ((3, "*A%d" % (2 * MANY - (i or MANY))), (350, g)))


def points_at_one_place(d):
    """In the block of an element whose other connection point dangles."""
    name = text(d.at(DANGLING)[places(d.at(DANGLING), 2)[0]])
    block = next(i for i, o in enumerate(d.objects) if text(o[0]) == "BLOCK" and places(o, 2, name))
    at, point = next((i, o) for i, o in enumerate(d.objects)
                     if i > block and text(o[0]) == "POINT" and places(o, 8, "_ZU_CONNECT"))
    d.objects[at:at] = [[r for r in point if int(r[0]) != 5] for _ in range(MANY)]


def bulged_outline(d):
    vertices = [r for i in range(MANY) for r in ((10, str(i)), (20, "0"), (42, "0.1"))]
    add(d, d.at(DUCT), [[(0, "LWPOLYLINE"), (5, "1000000"), (100, "AcDbEntity"), (8, "0"), (100, "AcDbPolyline"),
                         (90, str(MANY)), (70, "0"), *vertices]])


def made(damage, folder):
    drawing = Drawing(sample("drawings/office-floor.dxf"))
    damage(drawing)
    path = os.path.join(folder, damage.__name__ + ".dxf")
    drawing.save(path)
    return path


with tempfile.TemporaryDirectory() as folder:
    out = os.path.join(folder, "out.dxf")
    for damage in (names_without_groups, groups_without_members, groups_that_do_not_list_the_element,
                   groups_that_change_their_kind_in_turn):
        found = run_json("check", made(damage, folder), "--repair", "-o", out)
        check(sum(f["repaired"] for f in found) >= MANY, damage.__name__ + ": all is repaired")
        check(len(run_json("check", out)) < 100, damage.__name__ + ": and well again")
    crowded = made(points_at_one_place, folder)
    check(any("point %d at" % (MANY + 1) in f["problem"] for f in run_json("check", crowded)),
          "each point is known")
    check(run("connected", crowded, "--all") == run("connected", sample("drawings/office-floor.dxf"), "--all"),
          "points at one place count once")
    run("plan", made(bulged_outline, folder), "-o", os.path.join(folder, "plan.svg"))
print("large drawings are no trouble")
