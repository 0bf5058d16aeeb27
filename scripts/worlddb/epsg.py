"""Reading the EPSG tables of proj.db: units and angles, ellipsoids, meridians, areas, systems, transformations."""

import collections
import functools
import re
import sqlite3
from decimal import Decimal

METRE = 9001
DEGREES = 9102
SEXAGESIMAL = 9110  # DDD.MMSSsss: 52.0922178 is 52 degrees 9 minutes 22.178 seconds
# Degrees in a unit of angle, exactly. Tables of proj.db hold radians, which cost the last digits.
DEGREES_OF = {DEGREES: Decimal(1), 9105: Decimal("0.9"), 9104: Decimal(1) / 3600, 9122: Decimal(1)}

Box = collections.namedtuple("Box", "west south east north")
Axis = collections.namedtuple("Axis", "name direction unit")
Ellipsoid = collections.namedtuple("Ellipsoid", "code name a e2")
Datum = collections.namedtuple("Datum", "code name ellipsoid meridian")
Geodetic = collections.namedtuple("Geodetic", "code name datum")
Conversion = collections.namedtuple("Conversion", "code name method method_name values")
Projected = collections.namedtuple("Projected", "code name base conversion axes boxes extents description")


def plain(value):
    """The decimal number that the table holds, as it was typed in."""
    return Decimal(repr(float(value)))


def sexagesimal(value):
    number = plain(value)
    whole, _, decimals = format(abs(number), "f").partition(".")
    decimals = decimals.ljust(4, "0")
    seconds = Decimal(decimals[2:4] + "." + (decimals[4:] or "0"))
    degrees = int(whole) + Decimal(decimals[:2]) / 60 + seconds / 3600
    return -degrees if number < 0 else degrees


def degrees(value, unit):
    """An angle in degrees, as a Decimal; gives up on a unit that it does not know."""
    return sexagesimal(value) if unit == SEXAGESIMAL else plain(value) * DEGREES_OF[unit]


def box_width(box):
    return (box.east - box.west) % 360 or 360.0


def overlap(box, other):
    """The share of `box` that `other` covers, in degrees squared; both may reach across 180 degrees."""
    height = min(box.north, other.north) - max(box.south, other.south)
    if height < 0:
        return 0.0
    width = 0.0
    for turn in (-360, 0, 360):
        west = max(box.west, other.west + turn)
        east = min(box.west + box_width(box), other.west + turn + box_width(other))
        width += max(0.0, east - west)
    area = (box.north - box.south) * box_width(box)
    return height * width / area if area else 1.0


def common(box, other):
    """What two boxes that do not reach across 180 degrees share, or None."""
    shared = Box(max(box.west, other.west), max(box.south, other.south), min(box.east, other.east),
                 min(box.north, other.north))
    return shared if shared.west < shared.east and shared.south < shared.north else None


class Tables:
    """The tables of one proj.db, read as they are asked for."""

    def __init__(self, path):
        self._db = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
        self._units = {code: (name, factor) for code, name, factor in self.rows(
            "SELECT code, name, conv_factor FROM unit_of_measure WHERE auth_name = 'EPSG'")}

    def rows(self, query, *values):
        return self._db.execute(query, values)

    def version(self):
        return dict(self.rows("SELECT key, value FROM metadata"))["EPSG.VERSION"]

    def unit_name(self, unit):
        return self._units[unit][0]

    def factor(self, unit):
        """Metres, radians, or one, in the unit."""
        return self._units[unit][1]

    @functools.lru_cache(None)
    def ellipsoid(self, code):
        name, a, unit, inverse_flattening, b = self.rows(
            "SELECT name, semi_major_axis, uom_code, inv_flattening, semi_minor_axis FROM ellipsoid "
            "WHERE auth_name = 'EPSG' AND code = ?", code).fetchone()
        if inverse_flattening is not None:
            f = 1 / inverse_flattening if inverse_flattening else 0.0
        else:
            f = (a - b) / a
        return Ellipsoid(code, name, a * self.factor(unit), f * (2 - f))

    @functools.lru_cache(None)
    def meridian(self, code):
        """Name, and degrees from Greenwich."""
        name, longitude, unit = self.rows(
            "SELECT name, longitude, uom_code FROM prime_meridian WHERE auth_name = 'EPSG' AND code = ?", code
        ).fetchone()
        return name, degrees(longitude, unit)

    @functools.lru_cache(None)
    def datum(self, code):
        return Datum(*self.rows(
            "SELECT code, name, ellipsoid_code, prime_meridian_code FROM geodetic_datum "
            "WHERE auth_name = 'EPSG' AND code = ?", code).fetchone())

    @functools.lru_cache(None)
    def geodetic(self, code):
        return Geodetic(*self.rows(
            "SELECT code, name, datum_code FROM geodetic_crs WHERE auth_name = 'EPSG' AND code = ?", code).fetchone())

    @functools.lru_cache(None)
    def axes(self, code):
        return tuple(Axis(*row) for row in self.rows(
            "SELECT name, orientation, uom_code FROM axis WHERE coordinate_system_auth_name = 'EPSG' "
            "AND coordinate_system_code = ? ORDER BY coordinate_system_order", code))

    @functools.lru_cache(None)
    def conversion(self, code):
        row = self._row("SELECT * FROM conversion WHERE auth_name = 'EPSG' AND code = ?", code)
        values = {}
        for i in range(1, 8):
            if row[f"param{i}_code"] is not None:
                values[row[f"param{i}_code"]] = (row[f"param{i}_value"], row[f"param{i}_uom_code"])
        return Conversion(code, row["name"], row["method_code"], row["method_name"], values)

    def _row(self, query, *values):
        cursor = self.rows(query, *values)
        return dict(zip((column[0] for column in cursor.description), cursor.fetchone()))

    @functools.lru_cache(None)
    def extents(self, table, code):
        """Names, descriptions and boxes of the areas of use of an object, in the order of their codes."""
        return tuple((name, text, Box(west, south, east, north)) for name, text, west, south, east, north in self.rows(
            "SELECT e.name, e.description, west_lon, south_lat, east_lon, north_lat FROM usage u "
            "JOIN extent e ON e.auth_name = u.extent_auth_name AND e.code = u.extent_code "
            "WHERE object_table_name = ? AND object_auth_name = 'EPSG' AND object_code = ? "
            "ORDER BY CAST(u.code AS INTEGER)", table, code))

    def projected(self):
        """All projected systems that are not deprecated, by code."""
        for code, name, description, axes, base, conversion in self.rows(
                "SELECT code, name, description, coordinate_system_code, geodetic_crs_code, conversion_code "
                "FROM projected_crs WHERE auth_name = 'EPSG' AND deprecated = 0 ORDER BY CAST(code AS INTEGER)"):
            extents = self.extents("projected_crs", code)
            boxes = tuple(dict.fromkeys(box for _, _, box in extents))
            yield Projected(int(code), name, base, self.conversion(conversion), self.axes(axes), boxes, extents,
                            (description or "").strip())

    def helmerts(self):
        """All transformations of 3 to 14 parameters that are not deprecated, as rows of their table."""
        cursor = self.rows("SELECT * FROM helmert_transformation WHERE auth_name = 'EPSG' AND deprecated = 0 "
                           "AND source_crs_auth_name = 'EPSG' AND target_crs_auth_name = 'EPSG' "
                           "ORDER BY CAST(code AS INTEGER)")
        columns = [column[0] for column in cursor.description]
        return [dict(zip(columns, row)) for row in cursor]

    def longitude_rotations(self):
        """Pairs of geodetic systems that differ by the prime meridian alone."""
        return list(self.rows("SELECT source_crs_code, target_crs_code FROM other_transformation "
                              "WHERE auth_name = 'EPSG' AND method_code = 9601 AND deprecated = 0"))

    def replaced(self):
        """Code of each superseded transformation: the codes that take its place, by the table and by the remarks."""
        pairs = collections.defaultdict(set)
        for old, new in self.rows(
                "SELECT superseded_code, replacement_code FROM supersession "
                "WHERE superseded_table_name = 'helmert_transformation' AND superseded_auth_name = 'EPSG'"):
            pairs[int(old)].add(int(new))
        for code, remark in self.rows(
                "SELECT code, description FROM helmert_transformation WHERE auth_name = 'EPSG' AND deprecated = 0"):
            # A sentence of its own: "used in block 3 and then replaced by" tells of one user alone.
            for sentence in re.findall(r"(?:^|[.\n] ?)((?:Replaced|Superseded|Withdrawn)\b[^\n]*?)(?:\. |\.?$)",
                                       remark or "", re.M):
                pairs[int(code)].update(int(found) for found in re.findall(r"codes? (\d+)", sentence))
        return pairs
