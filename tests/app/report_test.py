"""Reports: a page without outside resources, whose plan and lists lead to each other; a PDF; many drawings in one."""
import html.parser
import os
import re
import tempfile

import ezdxf

from program import check, run, run_json, sample

FLOOR = sample("drawings/office-floor.dxf")


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.ids, self.links, self.resources, self.open, self.text = [], [], [], [], ""
        self.feed(open(path, encoding="utf-8").read())
        check(self.open == [], "elements left open: %r" % self.open)
        check(len(set(self.ids)) == len(self.ids), "ids are unique")
        check(all(link[0] == "#" and link[1:] in self.ids for link in self.links), "links lead somewhere")
        check(all(r.startswith("data:image/") for r in self.resources), "no outside resources")

    def handle_starttag(self, tag, attributes):
        found = dict(attributes)
        self.ids += [found["id"]] if "id" in found else []
        self.links += [found["href"]] if "href" in found else []
        self.resources += [found[key] for key in ("src", "srcset") if key in found]
        if tag not in ("meta", "img", "source", "br"):
            self.open.append(tag)

    def handle_endtag(self, tag):
        check(self.open.pop() == tag, "elements are nested: " + tag)

    def handle_data(self, data):
        self.text += data


with tempfile.TemporaryDirectory() as folder:
    output = os.path.join(folder, "report.html")
    findings = run_json("check", FLOOR)
    run("report", FLOOR, "-o", output)
    page = Page(output)
    check(all(f["problem"] in page.text and f["handle"] in page.text for f in findings), "every finding")
    check({"d1f%d" % (i + 1) for i in range(len(findings))} <= set(page.ids), "every finding has its place")
    check(sum(link.startswith("#d1f") for link in page.links) == sum(f["position"] is not None for f in findings),
          "every finding with a position has its mark")
    check(len(page.resources) == 2, "a light and a dark plan")
    # Findings whose marks would cover each other have one, to which the numbers of all lead.
    crowd = ezdxf.new()
    block = crowd.blocks.new("RT-1")
    block.add_line((0, 0), (5000, 0))
    for x in (0, 5000):
        block.add_point((x, 0), dxfattribs={"layer": "_ZU_CONNECT"})
    for place in [(0, 10 * i) for i in range(40)] + [(0, 4000)]:
        crowd.modelspace().add_blockref("RT-1", place)
    drawing = os.path.join(folder, "crowd.dxf")
    crowd.saveas(drawing)
    run("report", drawing, "-o", output)
    page, text = Page(output), open(output, encoding="utf-8").read()
    count = sum(f["position"] is not None for f in run_json("check", drawing))
    check(count >= 80 and {"d1m%d" % (i + 1) for i in range(count)} <= set(page.ids), "a mark for each of %d" % count)
    marks = [(float(x), float(y)) for x, y in re.findall(r'class="mark [a-z]+" style="left:([0-9.]+)%;top:([0-9.]+)%', text)]
    near = [(a, b) for a in marks for b in marks if a < b and abs(a[0] - b[0]) < 1.5 and abs(a[1] - b[1]) < 1.5]
    check(4 <= len(marks) < count and not near, "marks that cover each other: %r" % near)
    run("report", drawing, "-o", os.path.join(folder, "crowd.pdf"))
    broken = os.path.join(folder, "<b>.dxf")
    open(broken, "w").write("0\n")
    run("report", broken, FLOOR, "-o", output, status=1)
    both = Page(output)
    check("d2f1" in both.ids and broken in both.text and "d3" not in both.ids, "both drawings, one with its error")
    run("report", FLOOR, "-o", os.path.join(folder, "{}.pdf"))
    run("report", sample("drawings"), "-o", os.path.join(folder, "all.pdf"))
    pdf = open(os.path.join(folder, "all.pdf"), "rb").read()
    check(pdf.startswith(b"%PDF-") and pdf.count(b"/Type /Page\n") in range(4, 12), "a PDF of a few pages")
    links = pdf.count(b"/S /GoTo")
    check(b"/S /URI" not in pdf and links == 4 * sum(f["position"] is not None for f in findings), "%d links within the PDF" % links)
    pages = set(re.findall(rb"\n(\d+) 0 obj\n<<\n/Type /Page\n", pdf))
    check({m[1] for m in re.finditer(rb"/D \[(\d+) 0 R /XYZ", pdf)} == pages, "links lead to every page")
    run("report", FLOOR, status=2)
    run("report", FLOOR, "-o", os.path.join(folder, "report.doc"), status=2)
print("reports are whole")
