#include <cmath>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "base/text/Numbers.h"
#include "system/KnownRecords.h"
#include "system/Reading.h"

namespace {

/// 6000000 m is the module's own bound; one in kilometres or in feet lies outside.
constexpr NumberRange kSemiMajor = {6.0e6, 7.0e6, "a semi-major axis in metres, 6000000 to 7000000"};
constexpr NumberRange kSemiMinor = {5.9e6, 7.0e6, "a semi-minor axis in metres"};
constexpr NumberRange kEccSquared = {0.0, 0.02, "the squared eccentricity, 0.0067 or near it, 0 for a sphere"};
constexpr NumberRange kInverse = {100.0, 1e9, "the inverse flattening, 298 or near it"};
constexpr double kSameAxis = 1e-6;  // metres
constexpr double kSamePolar = 1e-3; // metres; published forms of one ellipsoid differ by their last digits

/// The forms in which the shape of an ellipsoid may be given.
struct Shape {
    const char* key;
    std::optional<double> eccSquared;
};

double PolarAxis(double a, double e2)
{
    return a * std::sqrt(1.0 - e2);
}

/// The squared eccentricity: the first form that is given; a fault for each that disagrees.
std::optional<double> EccSquaredOf(const JsonNode& node, double a)
{
    const auto e2 = node["squaredEccentricity"].Number(kEccSquared);
    const auto inverse = node["inverseFlattening"].Number(kInverse);
    const auto b = node["semiMinorAxis"].Number(kSemiMinor);
    const Shape shapes[] = {
        {"squaredEccentricity", e2},
        {"inverseFlattening", inverse ? std::optional((2.0 - 1.0 / *inverse) / *inverse) : std::nullopt},
        {"semiMinorAxis", b ? std::optional((a - *b) * (a + *b) / (a * a)) : std::nullopt}};
    const Shape* first = nullptr;
    for (const Shape& shape : shapes) {
        if (!shape.eccSquared) {
            continue;
        }
        if (*shape.eccSquared < 0.0) {
            node[shape.key].Fault("the semi-minor axis is above the semi-major axis; right is one below it, or equal");
        } else if (first == nullptr) {
            first = &shape;
        } else if (std::fabs(PolarAxis(a, *shape.eccSquared) - PolarAxis(a, *first->eccSquared)) > kSamePolar) {
            node[shape.key].Fault(fmt::format("disagrees with {}: the semi-minor axis would be {:.4f} m by this and "
                                              "{:.4f} m by that; leave one, or make them agree",
                                              first->key, PolarAxis(a, *shape.eccSquared),
                                              PolarAxis(a, *first->eccSquared)));
        }
    }
    return first == nullptr ? std::nullopt : first->eccSquared;
}

std::optional<EllipsoidParameters> KnownEllipsoid(const Reading& reading, const JsonNode& node,
                                                  const EllipsoidParameters& known)
{
    const auto a = node["semiMajorAxis"].Number(kSemiMajor);
    std::vector<std::string> differences;
    if (a && std::fabs(*a - known.a) > kSameAxis) {
        differences.push_back(Differs("semiMajorAxis", known.a));
    }
    const auto e2 = EccSquaredOf(node, known.a);
    if (e2 && std::fabs(PolarAxis(known.a, *e2) - known.SemiMinor()) > kSamePolar) {
        differences.push_back(known.e2 == 0.0 ? "it is a sphere there"
                                              : Differs("inverseFlattening", *known.InverseFlattening()));
    }
    if (!differences.empty()) {
        TakenFault(node, "ellipsoid", known.name, FileOfRecord(reading.session.Files(), kEllipsoidPrefix, known.name),
                   differences);
        return std::nullopt;
    }
    if (known.a < kSemiMajor.least) {
        node.Fault(fmt::format("the ellipsoid \"{}\" of the database has the semi-major axis {}; right is {}",
                               known.name, numbers::ToText(known.a), kSemiMajor.what));
        return std::nullopt;
    }
    return known;
}

} // namespace

std::optional<EllipsoidParameters> ReadEllipsoid(const Reading& reading, const JsonNode& node)
{
    if (!node.IsObjectOf({"name", "semiMajorAxis", "semiMinorAxis", "squaredEccentricity", "inverseFlattening"})) {
        return std::nullopt;
    }
    const auto name = reading.Name(node["name"], kEllipsoidPrefix);
    if (name) {
        if (const auto known = EllipsoidInDatabase(reading.session, *name)) {
            return KnownEllipsoid(reading, node, *known);
        }
    }
    const auto a = node["semiMajorAxis"].RequiredNumber(kSemiMajor);
    const bool shaped =
        node["squaredEccentricity"].Given() || node["inverseFlattening"].Given() || node["semiMinorAxis"].Given();
    if (!shaped) {
        node["inverseFlattening"].Complain(std::string(kInverse.what) +
                                           ", or semiMinorAxis, or squaredEccentricity: the database has no ellipsoid "
                                           "of this name");
    }
    const auto e2 = EccSquaredOf(node, a.value_or(kSemiMajor.least));
    if (!name || !a || !e2) {
        return std::nullopt;
    }
    reading.remarks.push_back(fmt::format("new ellipsoid \"{}\"", *name));
    return EllipsoidParameters{*name, *a, *e2};
}
