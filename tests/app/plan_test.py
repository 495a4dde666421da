"""The plan as a picture: colours by link kind, marks of connection points, names."""
import os
import resource
import struct
import subprocess
import tempfile
import xml.etree.ElementTree as xml

import ezdxf

from program import ZU, check, run, run_json, sample

SVG = "{http://www.w3.org/2000/svg}"
COLOURS = {"給気 (link kind 1)": "#1565c0", "還気 (link kind 2)": "#c62828", "冷水 (link kind 3)": "#2e7d32",
           "equipment": "#7b1fa2"}
DANGLING = "#ffd600"


def plan(drawing, *options):
    """The texts of a plan, its paths' attributes with their values, and its root."""
    run("plan", drawing, "-o", file, *options)
    root = xml.parse(file).getroot()
    return [t.text for t in root.iter(SVG + "text")], [i for p in root.iter(SVG + "path") for i in p.items()], root


with tempfile.TemporaryDirectory() as folder:
    file = os.path.join(folder, "plan.svg")
    for name in ("office-floor", "office-floor-932"):
        drawing = sample("drawings/%s.dxf" % name)
        texts, paths, root = plan(drawing)
        dangling = [h for f in run_json("check", drawing) if "joins nothing" in f["problem"]
                    for h in (f["handle"], *f["with"])]
        for text in ("AHU-1 空調機", "2階平面図", "縮尺 1/50", "X5", "弁", *COLOURS, "dangling (%d)" % len(dangling), *dangling):
            check(text in texts, "the text " + text)
        check(not any("link kind 4" in t for t in texts), "a legend of what is there")
        check(texts.count("制気口200") == 6 and "tank" in texts, "equipment without a text is named")
        check(all(("stroke", c) in paths for c in COLOURS.values()), "strokes in the colours of the kinds")
        check(paths.count(("fill", DANGLING)) == len(dangling) + 1, "dangling points, and one in the legend")
        sizes = {t.text: abs(float(t.get("transform")[7:].split()[3])) for t in root.iter(SVG + "text")}
        check(abs(sizes["X5"] / sizes["AHU-1 空調機"] - 400 / 120) < 0.01, "texts at their true size: %s" % sizes)
    settings = os.path.join(folder, "master.ini")
    with open(settings, "w", encoding="utf-8-sig") as f:
        f.write("[環境設定]\nｼｽﾃﾑ=%s\n" % folder)
    with open(os.path.join(folder, "ZuConfig.ini"), "w", encoding="utf-8-sig") as f:
        f.write("[経路種別]\n2=Return air\n")
    check("Return air: 還気" in plan(drawing, "--settings", settings)[0], "the settings name a kind")
    texts, paths, root = plan(drawing, "--kind", "2", "--labels", "sizes", "--theme", "dark", "--no-legend", "--size", "700x500")
    check((root.get("width"), root.get("height")) == ("700", "500") and root[0].get("fill") != "#ffffff", "size and theme")
    check(("stroke", COLOURS["給気 (link kind 1)"]) not in paths and "X5" in texts and "300" in texts, "a filtered plan with sizes")
    check("X5" not in plan(drawing, "--layer", "SA*")[0] + plan(drawing, "--window", "0,0,100,100")[0], "a part of the plan")
    done = run_json("plan", drawing, "-o", file)
    check(done["drawn"]["INSERT"] == 63 and done["not_drawn"] == [], "what is drawn: %s" % done)
    sheet = os.path.join(folder, "plan.pdf")
    for options, box in (([], b"1191.000000 842."), (["--paper", "A1", "--scale", "1:50"], b"2384.000000 1684."),
                         (["--scale", "1:100", "--orientation", "portrait"], b"842.000000 1191.")):
        run("plan", drawing, "-o", sheet, *options)
        with open(sheet, "rb") as f:
            check(b"/MediaBox [0 0 %s" % box in f.read(), "paper %s" % options)
    # Elements that show nothing but their points; a joint of two is one mark.
    points = ezdxf.new()
    block = points.blocks.new("RT-1")
    for x in (0, 500):
        block.add_point((x, 0), dxfattribs={"layer": "_ZU_CONNECT"})
    for x in (70000, 70500):
        points.modelspace().add_blockref("RT-1", (x, 90000))
    drawn = os.path.join(folder, "points.dxf")
    points.saveas(drawn)
    paths = plan(drawn)[1]
    check(paths.count(("fill", DANGLING)) == 2 + 1 and paths.count(("fill", "#101010")) == 1 + 1, "marks of points: %s" % paths)
    for window in ("0,0,100,9000", "0,0,9000,100"):
        root = plan(sample("drawings/office-floor.dxf"), "--window", window)[2]
        check(1600 <= max(float(root.get("width")), float(root.get("height"))) < 1800, "a long side of 1600: %s" % root.attrib)
    # A layout has its sheet at full size, turned and in its own units, unless other paper is asked for.
    layouts = ezdxf.new(setup=True)
    layouts.modelspace().add_line((0, 0), (4000, 0))
    view = layouts.layouts.get("Layout1")
    view.page_setup(size=(200, 150), margins=(7, 7, 7, 7), units="mm")
    view.add_viewport((80, 60), (100, 50), (2000, 0), 1000)
    layouts.layouts.new("Inches").page_setup(size=(11, 8.5), margins=(0, 0, 0, 0), units="inch")
    for name, line, turns in (("Inches", ((1, 1), (10, 1)), 0), ("Turned", ((0, 0), (250, 0)), 1)):
        layout = layouts.layouts.get(name) if name in layouts.layouts else layouts.layouts.new(name)
        layout.page_setup(size=(150, 200)) if turns else None
        layout.dxf.plot_rotation = turns
        layout.add_line(*line)
    drawn = os.path.join(folder, "layouts.dxf")
    layouts.saveas(drawn)
    for name, options, size, remark in (("Layout1", [], (200, 150), ""), ("Inches", [], (279.4, 215.9), ""),
                                        ("Turned", [], (200, 150), "outside of its paper"),
                                        ("Layout1", ["--paper", "A4"], (297, 210), ""),
                                        ("Inches", ["--window", "0,0,5,5"], (297, 420), "")):
        remarks = subprocess.run([ZU, "plan", drawn, "-o", sheet, "--layout", name, *options],
                                 capture_output=True, text=True, check=True).stderr
        with open(sheet, "rb") as f:
            box = [float(n) for n in f.read().split(b"/MediaBox [")[1].split(b"]")[0].split()[2:]]
        check(all(abs(points * 25.4 / 72 - mm) < 0.5 for points, mm in zip(box, size)), "%s %s: %s" % (name, options, box))
        check((remark in remarks) if remark else "paper" not in remarks, "%s %s: %s" % (name, options, remarks))
    picture = os.path.join(folder, "plan.png")
    run("plan", drawing, "-o", picture, "--width", "900")
    with open(picture, "rb") as f:
        head = f.read(24)
    check(head.startswith(b"\x89PNG") and struct.unpack(">I", head[16:20])[0] == 900, "as wide as asked")
    for wrong in (["-o", os.path.join(folder, "plan.txt")], ["-o", file, "--paper", "C5"], ["-o", file, "--size", "9"],
                  ["-o", file, "--scale", "1:0"], ["-o", file, "--window", "0,0,0,1"], ["-o", file, "--theme", "pink"]):
        run("plan", drawing, *wrong, status=2)
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
