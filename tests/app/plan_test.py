"""The plan as a picture: colours by link kind, marks of connection points, names."""
import os
import resource
import struct
import tempfile
import xml.etree.ElementTree as xml

import ezdxf

from program import check, run, run_json, sample

SVG = "{http://www.w3.org/2000/svg}"
COLOURS = {"link kind 1": "#1565c0", "link kind 2": "#c62828", "link kind 3": "#2e7d32", "equipment": "#7b1fa2"}
DANGLING = "#ffd600"

with tempfile.TemporaryDirectory() as folder:
    for name in ("office-floor", "office-floor-932"):
        drawing = sample("drawings/%s.dxf" % name)
        file = os.path.join(folder, "plan.svg")
        run("plan", drawing, "-o", file)
        root = xml.parse(file).getroot()
        # A text in two scripts is written in pieces.
        texts = "".join(t.text for t in root.iter(SVG + "text"))
        for text in ("AHU-1 空調機", "2階平面図", "縮尺 1/50", "X5", "弁", *COLOURS, "joined", "dangling"):
            check(text in texts, "the text " + text)
        check("link kind 4" not in texts, "a legend of what is there")
        check(texts.count("制気口200") == 6 and "tank" in texts, "equipment without a text is named")
        groups = list(root.iter(SVG + "g"))
        for colour in COLOURS.values():
            check(any(g.get("stroke") == colour and len(g) for g in groups), "strokes in " + colour)
        marks = sum(len(list(g.iter(SVG + "circle"))) + len(list(g.iter(SVG + "ellipse"))) + len(list(g.iter(SVG + "path")))
                    for g in groups if g.get("fill") == DANGLING)
        dangling = sum("joins nothing" in f["problem"] for f in run_json("check", drawing))
        check(marks == dangling + 1, "dangling points, and one in the legend: %d" % marks)
    picture = os.path.join(folder, "plan.png")
    run("plan", drawing, "-o", picture, "--width", "900")
    with open(picture, "rb") as f:
        head = f.read(24)
    check(head.startswith(b"\x89PNG") and struct.unpack(">I", head[16:20])[0] == 900, "as wide as asked")
    run("plan", drawing, "-o", os.path.join(folder, "plan.txt"), status=2)
    # Blocks that contain themselves or very many others, and a polyline each; an arc and a text that are too large.
    for names, points, status in (("AA", 2, 0), ("ABCDEFGHIJKL", 2, 1), ("ABCDEF", 2000, 1)):
        nested = os.path.join(folder, "nested.dxf")
        document = ezdxf.new()
        blocks = [document.blocks.new(name) for name in sorted(set(names))]
        for block, inner in zip(blocks, names[1:]):
            block.add_lwpolyline([(k % 7, k) for k in range(points)])
            for _ in range(10):
                block.add_blockref(inner, (0, 0))
        document.modelspace().add_blockref("A", (0, 0))
        document.modelspace().add_arc((0, 0), 5, -1e300, 1e300)
        document.modelspace().add_text("huge", height=1e308)
        document.saveas(nested)
        run("plan", nested, "-o", file, status=status)
    check(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss < 800000, "memory does not follow what blocks repeat")
    run("plan", drawing, "-o", os.path.join(folder, "missing", "plan.svg"), status=1)
print("the plan shows what it should")
