#!/usr/bin/env python3
"""Writes the expected text descriptions of the records in tests/data/texts.

Renders the descriptions of ellipsoids, units, datum transformations, projections and systems from
two section files, in a way of its own that shares nothing with the module: the labels stand here
once more, as hosts rely on them. Each list of calls is rendered twice: with records.geo as the
main file and others.geo as the user file, and with the two changed round.

A golden file holds calls and what they give: a line "call" with the operation and its arguments,
divided by "|", then the text, each line with a "|" before it and in a form that shows tabs (\\t) and
line ends (\\r, \\n); a backslash is doubled. An operation begins with rotations shown as they are
stored (factor 1). Deterministic: the same records give the same bytes.

usage: make_text_goldens.py [--check]    --check compares with the committed files
"""

import decimal
import math
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TEXTS = ROOT / "tests" / "data" / "texts"
CATALOGUE = ROOT / "data" / "ZorProjectionStatic.dat"

NUMBER = re.compile(r"[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?")
INTEGER = re.compile(r"[+-]?\d+")


class SectionFile:
    """Sections of keys and texts; names of sections and keys are exact, the order is kept."""

    def __init__(self, path):
        self.sections = {}
        section = None
        for line in path.read_text(encoding="utf-8").splitlines():
            line = line.strip(" \t")
            if not line or line.startswith(";"):
                continue
            if line.startswith("["):
                section = self.sections.setdefault(self.unescaped(line[1:-1].strip(" \t")), {})
            else:
                key, value = line.split("=", 1)
                section[self.unescaped(key.strip(" \t"))] = self.unescaped(value.strip(" \t"))

    @staticmethod
    def unescaped(text):
        return re.sub(r"\\(\\|\{([0-9A-Fa-f]+)\})", lambda m: chr(int(m[2], 16)) if m[2] else "\\", text)

    def has(self, section):
        return section in self.sections

    def entries(self, section):
        return list(self.sections.get(section, {}).items())

    def text(self, section, key, missing):
        return self.sections.get(section, {}).get(key, missing)

    def number(self, section, key, missing):
        text = self.text(section, key, "")
        return float(text) if NUMBER.fullmatch(text) else missing

    def integer(self, section, key, missing):
        text = self.text(section, key, "")
        return int(text) if INTEGER.fullmatch(text) else missing

    def flag(self, section, key):
        return self.text(section, key, "").lower() in ("1", "true")


class Catalogue:
    """What the parameters of each projection type are called and in which order they are shown."""

    def __init__(self, path):
        self.file = SectionFile(path)

    def label_and_kind(self, key):
        items = self.file.text("ParaStatic-Section", key, "").split(",")
        return items[0], int(items[1])

    def labels(self, type_number):
        method = next((name for key, name in self.file.entries("Projections-Section") if int(key) == type_number), None)
        if method is None or not self.file.has(method):
            return []
        count = len([key for key, _ in self.file.entries(method) if key.lower() != "unitflag"])
        return [self.label_and_kind(self.file.text(method, str(i), ""))[0] for i in range(count)]


CRLF = "\r\n"
TAB = "\t"


def g14(value):
    return "%.14g" % (value,)


# Values of projections.

LONGITUDE, LATITUDE = 1, 2
SCALE_FACTOR_LABEL = "Scale Factor at the Central Meridian"


def degrees_text(value, kind):
    """Degrees, minutes, seconds with seven decimals, hemisphere; half a unit rounds away from zero."""
    units = (decimal.Decimal(repr(abs(value))) * 3600 * 10**7).to_integral_value(decimal.ROUND_HALF_UP)
    seconds, decimals = divmod(int(units), 10**7)
    minutes, seconds = divmod(seconds, 60)
    degrees, minutes = divmod(minutes, 60)
    width, letters = (3, "EW") if kind == LONGITUDE else (2, "NS")
    letter = letters[1 if value < 0 and units else 0]
    return f"{degrees:0{width}d}\u00b0{minutes:02d}'{seconds:02d}.{decimals:07d}\"{letter}"


def plain_text(value, label):
    if value == math.trunc(value):
        return "%d" % value
    text = ("%.8f" if label == SCALE_FACTOR_LABEL else "%.6f") % value
    while len(text) > 7 and text.endswith("0"):
        text = text[:-1]
    return text


COMMON = ["LatOrigin", "LonOrigin", "FalseEasting", "FalseNorthing"]
HOTINE = ["ScaleFactor", "HotineGridSkew", "InitialAzimuth"]
TEXT_KEYS = {"UTMZone", "Hemisphere"}

# Type number: keys of the parameters that its class lists. The RD class lists none, and types
# without a class none either.
PARAMETERS = {
    0: COMMON + ["ScaleFactor", "GridSkew"],
    1: ["Hemisphere", "UTMZone"] + COMMON + ["ScaleFactor", "GridSkew"],
    2: [],
    3: COMMON + ["1stParallel", "2ndParallel"],
    4: COMMON + ["ScaleFactor", "LatTrueScale", "GridSkew"],
    7: COMMON + ["ScaleFactor"],
    8: COMMON + ["ScaleFactor"],
    9: COMMON + HOTINE,
    12: COMMON + ["ScaleFactor"],
    13: ["LatOrigin", "LonOrigin", "EastingAtCentre", "NorthingAtCentre"] + HOTINE,
    14: COMMON,
    15: ["FalseEasting", "FalseNorthing", "ScaleFactor", "Hemisphere"],
}


class Database:
    ROTATION_FACTORS = {
        "Bursa/Wolfe(7 Parameters)": 1.0,
        "Bursa/Wolfe(14 Parameters)": 1.0,
        "Helmert(7 Parameters)": -1.0,
        "Helmert(14 Parameters)": -1.0,
    }
    DATUM_LABELS = ["Shift X(m):   ", "Shift Y(m):   ", "Shift Z(m):   ", "Rotation X(sec):   ", "Rotation Y(sec):   ",
                    "Rotation Z(sec):   ", "Scale factor[ppm]:   "]
    DATUM_KEYS = ["Shift X", "Shift Y", "Shift Z", "Rotation X", "Rotation Y", "Rotation Z", "Scale"]
    RATE_KEYS = ["Shift rate X", "Shift rate Y", "Shift rate Z", "Rotation rate X", "Rotation rate Y",
                 "Rotation rate Z", "Scale rate"]
    ROTATIONS = {3, 4, 5}

    def __init__(self, main, user):
        self.main, self.user = main, user
        self.catalogue = Catalogue(CATALOGUE)
        self.rotation_factor = 1.0

    # Ellipsoids and units.

    def ellipsoid(self, name):
        """Axis and squared eccentricity of the main file, else of the user file; both or none."""
        for file in (self.main, self.user):
            a = file.number("Elp-" + name, "SemiMajor", None)
            e2 = file.number("Elp-" + name, "EccSqrd", None)
            if a is not None and e2 is not None:
                return a, e2
        return 0.0, 0.0

    def DumpElpText(self, name):
        a, e2 = self.ellipsoid(name)
        inverse = 0.0
        if a >= 6000000.0 and e2 <= 1.0:
            difference = a - a * math.sqrt(1.0 - e2)
            inverse = a / difference if difference else math.inf
        return (name + CRLF + TAB + "Semi-Major Axis" + ":" + g14(a) + CRLF + TAB + "Inv. Flattening" + ":"
                + g14(inverse) + CRLF + TAB + "Squared eccentricity" + ":" + g14(e2) + CRLF)

    def DumpUnitText(self, name):
        factor, suffix = 0.0, ""
        for file in (self.main, self.user):
            found = [value for key, value in file.entries("Units section") if key.lower() == name.lower()]
            if found:
                items = [item.strip() for item in found[0].split(",")]
                factor = float(items[0]) if NUMBER.fullmatch(items[0]) else 0.0
                suffix = items[1] if len(items) > 1 else ""
                break
        return ("UNIT:  " + name + CRLF + TAB + "Metric Conversion Factor:" + g14(factor) + CRLF
                + TAB + "Suffix: " + suffix + CRLF)

    # Datum transformations.

    def DumpDatumfText(self, name, title):
        section = "Dtf-" + name
        targets = [file.text(section, "Target ellipsoid", None) for file in (self.main, self.user)]
        target = next((t for t in targets if t is not None), None)
        if target is None:
            return ""
        # The parameters come from the first file that has the record, be it without a target. (A
        # record under a shortened name is none here: it has no target, which was asked for first.)
        file = next(file for file in (self.main, self.user) if file.has(section))
        method = file.text(section, "Method name", "")
        source = file.text(section, "Source", "")
        self.rotation_factor = self.ROTATION_FACTORS.get(method, self.rotation_factor)

        def lines(indent, keys):
            text = ""
            for i, key in enumerate(keys):
                value = file.number(section, key, 0.0)
                if i in self.ROTATIONS:
                    value = value * self.rotation_factor + 0.0
                text += indent + self.DATUM_LABELS[i] + g14(value) + CRLF
            return text

        text = "DATUMTRANSFORMATION : " + name + CRLF if title else ""
        text += TAB + "Datum Transformation from " + source + ": " + CRLF
        text += TAB + "Method:  " + method + CRLF
        if method != "No Transformation":
            text += lines(TAB, self.DATUM_KEYS)
            if method in ("Bursa/Wolfe(14 Parameters)", "Helmert(14 Parameters)"):
                text += TAB + "Datum Epoch: " + g14(file.number(section, "Epoch", 0.0)) + CRLF
                text += TAB + "Rate of change per Year" + CRLF
                text += lines(TAB + TAB, self.RATE_KEYS)
        text += TAB + "Satellite ellipsoid:   " + source + CRLF
        text += TAB + "Local ellipsoid:   " + target + CRLF
        text += TAB + "Description: " + self.user_then_main(section, "Description") + CRLF
        return text

    def user_then_main(self, section, key):
        file = self.user if self.user.has(section) else self.main
        return file.text(section, key, "")

    # Projections.

    def parameters(self, file, section):
        if not file.has(section):
            return ""
        text = TAB + "Unit: " + file.text(section, "Unit name", "") + CRLF
        type_number = file.integer(section, "Projection type", 0)
        keys = PARAMETERS.get(type_number, [])
        if not keys:
            return text
        places = self.catalogue.labels(type_number)
        lines = [("", "")] * len(places)
        for key in keys:
            label, kind = self.catalogue.label_and_kind(key)
            if key in TEXT_KEYS:
                value = file.text(section, key, "")
            else:
                number = file.number(section, key, 0.0)
                value = degrees_text(number, kind) if kind in (LONGITUDE, LATITUDE) else plain_text(number, label)
            lines[places.index(label)] = (label, value)
        return text + "".join(TAB + label + ":" + value + CRLF for label, value in lines)

    def method_and_parameters(self, projection):
        section = "Prj-" + projection
        return ("Method:  " + self.user_then_main(section, "Projection method") + CRLF
                + (self.parameters(self.main, section) or self.parameters(self.user, section)) + CRLF)

    def DumpPrjText(self, name):
        return "PROJECTION: " + name + CRLF + TAB + self.method_and_parameters(name)

    def DumpPrjTextOfSystem(self, group, system, title):
        file = self.file_of(group, system)
        if file is None:
            return ""
        projection = file.text("Sys-" + system, "Projection name", "")
        head = "PROJECTION: " + projection + CRLF + TAB if title else ""
        return head + self.method_and_parameters(projection)

    # Systems.

    def file_of(self, group, system):
        for file in (self.main, self.user):
            if any(value.lower() == system.lower() for _, value in file.entries("Gp-" + group)):
                return file
        return None

    @staticmethod
    def corrections(file, system, method, grid, chart_datum, model, correction_file):
        section = "Sys-" + system

        def stored(key, missing):
            return file.text(section, key, missing)

        def chosen(name_key, name, file_key, file_name):
            name = name or stored(name_key, "")
            if name in ("", "--None--"):
                return name, ""
            return name, file_name or stored(file_key, "")

        method, grid = chosen("Geoid model method", method, "Geoid model grid", grid)
        text = "GEOID MODEL: " + CRLF
        text += TAB + "Geoid Model Method: " + method + CRLF
        text += TAB + "Geo Grid: " + grid + CRLF
        text += TAB + "Chart Datum: " + chart_datum + CRLF + CRLF
        text += "POST CORRECTIONS: " + CRLF
        if file.flag(section, "Post coorection statu"):
            text += TAB + "X Correction: " + stored("Post X coorection", "0") + CRLF
            text += TAB + "Y Correction: " + stored("Post Y coorection", "0") + CRLF
            text += TAB + "Z Correction: " + stored("Post Z coorection", "0") + CRLF + CRLF
        if file.flag(section, "Post horizontal adjust statu"):
            text += TAB + "Hor. adjust origin easting: " + stored("Post horizonal origin X", "0") + CRLF
            text += TAB + "Hor. adjust origin northing: " + stored("Post horizonal origin Y", "0") + CRLF
            text += TAB + "Hor. adjust rotation(sec): " + stored("Post horizonal rotation", "0") + CRLF
            text += TAB + "Hor. adjust scale: " + stored("Post horizonal scale", "1") + CRLF + CRLF
            # Behind the same flag, the horizontal one.
            text += TAB + "Vert. adjust origin easting: " + stored("Post vertical origin X", "0") + CRLF
            text += TAB + "Vert. adjust origin northing: " + stored("Post vertical origin Y", "0") + CRLF
            text += TAB + "Vert. adjust slope easting(ppm): " + stored("Post vertical slope X", "0") + CRLF
            text += TAB + "Vert. adjust slope northing(ppm): " + stored("Post vertical slope Y", "0") + CRLF + CRLF
        model, correction_file = chosen("Post coorection model", model, "Post coorection file", correction_file)
        text += TAB + "Correction model: " + model + CRLF
        text += TAB + "Correction file: " + correction_file + CRLF
        return text

    def system(self, named, group, system, *shown):
        file = self.file_of(group, system)
        if file is None:
            return ""

        def name_of(key):
            return file.text("Sys-" + system, key, "")

        text = "SYSTEM: " + system + CRLF + "Description: " + name_of("System description") + CRLF if named else ""
        text += CRLF
        text += self.DumpElpText(name_of("Ellipsoid name")) + "\r"
        text += self.DumpDatumfText(name_of("Datumtransform name"), named) + "\r"
        text += self.DumpUnitText(name_of("Unit name")) + "\r"
        text += self.DumpPrjTextOfSystem(group, system, named)
        text += self.corrections(file, system, *shown) + "\r"
        return text

    def DumpSystemText(self, *arguments):
        return self.system(True, *arguments)

    def DumpSystemIDText(self, *arguments):
        return self.system(False, *arguments)


# What is asked.

NOTHING_SHOWN = ("",) * 5
ALL_SHOWN = ("EGM96", "project.gtx", "LAT", "OSTN", "project.gsb")


def names(files, prefix):
    return list(dict.fromkeys(s[len(prefix):] for f in files for s in f.sections if s.startswith(prefix)))


def systems(files):
    listed = [(section[len("Gp-"):], name) for f in files for section in f.sections if section.startswith("Gp-")
              for key, name in f.entries(section) if key != "System count"]
    return list(dict.fromkeys(listed))


def calls(files):
    """Golden file: its calls. The same for both orders of the files."""
    listed = systems(files)
    first_of_groups = list({group: (group, system) for group, system in reversed(listed)}.values())
    units = list(dict.fromkeys(key for f in files for key, _ in f.entries("Units section")))
    odd_names = [("Every projection", "tm GRID"), ("Every projection", "17"), ("every projection", "TM grid"),
                 ("Nowhere", "TM grid"), ("Every projection", "Nowhere"), ("", "")]
    overrides = [
        ALL_SHOWN,
        ("--None--", "project.gtx", "", "--None--", "project.gsb"),
        ("EGM96", "", "", "OSTN", ""),
        ("", "project.gtx", "LAT", "", "project.gsb"),
    ]
    overridden = ["Nothing stored", "Geoid by grid", "Geoid off", "Geoid by hand", "Model and file", "Model off",
                  "Everything"]
    projections = names(files, "Prj-") + ["Nowhere", ""]
    return {
        "ellipsoids": [("DumpElpText", name) for name in names(files, "Elp-") + ["Nowhere", ""]],
        "units": [("DumpUnitText", name) for name in units + ["clarke's LINKS", "Nowhere", ""]],
        "datums": [("DumpDatumfText", name, title)
                   for name in names(files, "Dtf-") + ["Old - longer: name", "Nowhere", ""] for title in (True, False)],
        "projections": [("DumpPrjText", name) for name in projections]
        + [("DumpPrjText", *system, title) for system in listed + odd_names for title in (True, False)],
        "systems": [("DumpSystemText", *system, *NOTHING_SHOWN) for system in listed + odd_names],
        "systems_unnamed": [("DumpSystemIDText", *system, *NOTHING_SHOWN) for system in first_of_groups + odd_names]
        + [("DumpSystemIDText", "Every correction", "Everything", *ALL_SHOWN)],
        "systems_overridden": [("DumpSystemText", "Every correction", system, *shown) for system in overridden
                               for shown in overrides],
    }


def visible(text):
    shown = text.replace("\\", "\\\\").replace("\t", "\\t").replace("\r", "\\r").replace("\n", "\\n")
    # A line of the file ends behind each LF, and behind a CR that no LF follows.
    lines = re.findall(r"(?:(?!\\n|\\r(?!\\n)).)*(?:\\r\\n|\\n|\\r)|.+$", shown)
    return "".join("|" + line + "\n" for line in lines)


def rendered(main, user, arguments):
    database = Database(main, user)
    operation = arguments[0]
    if operation == "DumpPrjText" and len(arguments) > 2:
        operation = "DumpPrjTextOfSystem"
    return getattr(database, operation)(*arguments[1:])


def golden(main_name, main, user_name, user, questions):
    text = f"main {main_name}\nuser {user_name}\n"
    for arguments in questions:
        text += "\ncall " + "|".join(str(int(a)) if isinstance(a, bool) else a for a in arguments) + "\n"
        text += visible(rendered(main, user, arguments))
    return text.encode("utf-8")


def main():
    made = {}
    names_of_files = ("records.geo", "others.geo")
    files = {name: SectionFile(TEXTS / name) for name in names_of_files}
    questions = calls([files[name] for name in names_of_files])
    for directory, (main_name, user_name) in (("records_delivered", names_of_files),
                                              ("records_of_the_user", names_of_files[::-1])):
        for subject, asked in questions.items():
            made[TEXTS / directory / (subject + ".golden")] = golden(
                main_name, files[main_name], user_name, files[user_name], asked)
    committed = set(TEXTS.glob("*/*.golden"))
    if "--check" in sys.argv:
        wrong = [p for p in made if p not in committed or p.read_bytes().replace(b"\r\n", b"\n") != made[p]]
        wrong += sorted(committed - set(made))
        if wrong:
            sys.exit("not what this script makes: " + ", ".join(str(p.relative_to(ROOT)) for p in wrong)
                     + "\nrun it without --check, and commit the result")
        return
    for path in committed - set(made):
        path.unlink()
    for path, content in made.items():
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(content)


if __name__ == "__main__":
    main()
