"""Names of groups, systems, units and ellipsoids."""

import re

WORLD = "World"
EXAMPLES = "Examples"

DIVISIONS = {
    "USA": set("""Alabama,Alaska,Arizona,Arkansas,California,Colorado,Connecticut,Delaware,Florida,Georgia,Hawaii,Idaho,
Illinois,Indiana,Iowa,Kansas,Kentucky,Louisiana,Maine,Maryland,Massachusetts,Michigan,Minnesota,Mississippi,Missouri,
Montana,Nebraska,Nevada,New Hampshire,New Jersey,New Mexico,New York,North Carolina,North Dakota,Ohio,Oklahoma,Oregon,
Pennsylvania,Rhode Island,South Carolina,South Dakota,Tennessee,Texas,Utah,Vermont,Virginia,Washington,West Virginia,
Wisconsin,Wyoming""".replace("\n", "").split(",")),
    "Canada": set("""Alberta,British Columbia,Manitoba,New Brunswick,Newfoundland and Labrador,Northwest Territories,
Nova Scotia,Nunavut,Ontario,Prince Edward Island,Quebec,Saskatchewan,Yukon""".replace("\n", "").split(","))}
SAME_PLACE = {"United States": "USA", "United Kingdom": "UK", "Newfoundland": "Newfoundland and Labrador",
              "Labrador": "Newfoundland and Labrador"}

# What a unit is called in the database, and its suffix. Other units keep their EPSG name.
UNITS = {9001: ("Meters", "m"), 9002: ("Feet", "ft"), 9003: ("US Survey Feet", "ftUS"), 9005: (None, "ftCla"),
         9031: (None, "GLM"), 9036: (None, "km"), 9037: (None, "ydCla"), 9039: (None, "lkCla"), 9040: (None, "ydSe"),
         9041: (None, "ftSe"), 9084: (None, "ydInd"), 9094: (None, "ftGC"), 9098: (None, "lk")}

# Models of the base library's table that a country publishes.
GEOID_METHODS = {
    WORLD: "EGM96,EGM2008", "Netherlands": "NLGEO2018", "Germany": "GCG2016", "France": "RAF20",
    "Australia": "AUSGeoid2020,AUSGeoid09", "USA": "GEOID18,GEOID12B", "Canada": "CGG2013,HT2_2010",
    "Norway": "HREF2018B,NKG2015", "Sweden": "SWEN17_RH2000,SWEN,NKG2015", "Finland": "FIN2005N00,NKG2015",
    "Denmark": "NKG2015", "Estonia": "EST-GEOID2017,NKG2015", "Latvia": "NKG2015", "Lithuania": "NKG2015",
    "New Zealand": "NZGeoid2016", "Belgium": "hBG18", "Switzerland": "CHGeo2004", "Spain": "EGM08_REDNAP",
    "Italy": "ITALGEO2005", "Japan": "GSIGEO2011", "Korea, Republic of": "KNGeoid18", "Brazil": "MAPGEO2015",
    "South Africa": "SAGEOID2010", "UK": "OSGM", "Ireland": "OSGM"}


def geoid_methods(group):
    country = group.split(" - ")[0]
    return GEOID_METHODS.get(group) or (GEOID_METHODS.get(country) if country in DIVISIONS else None)


def system_name(epsg_name):
    return epsg_name.replace(" / ", " - ")


def main_group(extent_name):
    """The country or region of an area; in the USA and Canada the state or province."""
    parts = extent_name.split(" - ")
    country = re.split(r" \(|\(|;", parts[0])[0].strip()
    for part in parts[1:2]:
        division = re.split(r" \(|;", part)[0].strip()
        division = SAME_PLACE.get(division, division)
        if division in DIVISIONS.get(country, ()):
            return f"{country} - {division}"
    return country


def groups_of(extents, known):
    """All groups of a system: those of its areas' names, and those that their descriptions name.

    `known` are the groups that some area's name begins with, so that no word of a description makes a group.
    """
    found = dict.fromkeys(main_group(name) for name, _, _ in extents)
    for _, description, _ in extents:
        country = ""
        for token in re.split(r"[.;:,]| - | between | and ", description):
            token = re.split(r" \(| onshore| offshore| including", token.strip())[0].strip()
            token = SAME_PLACE.get(token, token)
            if token in DIVISIONS:
                country = token
            if token in DIVISIONS.get(country, ()):
                found[f"{country} - {token}"] = None
            elif token in known:
                found[token] = None
    return [group for group in found if group in known or " - " in group]


def natural(name):
    """Sorting key: numbers in names by their value."""
    return [(0, int(part), "") if part.isdigit() else (1, 0, part.lower()) for part in re.split(r"(\d+)", name) if part]
