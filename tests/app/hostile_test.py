"""Drawings that would take any time or memory: each is drawn, or refused with a message, in bounded time and memory."""
import os
import resource
import sys
import tempfile

from program import ZU, check

MEGABYTES = int(sys.argv[3])
SECONDS = 60
TOO_MUCH, DRAWN = 1, 0
MANY = int(sys.argv[4])


def records(text):
    return "".join("%s\n%s\n" % (record.partition(" ")[0], record.partition(" ")[2]) for record in text.split("|"))


def drawing(entities, blocks="", tables=""):
    return (records("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|0 ENDSEC|0 SECTION|2 TABLES") + tables
            + records("0 ENDSEC|0 SECTION|2 BLOCKS") + blocks + records("0 ENDSEC|0 SECTION|2 ENTITIES") + entities
            + records("0 ENDSEC|0 EOF"))


def hatch(distance, dashes=""):
    return records("0 HATCH|8 0|2 X|70 0|91 1|92 2|93 4|10 0|20 0|10 1e6|20 0|10 1e6|20 1e6|10 0|20 1e6|75 0|76 1|78 1|"
                   "53 45|43 0|44 0|45 0|46 %g%s" % (distance, dashes))


def dashed(dash, lines, end):
    table = "0 TABLE|2 LTYPE|70 1|0 LTYPE|2 FINE|70 0|3 |72 65|73 2|40 %g|49 %g|49 -%g|0 ENDTAB" % (2 * dash, dash, dash)
    return drawing(records("0 LINE|8 0|6 FINE|10 0|20 0|11 %g|21 7" % end) * lines, tables=records(table))


def points(code, more=""):
    return "".join(records("%d %d|%d %d%s" % (code, i % 977, code + 10, i % 991, more)) for i in range(MANY))


BLOCK = records("0 BLOCK|2 B|10 0|20 0|0 LINE|8 0|11 1|0 ENDBLK")
NESTED = records("0 BLOCK|2 B0|0 LINE|8 0|11 1|0 ENDBLK") + "".join(
    records("0 BLOCK|2 B%d" % i) + records("0 INSERT|8 0|2 B%d" % (i - 1)) * 8 + records("0 ENDBLK") for i in range(1, 30))
WRITTEN = records("0 BLOCK|2 B|10 0|20 0|0 TEXT|8 0|40 5|1 %s|0 ENDBLK" % ("abcdefgh" * 30))
SPLINE = "0 SPLINE|8 0|70 8|71 %d|72 %d|73 %d|74 %d"
CASES = {
    "nested blocks": (drawing(records("0 INSERT|8 0|2 B29"), NESTED), TOO_MUCH),
    "an array of millions": (drawing(records("0 INSERT|8 0|2 B|70 32767|71 32767|44 1|45 1"), BLOCK), TOO_MUCH),
    "arrays": (drawing(records("0 INSERT|8 0|2 B|70 1000|71 900|44 1|45 1") * 10, BLOCK), TOO_MUCH),
    "a pattern too dense": (drawing(hatch(1e-3)), DRAWN),
    "patterns of many lines": (drawing(hatch(50) * 200), TOO_MUCH),
    "a pattern of fine dashes": (drawing(hatch(5e3, "|79 2|49 0.01|49 -0.01")), DRAWN),
    "a long spline": (drawing(records(SPLINE % (3, MANY + 4, MANY, 0)) + "".join(records("40 %d" % i) for i in range(MANY + 4))
                              + points(10)), DRAWN),
    "fit points": (drawing(records(SPLINE % (3, 0, 0, MANY)) + points(11)), DRAWN),
    "a spline of a high degree": (drawing(records(SPLINE % (2000, MANY, MANY, 0)) + points(10)), DRAWN),
    "a spline of false counts": (drawing(records(SPLINE % (3, 2147483647, 2147483647, 2147483647) + "|40 0|40 1e308|40 nan|"
                                                 "10 0|20 0|10 1|20 5|10 1e300|20 0")), DRAWN),
    "tiny dashes": (dashed(1e-9, 2000, 1e9), DRAWN),
    "fine dashes": (dashed(0.1, 20000, 1000), DRAWN),
    "a wide polyline": (drawing(records("0 LWPOLYLINE|8 0|90 %d|70 0" % MANY) + points(10, "|40 3|41 1|42 1.5")), DRAWN),
    "a solid hatch": (drawing(records("0 HATCH|8 0|2 SOLID|70 1|91 1|92 2|72 0|73 1|93 %d" % MANY) + points(10) + records("75 0|76 1")), DRAWN),
    "a leader": (drawing(records("0 LEADER|8 0|71 1|72 1|76 %d" % MANY) + points(10)), DRAWN),
    "arcs without end": (drawing(records("0 ARC|8 0|40 1e11|50 -1e300|51 1e300|0 CIRCLE|8 0|40 1|0 LWPOLYLINE|8 0|90 2|70 1|10 0|20 0|"
                                         "42 1e300|10 5|20 0|42 nan|0 ELLIPSE|8 0|11 1e11|40 1e-300|41 0|42 1e300")), DRAWN),
    "a long text": (drawing(records("0 TEXT|8 0|10 0|20 0|40 5|1 " + "duct " * MANY)), DRAWN),
    "many texts": (drawing(records("0 TEXT|8 0|10 0|20 0|40 5|1 " + "abcdefgh" * 30) * 5000), TOO_MUCH),
    "illegible texts": (drawing("".join(records("0 TEXT|8 0|10 %d|20 %d|40 5|1 %s" % (i % 71 * 10000, i * 200, "abcdefgh" * 30))
                                        for i in range(5000))), DRAWN),
    "texts in an array": (drawing(records("0 INSERT|8 0|2 B|70 5000|71 1|44 9"), WRITTEN), TOO_MUCH),
    "a high text": (drawing(records("0 TEXT|8 0|40 1e11|1 AB|0 TEXT|8 0|40 1e308|1 AB|0 LINE|8 0|11 5")), DRAWN),
    "paragraphs": (drawing(records("0 MTEXT|8 0|40 5|41 30|71 1") + records("3 " + "\\fArial|b1;abc {\\H2x;de} ".replace("|", " ") * 8)
                           * 5000 + records("1 end")), DRAWN),
    "braces": (drawing(records("0 MTEXT|8 0|40 5|41 30|71 1|1 " + "{" * 2 * MANY + "x")), DRAWN),
    "growing letters": (drawing(records("0 MTEXT|8 0|40 5|41 1e-4|71 1|1 " + "\\H100x;" * 2000 + "word " * 20000)), DRAWN),
}


def costs(*arguments):
    """Status, seconds of the processor and megabytes of a command."""
    child = os.fork()
    if child == 0:
        resource.setrlimit(resource.RLIMIT_CPU, (SECONDS, SECONDS))
        os.dup2(os.open(os.devnull, os.O_WRONLY), 2)
        os.execv(ZU, [ZU, *arguments])
    _, status, usage = os.wait4(child, 0)
    return os.waitstatus_to_exitcode(status), usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


with tempfile.TemporaryDirectory() as folder:
    hostile = os.path.join(folder, "hostile.dxf")
    for name, (content, expected) in CASES.items():
        with open(hostile, "w", encoding="cp932") as f:
            f.write(content)
        for picture in ("plan.png", "plan.svg"):
            status, seconds, megabytes = costs("plan", hostile, "-o", os.path.join(folder, picture))
            print("%-26s %s  status %d  %5.2f s  %4.0f MB" % (name, picture[-3:], status, seconds, megabytes))
            check(status == expected, "%s: status %d" % (name, status))
            check(megabytes < MEGABYTES, "%s: %.0f MB" % (name, megabytes))
print("hostile drawings are drawn or refused")
