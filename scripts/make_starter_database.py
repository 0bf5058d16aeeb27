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
    "Bessel 1841": (6377397.155, 299.1528128),  # EPSG 7004
    "Clarke 1880 (IGN)": (6378249.2, 6378249.2 / (6378249.2 - 6356515.0)),  # EPSG 7011, defined by its axes
    "Everest 1830 (1967 Definition)": (6377298.556, 300.8017),  # EPSG 7016
    # EPSG 7007 and 7010, defined by their axes.
    "Clarke 1858": (6378293.64520876, 6378293.64520876 / (6378293.64520876 - 6356617.98767984)),
    "Clarke 1880 (Benoit)": (6378300.789, 6378300.789 / (6378300.789 - 6356566.435)),
    "Krassowsky 1940": (6378245.0, 298.3),  # EPSG 7024
}

# name: (metres, suffix)
UNITS = {
    "Meters": (1.0, "m"),
    "Feet": (0.3048, "ft"),
    "US Survey Feet": (1200 / 3937, "ftUS"),
    "Clarke's Links": (0.201166195164, "lkCla"),
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
    "WGS84 to Amersfoort (EPSG 4833)": dict(
        # Published as coordinate frame rotations; the heights are those of its reference surface.
        published=(
            (565.4171, 50.3319, 465.5524), (-0.398957388243134, 0.343987817378283, -1.87740163998045), 4.0725),
        ellipsoid="Bessel 1841",
        centre=(52.225, 5.21),
        fixed_height=True,
        text="Amersfoort to WGS 84 (4), EPSG 4833, inverted; Netherlands; accuracy 1 m",
    ),
    "WGS84 to Pulkovo 1942(58) (EPSG 15995)": dict(
        published=((2.329, -147.042, -92.08), (-0.309, 0.325, 0.497), 5.69),
        ellipsoid="Krassowsky 1940",
        centre=(45.855, 25.835),
        text="Pulkovo 1942(58) to WGS 84 (19), EPSG 15995, inverted; Romania; accuracy 3 m",
    ),
    "WGS84 to NAD83(CSRS) (EPSG 1842)": dict(
        published=((0.0, 0.0, 0.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="GRS 1980",
        text="NAD83(CSRS) to WGS 84 (1), EPSG 1842; Canada; accuracy 2 m",
    ),
    "WGS84 to RGF93 (EPSG 1671)": dict(
        published=((0.0, 0.0, 0.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="GRS 1980",
        text="RGF93 v1 to WGS 84 (1), EPSG 1671; France, onshore and offshore; accuracy 1 m",
    ),
    "WGS84 to NTF (EPSG 1193)": dict(
        published=((-168.0, -60.0, 320.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="Clarke 1880 (IGN)",
        text="NTF to WGS 84 (1), EPSG 1193, inverted; France; accuracy 2 m",
    ),
    "WGS84 to BD72 (EPSG 15929)": dict(
        # Published as coordinate frame rotations.
        published=((-106.8686, 52.2978, -103.7239), (0.3366, -0.457, 1.8422), -1.2747),
        ellipsoid="International 1924",
        centre=(50.505, 4.45),
        text="BD72 to WGS 84 (3), EPSG 15929, inverted; Belgium; accuracy 1 m",
    ),
    "WGS84 to NAD27 (EPSG 1175)": dict(
        published=((-8.0, 159.0, 175.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="Clarke 1866",
        text="NAD27 to WGS 84 (6), EPSG 1175, inverted; USA west of the Mississippi, onshore; accuracy 7 m",
    ),
    "WGS84 to Pulkovo 1942 (EPSG 1303)": dict(
        published=((43.822, -108.842, -119.585), (1.455, -0.761, 0.737), 0.549),
        ellipsoid="Krassowsky 1940",
        centre=(44.06, 51.025),
        text="Pulkovo 1942 to WGS 84 (10), EPSG 1303, inverted; Kazakhstan, Caspian Sea; accuracy 2 m",
    ),
    "WGS84 to Makassar (EPSG 1837)": dict(
        published=((-587.8, 519.75, 145.76), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="Bessel 1841",
        text="Makassar to WGS 84 (1), EPSG 1837, inverted; Indonesia, south west Sulawesi; accuracy not stated",
    ),
    "WGS84 to Timbalai 1948 (EPSG 1592)": dict(
        published=((-678.0, 670.0, -48.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="Everest 1830 (1967 Definition)",
        text="Timbalai 1948 to WGS 84 (2), EPSG 1592, inverted; Brunei; accuracy 5 m",
    ),
    "WGS84 to Trinidad 1903 (EPSG 10085)": dict(
        published=((-61.0, 285.2, 471.6), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="Clarke 1858",
        text="Trinidad 1903 to WGS 84 (3), EPSG 10085, inverted; Trinidad; accuracy 3 m",
    ),
    "WGS84 to Palestine 1923 (EPSG 1074)": dict(
        published=((-275.7224, 94.7824, 340.8944), (-8.001, -4.42, -11.821), 1.0),
        ellipsoid="Clarke 1880 (Benoit)",
        centre=(31.365, 34.93),
        text="Palestine 1923 to WGS 84 (1), EPSG 1074, inverted; Israel, Gaza Strip, West Bank; accuracy 2 m",
    ),
    "WGS84 to SIRGAS 2000 (EPSG 15894)": dict(
        published=((0.0, 0.0, 0.0), (0.0, 0.0, 0.0), 0.0),
        ellipsoid="GRS 1980",
        text="SIRGAS 2000 to WGS 84 (1), EPSG 15894; Latin America; accuracy 1 m",
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


def origin(number, method, lat, lon, easting, northing, scale=None, unit="Meters", **more):
    """A projection of one origin, as most methods have it."""
    fields = {"type": number, "method": method, "unit": unit, "LatOrigin": lat, "LonOrigin": lon,
              "FalseEasting": easting, "FalseNorthing": northing}
    if scale is not None:
        fields["ScaleFactor"] = scale
    fields.update(more)
    return fields


def polar(hemisphere):
    return {"type": 15, "method": "Universal Polar Stereographic", "unit": "Meters", "FalseEasting": 2000000.0,
            "FalseNorthing": 2000000.0, "ScaleFactor": 0.994, "Hemisphere": hemisphere}


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

PROJECTIONS["Rijksdriehoek"] = origin(
    2, "RD", 52 + 9 / 60 + 22.178 / 3600, 5 + 23 / 60 + 15.5 / 3600, 155000.0, 463000.0, 0.9999079)
PROJECTIONS["Stereo 70"] = origin(7, "Stereographic", 46.0, 25.0, 500000.0, 500000.0, 0.99975)
PROJECTIONS["New Brunswick Stereographic (NAD83)"] = origin(
    7, "Stereographic", 46.5, -66.5, 2500000.0, 7500000.0, 0.999912)
PROJECTIONS["Prince Edward Island Stereographic (NAD83)"] = origin(
    7, "Stereographic", 47.25, -63.0, 400000.0, 800000.0, 0.999912)
PROJECTIONS["Universal Polar Stereographic North"] = polar("Northern")
PROJECTIONS["Universal Polar Stereographic South"] = polar("Southern")



def lambert2(unit, lat, lon, easting, northing, southern, northern):
    return origin(3, "Lambert 2 Parallel", lat, lon, easting, northing, unit=unit,
                  **{"1stParallel": southern, "2ndParallel": northern})


def mercator(lon, easting, northing, scale, true_scale):
    return origin(4, "Mercator", 0.0, lon, easting, northing, scale, GridSkew=0.0, LatTrueScale=true_scale)


PROJECTIONS["Lambert-93"] = lambert2("Meters", 46.5, 3.0, 700000.0, 6600000.0, 44.0, 49.0)
PROJECTIONS["Belgian Lambert 72"] = lambert2(
    "Meters", 90.0, 4 + 22 / 60 + 2.952 / 3600, 150000.013, 5400088.438, 49 + 50 / 60 + 0.00204 / 3600,
    51 + 10 / 60 + 0.00204 / 3600)
PROJECTIONS["Belgian Lambert 2008"] = lambert2(
    "Meters", 50 + 47 / 60 + 52.134 / 3600, 4 + 21 / 60 + 33.177 / 3600, 649328.0, 665262.0, 49 + 50 / 60, 51 + 10 / 60)
PROJECTIONS["SPCS27 Texas South Central zone (US survey feet)"] = lambert2(
    "US Survey Feet", 27 + 50 / 60, -99.0, 2000000.0, 0.0, 28 + 23 / 60, 30 + 17 / 60)
PROJECTIONS["Lambert Nord France"] = origin(
    12, "Lambert 1 Parallel", 49.5, 2.33722917, 600000.0, 200000.0, 0.999877341)
PROJECTIONS["Caspian Sea Mercator"] = mercator(51.0, 0.0, 0.0, 1.0, 42.0)
PROJECTIONS["Netherlands East Indies Equatorial Zone"] = mercator(110.0, 3900000.0, 900000.0, 0.997, 0.0)
PROJECTIONS["World Mercator"] = mercator(0.0, 0.0, 0.0, 1.0, 0.0)
PROJECTIONS["Rectified Skew Orthomorphic Borneo Grid (metres)"] = {
    "type": 13, "method": "Hotine Oblique Mercator(B)", "unit": "Meters", "LatOrigin": 4.0, "LonOrigin": 115.0,
    "EastingAtCentre": 590476.87, "NorthingAtCentre": 442857.65, "ScaleFactor": 0.99984,
    "InitialAzimuth": 53 + 18 / 60 + 56.9537 / 3600, "HotineGridSkew": 53 + 7 / 60 + 48.3685 / 3600}
PROJECTIONS["SPCS83 Alaska zone 1 (meters)"] = origin(
    9, "Hotine Oblique Mercator(A)", 57.0, -(133 + 40 / 60), 5000000.0, -5000000.0, 0.9999,
    InitialAzimuth=323 + 7 / 60 + 48.3685 / 3600, HotineGridSkew=323 + 7 / 60 + 48.3685 / 3600)
PROJECTIONS["Trinidad Grid"] = origin(
    8, "Cassini_Soldner", 10 + 26 / 60 + 30 / 3600, -(61 + 20 / 60), 430000.0, 325000.0, 1.0, unit="Clarke's Links")
PROJECTIONS["Palestine Grid"] = origin(
    8, "Cassini_Soldner", 31 + 44 / 60 + 2.749 / 3600, 35 + 12 / 60 + 43.49 / 3600, 170251.555, 126867.909, 1.0)
PROJECTIONS["Brazil Polyconic"] = origin(14, "Polyconic", 0.0, -54.0, 5000000.0, 10000000.0)

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
SYSTEMS["ETRS 89 - RD (2008)"] = (
    "WGS84 to Amersfoort (EPSG 4833)", "Bessel 1841", "Rijksdriehoek", "Meters",
    "EPSG 28992. Netherlands. Transformation accuracy 1 m, at fixed heights of 43 m and 0 m.", {})
SYSTEMS["Pulkovo 1942(58) - Stereo 70"] = (
    "WGS84 to Pulkovo 1942(58) (EPSG 15995)", "Krassowsky 1940", "Stereo 70", "Meters",
    "EPSG 3844. Romania. Transformation accuracy 3 m. Latitudes from the grid are short by 3 mm at 50 km, 5 cm at "
    "100 km, 0.9 m at 200 km and 14 m at 400 km east or west of the origin.", {})
for province, code, projection in (("New Brunswick", 2953, "New Brunswick Stereographic (NAD83)"),
                                   ("Prince Edward Island", 2954, "Prince Edward Island Stereographic (NAD83)")):
    SYSTEMS[f"NAD83(CSRS) - {projection}"] = (
        "WGS84 to NAD83(CSRS) (EPSG 1842)", "GRS 1980", projection, "Meters",
        f"EPSG {code}. Canada, {province}. Transformation accuracy 2 m. Latitudes from the grid are short by 3 mm at "
        "50 km and 5 cm at 100 km east or west of the origin.", {})
for pole, code in (("North", 5041), ("South", 5042)):
    SYSTEMS[f"WGS 84 - UPS {pole} (E,N)"] = (
        NO_TRANSFORMATION, "WGS84", f"Universal Polar Stereographic {pole}", "Meters",
        f"EPSG {code}. No transformation.", {})
SYSTEMS["RGF93 - Lambert-93"] = (
    "WGS84 to RGF93 (EPSG 1671)", "GRS 1980", "Lambert-93", "Meters", "EPSG 2154. France. Transformation accuracy 1 m.",
    {})
SYSTEMS["NTF - Lambert Nord France"] = (
    "WGS84 to NTF (EPSG 1193)", "Clarke 1880 (IGN)", "Lambert Nord France", "Meters",
    "EPSG 27561, longitudes from Greenwich. France north of 48.14 N. Transformation accuracy 2 m.", {})
SYSTEMS["BD72 - Belgian Lambert 72"] = (
    "WGS84 to BD72 (EPSG 15929)", "International 1924", "Belgian Lambert 72", "Meters",
    "EPSG 31370. Belgium. Transformation accuracy 1 m.", {})
SYSTEMS["ETRS89 - Belgian Lambert 2008"] = (
    "WGS84 to ETRS89 (EPSG 1149)", "GRS 1980", "Belgian Lambert 2008", "Meters",
    "EPSG 3812. Belgium. Transformation accuracy 1 m.", {})
SYSTEMS["NAD27 - Texas South Central (ftUS)"] = (
    "WGS84 to NAD27 (EPSG 1175)", "Clarke 1866", "SPCS27 Texas South Central zone (US survey feet)", "US Survey Feet",
    "EPSG 32040. Texas. Transformation accuracy 7 m.", {})
SYSTEMS["Pulkovo 1942 - Caspian Sea Mercator"] = (
    "WGS84 to Pulkovo 1942 (EPSG 1303)", "Krassowsky 1940", "Caspian Sea Mercator", "Meters",
    "EPSG 3388. Kazakhstan, Caspian Sea. Transformation accuracy 2 m.", {})
SYSTEMS["Makassar - NEIEZ"] = (
    "WGS84 to Makassar (EPSG 1837)", "Bessel 1841", "Netherlands East Indies Equatorial Zone", "Meters",
    "EPSG 3002. South west Sulawesi. Transformation accuracy not stated.", {})
SYSTEMS["WGS 84 - World Mercator"] = (
    NO_TRANSFORMATION, "WGS84", "World Mercator", "Meters", "EPSG 3395. No transformation.", {})
SYSTEMS["Timbalai 1948 - RSO Borneo (m)"] = (
    "WGS84 to Timbalai 1948 (EPSG 1592)", "Everest 1830 (1967 Definition)",
    "Rectified Skew Orthomorphic Borneo Grid (metres)", "Meters", "EPSG 29873. Transformation of Brunei, accuracy 5 m.",
    {})
SYSTEMS["NAD83 - Alaska zone 1"] = (
    "WGS84 to NAD83 (EPSG 1188)", "GRS 1980", "SPCS83 Alaska zone 1 (meters)", "Meters",
    "EPSG 26931. Alaska panhandle. Transformation accuracy 4 m. Grid convergence is off by up to 0.02 degrees.", {})
SYSTEMS["Trinidad 1903 - Trinidad Grid"] = (
    "WGS84 to Trinidad 1903 (EPSG 10085)", "Clarke 1858", "Trinidad Grid", "Clarke's Links",
    "EPSG 30200. Trinidad, Clarke's links. Transformation accuracy 3 m.", {})
SYSTEMS["Palestine 1923 - Palestine Grid"] = (
    "WGS84 to Palestine 1923 (EPSG 1074)", "Clarke 1880 (Benoit)", "Palestine Grid", "Meters",
    "EPSG 28191. Transformation accuracy 2 m.", {})
SYSTEMS["SIRGAS 2000 - Brazil Polyconic"] = (
    "WGS84 to SIRGAS 2000 (EPSG 15894)", "GRS 1980", "Brazil Polyconic", "Meters",
    "EPSG 5880. Brazil. Transformation accuracy 1 m.", {})
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
    "World": [f"WGS 84 - UTM zone {z}N" for z in (15, 16, 30, 31, 32)]
    + [f"WGS 84 - UPS {pole} (E,N)" for pole in ("North", "South")] + ["WGS 84 - World Mercator"],
    "North Sea": [f"{d} - UTM zone {z}N" for d in ("WGS 84", "ED50", "ETRS89") for z in (30, 31, 32)],
    "Gulf of Mexico": [
        "WGS 84 - UTM zone 15N", "WGS 84 - UTM zone 16N", "NAD27 - UTM zone 15N", "NAD27 - UTM zone 16N",
        "NAD27 - BLM 15N (ftUS)", "NAD27 - BLM 16N (ftUS)"],
    "United Kingdom": ["OSGB36 - British National Grid"],
    "USA - Arizona": ["NAD83 - Arizona East (ft)"],
    "Netherlands": ["ETRS 89 - RD (2008)"],
    "Belgium": ["BD72 - Belgian Lambert 72", "ETRS89 - Belgian Lambert 2008"],
    "France": ["RGF93 - Lambert-93", "NTF - Lambert Nord France"],
    "USA - Texas": ["NAD27 - Texas South Central (ftUS)"],
    "USA - Alaska": ["NAD83 - Alaska zone 1"],
    "Caspian Sea": ["Pulkovo 1942 - Caspian Sea Mercator"],
    "Indonesia": ["Makassar - NEIEZ"],
    "Brunei": ["Timbalai 1948 - RSO Borneo (m)"],
    "Trinidad and Tobago": ["Trinidad 1903 - Trinidad Grid"],
    "Palestine": ["Palestine 1923 - Palestine Grid"],
    "Brazil": ["SIRGAS 2000 - Brazil Polyconic"],
    "Romania": ["Pulkovo 1942(58) - Stereo 70"],
    "Canada": ["NAD83(CSRS) - New Brunswick Stereographic (NAD83)",
               "NAD83(CSRS) - Prince Edward Island Stereographic (NAD83)"],
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


def datum_rows(method, ellipsoid, shift, rotation, scale, description, rates=None, epoch=0.0, fixed_height=False):
    shift_rates, rotation_rates, scale_rate = rates or ((0.0,) * 3, (0.0,) * 3, 0.0)
    rows = [("Method name", method), ("Source ellipsoid", "WGS84"), ("Target ellipsoid", ellipsoid)]
    rows += [(f"Shift {axis}", v) for axis, v in zip("XYZ", shift)]
    rows += [(f"Rotation {axis}", v) for axis, v in zip("XYZ", rotation)]
    rows += [("Scale", scale), ("Description", description)]
    rows += [(f"Shift rate {axis}", v) for axis, v in zip("XYZ", shift_rates)]
    rows += [(f"Rotation rate {axis}", v) for axis, v in zip("XYZ", rotation_rates)]
    rows += [("Scale rate", scale_rate), ("Epoch", epoch)]
    rows += [("Fixed height", fixed_height), ("Fixed height forward", 43.0), ("Fixed height reverse", 0.0)]
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
            "Bursa/Wolfe(7 Parameters)", datum["ellipsoid"], *inverted(datum), datum["text"],
            fixed_height=datum.get("fixed_height", False)))
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
