#!/usr/bin/env python3
"""Fails when an include line points against the order of the layers.

ALLOWED says, per folder, which folders its files may include; EXCEPTIONS lists single files that
may include more, each with the reason. What is not allowed is an error.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"')

# Folder of the including file: folders it may include from (its own is always allowed).
ALLOWED = {
    "base": set(),
    "base/text": {"base"},
    "base/keys": {"base", "base/text"},
    "base/geo": {"base", "base/text"},
    "base/platform": {"base", "base/text"},
    "base/platform/posix": {"base", "base/text", "base/platform", "base/files"},
    "base/platform/windows": {"base", "base/text", "base/platform", "base/files"},
    "base/files": {"base", "base/text", "base/platform"},
    "base/desk": {"base", "base/text", "base/registry", "base/platform"},
    "base/geoid": {"base", "base/text", "base/keys", "base/geo", "base/files", "base/platform", "base/registry"},
    "base/registry": {"base", "base/text", "base/keys", "base/files", "base/platform"},
    "src/frame": {"base/*"},
    "src/resources": {"src/frame"},
    "src/datum": {"src/frame"},
    "src/projections": {"src/frame", "src/datum"},
    "src/database": {"src/frame", "src/datum", "src/projections"},
    "src/authoring": {"src/frame", "src/datum", "src/projections", "src/database"},
    "src/coordsys": {"src/frame", "src/datum", "src/projections", "src/database", "src/authoring"},
    "tools/zorgeo": {"base/*"},
    "bench": {"*"},
    "fuzz": {"*"},
    "tests": {"*"},
}

EXCEPTIONS = {
    # The one file that knows every class of the module.
    "src/frame/Module.cpp": {"src/coordsys", "src/database", "src/authoring", "src/resources", "src/datum"},
    # Records are read from the database that they stand in; the headers know it by name alone.
    "src/datum/CDatumTransformRecord.cpp": {"src/database"},
    "src/datum/EllipsoidRecord.cpp": {"src/database"},
    # String texts are loaded by number through the string table.
    "base/text/CString.cpp": {"base/desk"},
    "base/text/CStringResource.cpp": {"base/desk"},
    # The kind of icon is what the platform is asked to show.
    "base/platform/MessageBox.h": {"base/desk"},
    "base/platform/windows/MessageBox.cpp": {"base/registry"},
    # The module's own declaration of its two functions.
    "tools/zorgeo/ModuleLoader.cpp": {"src/frame"},
}

# The only base header that the module's files include themselves.
DOOR = "src/frame/BaseContract.h"


def folder_of(path):
    return str(path.parent.relative_to(ROOT)).replace("\\", "/")


def resolve(path, name):
    for base in (path.parent, ROOT, ROOT / "src", ROOT / "tools" / "zorgeo"):
        if (base / name).is_file():
            return (base / name).resolve()
    return None


def allowed(rule, folder):
    return any(r == "*" or r == folder or (r.endswith("/*") and folder.startswith(r[:-2])) for r in rule)


def check(path):
    errors = []
    folder = folder_of(path)
    relative = str(path.relative_to(ROOT)).replace("\\", "/")
    top = next((f for f in sorted(ALLOWED, key=len, reverse=True) if folder == f or folder.startswith(f + "/")), None)
    if top is None:
        return [f"{relative}: no row for folder {folder} in the table of layers"]
    rule = ALLOWED[top] | EXCEPTIONS.get(relative, set())
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        target = resolve(path, match.group(1))
        if target is None:
            errors.append(f"{relative}:{number}: cannot find {match.group(1)}")
            continue
        to = folder_of(target)
        if to == folder or to.startswith(top + "/") or to == top:
            continue
        if folder.startswith("src/") and to.startswith("base/") and relative != DOOR:
            errors.append(f"{relative}:{number}: the module reaches the base layer through frame/BaseContract.h alone")
        elif not allowed(rule, to):
            errors.append(f"{relative}:{number}: {folder} may not include from {to}")
    return errors


def main():
    errors = []
    for top in ("base", "src", "tools", "bench", "fuzz"):
        for path in sorted((ROOT / top).rglob("*")):
            if path.suffix in (".h", ".cpp", ".inc"):
                errors += check(path)
    print("\n".join(errors) if errors else "layers: every include line points down")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
