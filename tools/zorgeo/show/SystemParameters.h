#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "Session.h"
#include "SystemOpener.h"

/// An ellipsoid with the digits of its record.
struct EllipsoidParameters {
    std::string name;
    double a = 0.0;  ///< metres
    double e2 = 0.0; ///< squared eccentricity

    double SemiMinor() const;
    /// None for a sphere.
    std::optional<double> InverseFlattening() const;
};

/// A datum transformation, satellite to local: rotations about Y, X and Z in this order, position
/// vector convention, then the scale, then the shift.
struct DatumParameters {
    std::string name;
    std::string method;
    std::string description;
    EllipsoidParameters source;
    EllipsoidParameters target;
    std::array<double, 3> shift{};     ///< metres
    std::array<double, 3> rotation{};  ///< arc seconds
    double scale = 0.0;                ///< parts per million
    std::array<double, 3> shiftRate{}; ///< of these three, a year
    std::array<double, 3> rotationRate{};
    double scaleRate = 0.0;
    double epoch = 0.0; ///< decimal year
    bool on = false;    ///< false: "No Transformation", positions pass unchanged
    bool moves = false; ///< rates that take effect
    bool fixedHeight = false;
    double fixedHeightForward = 0.0; ///< system units
    double fixedHeightReverse = 0.0;
};

/// One parameter of a projection, in the order of the catalogue.
struct ProjectionParameter {
    int index = -1;    ///< of projectionParamKeys
    std::string key;   ///< in the projection's record
    std::string label; ///< the catalogue's
    unsigned kind = 0; ///< the catalogue's: 1 longitude, 2 latitude, 3 length, 4 ratio, 5 angle, 6 text
    double value = 0.0;
    std::string text; ///< of a parameter that is a text
};

struct ProjectionParameters {
    std::string name;
    std::string method;
    int type = -1;
    std::vector<ProjectionParameter> all;

    /// The number under an index of projectionParamKeys; 0 when the method has no such parameter.
    double operator[](int index) const;
    /// The text under it; empty when there is none.
    std::string Text(int index) const;
};

struct HorizontalAdjust {
    double originX = 0.0;
    double originY = 0.0;
    double rotation = 0.0; ///< arc seconds, clockwise
    double scale = 1.0;
};

struct VerticalAdjust {
    double originX = 0.0;
    double originY = 0.0;
    double slopeX = 0.0; ///< parts per million
    double slopeY = 0.0;
};

struct PostParameters {
    std::string model; ///< empty: none in force
    std::string file;
    std::optional<std::array<double, 3>> shift;
    std::optional<HorizontalAdjust> horizontal;
    std::optional<VerticalAdjust> vertical;
};

struct GeoidParameters {
    std::string method; ///< empty: no geoid in force
    std::string grid;
    std::string chartDatum;
    std::optional<double> separation; ///< of the fixed one, system units
};

/// Everything that an opened system computes with, as it computes with it.
struct SystemParameters {
    std::string group;
    std::string system;
    bool custom = false; ///< it stands in the user database
    std::string description;
    std::string unitName;
    std::string unitSuffix;
    double metresPerUnit = 1.0;
    EllipsoidParameters ellipsoid; ///< of the projection
    DatumParameters datum;
    ProjectionParameters projection;
    GeoidParameters geoid;
    PostParameters post;
};

/// From the ready object; the files give the digits where it hands out less than it computes with
/// (squared eccentricities) or nothing (RD). Throws ToolError (3) when the two do not agree.
SystemParameters ReadSystem(Session& session, const OpenedSystem& opened);
