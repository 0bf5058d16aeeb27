#include "show/ProjPipeline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <fmt/format.h>

#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "show/ProjProjection.h"
#include "show/ProjStep.h"

namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;
constexpr double kSecondsPerDegree = 3600.0;
constexpr double kPartsPerMillion = 1e6;
constexpr double kHalfTurn = 180.0;

using Steps = std::vector<ProjStep>;

constexpr std::array<const char*, 3> kShift = {"x", "y", "z"};
constexpr std::array<const char*, 3> kShiftRate = {"dx", "dy", "dz"};
constexpr std::array<const char*, 3> kRotation = {"rx", "ry", "rz"};
constexpr std::array<const char*, 3> kRotationRate = {"drx", "dry", "drz"};

bool AnyOf(const std::array<double, 3>& values)
{
    return std::any_of(values.begin(), values.end(), [](double value) { return value != 0.0; });
}

bool Turns(const DatumParameters& datum, std::size_t axis)
{
    return datum.rotation[axis] != 0.0 || (datum.moves && datum.rotationRate[axis] != 0.0);
}

void AddRotation(ProjStep& step, const DatumParameters& datum, std::size_t axis)
{
    step.With(kRotation[axis], datum.rotation[axis]);
    if (datum.moves) {
        step.WithUnlessZero(kRotationRate[axis], datum.rotationRate[axis]);
    }
}

void AddShiftAndScale(ProjStep& step, const DatumParameters& datum)
{
    for (std::size_t i = 0; i < kShift.size(); ++i) {
        step.WithUnlessZero(kShift[i], datum.shift[i]);
        if (datum.moves) {
            step.WithUnlessZero(kShiftRate[i], datum.shiftRate[i]);
        }
    }
    step.WithUnlessZero("s", datum.scale);
    if (datum.moves) {
        step.WithUnlessZero("ds", datum.scaleRate);
    }
}

// PROJ turns about the axes in another order than the module, and turns by angles that are not small
// do not commute. So each axis has a step of its own, in the module's order Y, X, Z; scale and shift
// go with the last.
Steps Helmert(const DatumParameters& datum)
{
    constexpr std::array<std::size_t, 3> kOrder = {1, 0, 2};
    std::vector<std::size_t> axes;
    std::copy_if(kOrder.begin(), kOrder.end(), std::back_inserter(axes),
                 [&datum](std::size_t axis) { return Turns(datum, axis); });
    const bool scaled = datum.scale != 0.0 || (datum.moves && datum.scaleRate != 0.0);
    const bool shifted = AnyOf(datum.shift) || (datum.moves && AnyOf(datum.shiftRate));
    Steps steps(std::max<std::size_t>(axes.size(), scaled || shifted ? 1 : 0), ProjStep("helmert"));
    for (std::size_t i = 0; i < axes.size(); ++i) {
        AddRotation(steps[i], datum, axes[i]);
    }
    if (!steps.empty()) {
        AddShiftAndScale(steps.back(), datum);
    }
    for (ProjStep& step : steps) {
        if (datum.moves) {
            step.With("t_epoch", datum.epoch);
        }
        if (!axes.empty()) {
            step.With("convention", "position_vector").Flag("exact");
        }
    }
    return steps;
}

/// Satellite to local ellipsoid, radians and metres.
Steps DatumCore(const DatumParameters& datum)
{
    Steps steps = {ProjStep("cart").On(datum.source)};
    for (const ProjStep& step : Helmert(datum)) {
        steps.push_back(step);
    }
    steps.push_back(ProjStep("cart").Flag("inv").On(datum.target));
    return steps;
}

void Append(Steps& steps, const Steps& more, const char* oneWay)
{
    for (ProjStep step : more) {
        steps.push_back(step.Flag(oneWay));
    }
}

// The module takes the horizontal position at a fixed height, another one each way, and the height
// at the height that is given. Each direction has its own steps; backwards they run from the last to
// the first, and a push pops.
Steps DatumAtFixedHeights(const DatumParameters& datum, double metresPerUnit)
{
    const Steps core = DatumCore(datum);
    const Steps saveHorizontal = {ProjStep("push").Flag("v_1").Flag("v_2")};
    const Steps takeHorizontal = {ProjStep("pop").Flag("v_1").Flag("v_2")};
    const Steps saveHeight = {ProjStep("push").Flag("v_3")};
    const Steps takeHeight = {ProjStep("pop").Flag("v_3")};
    const Steps setForward = {ProjStep("set").With("v_3", datum.fixedHeightForward * metresPerUnit)};
    const Steps setBack = {ProjStep("set").With("v_3", datum.fixedHeightReverse * metresPerUnit)};
    Steps steps;
    for (const Steps* part : {&saveHorizontal, &core, &saveHeight, &takeHorizontal, &setForward, &core, &takeHeight}) {
        Append(steps, *part, "omit_inv");
    }
    for (const Steps* part : {&saveHeight, &core, &setBack, &saveHorizontal, &takeHeight, &core, &takeHorizontal}) {
        Append(steps, *part, "omit_fwd");
    }
    return steps;
}

Steps Datum(const SystemParameters& system)
{
    if (!system.datum.on) {
        return {};
    }
    return system.datum.fixedHeight ? DatumAtFixedHeights(system.datum, system.metresPerUnit) : DatumCore(system.datum);
}

ProjStep ToRadiansAndMetres(const SystemParameters& system)
{
    ProjStep step("unitconvert");
    step.With("xy_in", "deg").With("xy_out", "rad");
    if (system.metresPerUnit != 1.0) {
        step.With("z_in", system.metresPerUnit).With("z_out", "m");
    }
    return step;
}

ProjStep ToSystemUnit(const SystemParameters& system)
{
    return ProjStep("unitconvert")
        .With("xy_in", "m")
        .With("xy_out", system.metresPerUnit)
        .With("z_in", "m")
        .With("z_out", system.metresPerUnit);
}

/// A turn of `degrees` counterclockwise and a scale, then a shift.
ProjStep Affine(double degrees, double scale, double shiftX, double shiftY)
{
    // Half a turn has no sine, whatever the digits of pi.
    const bool half = std::fabs(degrees) == kHalfTurn;
    const double c = half ? -1.0 : std::cos(degrees * kRadiansPerDegree);
    const double s = half ? 0.0 : std::sin(degrees * kRadiansPerDegree);
    ProjStep step("affine");
    step.WithUnlessZero("xoff", shiftX).WithUnlessZero("yoff", shiftY);
    if (degrees != 0.0 || scale != 1.0) {
        step.With("s11", c * scale).With("s12", -s * scale).With("s21", s * scale).With("s22", c * scale);
    }
    return step;
}

// Shifts and the horizontal adjust: a rotation is clockwise, about its origin, and the shift comes after.
void AppendHorizontal(const PostParameters& post, Steps& steps)
{
    const std::array<double, 3> shift = post.shift.value_or(std::array<double, 3>{});
    const HorizontalAdjust adjust = post.horizontal.value_or(HorizontalAdjust{});
    const double angle = -adjust.rotation / kSecondsPerDegree;
    const double c = std::cos(angle * kRadiansPerDegree) * adjust.scale;
    const double s = std::sin(angle * kRadiansPerDegree) * adjust.scale;
    const double offX = shift[0] + (adjust.originX - (c * adjust.originX - s * adjust.originY));
    const double offY = shift[1] + (adjust.originY - (s * adjust.originX + c * adjust.originY));
    if (offX != 0.0 || offY != 0.0 || angle != 0.0 || adjust.scale != 1.0) {
        steps.push_back(Affine(angle, adjust.scale, offX, offY));
    }
}

void AppendVertical(const PostParameters& post, Steps& steps)
{
    const double shift = post.shift ? (*post.shift)[2] : 0.0;
    const VerticalAdjust adjust = post.vertical.value_or(VerticalAdjust{});
    const double slopeX = adjust.slopeX / kPartsPerMillion;
    const double slopeY = adjust.slopeY / kPartsPerMillion;
    const double off = shift - adjust.originX * slopeX - adjust.originY * slopeY;
    if (off != 0.0 || slopeX != 0.0 || slopeY != 0.0) {
        steps.push_back(
            ProjStep("affine").WithUnlessZero("zoff", off).WithUnlessZero("s31", slopeX).WithUnlessZero("s32", slopeY));
    }
}

// With a fixed separation the height above the geoid is the satellite height less the separation,
// whatever the datum makes of heights; and on the way back the datum is given that height as it is.
void AppendSeparation(const SystemParameters& system, Steps& steps)
{
    if (system.geoid.separation) {
        const double separation = *system.geoid.separation;
        steps.push_back(ProjStep("affine").With("zoff", separation).Flag("omit_fwd"));
        steps.push_back(ProjStep("pop").Flag("v_3"));
        steps.push_back(ProjStep("affine").With("zoff", -separation));
    }
}

Steps Road(const SystemParameters& system)
{
    Steps steps = {ProjStep("axisswap").With("order", "2,1")};
    if (system.geoid.separation) {
        steps.push_back(ProjStep("push").Flag("v_3")); // in system units
    }
    steps.push_back(ToRadiansAndMetres(system));
    for (const ProjStep& step : Datum(system)) {
        steps.push_back(step);
    }
    const ProjProjection projection = InProj(system);
    steps.push_back(projection.step);
    if (system.metresPerUnit != 1.0) {
        steps.push_back(ToSystemUnit(system));
    }
    if (projection.skew != 0.0) {
        steps.push_back(Affine(projection.skew, 1.0, system.projection[ProjectionKey::falseEasting],
                               system.projection[ProjectionKey::falseNorthing]));
    }
    AppendSeparation(system, steps);
    AppendHorizontal(system.post, steps);
    AppendVertical(system.post, steps);
    return steps;
}

void RefuseModels(const SystemParameters& system)
{
    if (!system.geoid.method.empty() && !system.geoid.separation) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("the geoid model \"{}\" has its own reader here, and a pipeline would not give its "
                                    "heights; to export the rest: --geoid-model=--None--",
                                    system.geoid.method));
    }
    if (!system.post.model.empty()) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("the post correction model \"{}\" has its own reader here, and a pipeline would "
                                    "not give its corrections; to export the rest: --post-model=--None--",
                                    system.post.model));
    }
}

} // namespace

SystemExport MakeProjPipeline(const SystemParameters& system)
{
    RefuseModels(system);
    SystemExport out;
    out.text = "+proj=pipeline\n";
    for (const ProjStep& step : Road(system)) {
        out.text += "  +step " + step.Text() + "\n";
    }
    out.remarks = DifferencesFromProj(system.projection);
    if (system.datum.moves) {
        out.remarks.push_back(fmt::format("the datum moves: give each position its decimal year as the fourth "
                                          "coordinate; without one PROJ takes {}",
                                          system.datum.epoch));
    }
    if (system.datum.fixedHeight) {
        out.remarks.emplace_back("the fixed heights of the datum need PROJ 9.1 or later (its operation \"set\")");
    }
    return out;
}
