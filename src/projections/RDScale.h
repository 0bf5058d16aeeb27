#pragma once

/// The scale of the Dutch grid, for both of its classes.
namespace RDScale {

/// The scale factor at the distances (metres) from the false origin.
inline double Point(double dE, double dN)
{
    // Kept: the scale factor at the centre and 4 R^2 in square kilometres as fixed numbers, whatever
    // the record says; Dutch surveys are reduced with these.
    constexpr double kCentralScale = 0.9999079;
    constexpr double kFourSquaredRadii = 1.63e8;
    const double x = dE / 1000.0;
    const double y = dN / 1000.0;
    return (y * y + x * x) / kFourSquaredRadii + kCentralScale;
}

} // namespace RDScale
