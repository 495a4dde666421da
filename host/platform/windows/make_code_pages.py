#!/usr/bin/env python3
"""Writes the tables of the code pages as C++: make_code_pages.py OUT.cpp

They come from the C library of the machine that builds, as the host on that system reads them, so that a drawing reads
the same on both."""
import ctypes
import pathlib
import sys

PAGES = [437, 850, 852, 855, 857, 860, 861, 863, 864, 865, 866, 869, 874, 932, 936, 949, 950, 1250, 1251, 1252, 1253,
         1254, 1255, 1256, 1257, 1258, 1361, 10000]
NAMES = {10000: "MACINTOSH", 1361: "JOHAB"}
# No code page has trail bytes below it.
FIRST_TRAIL = 0x30
INVALID = ctypes.c_void_p(-1).value

c_library = ctypes.CDLL(None)
c_library.iconv_open.restype = ctypes.c_void_p
c_library.iconv.restype = ctypes.c_size_t
c_library.iconv.argtypes = [ctypes.c_void_p] + [ctypes.c_void_p] * 4


def converter(to, source):
    handle = c_library.iconv_open(to.encode(), source.encode())
    if handle == INVALID:
        sys.exit(f"the C library has no conversion from {source} to {to}")

    def convert(data):
        """Returns none for bytes that are no character."""
        output = ctypes.create_string_buffer(32)
        given = ctypes.create_string_buffer(data, len(data))
        source_at = ctypes.c_void_p(ctypes.addressof(given))
        target_at = ctypes.c_void_p(ctypes.addressof(output))
        left, room = ctypes.c_size_t(len(data)), ctypes.c_size_t(len(output))
        c_library.iconv(handle, None, None, None, None)
        counts = (ctypes.byref(left), ctypes.byref(target_at), ctypes.byref(room))
        if c_library.iconv(handle, ctypes.byref(source_at), *counts) != 0 or left.value:
            return None
        if c_library.iconv(handle, None, None, ctypes.byref(target_at), ctypes.byref(room)) != 0:
            return None
        return output.raw[:len(output) - room.value]

    return convert


def entries(page):
    name = NAMES.get(page, f"CP{page}")
    to_wide, from_wide = converter("UTF-32LE", name), converter(name, "UTF-32LE")

    def entry(data):
        wide = to_wide(data)
        if wide is None or len(wide) != 4:
            return None
        character = int.from_bytes(wide, "little")
        encodes = character == 0 or from_wide(wide) == data
        return f"{{{int.from_bytes(data, 'big')}, {character}, {'true' if encodes else 'false'}}}"

    found = []
    for byte in range(256):
        single = entry(bytes([byte]))
        if single:
            found.append(single)
        elif byte >= 0x80:
            found += filter(None, (entry(bytes([byte, trail])) for trail in range(FIRST_TRAIL, 256)))
    return found


def main():
    lines = ['#include "code_page_tables.h"', "", "namespace zuhost::platform {", "", "namespace {", ""]
    for page in PAGES:
        lines += [f"constexpr CodePageEntry kPage{page}[] = {{", ",\n".join(entries(page)), "};"]
    lines += ["", "constexpr CodePageTable kTables[] = {"]
    lines += [f"    {{{page}, kPage{page}}}," for page in PAGES]
    lines += ["};", "", "} // namespace", "",
              "std::span<const CodePageTable> codePageTables() {", "    return kTables;", "}", "",
              "} // namespace zuhost::platform", ""]
    pathlib.Path(sys.argv[1]).write_text("\n".join(lines), encoding="ascii")


main()
