#include <cmath>

#include "authoring/ZorGeoStaticData.h"
#include "tests/support/ProjOracle.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

// A system that an editor saves with nothing of its own in the database: datum, projection,
// ellipsoid and unit come from the user file.

namespace {

constexpr double kTenthMillimetre = 1e-4; // metres
constexpr double kFootFactor = 0.3048;    // metres per foot

void SetParameters(ZorGeoStaticData& record)
{
    CArray<double, double> values;
    for (const double value : {5.0, 0.0, 1000000.0, 0.0, 0.9996, 0.0}) {
        values.Add(value);
    }
    CStringArray names;
    CStringArray texts;
    CStringArray keys;
    CArray<UINT, UINT> kinds;
    record.GetSelPrjMdResults(0, names, kinds, keys);
    texts.SetSize(names.GetSize());
    record.SetPrjParams(values, names, texts, kinds);
}

/// The system of kProjSeven and kProjGrid, in feet, with the false easting at 1000000 ft.
void SaveFeetSystem(const CString& name)
{
    ZorGeoStaticData record;
    record.SetGroupNameAndKey(kGroup, L"");
    record.SetSysNameAndKey(name, L"");
    record.SetDttransNameAndKey(L"New Shift", L"");
    record.SetDtTransferMdName(L"Bursa/Wolfe(7 Parameters)", 1);
    record.SetDtTransferParams(-565.7346, -50.4058, -465.2895, 0.2, -0.15, 0.3, -4.07244, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0,
                               0.0, 0.0, false, 0.0, 0.0);
    record.SetElpNameAndKey(L"New Bessel", L"");
    record.SetElpsoidParams(6377397.155, 0.0, std::sqrt(0.006674372231), 0.0, 0.0, 0.0);
    record.SetUnitNameAndKey(L"New Feet", L"");
    record.SetUnitParams(kFootFactor, 3, L"ft");
    record.SetPrjNameAndType(L"New TM", 0);
    record.SetPrjMdName(L"Transverse Mercator");
    SetParameters(record);
    ASSERT_TRUE(record.SaveDataToDB());
}

} // namespace

TEST(SavedSystem, InitReadsItAndItConverts)
{
    SurveyDatabase database;
    database.Save();
    SaveFeetSystem(L"New Grid");
    ZORGeoCoordSys system;
    ASSERT_TRUE(InitOpen(system, database.project, L"New Grid", true));

    const ProjOracle oracle(kProjSeven + kProjGrid);
    struct Place {
        double latitude, longitude, height;
    };
    for (const Place& place : {Place{52.0, 5.0, 43.0}, Place{51.3, 3.2, 0.0}, Place{53.9, 7.4, -30.0}}) {
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        // Heights are in the unit of the grid.
        system.SatGeoToGrid(place.latitude, place.longitude, place.height / kFootFactor, x, y, z, 0.0);
        const auto expected =
            oracle.Forward(ProjOracle::Radians(place.longitude), ProjOracle::Radians(place.latitude), place.height);
        EXPECT_NEAR((x - 1000000.0) * kFootFactor, expected.x - 500000.0, kTenthMillimetre);
        EXPECT_NEAR(y * kFootFactor, expected.y, kTenthMillimetre);
        EXPECT_NEAR(z * kFootFactor, expected.z, kTenthMillimetre);
    }
}
