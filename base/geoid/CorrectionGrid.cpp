#include "base/geoid/CorrectionGrid.h"

CorrectionGrid::~CorrectionGrid() = default;

std::optional<double> CorrectionGrid::HeightAt(const Place&) const
{
    return {};
}

std::optional<PlaneShift> CorrectionGrid::GeoShiftAt(double, double, bool) const
{
    return {};
}

std::optional<PlaneShift> CorrectionGrid::GridShiftAt(double, double, bool) const
{
    return {};
}
