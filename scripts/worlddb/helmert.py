"""Similarity transformations in three dimensions: what EPSG publishes, and the same turned round exactly.

A published transformation is x' = T + M x with M = (1 + s)(I + [r]), [r] the matrix of three small rotations. The
module applies x' = T + (1 + s) R x instead, where R turns about y, then x, then z by full sines and cosines. To turn
a published one round, its matrix is inverted, the nearest rotation taken of that (its polar factor) and split in the
module's order; the translation then makes the middle of the area of use map exactly.
"""

import collections
import math

ARC_SECOND = math.pi / 180 / 3600

# Position vector rotations: metres, arc seconds, parts per million.
Helmert = collections.namedtuple("Helmert", "shift rotation ppm")
ZERO = Helmert((0.0,) * 3, (0.0,) * 3, 0.0)


def to_cartesian(ellipsoid, lat, lon):
    phi, lam = math.radians(lat), math.radians(lon)
    n = ellipsoid.a / math.sqrt(1 - ellipsoid.e2 * math.sin(phi) ** 2)
    return [n * math.cos(phi) * math.cos(lam), n * math.cos(phi) * math.sin(lam),
            n * (1 - ellipsoid.e2) * math.sin(phi)]


def multiply(m, v):
    return [sum(m[i][k] * v[k] for k in range(3)) for i in range(3)]


def product(a, b):
    return [[sum(a[i][k] * b[k][j] for k in range(3)) for j in range(3)] for i in range(3)]


def transpose(m):
    return [list(row) for row in zip(*m)]


def cofactors(m):
    return [[m[(i + 1) % 3][(j + 1) % 3] * m[(i + 2) % 3][(j + 2) % 3]
             - m[(i + 1) % 3][(j + 2) % 3] * m[(i + 2) % 3][(j + 1) % 3] for j in range(3)] for i in range(3)]


def determinant(m):
    return sum(m[0][j] * c for j, c in enumerate(cofactors(m)[0]))


def inverse(m):
    d = determinant(m)
    return [[v / d for v in row] for row in transpose(cofactors(m))]


def rotation_of(m):
    """The polar factor of m, by Newton's iteration (Higham 1986)."""
    q = m
    for _ in range(20):
        t = transpose(inverse(q))
        q = [[(q[i][j] + t[i][j]) / 2 for j in range(3)] for i in range(3)]
    return q


def rotation_matrix(rotation):
    """Position vector rotation about y, then x, then z, as the module turns; arc seconds."""
    x, y, z = (v * ARC_SECOND for v in rotation)
    my = [[math.cos(y), 0, math.sin(y)], [0, 1, 0], [-math.sin(y), 0, math.cos(y)]]
    mx = [[1, 0, 0], [0, math.cos(x), -math.sin(x)], [0, math.sin(x), math.cos(x)]]
    mz = [[math.cos(z), -math.sin(z), 0], [math.sin(z), math.cos(z), 0], [0, 0, 1]]
    return product(mz, product(mx, my))


def published_matrix(helmert):
    x, y, z = (v * ARC_SECOND for v in helmert.rotation)
    s = 1 + helmert.ppm * 1e-6
    return [[s, -s * z, s * y], [s * z, s, -s * x], [-s * y, s * x, s]]


def about_pivot(helmert, pivot):
    """Molodensky-Badekas as a plain Helmert: T' = T + P - (1 + s)(I + [r]) P."""
    turned = multiply(published_matrix(helmert), pivot)
    return helmert._replace(shift=tuple(t + p - q for t, p, q in zip(helmert.shift, pivot, turned)))


def fitted(matrix, start, end):
    """The module's form of x' = T + M x, rounded as it is stored: nearest rotation and scale of M, and the shift
    that takes the cartesian position `start` to `end` exactly."""
    scale = determinant(matrix) ** (1 / 3)
    q = rotation_of([[v / scale for v in row] for row in matrix])
    angles = (math.asin(q[2][1]), math.atan2(-q[2][0], q[2][2]), math.atan2(-q[0][1], q[1][1]))
    rotation = tuple(round(a / ARC_SECOND, 9) for a in angles)
    ppm = round((scale - 1) * 1e6, 9)
    turned = multiply(rotation_matrix(rotation), start)
    return Helmert(tuple(round(a - (1 + ppm * 1e-6) * b, 6) for a, b in zip(end, turned)), rotation, ppm)


def is_shift(helmert):
    return helmert.rotation == (0.0,) * 3 and helmert.ppm == 0.0


def inverted(helmert, middle):
    """`helmert`, published from the local datum, turned round; `middle` is cartesian, on the local datum."""
    if is_shift(helmert):
        return helmert._replace(shift=tuple(0.0 - t for t in helmert.shift))
    m = published_matrix(helmert)
    satellite = [a + b for a, b in zip(helmert.shift, multiply(m, middle))]
    return fitted(inverse(m), satellite, middle)


def as_published(helmert, middle):
    """`helmert`, published toward the local datum; `middle` is cartesian, on the satellite datum."""
    if is_shift(helmert):
        return helmert
    m = published_matrix(helmert)
    return fitted(m, middle, [a + b for a, b in zip(helmert.shift, multiply(m, middle))])
