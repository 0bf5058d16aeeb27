#include "show/LinearDatum.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>; // rows

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;
constexpr double kSecondsPerRadian = 3600.0 / kRadiansPerDegree;
constexpr double kPartsPerMillion = 1e6;
constexpr double kStep = 10.0; // degrees between the places looked at

double Dot(const Vector& a, const Vector& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector Applied(const Matrix& m, const Vector& v)
{
    return {Dot(m[0], v), Dot(m[1], v), Dot(m[2], v)};
}

Matrix Times(const Matrix& a, const Matrix& b)
{
    Matrix product{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            product[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
        }
    }
    return product;
}

Matrix Transposed(const Matrix& m)
{
    return {{{m[0][0], m[1][0], m[2][0]}, {m[0][1], m[1][1], m[2][1]}, {m[0][2], m[1][2], m[2][2]}}};
}

/// The rotation of the stored direction: about Y, then X, then Z, position vector.
Matrix Rotation(const DatumParameters& datum)
{
    const auto angle = [&datum](std::size_t axis) { return datum.rotation[axis] / kSecondsPerRadian; };
    const double cx = std::cos(angle(0));
    const double sx = std::sin(angle(0));
    const double cy = std::cos(angle(1));
    const double sy = std::sin(angle(1));
    const double cz = std::cos(angle(2));
    const double sz = std::sin(angle(2));
    const Matrix X = {{{1.0, 0.0, 0.0}, {0.0, cx, -sx}, {0.0, sx, cx}}};
    const Matrix Y = {{{cy, 0.0, sy}, {0.0, 1.0, 0.0}, {-sy, 0.0, cy}}};
    const Matrix Z = {{{cz, -sz, 0.0}, {sz, cz, 0.0}, {0.0, 0.0, 1.0}}};
    return Times(Z, Times(X, Y));
}

// r: the vector of which I + [r] has the rotation `q` for its polar factor. With theta the angle of
// q, its direction is the axis and its length tan(theta); cos(theta) = (trace - 1) / 2.
Vector SmallAngles(const Matrix& q)
{
    const double cosine = (q[0][0] + q[1][1] + q[2][2] - 1.0) / 2.0;
    return {(q[2][1] - q[1][2]) / 2.0 / cosine, (q[0][2] - q[2][0]) / 2.0 / cosine, (q[1][0] - q[0][1]) / 2.0 / cosine};
}

Vector OnEllipsoid(const EllipsoidParameters& ellipsoid, double latitude, double longitude)
{
    const double phi = latitude * kRadiansPerDegree;
    const double lambda = longitude * kRadiansPerDegree;
    const double nu = ellipsoid.a / std::sqrt(1.0 - ellipsoid.e2 * std::sin(phi) * std::sin(phi));
    return {nu * std::cos(phi) * std::cos(lambda), nu * std::cos(phi) * std::sin(lambda),
            nu * (1.0 - ellipsoid.e2) * std::sin(phi)};
}

double Distance(const Vector& a, const Vector& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

} // namespace

// q rotation local to satellite, k the module's scale satellite to local, m the matrix (I + [r]).
LinearDatum TurnedRound(const DatumParameters& datum)
{
    const Matrix q = Transposed(Rotation(datum));
    const double k = 1.0 + datum.scale / kPartsPerMillion;
    const Vector r = SmallAngles(q);
    const Matrix m = {{{1.0, -r[2], r[1]}, {r[2], 1.0, -r[0]}, {-r[1], r[0], 1.0}}};
    LinearDatum linear;
    const Vector turned = Applied(q, datum.shift);
    for (std::size_t i = 0; i < 3; ++i) {
        linear.shift[i] = -turned[i] / k;
        linear.rotation[i] = r[i] * kSecondsPerRadian;
    }
    linear.scale = (1.0 / k - 1.0) * kPartsPerMillion;
    for (double latitude = -90.0; latitude <= 90.0; latitude += kStep) {
        for (double longitude = -180.0; longitude < 180.0; longitude += kStep) {
            const Vector local = OnEllipsoid(datum.target, latitude, longitude);
            const Vector mapped = Applied(m, local);
            // Scale and shift agree and are left out.
            const Vector exact = Applied(q, local);
            const Vector back = Applied(Transposed(m), exact);
            linear.largestMiss = std::max({linear.largestMiss, Distance(mapped, exact), Distance(back, local)});
        }
    }
    return linear;
}
