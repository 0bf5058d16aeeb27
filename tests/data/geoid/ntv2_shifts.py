#!/usr/bin/env python3
"""Prints rows `file, latitude, longitude, shift north, shift east` (seconds) of RealGrids_test.cpp.

Read straight from the records of the little-endian NTv2 files that PROJ installs, interpolated in exact
fractions. PROJ itself keeps the shifts of nodes as 32-bit radians, a hundredth of a millimetre for
large ones.
"""

import math
import struct
from fractions import Fraction as F

DIRECTORY = "/usr/share/proj/"
PLACES = {
    "nzgd2kgrid0005.gsb": [(-36.5, 175.25), (-41.4968, 167.3607), (-40.19, 170.125), (-47.99, 178.003)],
    "BETA2007.gsb": [(52.5, 13.4), (48.1374, 11.5755), (54.8, 8.3), (47.31, 9.99)],
    "CHENYX06a.gsb": [(46.951, 7.4386), (47.5, 9.1)],
}


def shift(name, latitude, longitude):
    data = open(DIRECTORY + name, "rb").read()
    value = {data[a:a + 8].decode().strip(): data[a + 8:a + 16] for a in range(176, 352, 16)}
    south, north, east, west, dlat, dlon = (
        F(struct.unpack("<d", value[k])[0]) for k in ("S_LAT", "N_LAT", "E_LONG", "W_LONG", "LAT_INC", "LONG_INC"))
    columns = round((west - east) / dlon) + 1
    x = (-F(longitude) * 3600 - east) / dlon
    y = (F(latitude) * 3600 - south) / dlat
    column, row = math.floor(x), math.floor(y)
    fx, fy = x - column, y - row
    sums = [F(0), F(0)]
    for r, c, weight in ((row, column, (1 - fx) * (1 - fy)), (row, column + 1, fx * (1 - fy)),
                         (row + 1, column, (1 - fx) * fy), (row + 1, column + 1, fx * fy)):
        node = struct.unpack_from("<2f", data, 352 + 16 * (r * columns + c))
        sums = [s + weight * F(n) for s, n in zip(sums, node)]
    return float(sums[0]), -float(sums[1])


for name, places in PLACES.items():
    for latitude, longitude in places:
        north, east = shift(name, latitude, longitude)
        print(f'    {{"{name}", {latitude}, {longitude}, {north!r}, {east!r}}},')
