#!/usr/bin/env python3
"""Prints the virtual slots of a class as the compiled library has them, or compares them.

usage: slots.py LIBRARY CLASS [EXPECTED]

The table is read from the library itself: the symbol of the class's virtual table, and the
relocations that fill it. With EXPECTED, a text of one operation a line, a difference is an error.
The destructor stands in two slots (complete and deleting); they are printed as one.
"""

import difflib
import pathlib
import re
import subprocess
import sys


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def symbols(library):
    """address -> mangled names, and mangled name -> (address, size)."""
    by_address, by_name = {}, {}
    for line in run("nm", "-S", library).splitlines() + run("nm", "-DS", library).splitlines():
        fields = line.split()
        if len(fields) == 4:
            address, size, _, name = fields
            name = name.split("@")[0]
            by_address.setdefault(int(address, 16), set()).add(name)
            by_name[name] = (int(address, 16), int(size, 16))
    return by_address, by_name


def slots(library, name):
    by_address, by_name = symbols(library)
    table = f"_ZTV{len(name)}{name}"
    if table not in by_name:
        sys.exit(f"{library}: no virtual table of {name}")
    start, size = by_name[table]
    filled = {}
    for line in run("readelf", "-rW", library).splitlines():
        match = re.match(r"^([0-9a-f]{16})\s+[0-9a-f]+\s+(R_\S+)\s+(.*)$", line)
        if not match:
            continue
        offset = int(match.group(1), 16)
        if not start <= offset < start + size:
            continue
        rest = match.group(3).split()
        if len(rest) >= 2 and rest[1].split("@")[0].startswith(("_Z", "__cxa")):
            filled[offset] = rest[1].split("@")[0]
        else:
            target = int(rest[-1], 16)
            filled[offset] = sorted(by_address.get(target, {f"?{target:x}"}))[0]
    # The first two entries are the offset to the top and the type information.
    names = [filled[offset] for offset in sorted(filled) if offset >= start + 16]
    shown = run("c++filt", *names).splitlines() if names else []
    result = []
    for text in shown:
        text = re.sub(r"\bstd::__cxx11::", "std::", text)
        text = re.sub(r"^\w+::", "", text)
        text = text.replace("std::basic_string<wchar_t, std::char_traits<wchar_t>, std::allocator<wchar_t> >", "std::wstring")
        text = text.replace("std::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string")
        text = text.replace("std::basic_ostream<wchar_t, std::char_traits<wchar_t> >", "std::wostream")
        text = re.sub(r"std::(list|vector)<((?:[^<>]|<[^<>]*>)+), std::allocator<(?:[^<>]|<[^<>]*>)+> >", r"std::\1<\2>", text)
        if text.startswith("~"):
            text = "destructor"
            if result and result[-1] == text:
                continue
        result.append(text)
    return result


def main():
    library, name = sys.argv[1:3]
    found = slots(library, name)
    if len(sys.argv) < 4:
        print("\n".join(found))
        return 0
    expected = pathlib.Path(sys.argv[3]).read_text(encoding="utf-8").splitlines()
    difference = list(difflib.unified_diff(expected, found, sys.argv[3], library, lineterm=""))
    print("\n".join(difference) if difference else f"{name}: {len(found)} slots as listed")
    return 1 if difference or not found else 0


if __name__ == "__main__":
    sys.exit(main())
