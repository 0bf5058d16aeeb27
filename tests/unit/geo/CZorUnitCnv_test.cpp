#include "base/geo/CZorUnitCnv.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

bool SetRotation(CZorUnitCnv& converter, double factor, double offset = 0.0)
{
    return converter.SetUnit(CZorUnitCnv::datumRotation, factor, offset, L"Datum Transformation Rotation Units", L"",
                             L"\"");
}

} // namespace

TEST(CZorUnitCnv, ACategoryWithoutAUnitLeavesTheValue)
{
    const CZorUnitCnv converter;
    EXPECT_EQ(converter.ConvertUnit(28, 1.25), 1.25);
    EXPECT_EQ(converter.ConvertUnit(-1, 1.25), 1.25);
}

TEST(CZorUnitCnv, MultipliesThenAdds)
{
    CZorUnitCnv converter;
    EXPECT_TRUE(converter.SetUnit(3, 1.8, 32.0, L"Temperature", L"Fahrenheit", L"F"));
    EXPECT_DOUBLE_EQ(converter.ConvertUnit(3, 100.0), 212.0);
    EXPECT_EQ(converter.ConvertUnit(4, 100.0), 100.0);
}

TEST(CZorUnitCnv, TheLastSettingOfACategoryHolds)
{
    CZorUnitCnv converter;
    EXPECT_TRUE(SetRotation(converter, -1.0));
    EXPECT_EQ(converter.ConvertUnit(28, 0.408), -0.408);
    EXPECT_TRUE(SetRotation(converter, 1.0));
    EXPECT_EQ(converter.ConvertUnit(28, 0.408), 0.408);
}

TEST(CZorUnitCnv, RefusesAUnitThatCannotBeShownAndKeepsTheEarlier)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    CZorUnitCnv converter;
    ASSERT_TRUE(SetRotation(converter, -1.0));
    for (const double factor : {0.0, -0.0, kInfinity, kNaN}) {
        EXPECT_FALSE(SetRotation(converter, factor)) << factor;
    }
    for (const double offset : {kInfinity, kNaN}) {
        EXPECT_FALSE(SetRotation(converter, 2.0, offset)) << offset;
    }
    EXPECT_FALSE(converter.SetUnit(-1, 2.0, 0.0, L"", L"", L""));
    EXPECT_EQ(converter.ConvertUnit(28, 2.0), -2.0);
    EXPECT_EQ(converter.ConvertUnit(-1, 2.0), 2.0);
}

TEST(StaticFormats, HasOneConverterForTheProcess)
{
    EXPECT_EQ(&StaticFormats::GetUnitCnv(), &StaticFormats::GetUnitCnv());
    ASSERT_TRUE(SetRotation(StaticFormats::GetUnitCnv(), -1.0));
    EXPECT_EQ(StaticFormats::GetUnitCnv().ConvertUnit(28, 3.0), -3.0);
}
