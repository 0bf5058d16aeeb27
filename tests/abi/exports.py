#!/usr/bin/env python3
"""Compares what the module exports with the committed list.

usage: exports.py LIBRARY EXPECTED [--write]

Everything exported must belong to the two plain functions or to one of the four classes, and the
list of names must be the committed one: a difference is a decision.
"""

import difflib
import pathlib
import re
import subprocess
import sys

FUNCTIONS = {"RegisterCoordSys", "UnRegisterCoordSys"}
CLASSES = ("ZORGeoCoordSys", "ZorGeoDatabase", "ZorGeoStaticData", "CDatumTransform")


def exported(library):
    lines = subprocess.run(["nm", "-DC", "--defined-only", library], check=True, capture_output=True, text=True)
    names = set()
    for line in lines.stdout.splitlines():
        kind, name = line.split(maxsplit=2)[1:]
        # Weak symbols are inline library code that each library carries for itself.
        if kind in "WVu":
            continue
        names.add(name.split("@")[0])
    return sorted(names)


def ours(name):
    if name in FUNCTIONS:
        return True
    name = re.sub(r"^(vtable|typeinfo|typeinfo name) for ", "", name)
    name = re.sub(r"^(non-)?virtual thunk to ", "", name)
    return any(name == c or name.startswith(c + "::") for c in CLASSES)


def main():
    library, expected = sys.argv[1], pathlib.Path(sys.argv[2])
    names = exported(library)
    if "--write" in sys.argv:
        expected.write_text("\n".join(names) + "\n", encoding="utf-8")
        return 0
    strangers = [n for n in names if not ours(n)]
    if strangers:
        print("exported and not part of the interface:", *strangers, sep="\n  ")
        return 1
    listed = expected.read_text(encoding="utf-8").splitlines()
    difference = list(difflib.unified_diff(listed, names, str(expected), library, lineterm=""))
    print("\n".join(difference) if difference else f"{len(names)} exported names as listed")
    return 1 if difference else 0


if __name__ == "__main__":
    sys.exit(main())
