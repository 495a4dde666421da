"""Opens originals and their saved copies with ezdxf and compares what it finds.

compare_with_ezdxf.py DRAWING_COPY SAMPLES
"""

import collections
import io
import pathlib
import subprocess
import sys
import tempfile

import ezdxf
import ezdxf.recover
from ezdxf.lldxf.tagger import ascii_tags_loader, binary_tags_loader
from ezdxf.lldxf.types import DXFBinaryTag, cast_tag_value

COMMENT = 999


def is_binary(path):
    return path.read_bytes().startswith(b"AutoCAD Binary DXF")


def all_records(path):
    """All records as typed values."""
    if is_binary(path):
        tags = binary_tags_loader(path.read_bytes())
    else:
        encoding = ezdxf.filemanagement.dxf_file_info(str(path)).encoding
        tags = ascii_tags_loader(open(path, encoding=encoding, errors="surrogateescape"))
    for tag in tags:
        if tag.code in range(310, 320) or tag.code == 1004:
            value = tag.value if isinstance(tag, DXFBinaryTag) else bytes.fromhex(tag.value)
        else:
            value = cast_tag_value(tag.code, tag.value)
        yield tag.code, value


def entities(document):
    """Every object that ezdxf knows, with its attributes, extended data and reactors, by handle."""
    found = {}
    for handle, entity in document.entitydb.items():
        xdata = entity.xdata.data if entity.xdata else {}
        found[handle] = (
            entity.dxftype(),
            {name: str(value) for name, value in entity.dxfattribs().items()},
            {app: [(tag.code, str(tag.value)) for tag in tags] for app, tags in xdata.items()},
            sorted(entity.reactors.reactors) if entity.reactors else [],
        )
    return found


def audit(document):
    auditor = document.audit()
    return sorted(error.message for error in auditor.errors + auditor.fixes)


def compare(original, copy):
    # ezdxf passes over comments in ASCII drawings only.
    expected, found = ([r for r in all_records(path) if r[0] != COMMENT] for path in (original, copy))
    assert expected == found, "records differ"
    if is_binary(copy) and any(code == COMMENT for code, _ in all_records(copy)):
        return
    before, after = ezdxf.readfile(original), ezdxf.readfile(copy)
    found = entities(before)
    assert len(found) > 20, "hardly anything found"
    assert found == entities(after), "objects differ"
    for table in ("layers", "linetypes", "styles", "appids", "dimstyles", "block_records"):
        names = [[entry.dxf.name for entry in getattr(doc.tables, table)] for doc in (before, after)]
        assert names[0] == names[1], f"table {table} differs"
    assert audit(before) == audit(after), "audit differs"


# What is replaced in a small drawing (its first occurrence), and by what.
DAMAGES = {
    "ENDSEC missing": ("  0\nENDSEC\n  0\nSECTION\n  2\nTABLES", "  0\nSECTION\n  2\nTABLES"),
    "ENDSEC missing at the end": ("  0\nENDSEC\n  0\nEOF", "  0\nEOF"),
    "ENDSEC misspelt": ("ENDSEC\n  0\nSECTION\n  2\nOBJECTS", "ENDSE\n  0\nSECTION\n  2\nOBJECTS"),
    "SECTION missing": ("  0\nSECTION\n  2\nENTITIES", "  2\nENTITIES"),
    "ENDSEC twice": ("  0\nENDSEC\n", "  0\nENDSEC\n  0\nENDSEC\n"),
    "ENDTAB missing": ("  0\nENDTAB\n", ""),
    "ENDBLK misspelt": ("ENDBLK", "ENDBL"),
    "record between sections": ("  0\nSECTION\n  2\nBLOCKS", "  8\n0\n  0\nSECTION\n  2\nBLOCKS"),
    "handle that is none": ("LINE\n  5\n", "LINE\n  5\nX"),
    "number that is none": (" 11\n1.0\n", " 11\n1,0\n"),
    "data after EOF": ("EOF\n", "EOF\n  0\nLINE\n"),
}


def small_drawing():
    document, text = ezdxf.new("R2000"), io.StringIO()
    document.blocks.new("B").add_circle((0, 0), 1)
    document.modelspace().add_line((0, 0), (1, 1))
    document.modelspace().add_blockref("B", (1, 1))
    document.write(text)
    return text.getvalue()


def types_found(path):
    try:
        document = ezdxf.readfile(path)
    except (ezdxf.DXFError, ValueError):
        document = ezdxf.recover.readfile(path)[0]
    return collections.Counter(entity.dxftype() for entity in document.entitydb.values())


def compare_damaged(tool, folder):
    """What ezdxf reads of a damaged drawing is read, and written in both forms."""
    damaged, binary, back = (pathlib.Path(folder, name) for name in ("damaged.dxf", "binary.dxf", "back.dxf"))
    for damage, (old, new) in DAMAGES.items():
        whole = small_drawing()
        assert old in whole, damage
        damaged.write_text(whole.replace(old, new, 1))
        options = [] if "number" in damage else ["-b"]  # Binary drawings hold no other text for a number.
        subprocess.run([tool, *options, damaged, binary], check=True)
        subprocess.run([tool, "-a", binary, back], check=True)
        lost = types_found(damaged) - types_found(back)
        assert not lost, f"{damage}: {lost}"
        print("no fewer:", damage)


def main():
    tool, samples = sys.argv[1], pathlib.Path(sys.argv[2])
    drawings = sorted(samples.rglob("*.dxf"))
    assert len(drawings) >= 11, "samples are missing"
    with tempfile.TemporaryDirectory() as folder:
        copy, back = pathlib.Path(folder, "copy.dxf"), pathlib.Path(folder, "back.dxf")
        for drawing in drawings:
            binary = is_binary(drawing)
            subprocess.run([tool, drawing, copy], check=True)
            assert drawing.read_bytes() == copy.read_bytes()
            compare(drawing, copy)
            subprocess.run([tool, "-a" if binary else "-b", drawing, copy], check=True)
            compare(drawing, copy)
            subprocess.run([tool, "-b" if binary else "-a", copy, back], check=True)
            compare(drawing, back)
            print("same:", drawing.relative_to(samples))
        compare_damaged(tool, folder)
        subprocess.run([tool, "-e", copy], check=True)
        assert audit(ezdxf.readfile(copy)) == [], "the empty drawing has faults"


main()
