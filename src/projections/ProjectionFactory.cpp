#include "projections/ProjectionFactory.h"

#include <array>
#include <new>

#include "projections/CCassini_Soldner.h"
#include "projections/CLambert1Pprj.h"
#include "projections/CLambert2Pprj.h"
#include "projections/CMERprj.h"
#include "projections/CStereographic.h"
#include "projections/CTMprj.h"
#include "projections/CUTMprj.h"
#include "projections/HOMAProjection.h"
#include "projections/HOMBProjection.h"
#include "projections/PolyconicProjection.h"
#include "projections/RDProjection.h"
#include "projections/UniversalPolarStereographic.h"

namespace {

using Maker = CProjection* (*)();

template <class C>
CProjection* Make()
{
    return new (std::nothrow) C;
}

constexpr Maker kNoClass = nullptr; // a name without formulas

// By type number.
constexpr std::array<Maker, 16> kMakers = {
    Make<CTMprj>,                      // 0
    Make<CUTMprj>,                     // 1
    Make<RDProjection>,                // 2
    Make<CLambert2Pprj>,               // 3
    Make<CMERprj>,                     // 4
    kNoClass,                          // 5 Azimuthal
    kNoClass,                          // 6 Gnomonic
    Make<CStereographic>,              // 7
    Make<CCassini_Soldner>,            // 8
    Make<HOMAProjection>,              // 9
    kNoClass,                          // 10 Laborde
    kNoClass,                          // 11 New Zealand Map Grid
    Make<CLambert1Pprj>,               // 12
    Make<HOMBProjection>,              // 13
    Make<PolyconicProjection>,         // 14
    Make<UniversalPolarStereographic>, // 15
};

} // namespace

ProjectionFactory::~ProjectionFactory() = default;

CProjection* ProjectionFactory::CreateProjectionByType(std::uint32_t type)
{
    if (type >= kMakers.size() || !kMakers[type]) {
        return nullptr;
    }
    return kMakers[type]();
}
