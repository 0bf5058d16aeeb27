#!/usr/bin/env python3
"""Prints rows `latitude, longitude, height` of the synthetic PGM geoid of PgmGeoid_test.cpp.

The rule is worked out in exact fractions, from its definition: in each cell the cubic of the terms
x^i y^j, i + j <= 3, that fits twelve pixels best by weighted least squares (Karney, GeographicLib,
"Geoid height"). With --check, GeoidEval (geographiclib-tools) must give the same to a tenth of a
millimetre.
"""

import math
import pathlib
import struct
import subprocess
import sys
import tempfile
from fractions import Fraction as F

WIDTH, HEIGHT = 24, 13
OFFSET, SCALE = F(-108), F(3, 1000)
POWERS = [(0, 0), (1, 0), (0, 1), (2, 0), (1, 1), (0, 2), (3, 0), (2, 1), (1, 2), (0, 3)]
STENCIL = [(0, -1), (1, -1)] + [(x, y) for y in (0, 1) for x in (-1, 0, 1, 2)] + [(0, 2), (1, 2)]
PLACES = [
    (0.0, 0.0), (90.0, 0.0), (90.0, 77.0), (-90.0, 0.0), (-90.0, -123.0),
    (89.99, 12.5), (80.0, 187.25), (75.0, 30.0), (74.999, 30.0), (-74.0, 100.0), (-75.0, 100.0),
    (-80.5, 359.9), (-89.99, 5.0), (52.25, 4.75), (52.25, 364.75), (52.25, -355.25), (-33.3, 151.2),
    (10.0, 359.999), (10.0, -0.001), (10.0, 180.0), (10.0, -180.0), (10.0, 179.5), (45.0, 345.0),
    (0.001, 7.5), (-0.001, 7.5), (60.1, 299.9), (-45.0, 15.0), (30.0, 52.5), (29.5, 53.0), (-15.0, -75.0),
]


def pixel(row, column):
    return 20000 + (row * 7919 + column * 10473 + row * column * 31) % 30011


def pixel_at(column, row):
    if row < 0 or row >= HEIGHT:
        row = -row if row < 0 else 2 * (HEIGHT - 1) - row
        column += WIDTH // 2
    return pixel(row, column % WIDTH)


def solve(matrix, right):
    n = len(matrix)
    rows = [matrix[i] + [right[i]] for i in range(n)]
    for k in range(n):
        pivot = next(r for r in range(k, n) if rows[r][k] != 0)
        rows[k], rows[pivot] = rows[pivot], rows[k]
        rows[k] = [v / rows[k][k] for v in rows[k]]
        for r in range(n):
            if r != k:
                rows[r] = [a - rows[r][k] * b for a, b in zip(rows[r], rows[k])]
    return [row[n] for row in rows]


def height(latitude, longitude):
    lat, lon = F(latitude), F(longitude) % 360
    fx, fy = lon * WIDTH / 360, -lat * (HEIGHT - 1) / 180
    ix, iy = math.floor(fx), min((HEIGHT - 1) // 2 - 1, math.floor(fy))
    fx, fy = fx - ix, fy - iy
    iy += (HEIGHT - 1) // 2
    pole = iy in (0, HEIGHT - 2)
    flip = iy == HEIGHT - 2
    powers = [p for p in POWERS if not (pole and p[0] > 0 and p[1] == 0)]

    def terms(x, y):
        y = 1 - y if flip else y
        return [F(x) ** i * F(y) ** j for i, j in powers]

    rows = [terms(x, y) for x, y in STENCIL]
    weights = [2 if x in (0, 1) and y in (0, 1) else 1 for x, y in STENCIL]
    values = [pixel_at(ix + x, iy + y) for x, y in STENCIL]
    n = len(powers)
    normal = [[sum(w * r[i] * r[j] for w, r in zip(weights, rows)) for j in range(n)] for i in range(n)]
    right = [sum(w * r[i] * v for w, r, v in zip(weights, rows, values)) for i in range(n)]
    return OFFSET + SCALE * sum(c * t for c, t in zip(solve(normal, right), terms(fx, fy)))


def check(heights):
    with tempfile.TemporaryDirectory() as directory:
        header = "P5\n# Description test\n# DateTime 2001-02-03\n# Offset -108\n# Scale 0.003\n"
        pixels = b"".join(struct.pack(">H", pixel(r, c)) for r in range(HEIGHT) for c in range(WIDTH))
        path = pathlib.Path(directory) / "test.pgm"
        path.write_bytes(f"{header}{WIDTH} {HEIGHT}\n65535\n".encode() + pixels)
        lines = "".join(f"{lat} {lon}\n" for lat, lon in PLACES)
        run = subprocess.run(["GeoidEval", "-n", "test", "-d", directory], input=lines, capture_output=True, text=True,
                             check=True)
        worst = max(abs(float(a) - float(b)) for a, b in zip(run.stdout.split(), heights))
        assert len(run.stdout.split()) == len(heights) and worst <= 0.00006, worst
        print(f"GeoidEval: at most {worst:.5f} m away", file=sys.stderr)


def main():
    heights = [height(lat, lon) for lat, lon in PLACES]
    for (lat, lon), value in zip(PLACES, heights):
        print(f"    {{{lat}, {lon}, {float(value)!r}}},")
    if "--check" in sys.argv:
        check(heights)


main()
