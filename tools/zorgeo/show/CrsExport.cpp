#include "show/CrsExport.h"

#ifdef ZORGEO_WITH_PROJ
#include <proj.h>
#endif

#include <algorithm>
#include <array>
#include <memory>

#include <fmt/format.h>

#include "ToolError.h"
#include "show/CrsJson.h"
#include "show/ProjProjection.h"

namespace {

#ifdef ZORGEO_WITH_PROJ

/// What PROJ told last; its own printing is off.
struct LastMessage {
    static void Take(void* at, int, const char* text) { *static_cast<std::string*>(at) = text; }
};

std::string Written(const std::string& definition, CrsNotation notation)
{
    const std::unique_ptr<PJ_CONTEXT, PJ_CONTEXT* (*)(PJ_CONTEXT*)> context(proj_context_create(),
                                                                            proj_context_destroy);
    std::string message;
    proj_log_func(context.get(), &message, LastMessage::Take);
    const std::unique_ptr<PJ, PJ* (*)(PJ*)> crs(proj_create(context.get(), definition.c_str()), proj_destroy);
    const char* text = nullptr;
    if (crs) {
        constexpr const char* kLines[] = {"MULTILINE=YES", "INDENTATION_WIDTH=2", nullptr};
        text = notation == CrsNotation::wkt2 ? proj_as_wkt(context.get(), crs.get(), PJ_WKT2_2019, kLines)
                                             : proj_as_projjson(context.get(), crs.get(), kLines);
    }
    if (text == nullptr) {
        throw ToolError(ExitStatus::unusable, fmt::format("PROJ {} does not take this system: {}", proj_info().release,
                                                          message.empty() ? "no reason given" : message));
    }
    return std::string(text) + "\n";
}

#else

std::string Written(const std::string&, CrsNotation)
{
    throw ToolError(ExitStatus::unusable, "this zorgeo was built without PROJ, whose writers make WKT 2 and PROJJSON; "
                                          "--as proj and --as json need none");
}

#endif

constexpr int kSeriesTypes = 1; // Transverse Mercator and UTM

/// The types that count longitudes from the origin as they come.
constexpr std::array<int, 6> kUnfolded = {2, 4, 7, 9, 13, 14};

} // namespace

SystemExport MakeCrs(const SystemParameters& system, CrsNotation notation)
{
    SystemExport out;
    out.text = Written(CrsJson(system).dump(), notation);
    if (system.projection.type <= kSeriesTypes) {
        out.remarks.emplace_back(
            "farther than 5 degrees from the central meridian the module's series leaves the exact "
            "projection, which PROJ computes: 0.9 mm at 6 degrees (1.6 mm from the grid), 35 mm "
            "at 10 (95 mm)");
    } else {
        out.remarks = DifferencesFromProj(system.projection);
    }
    if (std::find(kUnfolded.begin(), kUnfolded.end(), system.projection.type) != kUnfolded.end()) {
        out.remarks.emplace_back(
            "more than 180 degrees of longitude from the origin, counted without folding, the module "
            "goes on and PROJ goes round the other way");
    }
    return out;
}
