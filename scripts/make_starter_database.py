#!/usr/bin/env python3
"""Writes data/zorgeodatabase.geo from the tables below.

Every figure comes from a published record of the EPSG Geodetic Parameter Dataset, named by its
code. Transformations are published from the local datum to WGS 84 and stored the other way
round: the matrix is inverted exactly and split into the three rotations in the order in which
the module turns, and the translation makes the centre of the area of use map exactly.
Deterministic: the same tables give the same bytes.

usage: make_starter_database.py [--check]    --check compares with the committed file
"""

import math
import pathlib
import sys

ARC_SECOND = math.pi / 180 / 3600

# name: (semi-major axis in metres, inverse flattening)
ELLIPSOIDS = {
    "WGS84": (6378137.0, 298.257223563),  # EPSG 7030
    "GRS 1980": (6378137.0, 298.257222101),  # EPSG 7019
    "International 1924": (6378388.0, 297.0),  # EPSG 7022
    "Airy 1830": (6377563.396, 299.3249646),  # EPSG 7001
    "Clarke 1866": (6378206.4, 6378206.4 / (6378206.4 - 6356583.8)),  # EPSG 7008, defined by its axes
}

# name: (metres, suffix)
UNITS = {
    "Meters": (1.0, "m"),
    "Feet": (0.3048, "ft"),
    "US Survey Feet": (1200 / 3937, "ftUS"),
}

# name: published local -> WGS 84 (translation m, position vector rotation arc seconds, scale ppm),
# ellipsoid, centre of the area of use (latitude, longitude), description
DATUMS = {
    "WGS84 to ED50 (EPSG 1311)": dict(
        published=((-89.5, -93.8, -123.1), (0.0, 0.0, -0.156), 1.2),
        ellipsoid="International 1924",
        centre=(55.65, -2.62),
        text="ED50 to WGS 84 (18), EPSG 1311, Common Offshore, inverted; North Sea and Irish waters; accuracy 1 m",
    ),
    "WGS84 to OSGB36 (EPSG 1314)": dict(
        published=((446.448, -125.157, 542.06), (0.15, 0.247, 0.842), -20.489),
        ellipsoid="Airy 1830",
        centre=(55.365, -3.45),
        text="OSGB36 to WGS 84 (6), EPSG 1314, petroleum transformation, inverted; Great Britain; accuracy 2 m",
    ),
    "WGS84 to NAD27 (EPSG 15853)": dict(
        published=((-7.0, 151.0, 175.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="Clarke 1866",
        text="NAD27 to WGS 84 (81), EPSG 15853, inverted; Gulf of Mexico 95 W to 87.25 W; accuracy 5 m",
    ),
    "WGS84 to NAD27 (EPSG 15856)": dict(
        published=((-7.0, 158.0, 172.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="Clarke 1866",
        text="NAD27 to WGS 84 (84), EPSG 15856, inverted; Gulf of Mexico outer continental shelf; accuracy 8 m",
    ),
    "WGS84 to ETRS89 (EPSG 1149)": dict(
        published=((0.0, 0.0, 0.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="GRS 1980",
        text="ETRS89 to WGS 84 (1), EPSG 1149; Europe; accuracy 1 m",
    ),
    "WGS84 to NAD83 (EPSG 1188)": dict(
        published=((0.0, 0.0, 0.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="GRS 1980",
        text="NAD83 to WGS 84 (1), EPSG 1188; North America; accuracy 4 m",
    ),
}

# Published from the satellite frame to the local datum, so nothing is inverted. Coordinate frame
# rotations change their sign: records hold position vector rotations.
TIME_DEPENDENT = {
    "ITRF2014 to GDA2020 (EPSG 8049)": dict(
        method="Helmert(14 Parameters)",
        ellipsoid="GRS 1980",
        rotation_rates_mas=(-1.50379, -1.18346, -1.20716),
        epoch=2020.0,
        text="ITRF2014 to GDA2020 (1), EPSG 8049, coordinate frame rotations with the sign of the position "
        "vector; Australia; accuracy 0.03 m. WGS84 positions are taken as ITRF2014",
    ),
}

NO_TRANSFORMATION = "No Transformation"


def utm(zone, south=False):
    meridian = zone * 6 - 183
    letter = "S" if south else "N"
    side = "W" if meridian < 0 else "E"
    return f"UTM Zone-{zone:02d}{letter}", {
        "type": 1,
        "method": "Universal Transverse Mercator",
        "unit": "Meters",
        "LatOrigin": 0.0,
        "LonOrigin": float(meridian),
        "FalseEasting": 500000.0,
        "FalseNorthing": 10000000.0 if south else 0.0,
        "ScaleFactor": 0.9996,
        "GridSkew": 0.0,
        "UTMZone": f"Zone {zone:2d}     ({abs(meridian):3d} {side})",
        "Hemisphere": "Southern" if south else "Northern",
    }


def transverse_mercator(unit, lat, lon, easting, northing, scale):
    return {
        "type": 0,
        "method": "Transverse Mercator",
        "unit": unit,
        "LatOrigin": lat,
        "LonOrigin": lon,
        "FalseEasting": easting,
        "FalseNorthing": northing,
        "ScaleFactor": scale,
        "GridSkew": 0.0,
    }


PROJECTIONS = dict([utm(z) for z in (15, 16, 30, 31, 32)] + [utm(50, south=True)])
PROJECTIONS["British National Grid"] = transverse_mercator("Meters", 49.0, -2.0, 400000.0, -100000.0, 0.9996012717)
PROJECTIONS["BLM zone 15N (US survey feet)"] = transverse_mercator(
    "US Survey Feet", 0.0, -93.0, 1640416.67, 0.0, 0.9996
)
PROJECTIONS["BLM zone 16N (US survey feet)"] = transverse_mercator(
    "US Survey Feet", 0.0, -87.0, 1640416.67, 0.0, 0.9996
)
PROJECTIONS["SPCS83 Arizona East zone (International feet)"] = transverse_mercator(
    "Feet", 31.0, -(110 + 10 / 60), 700000.0, 0.0, 0.9999
)

# name: (datum, ellipsoid, projection, unit, description, further keys)
SYSTEMS = {}
for zone, code in ((15, 32615), (16, 32616), (30, 32630), (31, 32631), (32, 32632)):
    SYSTEMS[f"WGS 84 - UTM zone {zone}N"] = (
        NO_TRANSFORMATION, "WGS84", f"UTM Zone-{zone}N", "Meters", f"EPSG {code}. No transformation.", {})
for zone, code in ((30, 23030), (31, 23031), (32, 23032)):
    SYSTEMS[f"ED50 - UTM zone {zone}N"] = (
        "WGS84 to ED50 (EPSG 1311)", "International 1924", f"UTM Zone-{zone}N", "Meters",
        f"EPSG {code}. Transformation accuracy 1 m.", {})
for zone, code in ((30, 25830), (31, 25831), (32, 25832)):
    SYSTEMS[f"ETRS89 - UTM zone {zone}N"] = (
        "WGS84 to ETRS89 (EPSG 1149)", "GRS 1980", f"UTM Zone-{zone}N", "Meters",
        f"EPSG {code}. Transformation accuracy 1 m.", {})
SYSTEMS["NAD27 - UTM zone 15N"] = (
    "WGS84 to NAD27 (EPSG 15853)", "Clarke 1866", "UTM Zone-15N", "Meters",
    "EPSG 26715. Gulf of Mexico 95 W to 87.25 W. Transformation accuracy 5 m.", {})
SYSTEMS["NAD27 - UTM zone 16N"] = (
    "WGS84 to NAD27 (EPSG 15856)", "Clarke 1866", "UTM Zone-16N", "Meters",
    "EPSG 26716. Gulf of Mexico outer continental shelf. Transformation accuracy 8 m.", {})
SYSTEMS["NAD27 - BLM 15N (ftUS)"] = (
    "WGS84 to NAD27 (EPSG 15853)", "Clarke 1866", "BLM zone 15N (US survey feet)", "US Survey Feet",
    "EPSG 32065. Gulf of Mexico 95 W to 87.25 W. Transformation accuracy 5 m.", {})
SYSTEMS["NAD27 - BLM 16N (ftUS)"] = (
    "WGS84 to NAD27 (EPSG 15856)", "Clarke 1866", "BLM zone 16N (US survey feet)", "US Survey Feet",
    "EPSG 32066. Gulf of Mexico outer continental shelf. Transformation accuracy 8 m.", {})
SYSTEMS["OSGB36 - British National Grid"] = (
    "WGS84 to OSGB36 (EPSG 1314)", "Airy 1830", "British National Grid", "Meters",
    "EPSG 27700. Great Britain. Transformation accuracy 2 m.", {})
SYSTEMS["NAD83 - Arizona East (ft)"] = (
    "WGS84 to NAD83 (EPSG 1188)", "GRS 1980", "SPCS83 Arizona East zone (International feet)", "Feet",
    "EPSG 2222. Arizona, eastern counties, international feet. Transformation accuracy 4 m.", {})
SYSTEMS["GDA2020 - MGA zone 50"] = (
    "ITRF2014 to GDA2020 (EPSG 8049)", "GRS 1980", "UTM Zone-50S", "Meters",
    "EPSG 7850. Australia 114 E to 120 E. Time-dependent: positions move 7 cm a year against the grid.", {})
SYSTEMS["Example - harbour grid with post corrections"] = (
    "WGS84 to ETRS89 (EPSG 1149)", "GRS 1980", "UTM Zone-31N", "Meters",
    "Made up, to show post corrections: shifts, a horizontal adjust about 595000 5759000 and an inclined plane.",
    {
        "Post coorection statu": True,
        "Post X coorection": 1.25,
        "Post Y coorection": -0.75,
        "Post Z coorection": 0.5,
        "Post horizontal adjust statu": True,
        "Post horizonal origin X": 595000.0,
        "Post horizonal origin Y": 5759000.0,
        "Post horizonal rotation": 12.0,
        "Post horizonal scale": 1.00001,
        "Post vertical adjust statu": True,
        "Post vertical origin X": 595000.0,
        "Post vertical origin Y": 5759000.0,
        "Post vertical slope X": 4.0,
        "Post vertical slope Y": -2.5,
    })
SYSTEMS["Example - UTM zone 31N with a fixed geoid separation"] = (
    "WGS84 to ETRS89 (EPSG 1149)", "GRS 1980", "UTM Zone-31N", "Meters",
    "Made up, to show a fixed geoid separation of 43.25 m, near that of the southern North Sea.",
    {"Geoid model use statu": True, "Manual input value": 43.25, "Geoid model grid": "", "Geoid model method": "Manual"})

GROUPS = {
    "World": [f"WGS 84 - UTM zone {z}N" for z in (15, 16, 30, 31, 32)],
    "North Sea": [f"{d} - UTM zone {z}N" for d in ("WGS 84", "ED50", "ETRS89") for z in (30, 31, 32)],
    "Gulf of Mexico": [
        "WGS 84 - UTM zone 15N", "WGS 84 - UTM zone 16N", "NAD27 - UTM zone 15N", "NAD27 - UTM zone 16N",
        "NAD27 - BLM 15N (ftUS)", "NAD27 - BLM 16N (ftUS)"],
    "United Kingdom": ["OSGB36 - British National Grid"],
    "USA - Arizona": ["NAD83 - Arizona East (ft)"],
    "Australia": ["GDA2020 - MGA zone 50"],
    "Examples": [
        "Example - harbour grid with post corrections", "Example - UTM zone 31N with a fixed geoid separation"],
}


def ecc_squared(name):
    f = 1 / ELLIPSOIDS[name][1]
    return f * (2 - f)


def to_cartesian(ellipsoid, lat, lon):
    a, e2 = ELLIPSOIDS[ellipsoid][0], ecc_squared(ellipsoid)
    phi, lam = math.radians(lat), math.radians(lon)
    n = a / math.sqrt(1 - e2 * math.sin(phi) ** 2)
    return [n * math.cos(phi) * math.cos(lam), n * math.cos(phi) * math.sin(lam), n * (1 - e2) * math.sin(phi)]


def multiply(m, v):
    return [sum(m[i][k] * v[k] for k in range(3)) for i in range(3)]


def product(a, b):
    return [[sum(a[i][k] * b[k][j] for k in range(3)) for j in range(3)] for i in range(3)]


def transpose(m):
    return [list(row) for row in zip(*m)]


def determinant(m):
    return (m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) - m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0])
            + m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]))


def inverse(m):
    d = determinant(m)
    c = [[0.0] * 3 for _ in range(3)]
    for i in range(3):
        for j in range(3):
            r = [x for x in range(3) if x != i]
            s = [x for x in range(3) if x != j]
            minor = m[r[0]][s[0]] * m[r[1]][s[1]] - m[r[0]][s[1]] * m[r[1]][s[0]]
            c[j][i] = (-1) ** (i + j) * minor / d
    return c


def rotation_of(m):
    """The polar factor of m, by Newton's iteration (Higham 1986)."""
    q = m
    for _ in range(50):
        t = transpose(inverse(q))
        q = [[(q[i][j] + t[i][j]) / 2 for j in range(3)] for i in range(3)]
    return q


def rotation_matrix(rx, ry, rz):
    """Position vector rotation about y, then x, then z, as the module turns; arc seconds."""
    x, y, z = rx * ARC_SECOND, ry * ARC_SECOND, rz * ARC_SECOND
    my = [[math.cos(y), 0, math.sin(y)], [0, 1, 0], [-math.sin(y), 0, math.cos(y)]]
    mx = [[1, 0, 0], [0, math.cos(x), -math.sin(x)], [0, math.sin(x), math.cos(x)]]
    mz = [[math.cos(z), -math.sin(z), 0], [math.sin(z), math.cos(z), 0], [0, 0, 1]]
    return product(mz, product(mx, my))


def inverted(datum):
    """The published transformation turned round: (translation, rotation, scale in ppm)."""
    (tx, ty, tz), (rx, ry, rz), ppm = datum["published"]
    if (rx, ry, rz, ppm) == (0.0, 0.0, 0.0, 0.0):
        return (0.0 - tx, 0.0 - ty, 0.0 - tz), (0.0, 0.0, 0.0), 0.0
    x, y, z = rx * ARC_SECOND, ry * ARC_SECOND, rz * ARC_SECOND
    s = 1 + ppm * 1e-6
    m = [[s, -s * z, s * y], [s * z, s, -s * x], [-s * y, s * x, s]]
    back = inverse(m)
    scale = determinant(back) ** (1 / 3)
    q = rotation_of([[v / scale for v in row] for row in back])
    angles = (math.asin(q[2][1]), math.atan2(-q[2][0], q[2][2]), math.atan2(-q[0][1], q[1][1]))
    rotation = tuple(round(a / ARC_SECOND, 9) for a in angles)
    out_ppm = round((scale - 1) * 1e6, 9)
    # The centre of the area of use, and what the published figures make of it.
    local = to_cartesian(datum["ellipsoid"], *datum["centre"])
    satellite = [a + b for a, b in zip((tx, ty, tz), multiply(m, local))]
    turned = multiply(rotation_matrix(*rotation), satellite)
    translation = tuple(round(a - (1 + out_ppm * 1e-6) * b, 6) for a, b in zip(local, turned))
    return translation, rotation, out_ppm


def text(value):
    if value is True or value is False:
        return "1" if value else "0"
    if isinstance(value, float):
        return repr(int(value)) if value == int(value) and abs(value) < 1e15 else repr(value)
    return str(value)


def section(name, rows):
    return [f"[{name}]"] + [f"{key}={text(value)}" for key, value in rows] + [""]


def numbered(names):
    return [(i, name) for i, name in enumerate(names, 1)]


def datum_rows(method, ellipsoid, shift, rotation, scale, description, rates=None, epoch=0.0):
    shift_rates, rotation_rates, scale_rate = rates or ((0.0,) * 3, (0.0,) * 3, 0.0)
    rows = [("Method name", method), ("Source ellipsoid", "WGS84"), ("Target ellipsoid", ellipsoid)]
    rows += [(f"Shift {axis}", v) for axis, v in zip("XYZ", shift)]
    rows += [(f"Rotation {axis}", v) for axis, v in zip("XYZ", rotation)]
    rows += [("Scale", scale), ("Description", description)]
    rows += [(f"Shift rate {axis}", v) for axis, v in zip("XYZ", shift_rates)]
    rows += [(f"Rotation rate {axis}", v) for axis, v in zip("XYZ", rotation_rates)]
    rows += [("Scale rate", scale_rate), ("Epoch", epoch)]
    rows += [("Fixed height", False), ("Fixed height forward", 43.0), ("Fixed height reverse", 0.0)]
    rows += [("SrcSma", ELLIPSOIDS["WGS84"][0]), ("SrcSe", ecc_squared("WGS84"))]
    rows += [("DstSma", ELLIPSOIDS[ellipsoid][0]), ("DstSe", ecc_squared(ellipsoid))]
    return rows


def system_rows(datum, ellipsoid, projection, unit, description, extra):
    rows = {"Datumtransform name": datum, "Unit name": unit, "Ellipsoid name": ellipsoid,
            "Projection name": projection, "Geoid model use statu": False}
    rows.update(extra)
    rows["System description"] = description
    return list(rows.items())


def main():
    datums = [NO_TRANSFORMATION] + list(DATUMS) + list(TIME_DEPENDENT)
    lines = ["; Coordinate systems of the world, starter set. Made by scripts/make_starter_database.py.",
             "; Parameters from the EPSG Geodetic Parameter Dataset (IOGP); see NOTICE.", ""]
    lines += section("General", [
        ("Group count", len(GROUPS)), ("System count", len(SYSTEMS)), ("Ellipsoid count", len(ELLIPSOIDS)),
        ("Datumtransf count", len(datums)), ("Unit count", len(UNITS)), ("Projection count", len(PROJECTIONS))])
    lines += section("Groups Section", numbered(GROUPS))
    for group, systems in GROUPS.items():
        lines += section(f"Gp-{group}", numbered(systems) + [("System count", len(systems))])
    for name, fields in SYSTEMS.items():
        lines += section(f"Sys-{name}", system_rows(*fields))
    lines += section("DatumTransform Section", numbered(datums))
    lines += section(f"Dtf-{NO_TRANSFORMATION}", [
        ("Method name", NO_TRANSFORMATION), ("Source ellipsoid", "WGS84"), ("Target ellipsoid", "WGS84"),
        ("Description", "Positions pass unchanged")])
    for name, datum in DATUMS.items():
        lines += section(f"Dtf-{name}", datum_rows(
            "Bursa/Wolfe(7 Parameters)", datum["ellipsoid"], *inverted(datum), datum["text"]))
    for name, datum in TIME_DEPENDENT.items():
        rates = ((0.0,) * 3, tuple(round(v / 1000, 12) for v in datum["rotation_rates_mas"]), 0.0)
        lines += section(f"Dtf-{name}", datum_rows(
            datum["method"], datum["ellipsoid"], (0.0,) * 3, (0.0,) * 3, 0.0, datum["text"], rates, datum["epoch"]))
    lines += section("Projections section", numbered(PROJECTIONS))
    for name, fields in PROJECTIONS.items():
        head = [("Projection type", fields["type"]), ("Projection method", fields["method"]),
                ("Unit name", fields["unit"])]
        lines += section(f"Prj-{name}", head + [
            (k, v) for k, v in fields.items() if k not in ("type", "method", "unit")])
    lines += section("Ellipsoids section", numbered(ELLIPSOIDS))
    for name, (a, _) in ELLIPSOIDS.items():
        lines += section(f"Elp-{name}", [("SemiMajor", a), ("EccSqrd", ecc_squared(name))])
    lines += section("Units section", [(name, f"{text(factor)},{suffix}") for name, (factor, suffix) in UNITS.items()])
    made = ("\n".join(lines).rstrip("\n") + "\n").encode("utf-8")
    target = pathlib.Path(__file__).resolve().parent.parent / "data" / "zorgeodatabase.geo"
    if "--check" in sys.argv:
        if target.read_bytes() != made:
            sys.exit(f"{target.name} is not what this script makes: run it without --check, and commit the result")
        return
    target.write_bytes(made)


if __name__ == "__main__":
    main()
