#!/usr/bin/env python3
"""Makes data/examples/north-sea-line.txt: the positions of a survey vessel in the North Sea.

The vessel runs parallel lines near 56 N 3 E at some 4.5 knots with a fix every five seconds,
turns at their ends with a steady rate of turn, and heaves and rolls a little in the swell. The
figures are made up; the same script gives the same bytes everywhere.

    scripts/make_survey_line.py > data/examples/north-sea-line.txt
"""

import math

START_LATITUDE = 56.0102
START_LONGITUDE = 2.9641
GEOID = 42.9  # metres; about the height of the geoid above the ellipsoid there
ANTENNA = 18.4  # metres above the sea
SPEED = 2.3  # metres a second
INTERVAL = 5.0  # seconds between two fixes
LINE_COURSE = 23.5  # degrees
LINE_FIXES = 595
TURN_RADIUS = 125.0  # metres, half the distance of two lines
LINES = 8
RADIUS = 6_378_137.0
ECC_SQUARED = 0.006694379990141317


def metres_per_degree(latitude):
    """Lengths of a degree of latitude and of longitude on the ellipsoid."""
    s = math.sin(math.radians(latitude))
    w = 1.0 - ECC_SQUARED * s * s
    meridian = RADIUS * (1.0 - ECC_SQUARED) / w**1.5
    normal = RADIUS / math.sqrt(w)
    return math.radians(meridian), math.radians(normal * math.cos(math.radians(latitude)))


def turning_rates():
    """Degrees of course per fix, fix by fix: straight lines with half circles between them."""
    per_fix = math.degrees(SPEED * INTERVAL / TURN_RADIUS)
    fixes = round(180.0 / per_fix)
    for line in range(LINES):
        yield from [0.0] * LINE_FIXES
        if line + 1 < LINES:
            yield from [(1.0 if line % 2 == 0 else -1.0) * 180.0 / fixes] * fixes


def main():
    print("# Survey line in the North Sea, WGS 84: latitude, longitude, height of the antenna, fix, UTC")
    print("# Made by scripts/make_survey_line.py; the figures are invented.")
    latitude, longitude, course = START_LATITUDE, START_LONGITUDE, LINE_COURSE
    for fix, turn in enumerate(turning_rates()):
        seconds = fix * INTERVAL
        swell = 0.9 * math.sin(2.0 * math.pi * seconds / 8.3) + 0.3 * math.sin(2.0 * math.pi * seconds / 5.9)
        tide = 0.75 * math.cos(2.0 * math.pi * seconds / 44714.0)
        height = GEOID + ANTENNA + tide + swell
        clock = 6 * 3600 + int(seconds)
        time = f"2024-07-01T{clock // 3600:02d}:{clock // 60 % 60:02d}:{clock % 60:02d}Z"
        print(f"{latitude:.8f} {longitude:.8f} {height:.3f} {fix + 1:05d} {time}")
        drift = 0.35 * math.sin(2.0 * math.pi * seconds / 611.0)  # metres across the line
        heading = math.radians(course)
        north = SPEED * INTERVAL * math.cos(heading) - drift * math.sin(heading)
        east = SPEED * INTERVAL * math.sin(heading) + drift * math.cos(heading)
        per_latitude, per_longitude = metres_per_degree(latitude)
        latitude += north / per_latitude
        longitude += east / per_longitude
        course += turn


if __name__ == "__main__":
    main()
