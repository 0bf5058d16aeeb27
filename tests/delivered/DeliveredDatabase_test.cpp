// The delivered database against PROJ's own reading of the same EPSG codes.

#include <gtest/gtest.h>
#include <proj.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>

#include "coordsys/ZORGeoCoordSys.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"
#include "tests/support/TempDirectory.h"

namespace {

constexpr double kFiftieth = 5e-5; // metres; a series ends within 0.02 mm of the projection there

struct Delivered {
    const wchar_t* group;
    const wchar_t* system;
    int crs;       ///< EPSG code of the projected system; 0 where its own longitudes are not Greenwich's
    int operation; ///< EPSG code of the published transformation, local to WGS 84; 0 for none
    /// Where the transformation is meant to be used, within 3 degrees of the central meridian.
    double south, west, north, east;
    /// Metres, of the grid. Wider where a method differs by design; docs/accuracy.md says why.
    double gridTolerance = kFiftieth;
};

const Delivered kDelivered[] = {
    {L"World", L"WGS 84 - UTM zone 15N", 32615, 0, 18, -96, 30, -90},
    {L"World", L"WGS 84 - UTM zone 16N", 32616, 0, 18, -90, 30, -84},
    {L"North Sea", L"WGS 84 - UTM zone 30N", 32630, 0, 50, -6, 62, 0},
    {L"North Sea", L"WGS 84 - UTM zone 31N", 32631, 0, 50, 0, 62, 6},
    {L"North Sea", L"WGS 84 - UTM zone 32N", 32632, 0, 50, 6, 62, 12},
    {L"North Sea", L"ED50 - UTM zone 30N", 23030, 1311, 50, -6, 62, 0},
    {L"North Sea", L"ED50 - UTM zone 31N", 23031, 1311, 50, 0, 62, 6},
    {L"North Sea", L"ED50 - UTM zone 32N", 23032, 1311, 50, 6, 62, 10},
    {L"North Sea", L"ETRS89 - UTM zone 30N", 25830, 1149, 50, -6, 62, 0},
    {L"North Sea", L"ETRS89 - UTM zone 31N", 25831, 1149, 50, 0, 62, 6},
    {L"North Sea", L"ETRS89 - UTM zone 32N", 25832, 1149, 50, 6, 62, 12},
    {L"Gulf of Mexico", L"NAD27 - UTM zone 15N", 26715, 15853, 25, -95, 30, -90},
    {L"Gulf of Mexico", L"NAD27 - UTM zone 16N", 26716, 15856, 24, -90, 30, -84},
    {L"Gulf of Mexico", L"NAD27 - BLM 15N (ftUS)", 32065, 15853, 25, -95, 30, -90},
    {L"Gulf of Mexico", L"NAD27 - BLM 16N (ftUS)", 32066, 15856, 24, -90, 30, -84},
    {L"United Kingdom", L"OSGB36 - British National Grid", 27700, 1314, 50, -5, 60, 1},
    {L"USA - Arizona", L"NAD83 - Arizona East (ft)", 2222, 1188, 31.4, -111.7, 37, -109.1},
    {L"Australia", L"GDA2020 - MGA zone 50", 7850, 0, -38, 114, -13, 120},
    {L"Netherlands", L"ETRS 89 - RD (2008)", 28992, 4833, 50.8, 3.4, 53.6, 7.2},
    {L"Belgium", L"BD72 - Belgian Lambert 72", 31370, 15929, 49.5, 2.5, 51.5, 6.4},
    {L"Belgium", L"ETRS89 - Belgian Lambert 2008", 3812, 1149, 49.5, 2.5, 51.5, 6.4},
    {L"France", L"RGF93 - Lambert-93", 2154, 1671, 42, -5, 51, 9},
    {L"France", L"NTF - Lambert Nord France", 0, 1193, 48.2, -5, 51, 8},
    {L"USA - Texas", L"NAD27 - Texas South Central (ftUS)", 32040, 1175, 27.8, -105, 30.6, -94},
    {L"USA - Alaska", L"NAD83 - Alaska zone 1", 26931, 1188, 54.6, -141, 60, -130},
    {L"Caspian Sea", L"Pulkovo 1942 - Caspian Sea Mercator", 3388, 1303, 41.2, 48.9, 46.9, 53.1},
    {L"Indonesia", L"Makassar - NEIEZ", 3002, 1837, -6.5, 118.8, -1.9, 120.7},
    {L"World", L"WGS 84 - World Mercator", 3395, 0, -80, -179, 80, 179},
    {L"World", L"WGS 84 - UPS North (E,N)", 5041, 0, 60, -179, 89.9, 179},
    {L"World", L"WGS 84 - UPS South (E,N)", 5042, 0, -89.9, -179, -60, 179},
    {L"Romania", L"Pulkovo 1942(58) - Stereo 70", 3844, 15995, 43.6, 20.3, 48.2, 29.7},
    {L"Canada", L"NAD83(CSRS) - New Brunswick Stereographic (NAD83)", 2953, 1842, 44.6, -69, 48, -63.8},
    {L"Canada", L"NAD83(CSRS) - Prince Edward Island Stereographic (NAD83)", 2954, 1842, 45.9, -64.5, 47.1, -62},
    {L"Brunei", L"Timbalai 1948 - RSO Borneo (m)", 29873, 1592, 4.1, 112.4, 6.3, 115.3},
    {L"Trinidad and Tobago", L"Trinidad 1903 - Trinidad Grid", 30200, 10085, 9.9, -62, 11.5, -60, 3e-3},
    {L"Palestine", L"Palestine 1923 - Palestine Grid", 28191, 1074, 29.5, 34.2, 33.3, 35.7, 3e-3},
    {L"Brazil", L"SIRGAS 2000 - Brazil Polyconic", 5880, 15894, -33, -74, 5, -35, 1e-3},
};

constexpr double kMetresPerDegree = 111319.5;

/// The delivered database with an empty user database beside it.
class DeliveredDatabase : public ::testing::Test {
protected:
    DeliveredDatabase()
    {
        DataSearch& directories = DataSearch::GetDataSearch();
        directories.SetDataPath(DataSearch::deliveredDatabase, CString::FromUtf8(ZORGEO_DATA_DIR));
        directories.SetDataPath(DataSearch::userDatabase, m_user.Directory());
        ZorGeoUtility::Get().Fill();
        m_project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 0.0, true);
    }

    bool Init(ZORGeoCoordSys& system, const CString& group, const CString& name)
    {
        return system.Init(group, name, L"", L"", L"", L"", L"", m_project, L"none", true);
    }

    TempDirectory m_user;
    FileObject m_project;
};

using Operation = std::unique_ptr<PJ, PJ* (*)(PJ*)>;

Operation Made(PJ* raw)
{
    return {raw == nullptr ? nullptr : proj_normalize_for_visualization(PJ_DEFAULT_CTX, raw), proj_destroy};
}

/// PROJ's conversion from the system's own geographic coordinates, longitude first, to its grid.
Operation Conversion(int crs)
{
    const std::string code = "EPSG:" + std::to_string(crs);
    const Operation projected(proj_create(PJ_DEFAULT_CTX, code.c_str()), proj_destroy);
    const Operation geographic(proj_crs_get_geodetic_crs(PJ_DEFAULT_CTX, projected.get()), proj_destroy);
    const Operation conversion(
        proj_create_crs_to_crs_from_pj(PJ_DEFAULT_CTX, geographic.get(), projected.get(), nullptr, nullptr),
        proj_destroy);
    return Made(conversion.get());
}

/// The published transformation, local longitude and latitude to WGS 84.
Operation Published(int operation)
{
    const Operation made(proj_create_from_database(PJ_DEFAULT_CTX, "EPSG", std::to_string(operation).c_str(),
                                                   PJ_CATEGORY_COORDINATE_OPERATION, 0, nullptr),
                         proj_destroy);
    return Made(made.get());
}

class Sites {
public:
    explicit Sites(const Delivered& d) : m_latitude(d.south, d.north), m_longitude(d.west, d.east) {}
    double Latitude() { return m_latitude(m_random); }
    double Longitude() { return m_longitude(m_random); }

private:
    std::mt19937 m_random{20261121};
    std::uniform_real_distribution<double> m_latitude;
    std::uniform_real_distribution<double> m_longitude;
};

} // namespace

TEST_F(DeliveredDatabase, EverySystemInitialises)
{
    ZorGeoDatabase database;
    ASSERT_TRUE(database.Init());
    CStringArray groups;
    ASSERT_TRUE(database.GetAllGroupNames(groups, GeoDbMain));
    int count = 0;
    for (const CString& group : groups) {
        CStringArray systems;
        ASSERT_TRUE(database.GetAllSystemNamesByGroupName(systems, group));
        for (const CString& name : systems) {
            ZORGeoCoordSys system;
            EXPECT_TRUE(Init(system, group, name)) << group.ToUtf8() << ": " << name.ToUtf8();
            ++count;
        }
    }
    EXPECT_GE(count, 44);
}

TEST_F(DeliveredDatabase, GridIsThatOfTheEpsgCode)
{
    for (const Delivered& d : kDelivered) {
        if (d.crs == 0) {
            continue;
        }
        SCOPED_TRACE(CString(d.system).ToUtf8());
        ZORGeoCoordSys system;
        ASSERT_TRUE(Init(system, d.group, d.system));
        double metresPerUnit = 0.0;
        system.GetLinearUnitCnv(metresPerUnit);
        const Operation proj = Conversion(d.crs);
        ASSERT_NE(proj.get(), nullptr);
        Sites sites(d);
        for (int i = 0; i < 50; ++i) {
            const double latitude = sites.Latitude();
            const double longitude = sites.Longitude();
            const PJ_COORD expected = proj_trans(proj.get(), PJ_FWD, proj_coord(longitude, latitude, 0.0, HUGE_VAL));
            double x = 0.0;
            double y = 0.0;
            system.GeoToGrid(latitude, longitude, x, y, true);
            EXPECT_NEAR(x * metresPerUnit, expected.xy.x * metresPerUnit, d.gridTolerance)
                << latitude << " " << longitude;
            EXPECT_NEAR(y * metresPerUnit, expected.xy.y * metresPerUnit, d.gridTolerance)
                << latitude << " " << longitude;
        }
    }
}

// The published direction, local to WGS 84, is the inverse of the stored one.
TEST_F(DeliveredDatabase, TransformationIsThePublishedOneTurnedRound)
{
    for (const Delivered& d : kDelivered) {
        if (d.operation == 0) {
            continue;
        }
        SCOPED_TRACE(CString(d.system).ToUtf8());
        ZORGeoCoordSys system;
        ASSERT_TRUE(Init(system, d.group, d.system));
        const Operation proj = Published(d.operation);
        ASSERT_NE(proj.get(), nullptr);
        Sites sites(d);
        for (int i = 0; i < 50; ++i) {
            const double latitude = sites.Latitude();
            const double longitude = sites.Longitude();
            const PJ_COORD expected = proj_trans(proj.get(), PJ_FWD, proj_coord(longitude, latitude, 0.0, HUGE_VAL));
            double satLatitude = 0.0;
            double satLongitude = 0.0;
            double satHeight = 0.0;
            system.GeoToSatGeo(latitude, longitude, 0.0, satLatitude, satLongitude, satHeight, 0.0);
            const double east = (satLongitude - expected.lp.lam) * kMetresPerDegree * std::cos(latitude * D_TO_R);
            ASSERT_LT(std::hypot((satLatitude - expected.lp.phi) * kMetresPerDegree, east), 5e-4)
                << latitude << " " << longitude;
        }
    }
}

TEST_F(DeliveredDatabase, RatesAreThePublishedOnes)
{
    // EPSG 8049 as it is published, coordinate frame rotations in seconds a year.
    const Operation proj(proj_create(PJ_DEFAULT_CTX,
                                     "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=cart "
                                     "+ellps=WGS84 +step +proj=helmert +drx=0.00150379 +dry=0.00118346 +drz=0.00120716 "
                                     "+t_epoch=2020 +convention=coordinate_frame +step +inv +proj=cart +ellps=GRS80 "
                                     "+step +proj=unitconvert +xy_in=rad +xy_out=deg"),
                         proj_destroy);
    ASSERT_NE(proj.get(), nullptr);
    ZORGeoCoordSys system;
    ASSERT_TRUE(Init(system, L"Australia", L"GDA2020 - MGA zone 50"));
    constexpr double kYear = 365.25 * 86400.0 * 1000.0; // milliseconds
    for (const double year : {1994.0, 2010.5, 2020.0, 2026.9}) {
        const PJ_COORD expected = proj_trans(proj.get(), PJ_FWD, proj_coord(116.0, -20.0, 30.0, year));
        double latitude = 0.0;
        double longitude = 0.0;
        double height = 0.0;
        system.SatGeoToGeo(-20.0, 116.0, 30.0, latitude, longitude, height, (year - 1970.0) * kYear);
        EXPECT_NEAR(latitude, expected.lp.phi, 1e-9) << year;
        EXPECT_NEAR(longitude, expected.lp.lam, 1e-9) << year;
        EXPECT_NEAR(height, expected.lpz.z, 1e-4) << year;
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
    EXPECT_GE(systems, 38);
}
