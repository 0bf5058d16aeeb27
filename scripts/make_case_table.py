#!/usr/bin/env python3
"""Writes base/text/CaseTable.inc: Unicode's simple case mappings as ranges.

Usage: make_case_table.py [--check] [FILE]

The mappings come from this Python's own copy of the Unicode character database; its version
stands in the file's first line. Python gives full mappings ("ß" to "SS"). The simple ones, one
character for one, follow from them by the rules in upper(), lower() and fold().

--check writes nothing and fails when FILE differs from what would be written.
"""

import argparse
import pathlib
import sys
import unicodedata

DEFAULT = pathlib.Path(__file__).resolve().parent.parent / "base" / "text" / "CaseTable.inc"
CODE_POINTS = range(0x110000)


def upper(code):
    """A character whose full mapping is longer has the title mapping, or none."""
    for text in (chr(code).upper(), chr(code).title()):
        if len(text) == 1:
            return ord(text)
    return code


def lower(code):
    """Only U+0130 has a longer full mapping: its letter and a combining dot."""
    return ord(chr(code).lower()[0])


def fold(code):
    """A character whose full folding is longer folds to its own small letter, if that is one."""
    for text in (chr(code).casefold(), chr(code).lower()):
        if len(text) == 1:
            return ord(text)
    return code


def ranges(mapping):
    """[first, last, stride, offset]: each stride-th code point of first..last moves by offset."""
    result = []
    for code in CODE_POINTS:
        offset = mapping(code) - code
        if offset == 0:
            continue
        # What lets UTF-16 be mapped in place.
        assert (code > 0xFFFF) == (code + offset > 0xFFFF), hex(code)
        if result:
            last = result[-1]
            step = code - last[1]
            if offset == last[3] and (step == last[2] or (last[0] == last[1] and step <= 2)):
                last[1], last[2] = code, step
                continue
        result.append([code, code, 1, offset])
    return result


def table(name, mapping):
    rows = ranges(mapping)
    lines = [f"constexpr CaseRange {name}[] = {{"]
    lines += [f"    {{0x{first:04X}, 0x{last:04X}, {stride}, {offset}}}," for first, last, stride, offset in rows]
    return lines + ["};"]


def content():
    lines = [
        f"// Unicode {unicodedata.unidata_version}, written by scripts/make_case_table.py.",
        "// First and last code point of a range, its stride, and the offset to the mapped code point.",
    ]
    for name, mapping in (("kUpper", upper), ("kLower", lower), ("kFold", fold)):
        lines += [""] + table(name, mapping)
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("file", nargs="?", type=pathlib.Path, default=DEFAULT)
    options = parser.parse_args()
    text = content()
    if options.check:
        if options.file.read_text(encoding="utf-8") != text:
            sys.exit(f"{options.file} is not what this script writes with Unicode {unicodedata.unidata_version}")
    else:
        options.file.write_text(text, encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
