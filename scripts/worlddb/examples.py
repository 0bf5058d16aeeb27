"""What stands in the database beside the systems that EPSG lists.

Two seas whose transformations are better than those of the wide zones they lie in, and made-up systems that show what a
record can carry beside a projection: group "Examples".
"""

NORTH_SEA, GULF_OF_MEXICO = "North Sea", "Gulf of Mexico"

# Group, EPSG code of the system, and of the transformation that is meant for the sea.
REGIONAL = [(NORTH_SEA, 23030, 1311), (NORTH_SEA, 23031, 1311), (NORTH_SEA, 23032, 1311),
            (GULF_OF_MEXICO, 26715, 15853), (GULF_OF_MEXICO, 26716, 15856), (GULF_OF_MEXICO, 32065, 15853),
            (GULF_OF_MEXICO, 32066, 15856)]
# Systems of the world and of Europe that are used there.
LISTED = {NORTH_SEA: [f"{datum} - UTM zone {zone}N" for datum in ("WGS 84", "ETRS89") for zone in (30, 31, 32)],
          GULF_OF_MEXICO: [f"WGS 84 - UTM zone {zone}N" for zone in (15, 16)]}


def add_seas(database, systems):
    by_code = {system.code: system for system in systems}
    for group, code, transformation in REGIONAL:
        database.add_regional(by_code[code], group, transformation)
    for group, listed in LISTED.items():
        for name in listed:
            database.list_in(group, name)


def add(database, datums, tables):
    etrs89 = {"Datumtransform name": "WGS84 to ETRS89 (EPSG 1149)", "Unit name": "Meters",
              "Ellipsoid name": "GRS 1980", "Projection name": "UTM Zone-31N"}
    database.add_example("Example - harbour grid with post corrections", {
        **etrs89,
        "Geoid model use statu": False,
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
        "System description": "Made up, to show post corrections: shifts, a horizontal adjust about 595000 5759000 and "
                              "an inclined plane."})
    database.add_example("Example - UTM zone 31N with a fixed geoid separation", {
        **etrs89,
        "Geoid model use statu": True,
        "Manual input value": 43.25,
        "Geoid model grid": "",
        "Geoid model method": "Manual",
        "System description": "Made up, to show a fixed geoid separation of 43.25 m, near that of the southern North "
                              "Sea."})
    gda2020 = tables.geodetic(7844).datum
    database.add_example("Example - GDA2020 MGA zone 50 with plate motion", {
        "Datumtransform name": datums.add_time_dependent(gda2020), "Unit name": "Meters",
        "Ellipsoid name": "GRS 1980", "Projection name": "UTM Zone-50S",
        "Geoid model use statu": False,
        "System description": "EPSG 7850 by the time-dependent transformation 8049: positions of the ITRF move 7 cm a "
                              "year against the grid, so every position needs its time. Australia 114 E to 120 E."})
