"""From an EPSG conversion to a projection record of the module, method by method.

A method that no class of the module computes raises LeftOut with the reason; so do parameters that a class refuses.
"""

import collections
import math

from . import epsg

LAT, LON = 8801, 8802  # natural origin
SCALE = 8805
FE, FN = 8806, 8807
LAT_CENTRE, LON_CENTRE, AZIMUTH, RECTIFIED, SCALE_CENTRE = 8811, 8812, 8813, 8814, 8815
E_CENTRE, N_CENTRE = 8816, 8817
LAT_FALSE, LON_FALSE, PARALLEL_1, PARALLEL_2, E_FALSE, N_FALSE = 8821, 8822, 8823, 8824, 8826, 8827
LAT_TRUE, LON_POLE = 8832, 8833
ELLIPSOID_SCALE = 1038

SMALLEST_AXIS = 6000000.0  # in the system's unit: the oblique Mercators and the polyconic refuse less

# `fields` are the keys of the record. `about` turns the finished grid, in arc seconds about the false origin;
# `stretch` makes the ellipsoid larger; `note` tells a reader what was done.
Result = collections.namedtuple("Result", "type method fields about stretch sphere note")


class LeftOut(Exception):
    """Why a system cannot be delivered."""


class Parameters:
    """The values of one conversion in degrees and in the unit of the grid."""

    def __init__(self, projected, tables, ellipsoid, meridian):
        self._values = projected.conversion.values
        self._tables = tables
        self._unit = projected.axes[0].unit
        self._meridian = meridian
        self.ellipsoid = ellipsoid
        self.axes = projected.axes
        self.name = projected.conversion.name
        self.a = ellipsoid.a / tables.factor(self._unit)

    def angle(self, code):
        return float(epsg.degrees(*self._values[code]))

    def longitude(self, code):
        """From Greenwich, within half a turn."""
        total = epsg.degrees(*self._values[code]) + self._meridian
        return float(total - 360 if total > 180 else total + 360 if total <= -180 else total)

    def length(self, code):
        value, unit = self._values[code]
        return value if unit == self._unit else value * self._tables.factor(unit) / self._tables.factor(self._unit)

    def number(self, code, default=None):
        if code not in self._values and default is not None:
            return default
        value, unit = self._values[code]
        return value * self._tables.factor(unit)


def result(number, method, fields, about=0.0, stretch=1.0, sphere=False, note=""):
    return Result(number, method, tuple(fields.items()), about, stretch, sphere, note)


def origin(p, lat, lon, easting=FE, northing=FN):
    return {"LatOrigin": p.angle(lat), "LonOrigin": p.longitude(lon), "FalseEasting": p.length(easting),
            "FalseNorthing": p.length(northing)}


def south_and_west(p):
    return {axis.direction for axis in p.axes[:2]} == {"west", "south"}


def utm_zone(p):
    """Number and letter of a conversion that is a zone of the universal grid, or None."""
    words = p.name.split()
    if len(words) == 3 and words[:2] == ["UTM", "zone"] and words[2][:-1].isdigit() and words[2][-1] in "NS":
        return int(words[2][:-1]), words[2][-1]
    return None


def transverse_mercator(p):
    fields = origin(p, LAT, LON)
    fields.update(ScaleFactor=p.number(SCALE), GridSkew=0.0)
    zone = utm_zone(p)
    if zone is None:
        return result(0, "Transverse Mercator", fields)
    number, letter = zone
    meridian = number * 6 - 183
    fields.update(UTMZone=f"Zone {number:2d}     ({abs(meridian):3d} {'W' if meridian < 0 else 'E'})",
                  Hemisphere="Northern" if letter == "N" else "Southern")
    return result(1, "Universal Transverse Mercator", fields)


def south_orientated(p):
    """The first coordinate counts to the west and the second to the south: half a turn of the grid."""
    fields = origin(p, LAT, LON)
    fields.update(ScaleFactor=p.number(SCALE), GridSkew=180.0)
    return result(0, "Transverse Mercator", fields,
                  note="Coordinates are westing and southing, by a grid skew of 180 degrees.")


def lambert_1sp(p):
    fields = origin(p, LAT, LON)
    if fields["LatOrigin"] < 0:
        raise LeftOut("Lambert conformal conic of the southern hemisphere: negative latitudes are refused")
    fields["ScaleFactor"] = p.number(SCALE)
    return result(12, "Lambert 1 Parallel", fields)


def two_parallels(p):
    fields = origin(p, LAT_FALSE, LON_FALSE, E_FALSE, N_FALSE)
    southern, northern = sorted((p.angle(PARALLEL_1), p.angle(PARALLEL_2)))
    if min(southern, fields["LatOrigin"]) < 0:
        raise LeftOut("Lambert conformal conic of the southern hemisphere: negative latitudes are refused")
    fields.update({"1stParallel": southern, "2ndParallel": northern})
    return fields


def lambert_2sp(p):
    return result(3, "Lambert 2 Parallel", two_parallels(p))


def lambert_michigan(p):
    stretch = p.number(ELLIPSOID_SCALE)
    return result(3, "Lambert 2 Parallel", two_parallels(p), stretch=stretch,
                  note=f"Projected from an ellipsoid that is {stretch} times as large.")


def lambert_belgium(p):
    raise LeftOut("turned by 29.2985 arc seconds: the same grid without the turn is EPSG 31370")


def mercator(p, scale, true_scale):
    fields = {"LatOrigin": 0.0, "LonOrigin": p.longitude(LON), "FalseEasting": p.length(FE),
              "FalseNorthing": p.length(FN), "ScaleFactor": scale, "GridSkew": 0.0, "LatTrueScale": true_scale}
    return result(4, "Mercator", fields)


def mercator_a(p):
    if p.angle(LAT) != 0.0:
        raise LeftOut("Mercator with a latitude of origin that is not the equator")
    return mercator(p, p.number(SCALE), 0.0)


def mercator_b(p):
    return mercator(p, 1.0, p.angle(PARALLEL_1))


def pseudo_mercator(p):
    return mercator(p, 1.0, 0.0)._replace(
        sphere=True, note="Geographic positions of the ellipsoid are projected as those of a sphere.")


def oblique_stereographic(p):
    fields = origin(p, LAT, LON)
    fields["ScaleFactor"] = p.number(SCALE)
    dutch = p.name in ("RD Old", "RD New")
    return result(2, "RD", fields) if dutch else result(7, "Stereographic", fields)


def cassini(p):
    fields = origin(p, LAT, LON)
    fields["ScaleFactor"] = 1.0
    if south_and_west(p):
        return result(8, "Cassini_Soldner", fields, about=180 * 3600.0,
                      note="Coordinates are westing and southing, by a horizontal adjust of 180 degrees.")
    return result(8, "Cassini_Soldner", fields)


def large_enough(p):
    if p.a < SMALLEST_AXIS:
        raise LeftOut(f"a semi-major axis below {SMALLEST_AXIS:.0f} in the unit of the grid is refused by the method")


def hotine_a(p):
    large_enough(p)
    fields = origin(p, LAT_CENTRE, LON_CENTRE)
    fields.update(ScaleFactor=p.number(SCALE_CENTRE), InitialAzimuth=p.angle(AZIMUTH),
                  HotineGridSkew=p.angle(RECTIFIED))
    return result(9, "Hotine Oblique Mercator(A)", fields)


def hotine_b(p):
    large_enough(p)
    fields = {"LatOrigin": p.angle(LAT_CENTRE), "LonOrigin": p.longitude(LON_CENTRE),
              "EastingAtCentre": p.length(E_CENTRE), "NorthingAtCentre": p.length(N_CENTRE),
              "ScaleFactor": p.number(SCALE_CENTRE), "InitialAzimuth": p.angle(AZIMUTH),
              "HotineGridSkew": p.angle(RECTIFIED)}
    return result(13, "Hotine Oblique Mercator(B)", fields)


def polyconic(p):
    large_enough(p)
    return result(14, "Polyconic", origin(p, LAT, LON))


def polar(p, south, longitude, easting, northing, scale):
    """The class has the longitude of origin 0: another one is a turn of the grid about its false origin."""
    fields = {"FalseEasting": easting, "FalseNorthing": northing, "ScaleFactor": scale,
              "Hemisphere": "Southern" if south else "Northern"}
    about = (-longitude if south else longitude) * 3600.0
    note = ""
    if longitude:
        note = (f"The longitude of origin, {longitude:g} degrees, is a horizontal adjust, which descriptions for other "
                "programs leave out.")
    return result(15, "Universal Polar Stereographic", fields, about=about + 0.0, note=note)


def polar_a(p):
    return polar(p, p.angle(LAT) < 0, p.longitude(LON), p.length(FE), p.length(FN), p.number(SCALE))


def true_at_parallel(p):
    """Scale factor at the pole of a map that is true at its standard parallel (Snyder 1987, eq. 21-33 to 21-35),
    and the radius of that parallel over the semi-major axis."""
    e2 = p.ellipsoid.e2
    e = math.sqrt(e2)
    phi = math.radians(abs(p.angle(LAT_TRUE)))
    s = e * math.sin(phi)
    t = math.tan(math.pi / 4 - phi / 2) * ((1 + s) / (1 - s)) ** (e / 2)
    m = math.cos(phi) / math.sqrt(1 - s * s)
    return m * math.sqrt((1 + e) ** (1 + e) * (1 - e) ** (1 - e)) / (2 * t), m


def polar_b(p):
    scale, _ = true_at_parallel(p)
    made = polar(p, p.angle(LAT_TRUE) < 0, p.longitude(LON_POLE), p.length(FE), p.length(FN), scale)
    return made._replace(note=" ".join(filter(None, [
        f"Scale factor from the standard parallel {abs(p.angle(LAT_TRUE)):g}.", made.note])))


def polar_c(p):
    """The false origin lies on the standard parallel; the record has that of the pole."""
    scale, m = true_at_parallel(p)
    south = p.angle(LAT_TRUE) < 0
    radius = m * p.a
    northing = p.length(N_FALSE) + (-radius if south else radius)
    made = polar(p, south, p.longitude(LON_POLE), p.length(E_FALSE), northing, scale)
    return made._replace(note=" ".join(filter(None, [
        f"Scale factor and false northing at the pole from the standard parallel {abs(p.angle(LAT_TRUE)):g}.",
        made.note])))


METHODS = {
    9807: transverse_mercator,
    1111: transverse_mercator,
    9808: south_orientated,
    9801: lambert_1sp,
    9802: lambert_2sp,
    9803: lambert_belgium,
    1051: lambert_michigan,
    9804: mercator_a,
    9805: mercator_b,
    1024: pseudo_mercator,
    9806: cassini,
    9809: oblique_stereographic,
    9810: polar_a,
    9829: polar_b,
    9830: polar_c,
    9812: hotine_a,
    9815: hotine_b,
    9818: polyconic,
}

MIRRORED = {9826: "westings and northings: a mirrored grid that no turn can make"}


def convert(p, method, method_name):
    """The record of a conversion. Raises LeftOut."""
    if method in METHODS:
        return METHODS[method](p)
    raise LeftOut(f"{method_name}: " + MIRRORED.get(method, "no class for the method"))
