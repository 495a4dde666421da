#!/usr/bin/env python3
"""Prints CHANGELOG.md in the form of Debian's changelogs: changelog.py CHANGELOG.md PACKAGE VERSION MAINTAINER
Fails when the newest heading does not name the version."""
import datetime
import email.utils
import pathlib
import re
import sys
import textwrap


def entry(package, maintainer, version, date, text):
    items = re.findall(r"^- (.*(?:\n  .*)*)", text, re.MULTILINE)
    lines = "\n".join(textwrap.fill(" ".join(item.split()), 78, initial_indent="  * ", subsequent_indent="    ")
                      for item in items)
    noon = datetime.datetime.fromisoformat(date).replace(hour=12, tzinfo=datetime.timezone.utc)
    return f"{package} ({version}) unstable; urgency=medium\n\n{lines}\n\n" \
           f" -- {maintainer}  {email.utils.format_datetime(noon)}\n"


def main():
    path, package, newest, maintainer = sys.argv[1:]
    parts = re.split(r"^## \[(.*)\] - (.*)$", pathlib.Path(path).read_text(encoding="utf-8"), flags=re.MULTILINE)
    versions = list(zip(parts[1::3], parts[2::3], parts[3::3]))
    if not versions or versions[0][0] != newest:
        sys.exit(f"{path}: the newest heading is not that of version {newest}")
    print("\n".join(entry(package, maintainer, *version) for version in versions), end="")


main()
