// The delivered database: a sample of every method and unit against PROJ's own reading of the same
// EPSG codes, and what no code tells.

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "WorldFixture.h"
#include "coordsys/ZORGeoCoordSys.h"
#include "tests/support/ProjOracle.h"

namespace {

class DeliveredDatabase : public WorldFixture, public ::testing::Test {
protected:
    bool Init(ZORGeoCoordSys& system, const CString& group, const CString& name)
    {
        return system.Init(group, name, L"", L"", L"", L"", L"", m_project, L"none", true);
    }

    void ExpectGrid(const CString& group, const CString& name, double latitude, double longitude, double x, double y,
                    double tolerance)
    {
        SCOPED_TRACE(name.ToUtf8());
        ZORGeoCoordSys system;
        ASSERT_TRUE(Init(system, group, name));
        double easting = 0.0;
        double northing = 0.0;
        system.GeoToGrid(latitude, longitude, easting, northing, true);
        EXPECT_NEAR(easting, x, tolerance);
        EXPECT_NEAR(northing, y, tolerance);
        double backLatitude = 0.0;
        double backLongitude = 0.0;
        system.GridToGeo(x, y, backLatitude, backLongitude);
        EXPECT_NEAR(backLatitude, latitude, tolerance / 1e5);
        EXPECT_NEAR(backLongitude, longitude, tolerance / 5e4);
    }
};

double Degrees(double degrees, double minutes, double seconds)
{
    return degrees + minutes / 60.0 + seconds / 3600.0;
}

} // namespace

TEST_F(DeliveredDatabase, SampleOfEveryMethodAndUnitAgreesWithTheEpsgCodes)
{
    std::set<std::string> methods;
    for (const WorldSystem& system : SampleOf(ReadWorldSystems())) {
        methods.insert(system.kind.substr(0, system.kind.find(',')));
        Check(system);
    }
    EXPECT_EQ(methods.size(), 12U);
}

// The examples of IOGP guidance note 7-2 for systems that stand in the database; figures to 0.01.
TEST_F(DeliveredDatabase, PublishedExamplesComeOut)
{
    ExpectGrid(L"UK", L"OSGB36 - British National Grid", 50.5, 0.5, 577274.99, 69740.50, 0.02);
    ExpectGrid(L"Antarctica", L"Petrels 1972 - Terre Adelie Polar Stereographic", -Degrees(66, 36, 18.820),
               Degrees(140, 4, 17.040), 303169.52, 244055.72, 0.01);
    ExpectGrid(L"Malaysia", L"Timbalai 1948 - RSO Borneo (m)", Degrees(5, 23, 14.1129), Degrees(115, 48, 19.8196),
               679245.73, 596562.78, 0.01);
    ExpectGrid(L"Trinidad and Tobago", L"Trinidad 1903 - Trinidad Grid", 10.0, -62.0, 66644.94, 82536.22, 0.01);
}

// The default takes heights of 43 m and 0 m, whatever the position's own.
TEST_F(DeliveredDatabase, DefaultIsTheDutchGridAtFixedHeights)
{
    ZorGeoDatabase database;
    ASSERT_TRUE(database.Init());
    CString group;
    CString name;
    database.GetDefaultGroupAndSystem(group, name);
    ZORGeoCoordSys system;
    ASSERT_TRUE(Init(system, group, name));
    // EPSG 4833 as it is published; the place is some 43 m above the satellite ellipsoid.
    const ProjOracle toSatellite("+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=cart "
                                 "+ellps=bessel +step +proj=helmert +x=565.4171 +y=50.3319 +z=465.5524 "
                                 "+rx=0.398957388243134 +ry=-0.343987817378283 +rz=1.87740163998045 +s=4.0725 "
                                 "+convention=coordinate_frame +step +inv +proj=cart +ellps=WGS84 "
                                 "+step +proj=unitconvert +xy_in=rad +xy_out=deg");
    const ProjOracle toGrid("+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=sterea "
                            "+lat_0=52.1561605555556 +lon_0=5.38763888888889 +k=0.9999079 +x_0=155000 +y_0=463000 "
                            "+ellps=bessel");
    const ProjOracle::Position place = toSatellite.Forward(4.4, 51.9, 0.0);
    ASSERT_NEAR(place.z, 43.0, 3.0);
    const ProjOracle::Position expected = toGrid.Forward(4.4, 51.9);
    for (const double height : {0.0, 43.0, 10000.0}) {
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        system.SatGeoToGrid(place.y, place.x, height, x, y, z, 0.0);
        EXPECT_NEAR(x, expected.x, 5e-4) << height;
        EXPECT_NEAR(y, expected.y, 5e-4) << height;
    }
}

TEST_F(DeliveredDatabase, SystemsWithoutACodeInitialise)
{
    int count = 0;
    for (const WorldSystem& system : ReadWorldSystems()) {
        if (system.code == 0) {
            ZORGeoCoordSys made;
            EXPECT_TRUE(Init(made, system.group, system.name)) << system.name.ToUtf8();
            ++count;
        }
    }
    EXPECT_EQ(count, 8); // the default, three of the North Sea and four of the Gulf of Mexico
    ZorGeoDatabase database;
    ASSERT_TRUE(database.Init());
    CStringArray examples;
    ASSERT_TRUE(database.GetAllSystemNamesByGroupName(examples, L"Examples"));
    count = 0;
    for (const CString& name : examples) {
        ZORGeoCoordSys made;
        EXPECT_TRUE(Init(made, L"Examples", name)) << name.ToUtf8();
        ++count;
    }
    EXPECT_EQ(count, 3);
}

TEST_F(DeliveredDatabase, RatesAreThePublishedOnes)
{
    // EPSG 8049 as it is published, coordinate frame rotations in seconds a year.
    const ProjOracle published("+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=cart "
                               "+ellps=WGS84 +step +proj=helmert +drx=0.00150379 +dry=0.00118346 +drz=0.00120716 "
                               "+t_epoch=2020 +convention=coordinate_frame +step +inv +proj=cart +ellps=GRS80 "
                               "+step +proj=unitconvert +xy_in=rad +xy_out=deg");
    ZORGeoCoordSys system;
    ASSERT_TRUE(Init(system, L"Examples", L"Example - GDA2020 MGA zone 50 with plate motion"));
    constexpr double kYear = 365.25 * 86400.0 * 1000.0; // milliseconds
    for (const double year : {1994.0, 2010.5, 2020.0, 2026.9}) {
        const ProjOracle::Position expected = published.Forward(116.0, -20.0, 30.0, year);
        double latitude = 0.0;
        double longitude = 0.0;
        double height = 0.0;
        system.SatGeoToGeo(-20.0, 116.0, 30.0, latitude, longitude, height, (year - 1970.0) * kYear);
        EXPECT_NEAR(latitude, expected.y, 1e-9) << year;
        EXPECT_NEAR(longitude, expected.x, 1e-9) << year;
        EXPECT_NEAR(height, expected.z, 1e-4) << year;
    }
}

TEST_F(DeliveredDatabase, NamesNoRecordThatItDoesNotHold)
{
    FileObject file;
    ASSERT_TRUE(file.FileOpen(CString::FromUtf8(ZORGEO_DATA_DIR) + kMainDatabaseFile, FileMode::openForReading))
        << file.GetErrorText().ToUtf8();
    const struct {
        const CString& key;
        const CString& prefix;
    } kReferences[] = {
        {kSystemDatum, kDatumPrefix}, {kSystemEllipsoid, kEllipsoidPrefix}, {kSystemProjection, kProjectionPrefix}};
    FobjSection walk;
    CString section;
    int systems = 0;
    for (bool more = file.GetFirstSectionEntry(walk, section); more; more = file.GetNextSectionEntry(walk, section)) {
        if (!(section.Left(kSystemPrefix.GetLength()) == kSystemPrefix)) {
            continue;
        }
        ++systems;
        CString name;
        for (const auto& reference : kReferences) {
            ASSERT_TRUE(file.GetItem(section, reference.key, name)) << section.ToUtf8();
            EXPECT_TRUE(file.HasSection(reference.prefix + name)) << section.ToUtf8() << ": " << name.ToUtf8();
        }
        ASSERT_TRUE(file.GetItem(section, kSystemUnit, name)) << section.ToUtf8();
        EXPECT_TRUE(file.HasKey(kUnitsSection, name)) << section.ToUtf8() << ": " << name.ToUtf8();
    }
    EXPECT_GE(systems, 4900);
}

// What the list of known differences states, a user of the system reads in its description.
TEST_F(DeliveredDatabase, DescriptionsStateTheKnownDifferences)
{
    FileObject file;
    ASSERT_TRUE(file.FileOpen(CString::FromUtf8(ZORGEO_DATA_DIR) + kMainDatabaseFile, FileMode::openForReading));
    const KnownDifferences known;
    for (const WorldSystem& system : ReadWorldSystems()) {
        CString description;
        ASSERT_TRUE(file.GetItem(kSystemPrefix + system.name, kSystemDescription, description));
        const std::string text = description.ToUtf8();
        EXPECT_EQ(text.find("ff by up to ") != std::string::npos, known.Has(system.published)) << system.name.ToUtf8();
    }
}
