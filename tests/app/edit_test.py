"""An edited drawing, read by an independent reader: exactly what was changed and nothing else."""
import os
import shutil
import subprocess
import tempfile

import ezdxf
from ezdxf.lldxf.tagwriter import TagCollector

from program import ZU, check, run, run_json, sample


def objects_of(path):
    """Every object of the drawing as its list of tags, by handle, and the reader's verdict."""
    doc = ezdxf.readfile(path)
    faults = len(doc.audit().errors)
    doc = ezdxf.readfile(path)
    tags = {handle: [(t.code, str(t.value)) for t in TagCollector.dxftags(entity)]
            for handle, entity in doc.entitydb.items()}
    return tags, faults


def changes(before, after):
    check(before.keys() == after.keys(), "the same objects")
    for handle in before:
        old, new = before[handle], after[handle]
        check(len(old) == len(new), "the same records in " + handle)
        for a, b in zip(old, new):
            if a != b:
                yield handle, a, b


with tempfile.TemporaryDirectory() as folder:
    for name in ("office-floor", "office-floor-932"):
        drawing = sample("drawings/%s.dxf" % name)
        edited = os.path.join(folder, name + ".dxf")
        result = run_json("set-attribute", drawing, "S501", "外気", "-o", edited)
        check(result["changed"] and {s["handle"] for s in result["skipped"]} == {"10C", "136"}, "locked layers are skipped")
        before, faults = objects_of(drawing)
        after, faults_after = objects_of(edited)
        check(faults_after <= faults, "no new fault in the audit")
        changed = set()
        for handle, old, new in changes(before, after):
            check(old[0] == 1000 and old[1].startswith("S501|"), "only the attribute changes, not %s %r" % (handle, old))
            fields = old[1].split("|")
            check(new[1].split("|") == fields[:1] + ["外気"] + fields[2:], "only its value: %r" % (new,))
            changed.add(handle)
        check(changed == set(result["changed"]), "what is reported as changed")

        copy = os.path.join(folder, "copy.dxf")
        run("save", drawing, "-o", copy)
        with open(drawing, "rb") as a, open(copy, "rb") as b:
            check(a.read() == b.read(), "an unedited drawing is saved to the same bytes")
        binary = os.path.join(folder, "binary.dxf")
        back = os.path.join(folder, "back.dxf")
        run("save", drawing, "-o", binary, "--binary")
        run("save", binary, "-o", back, "--ascii")
        check(not list(changes(before, objects_of(binary)[0])), "binary holds the same")
        check(not list(changes(before, objects_of(back)[0])), "and back")

    floor = sample("drawings/office-floor.dxf")
    out = os.path.join(folder, "one.dxf")
    one = run_json("set-attribute", "--handles", "10E,106,10e", floor, "S401", "850㎥/h", "-o", out)
    check(one["changed"] == ["10E"] and one["skipped"][0]["handle"] == "106", "only the elements asked for, each once")
    rows = run_json("attributes", out, "10E")
    check(rows[0][4] == "850㎥/h", "the value that was written")
    for value in ("a|b", "a\nb", "\udcff", "*各種*"):
        run("set-attribute", floor, "S401", value, "-o", out, status=2)
    with open(floor, "rb") as f, open(out, "wb") as g:
        g.write(f.read().replace("S401|2700|E|取付高|1|1|".encode(), b"S401|2700"))
    run("set-attribute", out, "S401", "2400", "--handles", "110", "-o", out)
    check(run_json("attributes", out, "110")[0][3:6] == ["S401", "2400", ""], "a value that no bar ends is replaced")
    run("set-attribute", floor, "S999", "x", "-o", out, status=1)
    settings = os.path.join(folder, "master.ini")
    with open(settings, "w", encoding="cp932") as f:
        f.write("[環境設定]\n標準部品=%s\n" % folder)
    run("set-attribute", floor, "S401", "x", "--settings", settings, "-o", os.path.join(folder, "x.dxf"), status=1)
    check(not os.path.exists(os.path.join(folder, "x.dxf")), "nothing is written without the parameter table")
    run("set-attribute", floor, "S401", "x", "-o", os.path.join(folder, "missing", "x.dxf"), status=1)
    damaged = os.path.join(folder, "damaged.dxf")
    with open(floor, "rb") as f, open(damaged, "wb") as g:
        g.write(f.read().replace(b"\nINSERT\n  5\n", b"\nINSERT\n  x\n", 1))
    run("elements", damaged, status=1)
    # Many edits of one file at once: each either fails or is found afterwards; none fails that is forced.
    handles = ["10E", "110", "112", "114", "116", "118", "11A", "11C"]
    for force in ([], ["--force"]):
        shutil.copyfile(floor, out)
        command = [ZU, "set-attribute", out, "S401", "-o", out, *force]
        edits = [subprocess.Popen([*command, "by" + h, "--handles", h], stderr=subprocess.PIPE, text=True) for h in handles]
        for handle, edit in zip(handles, edits):
            error = edit.communicate()[1]
            check(edit.returncode == 0 or not force and "changed" in error and out in error, "the reason: " + error)
            value = run_json("attributes", out, handle)[0][4]
            check(force or (value == "by" + handle) == (edit.returncode == 0), "an edit that succeeded is found: " + handle)
        check(any(edit.returncode == 0 for edit in edits), "one of the edits succeeds")
print("only what was edited has changed")
