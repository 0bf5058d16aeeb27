#include "projections/ProjectionFactory.h"

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

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

std::unique_ptr<CProjection> Make(std::uint32_t type)
{
    return std::unique_ptr<CProjection>(ProjectionFactory::CreateProjectionByType(type));
}

template <class C>
void ExpectMakes(std::uint32_t type)
{
    const std::unique_ptr<CProjection> projection = Make(type);
    ASSERT_NE(projection, nullptr) << type;
    const CProjection& made = *projection;
    EXPECT_EQ(typeid(made), typeid(C)) << type;
    EXPECT_EQ(projection->GetType(), static_cast<std::int32_t>(type));
}

TEST(ProjectionFactory, MakesTheClassOfEachType)
{
    ExpectMakes<CTMprj>(0);
    ExpectMakes<CUTMprj>(1);
    ExpectMakes<RDProjection>(2);
    ExpectMakes<CLambert2Pprj>(3);
    ExpectMakes<CMERprj>(4);
    ExpectMakes<CStereographic>(7);
    ExpectMakes<CCassini_Soldner>(8);
    ExpectMakes<HOMAProjection>(9);
    ExpectMakes<CLambert1Pprj>(12);
    ExpectMakes<HOMBProjection>(13);
    ExpectMakes<PolyconicProjection>(14);
    ExpectMakes<UniversalPolarStereographic>(15);
}

TEST(ProjectionFactory, GivesNullForTypesWithoutClass)
{
    for (const std::uint32_t type : {5U, 6U, 10U, 11U}) {
        EXPECT_EQ(Make(type), nullptr) << type;
    }
}

TEST(ProjectionFactory, GivesNullAbove15)
{
    for (const std::uint32_t type : {16U, 17U, 255U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        EXPECT_EQ(Make(type), nullptr) << type;
    }
}

TEST(ProjectionFactory, IsAClassThatCanBeDerived)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<ProjectionFactory>);
    EXPECT_EQ(sizeof(ProjectionFactory), sizeof(void*)) << "no state";
}

} // namespace
