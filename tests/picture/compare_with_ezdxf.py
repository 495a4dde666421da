#!/usr/bin/python3
"""Compares the ink of each entity, drawn alone, with that of the drawing add-on of ezdxf.

compare_with_ezdxf.py PROBE [FILE or FOLDER ...]

Without files it makes drawings of every version that hold one entity of each type. Fails when an entity that the
add-on draws is missing, or when the boxes of an entity that is no text differ by more than a twentieth."""
import collections
import math
import os
import pathlib
import subprocess
import sys
import tempfile

try:
    import ezdxf
    from ezdxf import path as ezpath, recover
    from ezdxf.addons.drawing import Frontend, RenderContext
    from ezdxf.addons.drawing.backend import Backend
    from ezdxf.addons.drawing.config import Configuration
    from ezdxf.enums import TextEntityAlignment
    from ezdxf.render import forms, mleader
except ImportError:
    print("skipped: python3-ezdxf is not installed")
    sys.exit(77)

# Letters are of different fonts in both: presence counts, not the box.
WITH_LETTERS = {"TEXT", "MTEXT", "ATTRIB", "ATTDEF", "INSERT", "DIMENSION", "MULTILEADER", "MLEADER", "TOLERANCE",
                "ACAD_TABLE"}
# Their size depends on the picture.
OF_PICTURE = {"XLINE", "RAY", "POINT", "VIEWPORT"}


class Recorder(Backend):
    """Keeps the box of what is drawn."""

    def __init__(self):
        super().__init__()
        self.points = []

    def add(self, *points):
        self.points.extend((p.x, p.y) for p in points)

    def draw_point(self, pos, properties):
        self.add(pos)

    def draw_line(self, start, end, properties):
        self.add(start, end)

    def draw_filled_polygon(self, points, properties):
        self.add(*points)

    def draw_path(self, path, properties):
        self.add(*path.flattening(0.01))

    def draw_filled_paths(self, paths, holes, properties):
        for path in [*paths, *holes]:
            self.add(*path.flattening(0.01))

    def draw_text(self, text, transform, properties, cap_height):
        self.add(transform.transform((0, 0, 0)))

    def get_font_measurements(self, cap_height, font=None):
        from ezdxf.tools.fonts import FontMeasurements
        return FontMeasurements(0, cap_height, cap_height * 0.7, cap_height * 0.3)

    def get_text_line_width(self, text, cap_height, font=None):
        return len(text) * cap_height

    def set_background(self, color):
        pass

    def clear(self):
        pass


def their_ink(doc):
    """The box of each entity of model space: handle -> (type, box or None)."""
    found = {}
    context = RenderContext(doc)
    for entity in doc.modelspace():
        recorder = Recorder()
        try:
            frontend = Frontend(context, recorder, config=Configuration.defaults())
            frontend.draw_entities([entity])
            recorder.finalize()
        except Exception:  # A fault of the add-on says nothing about the picture.
            continue
        points = [p for p in recorder.points if all(map(math.isfinite, p))]
        box = None
        if points:
            xs, ys = zip(*points)
            box = (min(xs), min(ys), max(xs), max(ys))
        found[entity.dxf.handle] = (entity.dxftype(), box)
    return found


def our_ink(probe, file, *options):
    done = subprocess.run([probe, *options, str(file)], capture_output=True, text=True, timeout=300)
    if done.returncode != 0:
        raise SystemExit("%s: the probe failed with %d: %s" % (file, done.returncode, done.stderr))
    found, missing = {}, []
    for line in done.stdout.splitlines():
        words = line.split(None, 3)
        if words[0] == "-":
            missing.append((words[1], int(words[2]), words[3]))
        else:
            handle, _, *box = line.split()
            found[handle] = tuple(map(float, box))
    return found, missing


def is_alike(ours, theirs):
    size = max(theirs[2] - theirs[0], theirs[3] - theirs[1], ours[2] - ours[0], ours[3] - ours[1], 1e-9)
    return all(abs(a - b) <= size / 20 for a, b in zip(ours, theirs))


def compare(probe, file, doc, tally, *options):
    theirs = their_ink(doc)
    ours, not_drawn = our_ink(probe, file, *options)
    for kind, count, why in not_drawn:
        tally["ours leaves out", kind, why] += count
    faults = []
    for handle, (kind, box) in theirs.items():
        mine = ours.get(handle)
        if box and not mine:
            faults.append("%s: %s %s is missing" % (file, kind, handle))
            tally["missing in ours", kind, ""] += 1
        elif mine and not box:
            tally["drawn by ours only", kind, ""] += 1
        elif mine and box:
            tally["drawn by both", kind, ""] += 1
            if kind not in WITH_LETTERS | OF_PICTURE and not is_alike(mine, box):
                faults.append("%s: %s %s has the box %s instead of %s" % (file, kind, handle, mine, box))
                tally["boxes differ", kind, ""] += 1
    return faults


def entities_of_all_types(version):
    doc = ezdxf.new(version, setup=True)
    space = doc.modelspace()
    modern = doc.dxfversion >= "AC1015"
    space.add_line((0, 0, 0), (10, 5, 3), dxfattribs={"linetype": "DASHED"})
    space.add_circle((20, 0), 3, dxfattribs={"extrusion": (0, 0, -1)})
    space.add_arc((30, 0), 3, 300, 120)
    space.add_arc((30, 9), 3, 30, 120, dxfattribs={"extrusion": (0, 0, -1)})
    space.add_point((40, 0))
    space.add_solid([(50, 0), (54, 0), (50, 4), (54, 4)])
    space.add_trace([(60, 0), (64, 0), (60, 1), (64, 2)])
    space.add_3dface([(70, 0, 0), (74, 0, 1), (74, 4, 0), (70, 4, 0)])
    space.add_polyline2d([(80, 0, 0, 0, 1), (84, 0, 0, 0, 0), (84, 4, 0, 0, -0.5)], format="xyseb", close=True)
    space.add_polyline2d([(90, 0, 1, 0.5), (94, 0, 0.5, 0.5), (94, 4, 0, 0)], format="xyse")
    space.add_polyline3d([(100, 0, 0), (104, 1, 5), (104, 4, 9)])
    mesh = space.add_polymesh((4, 3))
    for i in range(4):
        for k in range(3):
            mesh.set_mesh_vertex((i, k), (110 + i, k, i * k))
    forms.cube().scale(4, 4, 4).rotate_x(0.5).rotate_y(0.7).translate(120, 2, 0).render_polyface(space)
    space.add_text("Text", dxfattribs={"height": 2, "insert": (130, 0), "rotation": 30, "width": 0.7, "oblique": 15})
    space.add_text("Fit", dxfattribs={"height": 2}).set_placement((140, 0), (148, 3), align=TextEntityAlignment.FIT)
    space.add_text("Mid", dxfattribs={"height": 2, "text_generation_flag": 4}).set_placement((150, 0), align=TextEntityAlignment.MIDDLE_CENTER)
    block = doc.blocks.new("B", base_point=(1, 1))
    block.add_line((0, 0), (4, 0))
    block.add_circle((2, 2), 1)
    block.add_attdef("TAG", (0, 3), "default", dxfattribs={"height": 1})
    inner = doc.blocks.new("OUTER")
    inner.add_blockref("B", (2, 1), dxfattribs={"xscale": -1.5, "yscale": 0.5, "rotation": 20})
    space.add_blockref("B", (160, 0), dxfattribs={"rotation": 30, "xscale": -2, "yscale": 1.5}).add_auto_attribs({"TAG": "V"})
    space.add_blockref("OUTER", (180, 0), dxfattribs={"column_count": 3, "row_count": 2, "column_spacing": 8, "row_spacing": 6,
                                           "rotation": 15})
    space.add_blockref("OUTER", (-200, 0), dxfattribs={"extrusion": (0, 0, -1), "rotation": 40})
    space.add_linear_dim(base=(210, 5), p1=(210, 0), p2=(216, 0)).render()
    space.add_attdef("ALONE", (225, 0), "x", dxfattribs={"height": 1})
    if not modern:
        return doc
    space.add_lwpolyline([(0, 20, 0, 0, 0.5), (5, 20, 0, 0, -1), (5, 25, 0, 0, 0.2)], close=True)
    space.add_lwpolyline([(10, 20, 0.5, 1, 0.5), (15, 20, 1, 0, 0), (15, 25, 0, 0, 0)])
    space.add_ellipse((20, 22), (3, 1, 0), 0.4, 0.5, 5)
    space.add_ellipse((30, 22), (0, 3, 0), 0.6)
    space.add_spline([(40, 20), (43, 25), (46, 20), (49, 23)])
    space.add_open_spline([(50, 20), (52, 25), (54, 20), (58, 25), (59, 20)])
    space.add_rational_spline([(60, 20), (62, 25), (64, 20), (68, 25)], [1, 5, 0.5, 1])
    space.add_mtext("{\\fArial|b1;Bold} and \\C1;red\\P second \\S1/2; line\\H2x;big", {
        "insert": (80, 25), "char_height": 1, "width": 12, "attachment_point": 5, "rotation": 20})
    space.add_xline((90, 20), (1, 1))
    space.add_ray((95, 20), (-1, 1))
    for at, fill in ((100, None), (110, "ANSI31"), (120, "EARTH")):
        hatch = space.add_hatch(color=3)
        if fill:
            hatch.set_pattern_fill(fill, scale=0.5)
        hatch.paths.add_polyline_path([(at, 20, 0.5), (at + 6, 20), (at + 6, 26)], is_closed=True)
        hatch.paths.add_polyline_path([(at + 3, 21), (at + 5, 21), (at + 5, 23)], is_closed=True, flags=16)
    hatch = space.add_hatch(color=4)
    edges = hatch.paths.add_edge_path()
    edges.add_arc((130, 22), 3, 0, 180)
    edges.add_line((127, 22), (127, 20))
    edges.add_spline(control_points=[(127, 20), (129, 18), (131, 21), (133, 20)], degree=3,
                     knot_values=[0, 0, 0, 0, 1, 1, 1, 1])
    edges.add_line((133, 20), (133, 22))
    hatch = space.add_hatch(color=5)
    edges = hatch.paths.add_edge_path()
    edges.add_ellipse((140, 22), (4, 1), 0.5, 0, 360)
    edges.add_arc((140, 22), 1, 0, 360, ccw=False)
    space.add_leader([(150, 20), (153, 24), (158, 24)])
    style = doc.mline_styles.new("THREE")
    for offset, colour in ((0.5, 1), (0, 256), (-0.5, 3)):
        style.elements.append(offset, colour)
    space.add_mline([(160, 20), (165, 20), (166, 26)], dxfattribs={"style_name": "THREE"})
    mesh = space.add_mesh()
    with mesh.edit_data() as data:
        data.vertices = [(170, 20, 0), (174, 20, 0), (174, 24, 2), (170, 24, 2)]
        data.faces = [(0, 1, 2), (0, 2, 3)]
    image = doc.add_image_def("no.png", (640, 360))
    space.add_image(image, (180, 20), (6, 4), rotation=30)
    space.add_wipeout([(190, 20), (196, 20), (193, 25)])
    space.add_helix(3, 4, 3)
    leader = space.add_multileader_mtext("Standard")
    leader.set_content("note", char_height=1)
    leader.add_leader_line(mleader.ConnectionSide.left, [ezdxf.math.Vec2(200, 20)])
    leader.build(insert=ezdxf.math.Vec2(206, 25))
    leader = space.add_multileader_block("Standard")
    leader.set_content("B", scale=0.5)
    leader.add_leader_line(mleader.ConnectionSide.left, [ezdxf.math.Vec2(220, 20)])
    leader.build(insert=ezdxf.math.Vec2(226, 25))
    return doc


def made_drawings(folder):
    for version in ("R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"):
        file = pathlib.Path(folder) / (version + ".dxf")
        entities_of_all_types(version).saveas(file)
        yield file


def given_drawings(names):
    for name in names:
        path = pathlib.Path(name)
        yield from sorted(path.rglob("*.dxf")) if path.is_dir() else [path]


def main():
    probe, names = sys.argv[1], sys.argv[2:]
    tally, faults = collections.Counter(), []
    with tempfile.TemporaryDirectory() as folder:
        for file in given_drawings(names) if names else made_drawings(folder):
            try:
                doc, _ = recover.readfile(file)
            except (ezdxf.DXFError, OSError, ValueError, KeyError) as error:
                print("%s: ezdxf: %s" % (file, error), file=sys.stderr)
                continue
            faults += compare(probe, file, doc, tally)
            if not names:
                faults += compare(probe, file, doc, tally, "--database")
    for (what, kind, why), count in sorted(tally.items()):
        print("%6d  %-20s %s%s" % (count, what, kind, ": " + why if why else ""))
    for fault in faults[:200]:
        print(fault)
    sys.exit(1 if faults or not tally else 0)


main()
