#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "tests/support/PointCases.h"
#include "tests/support/ProjectionRecord.h"

namespace {

constexpr double kMetresPerDegree = 111200.0;

std::vector<PointCase> AllCases()
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(ZORGEO_SOURCE_DIR "/tests/data/points")) {
        if (entry.path().extension() == ".cases") {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    std::vector<PointCase> all;
    for (const auto& path : paths) {
        const auto cases = PointCases::Read(path);
        all.insert(all.end(), cases.begin(), cases.end());
    }
    return all;
}

class PublishedPoints : public testing::TestWithParam<PointCase> {
protected:
    MainDirectory m_delivered{MainDirectory::Delivered()};
    LinearUnit m_unit{GetParam().unit};

    std::unique_ptr<CProjection> Projection() const
    {
        ProjectionRecord record;
        for (const auto& [key, value] : GetParam().parameters) {
            record.file.SetItem(record.section, CString::FromUtf8(key), CString::FromUtf8(value), true);
        }
        return Loaded(GetParam().type, {GetParam().semiMajor, GetParam().eccSquared}, record);
    }
};

TEST_P(PublishedPoints, Forward)
{
    const PointCase& point = GetParam();
    double easting = 0.0;
    double northing = 0.0;
    Projection()->GeoToGrid(point.latitude, point.longitude, easting, northing);
    EXPECT_NEAR(easting, point.easting, point.tolerance / point.unit) << point.source;
    EXPECT_NEAR(northing, point.northing, point.tolerance / point.unit) << point.source;
}

TEST_P(PublishedPoints, Inverse)
{
    const PointCase& point = GetParam();
    double latitude = 0.0;
    double longitude = 0.0;
    Projection()->GridToGeo(point.easting, point.northing, latitude, longitude);
    const double parallel = kMetresPerDegree * std::cos(point.latitude * D_TO_R);
    EXPECT_NEAR(latitude, point.latitude, point.tolerance / kMetresPerDegree) << point.source;
    EXPECT_NEAR(longitude, point.longitude, point.tolerance / parallel) << point.source;
}

TEST_P(PublishedPoints, ThereAndBack)
{
    const PointCase& point = GetParam();
    ASSERT_GT(point.roundTrip, 0.0) << "a point states how well it comes back";
    const auto projection = Projection();
    double easting = 0.0;
    double northing = 0.0;
    double latitude = 0.0;
    double longitude = 0.0;
    projection->GeoToGrid(point.latitude, point.longitude, easting, northing);
    projection->GridToGeo(easting, northing, latitude, longitude);
    EXPECT_NEAR(latitude, point.latitude, point.roundTrip) << point.source;
    EXPECT_NEAR(longitude, point.longitude, point.roundTrip) << point.source;
}

std::string NameOf(const testing::TestParamInfo<PointCase>& info)
{
    std::string name = info.param.where;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Points, PublishedPoints, testing::ValuesIn(AllCases()), NameOf);

} // namespace
