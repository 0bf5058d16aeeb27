// Prints the list of known differences: every system measured over its whole area of use.
//
// measure_differences > data/known-differences.tsv
//
// Sizes are metres, of convergence degrees, rounded up to two digits. Run it after the database was made anew, then
// make the database once more: descriptions state what the list says.

#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>

#include "SystemDifferences.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"
#include "tests/support/TempDirectory.h"

namespace {

constexpr double kMillimetre = 1e-3;
constexpr double kConvergence = 0.01; // degrees

struct Cause {
    const char* kind; // how the name of the method begins
    const char* way;
    const char* text;
};

// The first that fits.
constexpr Cause kCauses[] = {
    {"Transverse Mercator", "convergence", "first order in the distance from the central meridian"},
    {"Universal Transverse", "convergence", "first order in the distance from the central meridian"},
    {"Transverse Mercator", "", "far from the central meridian, where the series of the method end"},
    {"Universal Transverse", "", "far from the central meridian, where the series of the method end"},
    {"Lambert", "inverse", "the latitude is found by two Newton steps"},
    {"Mercator", "forward",
     "longitudes are not folded, and positions beyond 180 degrees from the longitude of origin are a whole turn off"},
    {"Stereographic", "inverse", "tan(j) / 2 in the place of tan(j / 2) in the latitude"},
    {"Stereographic", "convergence", "first order in the distance from the origin"},
    {"RD", "convergence", "first order in the distance from the origin"},
    {"Cassini_Soldner, Meters, turned", "convergence", "the horizontal adjust of 180 degrees is not in it"},
    {"Cassini", "convergence", "by a second of latitude through the inverse, whose series end"},
    {"Cassini", "forward", "the tangent in the place of its square in the northing"},
    {"Cassini", "inverse", "the series end with the fourth power of the distance"},
    {"Polyconic", "inverse", "the latitude is that before the last correction"},
    {"Hotine Oblique Mercator(A)", "convergence", "the logarithm of a constant is added where it should be taken off"},
};

const char* CauseOf(const WorldSystem& system, const std::string& way)
{
    for (const Cause& cause : kCauses) {
        if (system.kind.rfind(cause.kind, 0) == 0 && (*cause.way == '\0' || way == cause.way)) {
            return cause.text;
        }
    }
    return "UNEXPLAINED";
}

// Two digits, rounded up; a little beyond that would round to the size itself.
double RoundedUp(double size)
{
    const double unit = std::pow(10.0, std::floor(std::log10(size)) - 1.0);
    return std::ceil(size / unit * (1.0 + 1e-6)) * unit;
}

void Print(const WorldSystem& system, const char* way, double size, double allowed)
{
    if (size > allowed) {
        std::printf("%d\t%s\t%.6g\t%s\n", system.code, way, RoundedUp(size), CauseOf(system, way));
    }
}

} // namespace

int main()
{
    TempDirectory user;
    FileObject project;
    DataSearch& directories = DataSearch::GetDataSearch();
    directories.SetDataPath(DataSearch::deliveredDatabase, CString::FromUtf8(ZORGEO_DATA_DIR));
    directories.SetDataPath(DataSearch::userDatabase, user.Directory());
    ZorGeoUtility::Get().Fill();
    project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 0.0, true);
    const std::unique_ptr<PJ_CONTEXT, PJ_CONTEXT* (*)(PJ_CONTEXT*)> context(proj_context_create(),
                                                                            proj_context_destroy);
    std::printf("# EPSG code\tway\tlargest difference from PROJ in the area of use, m or degrees\tcause\n");
    for (const WorldSystem& system : ReadWorldSystems()) {
        if (system.code == 0) {
            continue;
        }
        try {
            const auto measured = Measure(system, Places::everywhere, context.get(), project);
            if (!measured) {
                std::cerr << "EPSG " << system.code << " does not initialise\n";
                continue;
            }
            Print(system, "forward", measured->forward, kMillimetre);
            Print(system, "inverse", measured->inverse, kMillimetre);
            Print(system, "road", measured->road - measured->forward, kMillimetre);
            Print(system, "convergence", measured->convergence, kConvergence);
        } catch (const std::exception& error) {
            std::cerr << "EPSG " << system.code << ": " << error.what() << "\n";
        }
    }
    return 0;
}
