#pragma once

#include <iomanip>
#include <memory>
#include <sstream>
#include <string>

#include "tests/support/PlainHotine.h"
#include "tests/support/ProjectionRecord.h"

/// An oblique Mercator grid in use, by the parameters of its registry entry.
struct HotineSystem {
    const char* name;
    char variant; ///< 'A' or 'B'
    EllipsoidShape shape;
    double unit; ///< metres
    double phic, lambdac, alphac, gammac, k0, FE, FN;
    double south, north, west, east; ///< area of use

    friend void PrintTo(const HotineSystem& system, std::ostream* stream) { *stream << system.name; }

    ProjectionRecord Record() const
    {
        const bool a = variant == 'A';
        return ProjectionRecord(
            {{3, phic}, {4, lambdac}, {a ? 5 : 20, FE}, {a ? 6 : 21, FN}, {7, k0}, {22, gammac}, {17, alphac}});
    }
    std::unique_ptr<CProjection> Load() const { return Loaded(variant == 'A' ? 9 : 13, shape, Record()); }

    /// An initial line to the east is the double projection of the Swiss, mathematically the same:
    /// PROJ's omerc there takes the arcsine of a number one bit below 1, and is off by 0.1 m.
    std::string Proj() const
    {
        std::ostringstream text;
        text << std::setprecision(17);
        if (variant == 'B' && alphac == 90.0) {
            text << "+proj=somerc +lon_0=" << lambdac;
        } else {
            text << "+proj=omerc" << (variant == 'A' ? " +no_uoff" : "") << " +lonc=" << lambdac << " +alpha=" << alphac
                 << " +gamma=" << gammac;
        }
        text << " +lat_0=" << phic << " +k_0=" << k0 << " +x_0=" << FE * unit << " +y_0=" << FN * unit
             << " +a=" << shape.a << " +es=" << shape.e2 << " +to_meter=" << unit;
        return text.str();
    }

    plain::Hotine Plain() const
    {
        plain::Hotine steps;
        steps.variant = variant;
        steps.a = shape.a / unit;
        steps.e2 = shape.e2;
        steps.phic = phic;
        steps.lambdac = lambdac;
        steps.alphac = alphac;
        steps.gammac = gammac;
        steps.k0 = k0;
        steps.FE = FE;
        steps.FN = FN;
        steps.Prepare();
        return steps;
    }
};

inline constexpr double kUsFoot = 1200.0 / 3937.0;

constexpr double SquaredEccentricity(double inverseFlattening)
{
    return (2.0 - 1.0 / inverseFlattening) / inverseFlattening;
}

// Parameters: EPSG registry, codes in the names.
inline const HotineSystem kHotineSystems[] = {
    {"Kertau (RSO) / RSO Malaya (m), 3168",
     'A',
     {6377295.664, SquaredEccentricity(300.8017)},
     1.0,
     4.0,
     102.25,
     323.0257905,
     323.13010236111114,
     0.99984,
     804670.24,
     0.0,
     1.0,
     7.0,
     99.0,
     105.0},
    {"GDM2000 / Peninsula RSO, 3375", 'A', kGrs80, 1.0, 4.0, 102.25, 323.0257964666666, 323.13010236111114, 0.99984,
     804671.0, 0.0, 1.0, 7.0, 98.0, 106.0},
    {"NAD83 / Alaska zone 1, 26931", 'A', kGrs80, 1.0, 57.0, -133.66666666666666, 323.13010236111114,
     323.13010236111114, 0.9999, 5000000.0, -5000000.0, 54.0, 61.0, -142.0, -129.0},
    {"NAD27 / Alaska zone 1, 26731", 'A', kClarke1866, kUsFoot, 57.0, -133.66666666666666, 323.13010236111114,
     323.13010236111114, 0.9999, 16404166.67, -16404166.67, 54.0, 61.0, -142.0, -129.0},
    {"NAD83 / Michigan Oblique Mercator, 3078", 'A', kGrs80, 1.0, 45.30916666666666, -86.0, 337.25556, 337.25556,
     0.9996, 2546731.496, -4354009.816, 41.0, 49.0, -91.0, -82.0},
    {"NAD83(2011) / Oregon Coast (ft), 6841", 'A', kGrs80, 0.3048, 44.75, -124.05, 5.0, 5.0, 1.0, -984251.9685,
     -15091863.5171, 41.8, 46.4, -125.0, -123.0},
    {"Timbalai 1948 / RSO Borneo (m), 29873",
     'B',
     {6377298.556, SquaredEccentricity(300.8017)},
     1.0,
     4.0,
     115.0,
     53.31582047222222,
     53.13010236111111,
     0.99984,
     590476.87,
     442857.65,
     0.0,
     8.0,
     109.0,
     120.0},
    {"CH1903+ / LV95, 2056",
     'B',
     {6377397.155, SquaredEccentricity(299.1528128)},
     1.0,
     46.95240555555556,
     7.439583333333333,
     90.0,
     90.0,
     1.0,
     2600000.0,
     1200000.0,
     45.5,
     48.0,
     5.5,
     11.0},
    {"HD72 / EOV, 23700",
     'B',
     {6378160.0, SquaredEccentricity(298.247167427)},
     1.0,
     47.14439372222222,
     19.04857177777778,
     90.0,
     90.0,
     0.99993,
     650000.0,
     200000.0,
     45.5,
     49.0,
     16.0,
     23.0},
    {"NAD83(2011) / PCCS zone 1 (ft), 8065", 'B', kGrs80, 0.3048, 32.25, -111.4, 45.0, 45.0, 1.00011, 160000.0,
     800000.0, 31.0, 33.0, -113.0, -110.0},
    {"Rassadiran / Nakhl e Taqi, 2057",
     'B',
     {6378388.0, SquaredEccentricity(297.0)},
     1.0,
     27.51882880555555,
     52.60353916666667,
     0.5716611944444444,
     0.5716611944444444,
     0.999895934,
     658377.437,
     3044969.194,
     27.0,
     28.0,
     52.0,
     53.0},
    {"Tananarive / Laborde Grid approximation, 29702",
     'B',
     {6378388.0, SquaredEccentricity(297.0)},
     1.0,
     -18.9,
     46.43722916666667,
     18.9,
     18.9,
     0.9995,
     400000.0,
     800000.0,
     -26.0,
     -11.0,
     43.0,
     51.0},
};
