#!/usr/bin/env python3
"""Makes tests/data/xml: the XML of every system of tests/data/xml/systems.geo.

A renderer of its own, which shares no line with the module: it reads the records and writes what
the description of each element calls for. The files of general/ have numbers as a stream writes
them by default, those of fixed/ in fixed notation with five decimals. Each file is what a host
would write: a root, and in it the fragments of projection, datum, ellipsoid, geoid and post
correction, indented by two blanks.

    scripts/make_xml_goldens.py [--check]

--check writes nothing and fails when a file differs or does not belong.
"""

import decimal
import math
import pathlib
import sys
import xml.sax.saxutils

ROOT = pathlib.Path(__file__).resolve().parent.parent / "tests" / "data" / "xml"
GROUP = "Descriptions"

# Type number: text, and the elements: name, key, kind of text.
ORIGIN = [("latitude_origin", "LatOrigin", "lat"), ("longitude_origin", "LonOrigin", "lon")]
FALSE = [("false_easting", "FalseEasting", "3"), ("false_northing", "FalseNorthing", "3")]
SCALE = [("scale_factor", "ScaleFactor", "f")]
TM = ORIGIN + FALSE + SCALE + [("grid_skew", "GridSkew", "stream")]
# The skew's element holds the scale factor.
ANGLES = [("initial_azimuth", "InitialAzimuth", "f"), ("grid_skew", "ScaleFactor", "f")]
PROJECTIONS = {
    0: ("Transfer Mercator", TM),
    1: ("Universal Transfer Mercator", TM + [("zone", "UTMZone", "text"), ("hemisphere", "Hemisphere", "text")]),
    2: ("RD", ORIGIN + FALSE + SCALE),
    3: ("Lambert2P", ORIGIN + [("false_easting", "FalseEasting", "2"), ("false_northing", "FalseNorthing", "2"),
                               ("northern_parallel", "2ndParallel", "lat"),
                               ("southern_parallel", "1stParallel", "lat")]),
    4: ("Mercator", ORIGIN + [("latitude_true_scale", "LatTrueScale", "lat")] + FALSE + SCALE),
    7: ("Stereographic", ORIGIN + FALSE + SCALE),
    8: ("Cassini", ORIGIN + FALSE + SCALE),
    9: ("Hotine Oblique Mercator(A)", ORIGIN + FALSE + SCALE + ANGLES),
    12: ("Lambert1P", ORIGIN + FALSE + [("central_parallel", "LatOrigin", "lat"), ("scale_factor", "ScaleFactor", "3")]),
    13: ("Hotine Oblique Mercator(B)", ORIGIN + [("east at project centre", "EastingAtCentre", "3"),
                                                 ("north at project centre", "NorthingAtCentre", "3")] + SCALE + ANGLES),
    14: ("Polyconic", ORIGIN + FALSE),
    15: ("Universal Polar Stereographic", FALSE + SCALE + [("hemisphere", "Hemisphere", "text")]),
}
RD_DEFAULTS = {"LatOrigin": "52.156160556", "LonOrigin": "5.387638889", "FalseEasting": "155000",
               "FalseNorthing": "463000", "ScaleFactor": "0.9999079"}

SEVEN = [("shiftx", "Shift X"), ("shifty", "Shift Y"), ("shiftz", "Shift Z"),
         ("rotx", "Rotation X"), ("roty", "Rotation Y"), ("rotz", "Rotation Z"), ("scale", "Scale")]
RATES = [("shiftx_dt", "Shift rate X"), ("shifty_dt", "Shift rate Y"), ("shiftz_dt", "Shift rate Z"),
         ("rotx_dt", "Rotation rate X"), ("roty_dt", "Rotation rate Y"), ("rotz_dt", "Rotation rate Z"),
         ("scale_dt", "Scale rate"), ("dtf_t0", "Epoch")]

# The models that the systems name, in the spelling of the suite's table.
MODELS = {"ntv2": "NTv2", "ostn": "OSTN"}


def read(path):
    sections, rows = {}, None
    for line in path.read_text(encoding="utf-8").splitlines():
        assert "\\" not in line, "escapes are not known here"
        line = line.strip()
        if not line or line.startswith(";"):
            continue
        if line.startswith("["):
            rows = sections.setdefault(line[1:-1], {})
        else:
            key, value = line.split("=", 1)
            rows[key.strip()] = value.strip()
    return sections


def angle(text, width, letters):
    """Degrees, minutes and seconds of the decimal as it was typed, half away from zero."""
    value = decimal.Decimal(text)
    units = (abs(value) * 3600 * 10**7).to_integral_value(decimal.ROUND_HALF_UP)
    seconds, fraction = divmod(int(units), 10**7)
    letter = letters[1] if value < 0 and units else letters[0]
    shown = f"{seconds // 3600:0{width}d}°{seconds // 60 % 60:02d}'{seconds % 60:02d}.{fraction:07d}\"{letter}"
    return xml.sax.saxutils.escape(shown, {"'": "&apos;", '"': "&quot;"})


class Renderer:
    """The fragments of one system; a number is written by `number(value, precision)`."""

    def __init__(self, records, name, number, precision):
        self.records, self.number, self.precision = records, number, precision
        self.system = records["Sys-" + name]
        self.lines = []

    def line(self, indent, content):
        self.lines.append(indent + content)

    def element(self, indent, name, value):
        shown = value if isinstance(value, str) else self.number(value, self.precision)
        self.line(indent, f"<{name}>{shown}</{name}>")

    def flag(self, key):
        return self.system.get(key) == "1"

    def value(self, key):
        return float(self.system.get(key, "0"))

    def projection(self, indent):
        section = "Prj-" + self.system["Projection name"]
        record = self.records[section]
        type_text, elements = PROJECTIONS[int(record["Projection type"])]
        if type_text == "RD":
            record = {**RD_DEFAULTS, **record}
        self.line(indent, "<projection>")
        self.element(indent + "  ", "name", section)
        self.element(indent + "  ", "type", type_text)
        for name, key, kind in elements:
            text = record.get(key, "0")
            shown = {"lat": lambda: angle(text, 2, "NS"), "lon": lambda: angle(text, 3, "EW"),
                     "2": lambda: "%.2f" % float(text), "3": lambda: "%.3f" % float(text),
                     "f": lambda: "%f" % float(text), "text": lambda: text, "stream": lambda: float(text)}[kind]()
            self.element(indent + "  ", name, shown)
        self.line(indent, "</projection>")

    def ellipsoid(self, indent, name, a, e2):
        """With three, nine and four digits; an axis of 0 stands for a record that was never set."""
        minor = a * math.sqrt(1.0 - e2)
        flattening = a / (a - minor) if a else 0.0
        self.line(indent, "<ellipsoid>")
        self.element(indent + "  ", "name", name)
        for tag, value, precision in (("semi_major_axis", a, 3), ("squared_eccentricity", e2, 9),
                                      ("inverse_flattening", flattening, 4)):
            self.element(indent + "  ", tag, self.number(value, precision))
        self.line(indent, "</ellipsoid>")

    def datum_ellipsoid(self, indent, tag, datum, key, axis, ecc):
        self.line(indent + "  ", f"<{tag}>")
        name = "Elp-" + datum[key] if key in datum else ""
        record = self.records.get(name) or {"SemiMajor": datum.get(axis, "0"), "EccSqrd": datum.get(ecc, "0")}
        self.ellipsoid(indent + "    ", name, float(record["SemiMajor"]), float(record["EccSqrd"]))
        self.line(indent + "  ", f"</{tag}>")

    def datum(self, indent):
        section = "Dtf-" + self.system["Datumtransform name"]
        datum = self.records[section]
        inner = indent + "  "
        self.line(indent, "<datumtransform>")
        self.element(inner, "name", section)
        rates = RATES if "14 Parameters" in datum["Method name"] else []
        for tag, key in SEVEN + rates:
            # Rotations as they are worked with: degrees of the other sign.
            turn = -3600.0 if key.startswith("Rotation") and key in datum else 1.0
            self.element(inner, tag, float(datum.get(key, "0")) / turn)
        self.datum_ellipsoid(indent, "source_ellipsoid", datum, "Source", "SrcSma", "SrcSe")
        self.datum_ellipsoid(indent, "target_ellipsoid", datum, "Target ellipsoid", "DstSma", "DstSe")
        if datum.get("Fixed height") == "1":
            self.line(inner, "<fixedHeightTransformation>")
            self.element(inner, "fixedHeightForward", float(datum.get("Fixed height forward", "43")))
            self.element(inner, "fixedHeightReverse", float(datum.get("Fixed height reverse", "0")))
            self.line(inner, "</fixedHeightTransformation>")
        self.line(indent, "</datumtransform>")

    def own_ellipsoid(self, indent):
        """Without a name: the system takes the numbers alone."""
        record = self.records["Elp-" + self.system["Ellipsoid name"]]
        self.ellipsoid(indent, "", float(record["SemiMajor"]), float(record["EccSqrd"]))

    def geoid(self, indent):
        """The model writes itself, the tests' own one its file. A fixed separation is no model."""
        if self.flag("Geoid model use statu") and self.system["Geoid model method"] != "Manual":
            self.element(indent, "testgeoid", self.system["Geoid model grid"])

    def post_correction(self, indent):
        inner = indent + "  "
        model = self.system.get("Post coorection model", "").lower()
        if model:
            self.line(indent, "<postcorrectionmodel>")
            self.element(inner, "name", MODELS[model])
            self.line(indent, "</postcorrectionmodel>")
        shift = self.flag("Post coorection statu")
        turned = self.flag("Post horizontal adjust statu")
        plane = self.flag("Post vertical adjust statu")
        if not (shift or turned or plane):
            return
        self.line(indent, "<postcorrection>")
        for axis in "XYZ":
            self.element(inner, "shift" + axis.lower(), self.value(f"Post {axis} coorection"))
        if turned:
            self.element(inner, "hororgx", self.value("Post horizonal origin X"))
            self.element(inner, "hororgy", self.value("Post horizonal origin Y"))
            self.element(inner, "horrotate", self.value("Post horizonal rotation"))
            self.element(inner, "horscale", self.value("Post horizonal scale") or 1.0)
        if plane:
            self.element(inner, "vertorgx", self.value("Post vertical origin X"))
            self.element(inner, "vertorgy", self.value("Post vertical origin Y"))
            self.element(inner, "vertslopex", self.value("Post vertical slope X") / 1000000.0)
            self.element(inner, "vertslopey", self.value("Post vertical slope Y") / 1000000.0)
        self.line(indent, "</postcorrection>")

    def document(self):
        self.line("", "<coordinatesystem>")
        for fragment in (self.projection, self.datum, self.own_ellipsoid, self.geoid, self.post_correction):
            fragment("  ")
        self.line("", "</coordinatesystem>")
        return "\n".join(self.lines) + "\n"


def goldens():
    records = read(ROOT / "systems.geo")
    formats = {"general": (lambda v, p: f"%.{p}g" % v, 6), "fixed": (lambda v, p: f"%.{p}f" % v, 5)}
    for folder, (number, precision) in formats.items():
        for system in records["Gp-" + GROUP].values():
            yield ROOT / folder / f"{system}.xml", Renderer(records, system, number, precision).document()


def main():
    made = {path: text.encode("utf-8") for path, text in goldens()}
    if "--check" in sys.argv:
        there = set(ROOT.glob("*/*"))
        wrong = sorted(p for p in there | set(made) if p not in made or p not in there or p.read_bytes() != made[p])
        if wrong:
            sys.exit("not what this script makes: " + ", ".join(str(p.relative_to(ROOT)) for p in wrong))
        return
    for path, text in made.items():
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(text)


if __name__ == "__main__":
    main()
