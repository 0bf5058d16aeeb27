"""The known differences: where the formulas of a system are off in its area of use, by how much and why."""

import collections
import math

WAYS = {"forward": "to the grid", "inverse": "from the grid", "road": "from satellite positions"}
CONVERGENCE = "convergence"


def length_text(metres):
    """Two digits, rounded up, in millimetres or metres."""
    scale = 10.0 ** (1 - math.floor(math.log10(metres)))
    rounded = math.ceil(metres * scale - 1e-9) / scale
    return f"{rounded * 1000:.3g} mm" if rounded < 0.1 else f"{rounded:.6g} m"


class Differences:
    def __init__(self, path):
        self._rows = collections.defaultdict(list)
        for line in path.read_text(encoding="utf-8").splitlines() if path.exists() else []:
            if line and not line.startswith("#"):
                code, way, size, cause = line.split("\t")
                self._rows[int(code)].append((way, float(size), cause))

    def sentences(self, code):
        return [self._sentence(*row) for row in self._rows.get(code, ())]

    @staticmethod
    def _sentence(way, size, cause):
        if way == CONVERGENCE:
            return f"Grid convergence is off by up to {size:g} degrees in the area of use: {cause}."
        return f"Off by up to {length_text(size)} {WAYS[way]} in the area of use: {cause}."
