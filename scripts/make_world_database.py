#!/usr/bin/env python3
"""Makes the delivered database from the EPSG tables of proj.db, and the files that go with it.

Written are, in the data directory: zorgeodatabase.geo, zorgeosystems.tsv (areas of use and codes),
zorgeotransformations.tsv (what each datum transformation was made from), left-out.tsv (what cannot be represented and
why) and NOTICE-EPSG. Read are proj.db of the version below and known-differences.tsv.
Deterministic: the same input gives the same bytes. docs/delivered-database.md tells the rules.

usage: make_world_database.py [--check] [--proj-db FILE] [--out DIR] [--quiet]
       --check compares with the committed files and writes nothing; where proj.db of the version is missing it says
       so and ends with status 77
"""

import argparse
import pathlib
import sys

from worlddb import database, datums, differences, epsg, examples, names

VERSION = "v10.076"
PROJ_DB = "/usr/share/proj/proj.db"
SKIPPED = 77
DATA = pathlib.Path(__file__).resolve().parent.parent / "data"

NOTICE = f"""This directory's zorgeodatabase.geo and the files *.tsv beside it contain data from the EPSG Geodetic Parameter
Dataset, version {VERSION}, owned by the International Association of Oil and Gas Producers (IOGP), used under
its terms of use, and records derived from it, which are marked "derived from EPSG" or "inverted" and are not part of the
EPSG Dataset. Provided as is. The terms of use stand at https://epsg.org/terms-of-use.html and pass on with the data:
no charge may be made for the data themselves, and changed values may not be attributed to the EPSG Dataset.

The data were read from proj.db of PROJ (https://proj.org), which is distributed under this licence:

  Copyright information can be found in source files.

  Permission is hereby granted, free of charge, to any person obtaining a copy of this software and associated
  documentation files (the "Software"), to deal in the Software without restriction, including without limitation the
  rights to use, copy, modify, merge, publish, distribute, sublicense, and/or sell copies of the Software, and to permit
  persons to whom the Software is furnished to do so, subject to the following conditions:

  The above copyright notice and this permission notice shall be included in all copies or substantial portions of the
  Software.

  THE SOFTWARE IS PROVIDED "AS IS", WITHOUT WARRANTY OF ANY KIND, EXPRESS OR IMPLIED, INCLUDING BUT NOT LIMITED TO THE
  WARRANTIES OF MERCHANTABILITY, FITNESS FOR A PARTICULAR PURPOSE AND NONINFRINGEMENT. IN NO EVENT SHALL THE AUTHORS OR
  COPYRIGHT HOLDERS BE LIABLE FOR ANY CLAIM, DAMAGES OR OTHER LIABILITY, WHETHER IN AN ACTION OF CONTRACT, TORT OR
  OTHERWISE, ARISING FROM, OUT OF OR IN CONNECTION WITH THE SOFTWARE OR THE USE OR OTHER DEALINGS IN THE SOFTWARE.
"""


def build(tables, known):
    registry = database.Registry(tables)
    chooser = datums.Datums(tables, registry.ellipsoid)
    made = database.Database(tables, chooser, registry, known)
    systems = list(tables.projected())
    groups = {names.main_group(name) for system in systems for name, _, _ in system.extents}
    for system in systems:
        made.add(system, names.groups_of(system.extents, groups))
    for datum in sorted({tables.geodetic(system.base).datum for system in systems}):
        chooser.add_time_dependent(datum)
    examples.add_seas(made, systems)
    examples.add(made, chooser, tables)
    return made, chooser


def places_text(made):
    lines = ["# name\tgroups\tEPSG code\twest\tsouth\teast\tnorth\taccuracy of the transformation, m"]
    for place in made.places:
        box = "\t".join(database.degrees_text(v) for v in place.box)
        accuracy = "" if place.accuracy is None else f"{place.accuracy:g}"
        lines.append(f"{place.name}\t{place.groups}\t{place.code or ''}\t{box}\t{accuracy}")
    return "\n".join(lines) + "\n"


def transformations_text(chooser):
    lines = ["# record\tmade from"]
    lines += [f"{name}\t{chooser.descriptions[name]}" for name in chooser.records]
    return "\n".join(lines) + "\n"


def left_out_text(made):
    lines = ["# EPSG code\tname\tmethod\treason"]
    lines += ["\t".join(str(v) for v in row) for row in made.left_out]
    return "\n".join(lines) + "\n"


def report(made):
    for code, name, _, reason in made.left_out:
        print(f"left out: EPSG {code} {name}: {reason}")
    print(f"{len(made.systems)} systems in {len(made.groups)} groups, {len(made.projections.records)} projections; "
          f"{len(made.left_out)} left out")
    print("by type:", ", ".join(f"{number}: {count}" for number, count in sorted(made.types.items())))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true", help="compare with the committed files and write nothing")
    parser.add_argument("--proj-db", default=PROJ_DB, metavar="FILE")
    parser.add_argument("--out", default=DATA, type=pathlib.Path, metavar="DIR")
    parser.add_argument("--quiet", action="store_true", help="do not list what is left out")
    options = parser.parse_args()
    tables = epsg.Tables(options.proj_db) if pathlib.Path(options.proj_db).exists() else None
    if tables is None or tables.version() != VERSION:
        print(f"{options.proj_db} is not proj.db with EPSG {VERSION}", file=sys.stderr)
        return SKIPPED if options.check else 1
    made, chooser = build(tables, differences.Differences(DATA / "known-differences.tsv"))
    files = {"zorgeodatabase.geo": "\n".join(made.lines(VERSION)).rstrip("\n") + "\n",
             "zorgeosystems.tsv": places_text(made), "zorgeotransformations.tsv": transformations_text(chooser),
             "left-out.tsv": left_out_text(made), "NOTICE-EPSG": NOTICE}
    if not options.quiet:
        report(made)
    for name, content in files.items():
        target = options.out / name
        if not options.check:
            target.write_bytes(content.encode("utf-8"))
        elif not target.exists() or target.read_bytes() != content.encode("utf-8"):
            print(f"{name} is not what this script makes: run it without --check, and commit the result",
                  file=sys.stderr)
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
