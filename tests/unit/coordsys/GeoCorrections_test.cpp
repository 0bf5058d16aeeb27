#include "coordsys/GeoCorrections.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/TestGeoidModels.h"

namespace {

struct Grid {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

Grid Post(const GeoCorrections& corrections, const Grid& in, bool inverse)
{
    Grid out;
    corrections.PostXYZ(in.x, in.y, in.z, out.x, out.y, out.z, inverse);
    return out;
}

} // namespace

TEST(GeoCorrections, StartWithoutEffect)
{
    const GeoCorrections corrections;
    EXPECT_EQ(corrections.geoidType, -1);
    EXPECT_EQ(corrections.postType, -1);
    EXPECT_EQ(corrections.horScale, 1.0);
    EXPECT_EQ(corrections.horCos, 1.0);
    const Grid out = Post(corrections, {1.0, 2.0, 3.0}, false);
    EXPECT_EQ(out.x, 1.0);
    EXPECT_EQ(out.y, 2.0);
    EXPECT_EQ(out.z, 3.0);
    double height = 7.0;
    CString message;
    EXPECT_FALSE(corrections.GeoidHeight(52.0, 5.0, 0.0, 0.0, height, message));
    EXPECT_EQ(height, 7.0);
}

TEST(GeoCorrections, ModelTypeIsThePlaceOfTheNameInAnyCase)
{
    struct Case {
        const wchar_t* name;
        int type;
    };
    for (const Case& row : {Case{L"OSGM", 2}, Case{L"osgm", 2}, Case{L"Grid Model", 3}, Case{L"EGM2008", 8},
                            Case{L"None", -1}, Case{L"Manual", -1}, Case{L"", -1}, Case{L"OSGM02", -1}}) {
        EXPECT_EQ(GeoCorrections::ModelType(row.name), row.type) << CString(row.name).ToUtf8();
    }
    EXPECT_EQ(GeoCorrections::ModelType(GeoidmodelTypeKeys[31]), 31);
}

TEST(GeoCorrections, OldNamesOfGeoidModelsAreTaken)
{
    TestGeoidSettings grid;
    TestGeoidSettings swen;
    const ScopedGeoidModel<3> gridModel(grid);
    const ScopedGeoidModel<6> swenModel(swen);
    GeoCorrections corrections;
    EXPECT_TRUE(corrections.CreateGeoidModel(L"Grid Model Geoid Model", nullptr));
    EXPECT_EQ(corrections.geoidType, 3);
    EXPECT_EQ(corrections.geoidModelName, L"Grid Model Geoid Model");
    EXPECT_EQ(grid.calls->inits.size(), 1u);
    EXPECT_TRUE(corrections.CreateGeoidModel(L"Sweden Swen01l", nullptr));
    EXPECT_EQ(corrections.geoidType, 6);
    EXPECT_EQ(grid.calls->destroyed, 1);
    EXPECT_FALSE(corrections.CreateGeoidModel(L"sweden swen01l", nullptr)) << "old names count in exact case";
}

TEST(GeoCorrections, UnknownGeoidModelKeepsTheEarlierOne)
{
    TestGeoidSettings settings = ConstantGeoid(40.0);
    const ScopedGeoidModel<7> egm96(settings);
    GeoCorrections corrections;
    corrections.manualGeoid = true;
    EXPECT_TRUE(corrections.CreateGeoidModel(L"egm96", nullptr));
    EXPECT_FALSE(corrections.manualGeoid);
    EXPECT_FALSE(corrections.CreateGeoidModel(L"no such model", nullptr));
    EXPECT_EQ(corrections.geoidType, -1);
    double height = 0.0;
    CString message;
    EXPECT_TRUE(corrections.GeoidHeight(52.0, 5.0, 0.0, 0.0, height, message));
    EXPECT_EQ(settings.calls->destroyed, 0);
    const ScopedNoGeoidModel<30> noReader;
    EXPECT_FALSE(corrections.CreateGeoidModel(GeoidmodelTypeKeys[30], nullptr)) << "a name without a model";
    EXPECT_EQ(corrections.pGeoidModel, nullptr);
}

TEST(GeoCorrections, ModelThatRefusesTheSystemStays)
{
    TestGeoidSettings settings = ConstantGeoid(40.0);
    settings.acceptsInit = false;
    const ScopedGeoidModel<7> egm96(settings);
    GeoCorrections corrections;
    EXPECT_FALSE(corrections.CreateGeoidModel(L"EGM96", nullptr));
    EXPECT_NE(corrections.pGeoidModel, nullptr);
    corrections.CreatePostModel(L"EGM96", nullptr);
    EXPECT_NE(corrections.pPostModel, nullptr);
    EXPECT_EQ(corrections.postType, 7);
    corrections.CreatePostModel(L"", nullptr);
    EXPECT_EQ(corrections.pPostModel, nullptr);
    EXPECT_EQ(corrections.postType, -1);
}

TEST(GeoCorrections, FixedSeparationBeatsAModel)
{
    const ScopedGeoidModel<7> egm96(ConstantGeoid(40.0));
    GeoCorrections corrections;
    EXPECT_TRUE(corrections.CreateGeoidModel(L"EGM96", nullptr));
    corrections.manualGeoid = true;
    corrections.manualSeparation = 12.5;
    double height = 0.0;
    CString message;
    EXPECT_TRUE(corrections.GeoidHeight(52.0, 5.0, 0.0, 0.0, height, message));
    EXPECT_EQ(height, 12.5);
}

TEST(GeoCorrections, PostShiftsAreAddedAndTakenOff)
{
    GeoCorrections corrections;
    corrections.SetShifts(10.0, 20.0, 1.0);
    const Grid out = Post(corrections, {}, false);
    EXPECT_EQ(out.x, 10.0);
    EXPECT_EQ(out.y, 20.0);
    EXPECT_EQ(out.z, 1.0);
    const Grid back = Post(corrections, out, true);
    EXPECT_EQ(back.x, 0.0);
    EXPECT_EQ(back.y, 0.0);
    EXPECT_EQ(back.z, 0.0);
}

TEST(GeoCorrections, RotationIsInArcSecondsClockwiseNegative)
{
    GeoCorrections corrections;
    corrections.SetHorAdjust(0.0, 0.0, 3600.0, 1.0);
    EXPECT_DOUBLE_EQ(corrections.horCos, std::cos(-1.0 * D_TO_R));
    EXPECT_DOUBLE_EQ(corrections.horSin, std::sin(-1.0 * D_TO_R));
    corrections.ClearHorAdjust();
    EXPECT_FALSE(corrections.horAdjust);
    EXPECT_EQ(corrections.horCos, 1.0);
    EXPECT_EQ(corrections.horSin, 0.0);
    EXPECT_TRUE(std::signbit(corrections.horSin)) << "the sine of minus no rotation";
    EXPECT_EQ(corrections.horScale, 1.0);
}

// By hand: a quarter turn about (100, 50), scale 2, shifts 10 and 20. The angle is minus 90
// degrees, so that u, v become v, -u.
TEST(GeoCorrections, HorizontalAdjustTurnsScalesAndShifts)
{
    GeoCorrections corrections;
    corrections.SetShifts(10.0, 20.0, 0.0);
    corrections.SetHorAdjust(100.0, 50.0, 90.0 * 3600.0, 2.0);
    double x = 0.0, y = 0.0;
    corrections.AdjustXY(103.0, 54.0, x, y, false);
    EXPECT_NEAR(x, 4.0 * 2.0 + 10.0 + 100.0, 1e-12);
    EXPECT_NEAR(y, -3.0 * 2.0 + 20.0 + 50.0, 1e-12);
    corrections.AdjustXY(x, y, x, y, true);
    EXPECT_NEAR(x, 103.0, 1e-12);
    EXPECT_NEAR(y, 54.0, 1e-12);
}

TEST(GeoCorrections, ScaleZeroActsAsOne)
{
    GeoCorrections corrections;
    corrections.SetHorAdjust(0.0, 0.0, 0.0, 0.0);
    double x = 0.0, y = 0.0;
    corrections.AdjustXY(3.0, 4.0, x, y, false);
    EXPECT_EQ(x, 3.0);
    EXPECT_EQ(y, 4.0);
}

TEST(GeoCorrections, VerticalAdjustIsAPlaneInPartsPerMillion)
{
    GeoCorrections corrections;
    corrections.SetVertAdjust(0.0, 0.0, 1000.0, 0.0);
    EXPECT_NEAR(Post(corrections, {100.0, 700.0, 5.0}, false).z, 5.1, 1e-12);
    corrections.SetVertAdjust(10.0, 20.0, 1000.0, -2000.0);
    const Grid out = Post(corrections, {110.0, 220.0, 5.0}, false);
    EXPECT_NEAR(out.z, 5.0 + 0.1 - 0.4, 1e-12);
    corrections.ClearVertAdjust();
    EXPECT_EQ(Post(corrections, {110.0, 220.0, 5.0}, false).z, 5.0);
}

// Both slope terms come off on the way back, at the corrected point, so that heights return.
TEST(GeoCorrections, InverseVerticalAdjustTakesTheWholeSumOff)
{
    GeoCorrections corrections;
    corrections.SetShifts(10.0, 20.0, 1.5);
    corrections.SetHorAdjust(1000.0, 2000.0, 1800.0, 1.0001);
    corrections.SetVertAdjust(10.0, 20.0, 1000.0, -2000.0);
    const Grid in{1110.0, 2220.0, 5.0};
    const Grid out = Post(corrections, in, false);
    const Grid back = Post(corrections, out, true);
    EXPECT_NEAR(back.x, in.x, 1e-9);
    EXPECT_NEAR(back.y, in.y, 1e-9);
    EXPECT_NEAR(back.z, in.z, 1e-9);
    EXPECT_NEAR(out.z, 5.0 + 1.5 + (out.x - 10.0) * 0.001 - (out.y - 20.0) * 0.002, 1e-12);
}

// By hand: the model adds a tenth of the place; shift 10 follows. Back: from 120 the model takes
// 12 off, then the shift 10: 98, not the 100 that went out.
TEST(GeoCorrections, ModelCorrectsFirstInBothDirections)
{
    TestGeoidSettings settings;
    settings.gridShift = LinearShift(0.0, 0.1, 0.0, 0.1);
    const ScopedGeoidModel<4> ostn(settings);
    GeoCorrections corrections;
    corrections.CreatePostModel(L"OSTN", nullptr);
    corrections.SetShifts(10.0, 10.0, 0.0);
    const Grid out = Post(corrections, {100.0, 200.0, 0.0}, false);
    EXPECT_DOUBLE_EQ(out.x, 120.0);
    EXPECT_DOUBLE_EQ(out.y, 230.0);
    const Grid back = Post(corrections, out, true);
    EXPECT_DOUBLE_EQ(back.x, 98.0);
    EXPECT_DOUBLE_EQ(back.y, 197.0);
    ASSERT_EQ(settings.calls->gridShifts.size(), 2u);
    EXPECT_FALSE(settings.calls->gridShifts[0].inverse);
    EXPECT_TRUE(settings.calls->gridShifts[1].inverse);
}

// The plane of the inverse is taken at the model's result, before the horizontal adjust.
TEST(GeoCorrections, InverseHeightUsesTheModelsResult)
{
    TestGeoidSettings settings;
    settings.gridShift = ConstantShift(100.0, 0.0);
    const ScopedGeoidModel<4> ostn(settings);
    GeoCorrections corrections;
    corrections.CreatePostModel(L"OSTN", nullptr);
    corrections.SetShifts(50.0, 0.0, 0.0);
    corrections.SetVertAdjust(0.0, 0.0, 1000.0, 0.0);
    EXPECT_NEAR(Post(corrections, {1100.0, 0.0, 5.0}, true).z, 5.0 - 1.0, 1e-12);
}

TEST(GeoCorrections, ModelThatRefusesLeavesThePoint)
{
    const ScopedGeoidModel<4> ostn(TestGeoidSettings{});
    GeoCorrections corrections;
    corrections.CreatePostModel(L"OSTN", nullptr);
    EXPECT_EQ(Post(corrections, {100.0, 200.0, 0.0}, false).x, 100.0);
    double lat = 52.0, lon = 5.0;
    corrections.ShiftGeographic(lat, lon, false);
    EXPECT_EQ(lat, 52.0);
    EXPECT_EQ(lon, 5.0);
}

TEST(GeoCorrections, GeographicShiftIsAddedAndTakenOffWhereItIsAsked)
{
    TestGeoidSettings settings;
    settings.geoShift = LinearShift(0.5, 0.0, 0.0, 0.25);
    const ScopedGeoidModel<4> ostn(settings);
    GeoCorrections corrections;
    corrections.CreatePostModel(L"OSTN", nullptr);
    double lat = 52.0, lon = 4.0;
    corrections.ShiftGeographic(lat, lon, false);
    EXPECT_EQ(lat, 52.5);
    EXPECT_EQ(lon, 5.0);
    corrections.ShiftGeographic(lat, lon, true);
    EXPECT_EQ(lat, 52.0);
    EXPECT_EQ(lon, 3.75);
}
