"""Which transformation a system gets, and its record.

EPSG publishes from the local datum to WGS 84; records are stored the other way, from the satellite datum to the local
one. A system never gets the transformation of a neighbour: where none is published for its datum it gets none, and its
description says what that is worth.
"""

import collections
import re

from . import epsg
from . import helmert

WGS84_DATUM = 6326
ETRS89_DATUM = 6258
WGS84_NAME = "WGS84"  # the satellite ellipsoid's name in the database
NO_TRANSFORMATION = "No Transformation"
UNCHANGED = "Positions pass unchanged"
# Shares of a system's box from which a transformation counts as covering it, as serving most of it, and as serving a
# good part of it: outside its area of use a transformation is a neighbour's.
COVERED, MOST, PART = 0.9, 0.5, 0.25

TRANSLATIONS = {9603, 1031}
POSITION_VECTOR = {9606, 1033, 1061, 1063}
COORDINATE_FRAME = {9607, 1032, 9636}
PIVOTED = {1061, 1063, 9636}
TIME_POSITION_VECTOR = 1053
TIME_COORDINATE_FRAME = 1056

# Frames that follow an ITRF and have no published transformation to WGS 84: metres to which positions of theirs can be
# taken for WGS 84, by the motion of their plate and the earthquakes since their epoch.
FOLLOWS_ITRF = {
    1043: 1,  # China 2000: ITRF97 at 2000.0
    1064: 5,  # SIRGAS-Chile 2002.0: the earthquake of 2010
    1243: 5,  # SIRGAS-Chile 2010.0: the same
    1252: 3,  # SIRGAS-Chile 2013.0: the earthquake of 2015
    1253: 1,  # SIRGAS-Chile 2016.0
    1327: 1,  # SIRGAS-Chile 2021.0
    1225: 1,  # CR-SIRGAS: ITRF2008 at 2014.59
    1293: 2,  # SRGI2013: ITRF2008 at 2012.0, four plates
    1304: 5,  # REDGEOMIN: northern Chile, 2010
    6742: 1,  # GDM2000: ITRF2000 at 2000.0
}
COMPARED_AT = 2025.0  # year at which time-dependent frames are compared with the ITRF

# What a system gets. `accuracy` in metres or None; `transformation` the EPSG code or None.
Choice = collections.namedtuple("Choice", "record transformation accuracy remark")
Candidate = collections.namedtuple(
    "Candidate", "code name accuracy variant boxes helmert target reversed row superseded")


def arc_seconds(value, unit, tables):
    if unit == 9104:
        return value
    return value / 1000 if unit == 1031 else value * tables.factor(unit) / helmert.ARC_SECOND


def parts_per_million(value, unit):
    return value / 1000 if unit == 1028 else value


def published(row, tables):
    """A row of the table as a position vector transformation in metres, arc seconds, ppm; None for another method."""
    method = row["method_code"]
    if method not in TRANSLATIONS | POSITION_VECTOR | COORDINATE_FRAME:
        return None
    metres = tables.factor(row["translation_uom_code"])
    shift = tuple(row[k] * metres for k in ("tx", "ty", "tz"))
    if method in TRANSLATIONS:
        return helmert.Helmert(shift, (0.0,) * 3, 0.0)
    sign = -1.0 if method in COORDINATE_FRAME else 1.0
    rotation = tuple(0.0 + sign * arc_seconds(row[k], row["rotation_uom_code"], tables) for k in ("rx", "ry", "rz"))
    ppm = parts_per_million(row["scale_difference"], row["scale_difference_uom_code"])
    found = helmert.Helmert(shift, rotation, ppm)
    if method in PIVOTED:
        found = helmert.about_pivot(found, [row[k] for k in ("px", "py", "pz")])
    return found


def variant(name):
    """The number in "Amersfoort to WGS 84 (4)"."""
    found = re.search(r"\((\d+)\)$", name)
    return int(found.group(1)) if found else 0


def middle(boxes):
    """Latitude and longitude of the middle of the first area."""
    box = boxes[0]
    longitude = box.west + epsg.box_width(box) / 2
    return (box.south + box.north) / 2, (longitude + 180) % 360 - 180


def metres(value):
    return "not stated" if value is None else f"{value:g} m"


class Datums:
    """Chooses transformations, and keeps the records that were chosen, in the order in which they were first asked."""

    def __init__(self, tables, ellipsoid_names):
        self._tables = tables
        self._ellipsoid_names = ellipsoid_names
        self._rows = tables.helmerts()
        self._by_code = {int(row["code"]): row for row in self._rows}
        self._twins = self._read_twins()
        self._candidates = self._read_candidates()
        self._chosen = {}
        self.records = {}
        self.descriptions = {}

    def _datum_of(self, code):
        return self._tables.geodetic(code).datum

    def _read_twins(self):
        """Datum with another prime meridian: the datum that is the same from Greenwich."""
        twins = {}
        for source, target in self._tables.longitude_rotations():
            a, b = (self._tables.datum(self._datum_of(code)) for code in (source, target))
            if a.meridian != 8901 and b.meridian == 8901:
                twins[a.code] = b.code
        return twins

    def greenwich(self, datum):
        return self._twins.get(datum, datum)

    def _read_candidates(self):
        found = collections.defaultdict(list)
        replaced = self._tables.replaced()
        for row in self._rows:
            ends = (self._datum_of(row["source_crs_code"]), self._datum_of(row["target_crs_code"]))
            back = ends[0] == WGS84_DATUM
            local, satellite = reversed(ends) if back else ends
            parameters = published(row, self._tables)
            if satellite not in (WGS84_DATUM, ETRS89_DATUM) or local == satellite or parameters is None:
                continue
            boxes = tuple(box for _, _, box in self._tables.extents("helmert_transformation", row["code"]))
            found[local].append(Candidate(
                int(row["code"]), row["name"], row["accuracy"], variant(row["name"]), boxes, parameters, satellite,
                back, row, self._is_replaced(int(row["code"]), ends[0], replaced)))
        return found

    def _is_replaced(self, code, source, replaced):
        """Whether another transformation that can be stored takes the place of this one."""
        for other in replaced.get(code, ()):
            row = self._by_code.get(other)
            if row is not None and other != code and self._datum_of(row["source_crs_code"]) == source and published(
                    row, self._tables):
                return True
        return False

    def _best(self, datum, boxes):
        """The candidate for a system of these boxes, or None. The order of the tests is the order of their weight."""
        def rank(c):
            share = self._covered(c, boxes)
            return (c.superseded, c.target != WGS84_DATUM, c.reversed, share < COVERED, share < MOST, share < PART,
                    9999.0 if c.accuracy is None else c.accuracy, -c.variant, -c.code)

        usable = [c for c in self._candidates.get(datum, ()) if self._covered(c, boxes) > 0]
        return min(usable, key=rank, default=None)

    def _covered(self, candidate, boxes):
        return min(max(epsg.overlap(box, area) for area in candidate.boxes) for box in boxes)

    def choose(self, datum, boxes):
        """The transformation for a system on `datum` that is used within `boxes`."""
        datum = self.greenwich(datum)
        if datum == WGS84_DATUM:
            return self._none(NO_TRANSFORMATION, None, "No transformation: the system is on WGS 84.", UNCHANGED)
        best = self._best(datum, boxes)
        if best is None:
            return self._untransformed(datum)
        return self._chosen_one(best, boxes)

    def choose_code(self, datum, code, boxes):
        """The transformation of EPSG code `code`, for a system that is used where that is meant to be used."""
        return self._chosen_one(next(c for c in self._candidates[datum] if c.code == code), boxes)

    def _chosen_one(self, best, boxes):
        share = self._covered(best, boxes)
        record = self._record(best)
        turned = " inverted (derived from EPSG)" if ", inverted" in self.descriptions[record] else ""
        remark = f"Transformation EPSG {best.code}{turned}, accuracy {metres(self._accuracy(best))}"
        if best.target == ETRS89_DATUM:
            remark += ", by ETRS89"
        remark += f", covers {share:.0%} of the box." if share < COVERED else "."
        return Choice(record, best.code, self._accuracy(best), remark)

    @staticmethod
    def _accuracy(candidate):
        """By ETRS89 it is no better than the metre to which that is WGS 84 (EPSG 1149)."""
        if candidate.target == ETRS89_DATUM and candidate.accuracy is not None:
            return max(1.0, candidate.accuracy)
        return candidate.accuracy

    def _none(self, name, accuracy, remark, description):
        self.records.setdefault(name, [
            ("Method name", NO_TRANSFORMATION), ("Source", WGS84_NAME), ("Target ellipsoid", WGS84_NAME)])
        self.descriptions.setdefault(name, description)
        return Choice(name, None, accuracy, remark)

    def _untransformed(self, datum):
        record = self._tables.datum(datum)
        within = FOLLOWS_ITRF.get(datum)
        newest = self._newest_time_dependent(datum)
        if within is None and newest is not None:
            within = self._moved(newest)
        if within is not None:
            name = self._safe(f"{record.name} taken as WGS84 (within {within:g} m)")
            remark = f"No published transformation; taken as WGS 84, within {within:g} m."
            return self._none(name, float(within), remark,
                              f"{UNCHANGED}: the frame follows an ITRF, within {within:g} m of WGS 84")
        return self._none(
            NO_TRANSFORMATION, None,
            f"WARNING: no transformation of {record.name} is published for this area: satellite positions pass "
            "unchanged, and can be off by the whole difference of the datums, hundreds of metres as a rule.", UNCHANGED)

    def _name(self, code):
        return self._tables.geodetic(code).name

    @staticmethod
    def _safe(name):
        # A datum's name with " - " and a colon behind it is looked up by a shortened form.
        return name.replace(" - ", " ").replace(":", "")

    def _record(self, c):
        """Writes the record of a candidate once; its name."""
        if c.code in self._chosen:
            return self._chosen[c.code]
        row = c.row
        local = row["target_crs_code"] if c.reversed else row["source_crs_code"]
        ellipsoid = self._tables.ellipsoid(self._tables.datum(self._datum_of(local)).ellipsoid)
        if c.reversed:
            satellite = self._tables.ellipsoid(7030)
            stored = helmert.as_published(c.helmert, helmert.to_cartesian(satellite, *middle(c.boxes)))
        else:
            stored = helmert.inverted(c.helmert, helmert.to_cartesian(ellipsoid, *middle(c.boxes)))
        zero = stored == helmert.ZERO
        text = f"{c.name}, EPSG {c.code}{'' if zero or c.reversed else ', inverted'}"
        if c.target == ETRS89_DATUM:
            text += ", ETRS89 taken as WGS 84"
        if row["method_code"] in PIVOTED:
            text += ", pivot folded into the shifts"
        if not zero:
            text += "; derived from EPSG"
        area = "; ".join(name for name, _, _ in self._tables.extents("helmert_transformation", row["code"]))
        text += f"; {area}; accuracy {metres(c.accuracy)}"
        name = self._safe(f"{WGS84_NAME} to {self._name(local)} (EPSG {c.code})")
        self.records[name] = self.rows("Bursa/Wolfe(7 Parameters)", ellipsoid, stored)
        self.descriptions[name] = text
        self._chosen[c.code] = name
        return name

    def rows(self, method, ellipsoid, stored, rates=helmert.ZERO, epoch=0.0, fixed_height=False):
        """The keys of a record, in the order of the module's writer.

        Without a description: the backup in a project holds none, and a record that has one would differ from the
        project's on the very machine that saved it. `descriptions` has it.
        """
        satellite = self._tables.ellipsoid(7030)
        keys = [("Method name", method), ("Source", WGS84_NAME),
                ("Target ellipsoid", self._ellipsoid_names(ellipsoid))]
        keys += [(f"Shift {axis}", v) for axis, v in zip("XYZ", stored.shift)]
        keys += [(f"Rotation {axis}", v) for axis, v in zip("XYZ", stored.rotation)]
        keys += [("Scale", stored.ppm)]
        keys += [(f"Shift rate {axis}", v) for axis, v in zip("XYZ", rates.shift)]
        keys += [(f"Rotation rate {axis}", v) for axis, v in zip("XYZ", rates.rotation)]
        keys += [("Scale rate", rates.ppm), ("Epoch", epoch)]
        keys += [("Fixed height", fixed_height), ("Fixed height forward", 43.0), ("Fixed height reverse", 0.0)]
        keys += [("SrcSma", satellite.a), ("SrcSe", satellite.e2), ("DstSma", ellipsoid.a), ("DstSe", ellipsoid.e2)]
        return keys

    def at_fixed_heights(self, name):
        """A second record of `name` that moves positions at fixed heights; its name."""
        fixed = name + " at fixed heights"
        self.records[fixed] = [(key, True if key == "Fixed height" else value) for key, value in self.records[name]]
        self.descriptions[fixed] = self.descriptions[name] + "; at fixed heights"
        return fixed

    # Time-dependent ones are published from the ITRF to the local datum, so that nothing is inverted.

    def _newest_time_dependent(self, datum):
        def frame(row):
            found = re.match(r"ITRF(\d+)$", self._name(row["source_crs_code"]))
            year = int(found.group(1)) if found else None
            return None if year is None else year + (1900 if year < 100 else 0)

        usable = [row for row in self._rows if self._datum_of(row["target_crs_code"]) == datum
                  and row["method_code"] in (TIME_POSITION_VECTOR, TIME_COORDINATE_FRAME) and frame(row)]
        return max(usable, key=lambda row: (frame(row), variant(row["name"])), default=None)

    def _time_dependent(self, row):
        """Parameters at the epoch, and their rates a year."""
        sign = -1.0 if row["method_code"] == TIME_COORDINATE_FRAME else 1.0
        parts = []
        for prefix, suffix in (("", ""), ("rate_", "rate_")):
            # Units of rates are named a second; their numbers stand for a year.
            length = {1025: 0.001, 1033: 0.01, 9001: 1.0, 1027: 0.001, 1034: 0.01, 1042: 1.0}[
                row[f"{prefix}translation_uom_code"]]
            angle = {9104: 1.0, 1031: 0.001, 1032: 0.001, 1043: 1.0}[row[f"{prefix}rotation_uom_code"]]
            scale = {9202: 1.0, 1028: 0.001, 1030: 0.001, 1041: 1.0}[row[f"{prefix}scale_difference_uom_code"]]
            parts.append(helmert.Helmert(
                tuple(round(row[prefix + k] * length, 12) for k in ("tx", "ty", "tz")),
                tuple(0.0 + sign * round(row[prefix + k] * angle, 12) for k in ("rx", "ry", "rz")),
                round(row[prefix + "scale_difference"] * scale, 12)))
        return parts

    def _moved(self, row):
        """Metres between the frames in the middle of the area, rounded up, in the year of comparison."""
        at_epoch, rates = self._time_dependent(row)
        years = COMPARED_AT - row["epoch"]
        now = helmert.Helmert(*(tuple(a + years * b for a, b in zip(x, y)) for x, y in zip(at_epoch[:2], rates[:2])),
                              at_epoch.ppm + years * rates.ppm)
        boxes = [box for _, _, box in self._tables.extents("helmert_transformation", row["code"])]
        start = helmert.to_cartesian(self._tables.ellipsoid(7019), *middle(boxes))
        end = [t + v for t, v in zip(now.shift, helmert.multiply(helmert.published_matrix(now), start))]
        return int(sum((a - b) ** 2 for a, b in zip(start, end)) ** 0.5) + 1

    def add_time_dependent(self, datum):
        """Keeps the record of the newest ITRF's transformation to `datum` where one is published; its name or None."""
        row = self._newest_time_dependent(datum)
        if row is None:
            return None
        name = self._safe(f"{self._name(row['source_crs_code'])} to {self._name(row['target_crs_code'])} "
                          f"(EPSG {row['code']})")
        frame_rotation = row["method_code"] == TIME_COORDINATE_FRAME
        method = "Helmert(14 Parameters)" if frame_rotation else "Bursa/Wolfe(14 Parameters)"
        at_epoch, rates = self._time_dependent(row)
        ellipsoid = self._tables.ellipsoid(self._tables.datum(datum).ellipsoid)
        sign = ", derived from EPSG: rotations with the sign of the position vector" if frame_rotation else ""
        area = "; ".join(text for text, _, _ in self._tables.extents("helmert_transformation", row["code"]))
        text = (f"{row['name']}, EPSG {row['code']}{sign}; {area}; accuracy {metres(row['accuracy'])}. "
                f"WGS84 positions are taken as {self._name(row['source_crs_code'])}")
        self.records.setdefault(name, self.rows(method, ellipsoid, at_epoch, rates, row["epoch"]))
        self.descriptions.setdefault(name, text)
        return name
