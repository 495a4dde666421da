"""Table files and link information by the commands that read and save them."""
import os
import shutil
import subprocess
import tempfile

from program import ZU, check, expected, run, run_json, sample


def check_tables(folder):
    path = os.path.join(folder, "t.csv")
    with open(path, "wb") as f:
        f.write("# 表\n|弁|2\nポンプ|x  \nEND\nlost\n".encode("cp932"))
    check(run_json("table", path) == [["", "弁", "2"], ["ポンプ", "x"]], "records of a table")
    check(run_json("table", path, "--skip", "2", "--columns", "2") == [["x"]], "one column after skipped lines")
    check(run("table", path) == "  弁  2\nポンプ  x\n", "an empty first field keeps its place")
    check(run_json("table", sample("parts/fitting.csv")) == expected("settings.json")["fitting.csv"], "sample table")
    with open(path, "rb") as table:
        piped = subprocess.run([ZU, "table", "-"], stdin=table, capture_output=True, text=True).stdout
    check(piped == run("table", path), "a table on the standard input")
    run("table", path, "--skip", "9", status=1)
    run("table", path, "--separator", "", status=2)
    run("table", os.path.join(folder, "missing"), status=1)


def save(path, *pairs):
    """Standard error of the command that saves pairs."""
    return subprocess.run([ZU, "link", "save", path, *pairs], check=True, capture_output=True, text=True).stderr


def check_links(folder):
    path = os.path.join(folder, "LinkInfo.lif")
    shutil.copy(sample("system/LinkInfo.lif"), path)
    links = expected("settings.json")["links"]
    check(run_json("link", "get", path, *[key for key, _ in links]) == [value for _, value in links], "sample links")
    check(run("link", "get", path, "EQUIP", "nowhere") == "送風機 FAN-1\n\n", "one value a line, empty without a record")
    check(save(path, "空調機\nAHU-1=b  ", "PLAN-3F=x=y", "new=1", "new=2") == "", "nothing to tell")
    check(run_json("link", "get", path, "PLAN-3F", "空調機\nAHU-1", "new") == ["x=y", "b", "1"], "saved pairs")
    for wrong in ("no pair", "a|b=c", "a=b\nc", "#key=1", "END\nkey=1"):
        run("link", "save", path, wrong, status=2)
    run("link", "get", os.path.join(folder, "missing"), "A", status=1)


def said(language, *arguments):
    """Standard error of a command in a language."""
    environment = {**os.environ, "LC_ALL": language}
    return subprocess.run([ZU, *arguments], capture_output=True, text=True, env=environment).stderr


def check_messages(folder):
    """Likely UTF-8 without a byte-order mark is warned about, a language without texts is not."""
    path = os.path.join(folder, "utf8.csv")
    for text, encoding, warned in (("a|弁", "utf-8", True), ("a|Ö1", "utf-8", True), ("a|弁", "cp932", False),
                                   ("a|ﾄｱ", "cp932", False), ("a|弁", "utf-8-sig", False), ("a|b", "utf-8", False)):
        for arguments in (("table", path), ("link", "get", path, "a"), ("link", "save", path, "a=1"),
                          ("link", "get", sample("system/LinkInfo.lif"), "EQUIP", "--settings", path)):
            with open(path, "wb") as f:
                f.write(text.encode(encoding) + b"\n")
            check((path + ": warning: " in said("C.UTF-8", *arguments)) == warned, "%s of %s in %s" % (arguments[0], text, encoding))
    for language in ("de_DE.UTF-8", "el_GR.UTF-8", "en_GB.UTF-8", "ja_JP.UTF-8", "C"):
        for arguments in (("--help",), ("table", path), ("elements", sample("drawings/office-floor.dxf"))):
            check(said(language, *arguments) == "", "no word about the language %s: %s" % (language, arguments[0]))


with tempfile.TemporaryDirectory() as folder:
    check_tables(folder)
    check_links(folder)
    check_messages(folder)
