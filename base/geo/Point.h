#pragma once

/// Three doubles, cartesian metres where nothing else is said.
struct Point {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    Point() = default;
    Point(double px, double py, double pz) : x(px), y(py), z(pz) {}
};
