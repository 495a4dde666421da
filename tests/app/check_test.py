"""Audits of damaged drawings: each fault is found, what can be repaired is, and nothing else changes."""
import os
import random
import subprocess
import tempfile

import ezdxf

from program import ZU, check, run, run_json, sample
from records import Drawing, handle_of, insert, places, record, text, xdata

SUPPLY, RETURN, SHELVES = "183", "184", "186"
DUCT, BOOKSHELVES = "110", ("106", "108", "10A")


def members(drawing, group):
    return places(drawing.at(group), 340)


def missing_and_repeated_members(d):
    insert(d.at(SUPPLY), members(d, SUPPLY)[2], 340, "FFF1")
    insert(d.at(SUPPLY), members(d, SUPPLY)[-1] + 1, 340, DUCT)


def member_that_is_no_entity(d):
    insert(d.at(SUPPLY), members(d, SUPPLY)[0], 340, "1")


def empty_group(d):
    del d.at(SHELVES)[members(d, SHELVES)[0]:]


def group_that_is_gone(d):
    d.objects.remove(d.at(SHELVES))


def group_outside_of_the_dictionary(d):
    dictionary = next(o for o in d.objects if places(o, 3, "家具"))
    place = places(dictionary, 3, "家具")[0]
    del dictionary[place:place + 2]


def entry_that_is_no_group(d):
    dictionary = next(o for o in d.objects if places(o, 3, "家具"))
    place = places(dictionary, 3, "家具")[0]
    insert(dictionary, place, 350, DUCT)
    insert(dictionary, place, 3, "X")


def reactors(d):
    d.at(DUCT)[places(d.at(DUCT), 330, SUPPLY)[0]][1] = b"FFF2"
    insert(d.at("114"), places(d.at("114"), 330, SUPPLY)[0], 330, RETURN)
    insert(d.at("118"), places(d.at("118"), 330, SUPPLY)[0], 330, SUPPLY)


def several_groups_of_a_kind(d):
    """The duct gives the return group its own kind; once it leaves, the other groups have no fault."""
    insert(d.at(RETURN), members(d, RETURN)[0], 340, DUCT)
    insert(d.at(DUCT), places(d.at(DUCT), 330, SUPPLY)[0], 330, RETURN)


def header_and_items(d):
    for handle, place, value in ((DUCT, 0, "9|矩形ダクト|給気-02|"), ("114", 0, "6|矩形ダクト"),
                                 ("118", 2, "S402|0|E"), ("11A", 1, "S401|2700|E|取付高|1|1||"),
                                 ("11C", 1, "S401|2700|E|取付高|1|1|余り|"), ("11E", 0, "x|矩形ダクト|給気-09|")):
        records = d.at(handle)
        place += xdata(records, "ZU_ATTR")[0]
        records[place] = record(records[place], 1000, value)


def empty_records(d):
    for handle, application in ((DUCT, "ZU_ATTR"), ("114", "ZU_LINK")):
        first, last = xdata(d.at(handle), application)
        del d.at(handle)[first:last]


def wrong_data(d):
    insert(d.at(DUCT), xdata(d.at(DUCT), "ZU_LINK")[0], 1070, "7")
    d.at("114").extend([record(d.at("114")[0], 1001, "ZU_LINK"), record(d.at("114")[0], 1000, "2|x|")])


def member_in_paper_space(d):
    """An entity outside model space is audited if a group lists it."""
    shelf = d.at("106")
    layout = next(o for o in d.objects if text(o[0]) == "BLOCK_RECORD" and places(o, 2, "*Paper_Space"))
    shelf[places(shelf, 330)[-1]][1] = handle_of(layout).encode()
    insert(shelf, places(shelf, 100, "AcDbEntity")[0] + 1, 67, "1")
    shelf.extend(record(shelf[0], *value) for value in 2 * [(1001, "ZU_LINK"), (1000, "2|x|")])


def unregistered_application(d):
    d.objects.remove(next(o for o in d.objects if o[0][1].strip() == b"APPID" and places(o, 2, "ZU_LINK")))
    d.at(DUCT).extend(record(d.at(DUCT)[0], *value) for value in ((1001, "OTHER"), (1000, "x")))


def two_on_one_place(d):
    """A valve placed on top of another."""
    for code in (10, 20):
        d.at("17E")[places(d.at("17E"), code)[0]] = d.at("17A")[places(d.at("17A"), code)[0]]


def copied_in_place(d):
    """Under a new handle and on another layer, in no group."""
    twin = [list(r) for r in d.at(DUCT)]
    twin[places(twin, 5)[0]][1] = b"FFF5"
    del twin[places(twin, 102)[0]:places(twin, 102)[1] + 1]
    d.objects.insert(d.objects.index(d.at(DUCT)) + 1, twin)


def values_that_do_not_fit(d):
    """The size of a line, which tees may differ from, the heights of two, which equipment may differ from, and a kind."""
    for handle, application, old, new in (("11E", "ZU_ATTR", "S302|300", "S302|250"), ("114", "ZU_ATTR", "S302|300", "S302|9"),
                                          ("122", "ZU_ATTR", "S401|2700", "S401|2698.5"), ("124", "ZU_ATTR", "S401|2700", "S401|2700.5"),
                                          ("164", "ZU_ATTR", "S401|300", "S401|200"), ("13C", "ZU_LINK", "2|", "3|")):
        records = d.at(handle)
        place = next(i for i in range(*xdata(records, application)) if text(records[i]).startswith(old))
        records[place] = record(records[place], 1000, text(records[place]).replace(old, new))


def line_moved_away(d):
    line = d.at("13C")
    line[places(line, 10)[0]][1] = b"50000"


def hard_to_repair(d):
    """Two groups of reactors, a value of extended data among them, two empty records of one application, an attribute
    record whose reader ends at a foreign code, and an entity without a handle whose own would be the next one, which a
    group names."""
    for handle in (DUCT, "114"):
        place = places(d.at(handle), 102)[0]
        d.at(handle)[place:place] = [list(r) for r in d.at(handle)[place:place + 3]] + [list(d.at(handle)[place + 2])]
    insert(d.at("114"), places(d.at("114"), 330, SUPPLY)[0], 1071, "7")
    d.at("118").append(record(d.at("118")[0], 1001, "ZU_LINK"))
    first, last = xdata(d.at("118"), "ZU_LINK")
    del d.at("118")[first:last]
    d.at("11C")[xdata(d.at("11C"), "ZU_LINK")[0] - 1][0] = b"500"
    seed = places(d.objects[0], 9, "$HANDSEED")[0] + 1
    insert(d.at(SUPPLY), members(d, SUPPLY)[0], 340, text(d.objects[0][seed]))
    del d.at("11A")[places(d.at("11A"), 5)[0]]


def random_damage(seed):
    """Changes some of the records that groups and memberships are made of."""
    def damage(d):
        rnd = random.Random(seed)
        objects = [o for o in d.objects if text(o[0]) in ("GROUP", "INSERT", "DICTIONARY", "APPID")]
        for _ in range(6):
            o = rnd.choice(objects)
            i = rnd.choice(places(o, 330) + places(o, 340) + places(o, 102) + places(o, 1000) + places(o, 1001))
            code, value = rnd.choice((330, 340, 102, 290, 1000, 1001, 1071)), text(rnd.choice(rnd.choice(objects)))
            rnd.choice((lambda: o.insert(i, list(o[i])), lambda: o.pop(i), lambda: insert(o, i, code, text(o[i])),
                        lambda: insert(o, i, int(o[i][0]), value), lambda: o.extend(map(list, o[i:i + 4]))))()
    return damage


NO, YES = False, True
# The damage; the findings besides the sample's own faults (handle, part of the problem, repaired); the objects that
# the repair changes.
CASES = [
    (missing_and_repeated_members, [(SUPPLY, "FFF1 is not in", YES), (SUPPLY, DUCT + " is listed twice", YES)], {SUPPLY}),
    (member_that_is_no_entity, [(SUPPLY, "1 is no entity", YES)], {SUPPLY}),
    (empty_group, [(h, "names the group 186, which doesn't list", YES) for h in BOOKSHELVES] +
     [(SHELVES, "no members", YES)], {SHELVES, "C", *BOOKSHELVES}),
    (group_that_is_gone, [("C", "家具 is not in the drawing", YES)] +
     [(h, "not in the drawing, or twice: 186", YES) for h in BOOKSHELVES], {"C", *BOOKSHELVES}),
    (group_outside_of_the_dictionary, [(h, "186, which is not in the group dictionary", YES) for h in BOOKSHELVES] +
     [(SHELVES, "is not in the group dictionary", YES)], {SHELVES, *BOOKSHELVES}),
    (entry_that_is_no_group, [(DUCT, "stands in the group dictionary as X but is no group", NO)], set()),
    (reactors, [(DUCT, "not in the drawing, or twice: FFF2", YES), (DUCT, "member of group *A1 without", YES),
                ("114", "names the group 184, which", YES), ("118", "twice: 183", YES)], {DUCT, "114", "118"}),
    (several_groups_of_a_kind, [(DUCT, "groups of kind 1: *A1, RTGR00007", YES)], {DUCT, RETURN}),
    (header_and_items, [(DUCT, "names \"9\" as the number of its items and has 6", YES), ("114", "no bar ends", YES),
                        ("118", "item 2 of the attribute record has a field that no bar ends", YES),
                        ("11A", "has 7 fields instead of 6", YES), ("11C", "has 7 fields instead of 6", NO),
                        ("11E", "names \"x\" as the number", NO)], {DUCT, "114", "118", "11A"}),
    (empty_records, [(DUCT, "attribute record is empty", YES), ("114", "link record is empty", YES)], {DUCT, "114"}),
    (wrong_data, [(DUCT, "link record holds values that are no texts", NO), ("114", "more than once", NO)], set()),
    (member_in_paper_space, [("106", "more than once", NO)], set()),
    (unregistered_application, [("3", "application %s is not registered" % a, YES) for a in ("ZU_LINK", "OTHER")], {None, "3"}),
    (two_on_one_place, [("178", "joins several elements: 17A, 17E", NO), ("17A", "joins several elements: 178, 17E", NO),
                        ("17C", "1 at 2435.3, 3565 joins nothing", NO), ("17E", "joins several elements: 178, 17A", NO),
                        ("17E", "joins nothing", NO), ("180", "joins nothing", NO),
                        ("180", "no joint connects it to the rest of route *A2", NO)], set()),
    (copied_in_place, [("FFF5", "stands exactly where 110", NO)], set()),
    (values_that_do_not_fit, [("11E", 'has size "250", and 120, joined at 14900.05, 5000, has size "300"', NO),
                              ("122", "lies at height 2698.5, and 124, joined at 15707.157, 5707.107, lies at height 2700.5", NO),
                              ("13A", "has link kind 2, and 13C,", NO), ("13C", "has link kind 3, and 13E,", NO),
                              ("164", "lies at height 200, and 166,", NO)], set()),
    (line_moved_away, [(h, "joins nothing", NO) for h in ("13A", "13C", "13C", "13E")] +
     [("138", "no joint connects it and 2 elements joined to it to the rest of route RTGR00007", NO),
      ("13C", "no joint connects it to the rest of", NO)], set()),
]


def documented_codes():
    """Those of the table, with their severities."""
    with open(sample("../docs/check.md"), encoding="utf-8") as f:
        return {tuple(cell.strip(" `") for cell in line.split("|")[1:3]) for line in f if line.startswith("| `")}


def key(finding):
    return finding["handle"], finding["problem"]


def compare(findings, own, wanted, repairing, where):
    new = [f for f in findings if key(f) not in own]
    check(len(new) == len(wanted), "%s: %d findings: %r" % (where, len(wanted), new))
    for finding, (handle, problem, repaired) in zip(new, wanted):
        fits = finding["handle"] == handle and problem in finding["problem"]
        check(fits, "%s: %s %s, not %r" % (where, handle, problem, finding))
        check(finding["repaired"] == (repairing and repaired), "%s: repaired or not: %r" % (where, finding))


def changed_objects(before, after):
    old, new = Drawing(before).by_handle(), Drawing(after).by_handle()
    changed = {h for h in old if old[h] != new.get(h)}
    return changed | ({None} if new.keys() - old.keys() else set())


def audit(damage, wanted, changes, own, folder, base):
    where = damage.__name__
    damaged, repaired = os.path.join(folder, "damaged.dxf"), os.path.join(folder, "repaired.dxf")
    drawing = Drawing(base)
    damage(drawing)
    drawing.save(damaged)
    check(DUCT not in {g["handle"] for g in run_json("groups", damaged)}, where + ": only groups are listed")
    compare(run_json("check", damaged), own, wanted, False, where)
    compare(run_json("check", damaged, "--repair", "-o", repaired), own, wanted, True, where)
    compare(run_json("check", repaired), own, [w for w in wanted if not w[2]], False, where + ", again")
    changed = changed_objects(damaged, repaired)
    check(changed == changes, "%s: the repair changes %r" % (where, changed))
    if wanted and all(w[2] for w in wanted):
        check(not ezdxf.readfile(repaired).audit().errors, where + ": sound for another reader")


def repair_twice(damage, folder, base):
    """Returns whether the damaged drawing could be opened; a second repair must find nothing to repair."""
    damaged, once, twice = (os.path.join(folder, name + ".dxf") for name in ("damaged", "once", "twice"))
    drawing = Drawing(base)
    damage(drawing)
    drawing.save(damaged)
    if subprocess.run([ZU, "check", damaged, "--repair", "-o", once], capture_output=True).returncode != 0:
        return False
    again = [f for f in run_json("check", once, "--repair", "-o", twice) if f["repaired"]]
    check(not again, "repaired again: %r" % again)
    return True


with tempfile.TemporaryDirectory() as folder:
    for name in ("office-floor", "office-floor-932"):
        base = os.path.join(folder, name + ".dxf")
        found = run_json("check", sample("drawings/%s.dxf" % name), "--repair", "-o", base)
        check([f["handle"] for f in found if f["repaired"]] == ["116"], "a tee is in two groups of kind 1")
        check(changed_objects(sample("drawings/%s.dxf" % name), base) == {"116", "187", "C"}, "one of which goes")
        check({(f["code"], f["severity"]) for f in found} <= documented_codes(), "codes and severities are documented")
        own = {key(f) for f in found if not f["repaired"]}
        check({h for h, p in own if "link kind" in p} == {"166", "16A", "16E"}, "link records without a kind")
        check([(f["code"], f["handle"], *f["with"]) for f in found if "joins nothing" in f["problem"]] ==
              [("open-end", "10C"), ("gap", "126", "128"), ("gap", "16E", "178"), ("open-end", "176"), ("open-end", "180")],
              "dangling connection points")
        if name == "office-floor":
            for damage, wanted, changes in CASES:
                audit(damage, wanted, changes, own, folder, base)
            check(repair_twice(hard_to_repair, folder, base), "a drawing that is hard to repair opens")
            opened = sum(repair_twice(random_damage(seed), folder, base) for seed in range(40))
            check(opened > 10, "only %d damaged drawings could be opened" % opened)
    check("9 problems: 6 errors, 3 warnings" in run("check", sample("drawings/office-floor.dxf")), "a plain listing")
    named = subprocess.run([ZU, "check", base, "--only", "x"], capture_output=True, text=True).stderr.split("the codes are ")[1]
    check(set(named.split()) == {code for code, _ in documented_codes()}, "the documented codes are those of the program")
    for only, status in (("open-end", 0), ("link-record", 1), ("several-groups", 0)):
        run("check", base, "--only", only, "--fail-on", "error", status=status)
        run("check", base, "--except", only, "--fail-on", "warning", status=1)
    run("check", base, "--repair", status=2)
    run("check", base, "-o", base, status=2)
    run("check", os.path.join(folder, "missing.dxf"), status=1)
print("faults are found and repaired")
