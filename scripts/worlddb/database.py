"""The records of the database and its text."""

import collections

from . import epsg
from . import names
from . import projections

EARTH = 7030
DUTCH_CODE = 28992
DEFAULT_SYSTEM = "ETRS 89 - RD (2008)"
DEFAULT_GROUP = "Netherlands"

# One row of the side file; a system has one for each box.
Place = collections.namedtuple("Place", "name groups code box accuracy")


def text(value):
    if value is True or value is False:
        return "1" if value else "0"
    if isinstance(value, float):
        return repr(int(value)) if value == int(value) and abs(value) < 1e15 else repr(value)
    return str(value)


def section(name, rows):
    return [f"[{name}]"] + [f"{key}={text(value)}" for key, value in rows] + [""]


def numbered(entries):
    return [(i, name) for i, name in enumerate(entries, 1)]


def degrees_text(value):
    return format(value, ".10g")


def box_text(box):
    return (f"latitude {degrees_text(box.south)} to {degrees_text(box.north)}, "
            f"longitude {degrees_text(box.west)} to {degrees_text(box.east)}")


class Registry:
    """Ellipsoids and units, under their names in the database, in the order of first use."""

    def __init__(self, tables):
        self._tables = tables
        self.ellipsoids = {"WGS84": (tables.ellipsoid(EARTH).a, tables.ellipsoid(EARTH).e2)}
        self.units = {"Meters": (1.0, "m"), "Feet": (0.3048, "ft"), "US Survey Feet": (tables.factor(9003), "ftUS")}

    def ellipsoid(self, ellipsoid):
        name = "WGS84" if ellipsoid.code == EARTH else ellipsoid.name
        self.ellipsoids[name] = (ellipsoid.a, ellipsoid.e2)
        return name

    def changed_ellipsoid(self, ellipsoid, stretch, sphere):
        """An ellipsoid that only a projection uses: larger, or the sphere of the semi-major axis."""
        base = self.ellipsoid(ellipsoid)
        name = f"{base} sphere" if sphere else f"{base} x {stretch}"
        self.ellipsoids[name] = (ellipsoid.a * stretch, 0.0 if sphere else ellipsoid.e2)
        return name

    def unit(self, code):
        name, suffix = names.UNITS[code]
        name = name or self._tables.unit_name(code)
        self.units[name] = (self._tables.factor(code), suffix)
        return name


class Projections:
    """Projection records: one per conversion, meridian and unit."""

    def __init__(self):
        self.records = {}
        for zone in range(1, 61):
            for letter in "NS":
                self.records[f"UTM Zone-{zone:02d}{letter}"] = None

    def add(self, made, conversion_name, meridian_name, unit):
        name = self._name(made, conversion_name, meridian_name)
        rows = [("Projection type", made.type), ("Projection method", made.method), ("Unit name", unit)]
        rows += made.fields
        if self.records.get(name) not in (None, rows):
            name = f"{name} ({unit})"
        if self.records.get(name) not in (None, rows):
            raise ValueError(f"two projections of the name {name}")
        self.records[name] = rows
        return name

    @staticmethod
    def _name(made, conversion_name, meridian_name):
        if made.type == 1:
            number, letter = conversion_name.split()[-1][:-1], conversion_name[-1]
            return f"UTM Zone-{int(number):02d}{letter}"
        return conversion_name if meridian_name == "Greenwich" else f"{conversion_name} from {meridian_name}"


class Database:
    def __init__(self, tables, datums, registry, differences):
        self._tables = tables
        self._datums = datums
        self._registry = registry
        self._differences = differences
        self.projections = Projections()
        self.systems = {}
        self.groups = collections.defaultdict(list)
        self.places = []
        self.left_out = []
        self.types = collections.Counter()

    def add(self, projected, groups):
        """Adds a system to `groups`, with the transformation that its datum and area of use ask for."""
        datum = self._tables.datum(self._tables.geodetic(projected.base).datum)
        self._add(projected, groups, self._datums.choose(datum.code, projected.boxes), "")

    def add_regional(self, projected, group, transformation):
        """Adds a system a second time, for a sea that has a better transformation of its own."""
        base = self._tables.geodetic(projected.base)
        boxes = tuple(filter(None, (epsg.common(projected.boxes[0], box) for _, _, box in self._tables.extents(
            "helmert_transformation", str(transformation)))))
        choice = self._datums.choose_code(base.datum, transformation, boxes)
        extents = ((group, "", boxes[0]),)
        self._add(projected._replace(boxes=boxes, extents=extents), [group], choice, f" ({group})")

    def _add(self, projected, groups, choice, suffix):
        datum = self._tables.datum(self._tables.geodetic(projected.base).datum)
        ellipsoid = self._tables.ellipsoid(datum.ellipsoid)
        meridian_name, meridian = self._tables.meridian(datum.meridian)
        try:
            made = projections.convert(projections.Parameters(projected, self._tables, ellipsoid, meridian),
                                       projected.conversion.method, projected.conversion.method_name)
        except projections.LeftOut as reason:
            self.left_out.append((projected.code, projected.name, projected.conversion.method_name, str(reason)))
            return
        unit = self._registry.unit(projected.axes[0].unit)
        local = self._registry.ellipsoid(ellipsoid)
        if made.sphere or made.stretch != 1.0:
            local = self._registry.changed_ellipsoid(ellipsoid, made.stretch, made.sphere)
        rows = {"Datumtransform name": choice.record, "Unit name": unit, "Ellipsoid name": local,
                "Projection name": self.projections.add(made, projected.conversion.name, meridian_name, unit),
                "Geoid model use statu": False}
        rows.update(self._turn(made))
        rows["System description"] = self._description(projected, made, meridian_name, choice)
        name = names.system_name(projected.name) + suffix
        self._put(name, groups, None if suffix else projected.code, rows, projected.boxes, choice.accuracy)
        if suffix:
            return
        self.types[made.type] += 1
        if projected.code == DUTCH_CODE:
            self._put_default(rows, projected, choice)

    @staticmethod
    def _turn(made):
        if made.about == 0.0:
            return {}
        fields = dict(made.fields)
        return {"Post horizontal adjust statu": True, "Post horizonal origin X": fields["FalseEasting"],
                "Post horizonal origin Y": fields["FalseNorthing"], "Post horizonal rotation": made.about,
                "Post horizonal scale": 1.0}

    def _description(self, projected, made, meridian_name, choice):
        areas = "; ".join(dict.fromkeys(name for name, _, _ in projected.extents))
        boxes = "; ".join(box_text(box) for box in projected.boxes)
        parts = [f"EPSG {projected.code}. {areas}: {boxes}.", choice.remark]
        if meridian_name != "Greenwich":
            parts.append("Longitudes are from Greenwich: derived from EPSG, with the meridian of "
                         f"{meridian_name} in the longitude of origin.")
        if made.note:
            parts.append(f"{made.note} Derived from EPSG.")
        parts += self._differences.sentences(projected.code)
        if projected.description:
            parts.append(" ".join(projected.description.split()))
        return " ".join(parts)

    def _put(self, name, groups, code, rows, boxes, accuracy):
        if name in self.systems:
            raise ValueError(f"two systems of the name {name}")
        self.systems[name] = list(rows.items())
        for group in groups:
            self.groups[group].append(name)
        for box in boxes:
            self.places.append(Place(name, ";".join(groups), code, box, accuracy))

    def _put_default(self, rows, projected, choice):
        fixed = dict(rows)
        fixed["Datumtransform name"] = self._datums.at_fixed_heights(choice.record)
        fixed["System description"] += " Positions are transformed at fixed heights of 43 m and 0 m."
        self._put(DEFAULT_SYSTEM, [DEFAULT_GROUP], None, fixed, projected.boxes, choice.accuracy)

    def list_in(self, group, name):
        """Lists a system in a further group."""
        self.groups[group].append(name)
        self.places = [place._replace(groups=f"{place.groups};{group}") if place.name == name else place
                       for place in self.places]

    def add_example(self, name, rows, boxes=()):
        self._put(name, [names.EXAMPLES], None, rows, boxes, None)

    def _group_order(self):
        ordinary = sorted((g for g in self.groups if g not in (names.WORLD, names.EXAMPLES)), key=names.natural)
        return [g for g in [names.WORLD] + ordinary + [names.EXAMPLES] if g in self.groups]

    def _sorted_systems(self, group):
        return sorted(self.groups[group], key=lambda name: (name != DEFAULT_SYSTEM, names.natural(name)))

    def lines(self, version):
        groups = self._group_order()
        datums = self._datums.records
        ellipsoids, units = self._registry.ellipsoids, self._registry.units
        made = ["; Coordinate systems of the world. Made by scripts/make_world_database.py.",
                f"; Contains data of the EPSG Geodetic Parameter Dataset {version} (IOGP) and records derived from it;",
                "; see NOTICE-EPSG.", ""]
        made += section("General", [
            ("Group count", len(groups)), ("System count", len(self.systems)), ("Ellipsoid count", len(ellipsoids)),
            ("Datumtransf count", len(datums)), ("Unit count", len(units)),
            ("Projection count", len(self.projections.records))])
        made += section("Groups Section", numbered(groups))
        for group in groups:
            systems = self._sorted_systems(group)
            rows = numbered(systems) + [("System count", len(systems))]
            if names.geoid_methods(group):
                rows.append(("Supported geoid model methods", names.geoid_methods(group)))
            made += section(f"Gp-{group}", rows)
        for name, rows in self.systems.items():
            made += section(f"Sys-{name}", rows)
        made += section("DatumTransform Section", numbered(datums))
        for name, rows in datums.items():
            made += section(f"Dtf-{name}", rows)
        made += section("Projections section", numbered(self.projections.records))
        for name, rows in self.projections.records.items():
            made += section(f"Prj-{name}", rows)
        made += section("Ellipsoids section", numbered(ellipsoids))
        for name, (a, e2) in ellipsoids.items():
            made += section(f"Elp-{name}", [("SemiMajor", a), ("EccSqrd", e2)])
        return made + section("Units section", [(name, f"{text(factor)},{suffix}") for name, (factor, suffix)
                                                in units.items()])
