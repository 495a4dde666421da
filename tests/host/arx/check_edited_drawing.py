"""Edits drawings and checks with ezdxf that exactly the edited objects differ.

check_edited_drawing.py EDITED_DRAWING FOLDER
"""

import math
import pathlib
import subprocess
import sys
import tempfile

import ezdxf


def describe(entity):
    """Returns the attributes, extended data and reactors of an object."""
    xdata = entity.xdata.data if entity.xdata else {}
    return {
        "type": entity.dxftype(),
        "attributes": {name: str(value) for name, value in entity.dxfattribs().items()},
        "xdata": {app: [(tag.code, str(tag.value)) for tag in tags] for app, tags in xdata.items()},
        "reactors": set(entity.reactors.reactors) if entity.reactors else set(),
    }


def objects(document):
    # ezdxf adds SEQEND entities that are not in the file.
    entities = document.entitydb.items()
    return {handle: describe(entity) for handle, entity in entities if entity.dxftype() != "SEQEND"}


def members(document):
    # ezdxf does not preserve the order of members.
    return {name: {entity.dxf.handle for entity in group} for name, group in document.groups}


def check_objects(before, after):
    removed = before.keys() - after.keys()
    assert removed == {"106", "187"}, removed
    new = sorted(after[handle]["type"] for handle in after.keys() - before.keys())
    assert new == sorted(["APPID", "ARC", "BLOCK", "BLOCK_RECORD", "ENDBLK", "GROUP", "INSERT", "LAYER",
                          "LINE", "LWPOLYLINE", "TEXT"]), new
    changed = {h for h in before.keys() & after.keys()
               if before[h] != after[h] and before[h]["type"] != "TABLE"}
    assert changed == {"108", "110", "114", "116"}, changed


def check_edits(before, after, document):
    duct = document.entitydb["114"]
    assert duct.dxf.layer == "通り芯" and math.isclose(duct.dxf.rotation, math.degrees(1.0))
    assert before["114"]["xdata"] == after["114"]["xdata"]
    assert after["108"]["xdata"] == {"MY_APP": [(1001, "MY_APP"), (1000, "能力")]}
    assert "MY_APP" in document.appids and "新しい画層" in document.layers
    assert after["116"]["reactors"] == before["116"]["reactors"] - {"187"}
    [insert] = document.modelspace().query('INSERT[name=="新部品"]')
    assert tuple(insert.dxf.insert) == (1, 2, 3)
    assert len(document.blocks.get("新部品")) == 1
    [text] = document.modelspace().query('TEXT[text=="追加"]')
    assert text.dxf.layer == "0"


def check_groups(before, after):
    expected = dict(before)
    del expected["*A3"]
    expected["家具"] = before["家具"] - {"106"}
    expected["*A4"] = {"110"}
    assert list(expected) == list(after) and expected == after, after


def main():
    tool, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    drawings = sorted(folder.glob("*.dxf"))
    assert len(drawings) == 2, "samples are missing"
    with tempfile.TemporaryDirectory() as temporary:
        edited = pathlib.Path(temporary, "edited.dxf")
        for drawing in drawings:
            original = ezdxf.readfile(drawing)
            before = objects(original)
            for form in ([], ["-b"]):
                subprocess.run([tool, drawing, edited, *form], check=True)
                document = ezdxf.readfile(edited)
                after = objects(document)
                check_objects(before, after)
                check_edits(before, after, document)
                check_groups(members(original), members(document))
                auditor = document.audit()
                assert not auditor.errors and not auditor.fixes, [e.message for e in auditor.fixes]
                print("as edited:", drawing.name, *form)


main()
