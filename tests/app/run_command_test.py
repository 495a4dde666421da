"""Runs the module of the tutorial by zu run-command; ezdxf reads what it made."""
import os
import subprocess
import sys
import tempfile

import ezdxf

from program import ZU, check

MODULE = sys.argv[3]
TUTORIAL = sys.argv[4]
SOURCE = sys.argv[5]


def run(*arguments, answers=None, status=0):
    """Standard error of the command, which must end with the status."""
    done = subprocess.run([ZU, "run-command", *arguments], input=answers, capture_output=True, timeout=120)
    text = done.stderr.decode("utf-8", "replace")
    if done.returncode != status:
        sys.exit("zu run-command %s: status %d\n%s" % (" ".join(arguments), done.returncode, text))
    return text


def make_drawing(path):
    drawing = ezdxf.new("R2018")
    drawing.layers.add("PIPES")
    drawing.layers.add("配管")
    space = drawing.modelspace()
    space.add_line((0, 0), (30, 40), dxfattribs={"layer": "PIPES"})
    space.add_line((30, 40), (30, 60), dxfattribs={"layer": "PIPES"})
    space.add_line((0, 100), (10, 100), dxfattribs={"layer": "配管"})
    space.add_circle((0, 0), 5, dxfattribs={"layer": "PIPES"})
    drawing.saveas(path)


def check_tag(path, number, layer, length, pipes):
    drawing = ezdxf.readfile(path)
    auditor = drawing.audit()
    check(not auditor.errors and not auditor.fixes, "%s passes an audit: %s %s" % (path, auditor.errors, auditor.fixes))
    tag = drawing.modelspace().query("INSERT")[-1]
    check(tag.dxf.name == "PIPE_TAG" and tag.dxf.layer == layer, "the tag is placed")
    check({a.dxf.tag: a.dxf.text for a in tag.attribs} == {"NUMBER": number, "LENGTH": length}, "attributes")
    check([(t.code, t.value) for t in tag.get_xdata("PIPETAG")] == [(1000, number), (1003, layer)],
          "extended data")
    record = tag.get_extension_dict()["PIPES"]
    named = [drawing.entitydb[t.value].dxftype() for t in record.tags if t.code == 330]
    check(named == ["LINE"] * pipes, "the record names the pipes: %s" % named)
    definition = drawing.blocks["PIPE_TAG"]
    check(sorted(e.dxftype() for e in definition) == ["ATTDEF", "ATTDEF", "CIRCLE"], "the block's definition")


def check_tutorial():
    """Every block of code of the tutorial is in the source, as it stands."""
    with open(SOURCE, encoding="utf-8") as f:
        source = f.read()
    with open(TUTORIAL, encoding="utf-8") as f:
        blocks = [block.split("\n", 1)[1] for block in f.read().split("```")[1::2] if block.startswith("cpp\n")]
    check(len(blocks) >= 8, "the tutorial has its code")
    for block in blocks:
        check(block.strip() in source, "the tutorial's code is the module's:\n" + block)


def main(folder):
    plan = os.path.join(folder, "plan.dxf")
    out = os.path.join(folder, "out.dxf")
    make_drawing(plan)

    def script(text, encoding="utf-8"):
        path = os.path.join(folder, "script.txt")
        with open(path, "wb") as f:
            f.write(text.encode(encoding))
        return path

    answers = "; the answers\nPIPES\np-1 50,50\nALL\n\n"
    said = run(MODULE, "PIPETAG", plan, "--script", script(answers), "-o", out)
    check("Layer of the pipes <0>: PIPES" in said, "prompts are printed with their answers")
    check("Tag P-1: 2 pipes, length 70.0." in said, "the command's result is printed")
    check_tag(out, "P-1", "PIPES", "70", 2)

    again = os.path.join(folder, "again.dxf")
    for encoding in ("utf-8", "cp932"):
        run(MODULE, "pipetag", out, "--script", script("配管\nP-2 0,80\n0,100\n\n", encoding), "-o", again)
        check_tag(again, "P-2", "配管", "10", 1)
    listed = run(MODULE, "PIPETAGLIST", again, answers=b"")
    rows = [line.split() for line in listed.splitlines()]
    check(["P-1", "70", "2"] in rows and ["P-2", "10", "1"] in rows, "tags are listed: " + listed)

    # Inputs that end, never end or say nothing useful.
    untouched = open(plan, "rb").read()
    for short in (b"", b"PIPES\n", b"PIPES\np-1 ", b"PIPES\np-1 50,50\nALL\n", b"NO_SUCH_LAYER\n", b"\x1b"):
        said = run(MODULE, "PIPETAG", plan, "-o", out, answers=short)
        check("No tag is placed." in said, "a script that ends early cancels: %s" % said)
        check(not ezdxf.readfile(out).modelspace().query("INSERT"), "nothing is placed")
    with subprocess.Popen(["yes", "PIPES"], stdout=subprocess.PIPE) as endless:
        done = subprocess.run([ZU, "run-command", MODULE, "PIPETAG", plan], stdin=endless.stdout, capture_output=True,
                              timeout=120)
        endless.stdout.close()
        check(done.returncode == 0 and b"No tag is placed." in done.stderr, "an endless input ends")
    zeros = subprocess.run([ZU, "run-command", MODULE, "PIPETAG", plan, "-o", out + ".none"],
                           stdin=open("/dev/zero", "rb"), capture_output=True, timeout=120)
    check(zeros.returncode == 1 and b"more than a megabyte" in zeros.stderr, "an endless line is refused")
    check(not os.path.exists(out + ".none"), "a command that failed saves nothing")
    check("the command ended before the script" in run(MODULE, "PIPETAGLIST", plan, "--script", script("1\n2\n")),
          "unused answers are reported")
    check(open(plan, "rb").read() == untouched, "without -o nothing is saved")

    run(MODULE, "NO_SUCH_COMMAND", plan, answers=b"", status=1)
    run(MODULE + ".missing", "PIPETAG", plan, answers=b"", status=1)
    run(plan, "PIPETAG", plan, answers=b"", status=1)
    run(MODULE, "PIPETAG", os.path.join(folder, "missing.dxf"), answers=b"", status=1)
    run(MODULE, "PIPETAG", plan, "--script", os.path.join(folder, "missing.txt"), status=1)
    run(MODULE, "PIPETAG", plan, "--script", folder, status=1)
    run(MODULE, "PIPETAG", "-", answers=untouched, status=2)
    run(MODULE, "PIPETAG", status=2)


check_tutorial()
with tempfile.TemporaryDirectory() as temporary:
    main(temporary)
