#!/usr/bin/env python3
"""Writes the manual pages of zu and of each of its commands from what the program says of itself:
manual.py ZU FOLDER VERSION DATE"""
import json
import os
import pathlib
import subprocess
import sys

EXIT_STATUS = """.SH EXIT STATUS
.TP
.B 0
Success.
.TP
.B 1
What was asked for was not found, or failed.
.TP
.B 2
Wrong usage.
"""


def escaped(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text.startswith((".", "'")) else text


def item(option):
    value = f" \\fI{escaped(option['value'])}\\fR" if option["value"] and option["name"].startswith("-") else ""
    notes = [option["description"].rstrip(".") + "."]
    if option["default"]:
        notes.append(f"Default: {option['default']}.")
    if option["required"]:
        notes.append("Required.")
    names = ", ".join(f"\\fB{escaped(name)}\\fR" for name in option["name"].split(","))
    return f".TP\n{names}{value}\n{escaped(' '.join(notes))}\n"


def items(options):
    return "".join(item(option) for option in options if option["name"] != "--help-all")


def section(title, options):
    return f".SH {title}\n{items(options)}" if options else ""


def synopsis(full_name, command):
    words = [f"\\fB{escaped(full_name)}\\fR"]
    if command["commands"]:
        words.append("\\fICOMMAND\\fR ...")
    for argument in command["arguments"]:
        name = f"\\fI{escaped(argument['name'])}\\fR" + (" ..." if argument["repeats"] else "")
        words.append(name if argument["required"] else f"[{name}]")
    return " ".join(words + ["[\\fIOPTIONS\\fR]"])


def commands_section(page, commands):
    if not commands:
        return ""
    lines = [".SH COMMANDS\n"]
    for command in commands:
        name = f"{page}\\-{escaped(command['name'])}" if page == "zu" else escaped(command["name"])
        see = f"\\fB{name}\\fR(1)" if page == "zu" else f"\\fB{name}\\fR"
        lines.append(f".TP\n{see}\n{escaped(command['description'].rstrip('.'))}.\n")
        if page != "zu":
            lines += [".RS\n", items(command["arguments"]), items(command["options"]), ".RE\n"]
    return "".join(lines)


def page_text(page, full_name, command, heading):
    return (f'.TH "{page.upper()}" 1 {heading}\n'
            f".SH NAME\n{escaped(page)} \\- {escaped(command['description'].rstrip('.'))}\n"
            f".SH SYNOPSIS\n{synopsis(full_name, command)}\n"
            f"{section('ARGUMENTS', command['arguments'])}{section('OPTIONS', command['options'])}"
            f"{commands_section(page, command['commands'])}{EXIT_STATUS}"
            + ("" if page == "zu" else ".SH SEE ALSO\n\\fBzu\\fR(1)\n"))


def main():
    zu, folder, version, date = sys.argv[1:]
    described = subprocess.run([zu, "--describe"], check=True, capture_output=True, text=True,
                               env={**os.environ, "LC_ALL": "C.UTF-8"}).stdout
    program = json.loads(described)
    heading = f'"{date}" "ZuComn {version}" "User Commands"'
    pages = {"zu": page_text("zu", "zu", program, heading)}
    for command in program["commands"]:
        pages[f"zu-{command['name']}"] = page_text(f"zu-{command['name']}", f"zu {command['name']}", command, heading)
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in pages.items():
        (folder / f"{name}.1").write_text(text, encoding="utf-8")


main()
