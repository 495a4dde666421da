"""Checks with ezdxf that entities made through the interface are saved, and those of files read, with their values.

check_made_entities.py MADE_ENTITIES
"""

import math
import pathlib
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf.lldxf.encoding import decode_dxf_unicode


def drawing(version):
    """Returns a drawing with one entity of each kind, and what the tool prints of it."""
    document = ezdxf.new(version)
    space = document.modelspace()
    text = []

    def expect(name, *lines, colour="256 1"):
        text.extend([name, f"colour {colour}", *lines])

    space.add_line((1, 2, 3), (4, 6, 3), dxfattribs={"color": 2})
    expect("AcDbLine", "start 1 2 3", "length 5", "min 1 2 3", "max 4 6 3", colour="2 1")
    space.add_circle((1, 2, 3), 5, dxfattribs={"extrusion": (0, 0, -1)})
    expect("AcDbCircle", "start -6 2 -3", "length 31.4159", "min -6 -3 -3", "max 4 7 -3")
    space.add_arc((0, 0), 2, 90, 180)
    expect("AcDbArc", "start 0 2 0", "length 3.14159", "min -2 0 0", "max 0 2 0")
    space.add_point((7, 8, 9))
    expect("AcDbPoint", "min 7 8 9", "max 7 8 9")
    placed = space.add_text("a", dxfattribs={"height": 2.5, "rotation": 90, "width": 0.5, "oblique": 45})
    placed.set_placement((3, 4), align=ezdxf.enums.TextEntityAlignment.MIDDLE_RIGHT)
    expect("AcDbText", "alignment 3 4 0", "text 2.5 1.5708 0.5 0.785398 2 2")
    space.add_polyline3d([(0, 0, 0), (3, 4, 0), (3, 4, 5)])
    expect("AcDb3dPolyline", "start 0 0 0", "length 10", "min 0 0 0", "max 3 4 5",
           "  vertex 0 0 0", "  vertex 3 4 0", "  vertex 3 4 5")
    space.add_polyline2d([(0, 0, 1), (2, 0, 0), (2, 3, 0)], format="xyb")
    expect("AcDb2dPolyline", "start 0 0 0", "length 6.14159", "min 0 -1 0", "max 2 3 0",
           "  vertex 0 0 0", "  bulge 1", "  vertex 2 0 0", "  bulge 0", "  vertex 2 3 0", "  bulge 0")
    block = document.blocks.new("PART", base_point=(1, 0))
    block.add_circle((1, 0), 1)
    reference = space.add_blockref("PART", (10, 0), dxfattribs={"xscale": 2, "yscale": 3})
    reference.add_attrib("CODE", "x", (1, 1), dxfattribs={"height": 4})
    expect("AcDbBlockReference", "min 8 -3 0", "max 12 3 0", "position 10 0 0", "  attribute CODE", "  height 4")
    if version != "R12":
        space.add_lwpolyline([(0, 0, 1), (2, 0, 0)], format="xyb", close=True)
        expect("AcDbPolyline", "start 0 0 0", "length 5.14159", "min 0 -1 0", "max 2 0 0")
        space.add_ellipse((0, 0), (2, 0), 0.5)
        expect("AcDbEllipse", "start 2 0 0", "length 9.68845", "min -2 -1 0", "max 2 1 0")
        space.add_mtext("b", dxfattribs={"insert": (1, 2), "char_height": 3, "width": 9, "rotation": 90,
                                         "attachment_point": 5})
        expect("AcDbMText", "location 1 2 0", "text 3 9 1.5708 5")
    return document, text


def close(found, expected):
    return all(math.isclose(a, b, abs_tol=1e-9) for a, b in zip(found, expected, strict=True))


def of_type(entities, name):
    [entity] = [entity for entity in entities if entity.dxftype() == name]
    return entity


def check_lines(made, version):
    line = of_type(made, "LINE")
    assert close(line.dxf.start, (1, 2, 3)) and close(line.dxf.end, (4, 6, 3)) and line.dxf.color == 1
    if version != "R12":
        assert line.dxf.ltscale == 2.0 and line.dxf.lineweight == 50
    circle = of_type(made, "CIRCLE")
    assert close(circle.ocs().to_wcs(circle.dxf.center), (1, 2, 3)) and circle.dxf.radius == 5
    assert circle.rgb == ((255, 128, 0) if version in ("R2004", "R2018") else None)
    arc = of_type(made, "ARC")
    assert close(arc.dxf.center, (1, 2, 0)) and close((arc.dxf.start_angle,), (math.degrees(0.5),))
    assert close(of_type(made, "POINT").dxf.location, (7, 8, 9))


def check_texts(made, version):
    text = of_type(made, "TEXT")
    assert decode_dxf_unicode(text.dxf.text) == "縦" and (text.dxf.halign, text.dxf.valign) == (1, 3)
    assert close(text.dxf.align_point, (3, 4, 0)) and text.dxf.height == 2.5 and text.dxf.width == 0.8
    if version == "R12":
        return
    lines = of_type(made, "MTEXT")
    assert decode_dxf_unicode(lines.text) == "漢" * 600 and lines.dxf.attachment_point == 5 and lines.dxf.width == 100
    assert close(lines.dxf.text_direction, (math.cos(0.5), math.sin(0.5), 0))
    ellipse = of_type(made, "ELLIPSE")
    assert close(ellipse.dxf.major_axis, (0, 4, 0)) and ellipse.dxf.ratio == 0.5
    assert close((math.atan2(0.5 * math.sin(ellipse.dxf.end_param), math.cos(ellipse.dxf.end_param)),), (1.0,))
    outline = of_type(made, "LWPOLYLINE")
    assert outline.get_points() == [(0, 0, 0.5, 0.25, 1), (10, 0, 0, 0, 0), (10, 10, 0, 0, 0)]
    assert outline.closed and outline.dxf.elevation == 4


def check_parts(made):
    in_space, flat = sorted((e for e in made if e.dxftype() == "POLYLINE"), key=lambda e: e.is_2d_polyline)
    assert in_space.is_3d_polyline and in_space.is_closed and len(in_space.vertices) == 3
    assert close(in_space.vertices[2].dxf.location, (4, 3, 2))
    assert flat.dxf.elevation.z == 5 and close(flat.vertices[1].dxf.location, (4, 0, 5))
    assert {vertex.dxf.layer for vertex in flat.vertices} == {flat.dxf.layer}
    reference = of_type(made, "INSERT")
    [attribute] = reference.attribs
    assert attribute.dxf.tag == "TAG" and attribute.dxf.text == "P-1" and attribute.dxf.field_length == 12
    assert attribute.dxf.height == 4 and close((attribute.dxf.rotation,), (90,))
    assert close(attribute.dxf.insert, (8, 20, 0))
    definition = of_type(reference.block(), "ATTDEF")
    assert definition.dxf.prompt == "Which tag?" and definition.dxf.text == "none"


def check(tool, folder, version):
    source, target = folder / "source.dxf", folder / "target.dxf"
    document, expected = drawing(version)
    document.saveas(source)
    run = subprocess.run([tool, source, target], check=True, capture_output=True, text=True, encoding="utf-8")
    printed = run.stdout.splitlines()
    for found, wanted in zip(printed, expected):
        assert found == wanted, (version, found, wanted)
    assert len(printed) == len(expected), (version, printed[len(expected):])
    document = ezdxf.readfile(target)
    auditor = document.audit()
    assert not auditor.errors and not auditor.fixes, [e.message for e in auditor.errors + auditor.fixes]
    known = {entity.dxf.handle for entity in ezdxf.readfile(source).modelspace()}
    made = [entity for entity in document.modelspace() if entity.dxf.handle not in known]
    check_lines(made, version)
    check_texts(made, version)
    check_parts(made)
    print("as made:", version)


with tempfile.TemporaryDirectory() as temporary:
    for drawing_version in ("R12", "R2000", "R2004", "R2018"):
        check(sys.argv[1], pathlib.Path(temporary), drawing_version)
