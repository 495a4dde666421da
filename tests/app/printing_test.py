"""A report printed by a browser: everything that its page says is on the paper, and marks and findings lead to each other."""
import os
import shutil
import subprocess
import sys
import tempfile

from program import check, run, run_json, sample

FLOOR = sample("drawings/office-floor.dxf")
BROWSER = shutil.which("chromium") or shutil.which("chromium-browser")
if not BROWSER or not shutil.which("pdftotext"):
    print("no browser to print with")
    sys.exit(77)


def words(pdf, *options):
    text = subprocess.run(["pdftotext", *options, pdf, "-"], check=True, capture_output=True, text=True).stdout
    return text.split()


with tempfile.TemporaryDirectory() as folder:
    page, paper = os.path.join(folder, "report.html"), os.path.join(folder, "report.pdf")
    run("report", FLOOR, "-o", page)
    subprocess.run([BROWSER, "--headless", "--no-sandbox", "--disable-gpu", "--no-pdf-header-footer", "--user-data-dir=" + folder,
                    "--print-to-pdf=" + paper, "file://" + page], check=True, capture_output=True, timeout=240)
    findings = run_json("check", FLOOR)
    printed = words(paper)
    for finding in findings:
        text = finding["problem"].split()
        check(any(printed[i:i + len(text)] == text for i in range(len(printed))), "printed: " + finding["problem"])
    blocks = {row["block"] for row in run_json("quantities", FLOOR)["rows"]}
    check(blocks <= set(printed), "not printed: %r" % (blocks - set(printed)))
    document = open(paper, "rb").read()
    check(document.count(b"/Subtype /Link") == 2 * sum(f["position"] is not None for f in findings), "links between marks and findings")
    sheets = document.count(b"/Type /Page\n")
    check(1 < sheets < 5, "%d sheets" % sheets)
print("the printed report is whole")
