#include "projections/CRDprj.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <sstream>

#include "projections/ProjectionFactory.h"
#include "projections/RDProjection.h"
#include "tests/support/GridPositions.h"
#include "tests/support/ProjectionRecord.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

constexpr EllipsoidShape kBessel{6377397.155, 0.0066743722318021447};

class CRDprjTest : public testing::Test {
protected:
    CRDprjTest() { m_projection.SetEllipsoid(kBessel.a, kBessel.e2); }

    CRDprj m_projection;
};

TEST_F(CRDprjTest, LoadsWithoutReadingAnything)
{
    ProjectionRecord record({{3, 10.0}, {5, 7.0}});
    EXPECT_FALSE(m_projection.LoadParameters(record.file, L"Prj-Other"));
    EXPECT_TRUE(m_projection.GetName().IsEmpty());
    const GridPosition before = ToGrid(m_projection, 52.0, 6.0);
    EXPECT_TRUE(m_projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(m_projection.GetName(), L"Prj-Test");
    EXPECT_EQ(m_projection.GetStatus(), 0);
    EXPECT_EQ(m_projection.GetType(), 2);
    EXPECT_EQ(m_projection.GetConstantsSize(), 0);
    EXPECT_EQ(ToGrid(m_projection, 52.0, 6.0).easting, before.easting);
}

TEST_F(CRDprjTest, FailsOnAnUnusableEllipsoidAlone)
{
    CRDprj projection;
    ProjectionRecord record;
    EXPECT_FALSE(projection.LoadParameters(record.file, record.section));
    EXPECT_EQ(projection.GetStatus(), 1);
    EXPECT_EQ(projection.GetName(), L"Prj-Test");
    EXPECT_EQ(m_projection.InitConstants(), 0U);
}

TEST_F(CRDprjTest, SavesItsTypeAlone)
{
    FileObject file;
    EXPECT_TRUE(m_projection.SaveParameters(file, L"S"));
    EXPECT_EQ(KeysOf(file, L"S"), std::vector<CString>{ProjectionRecord::Key(1)});
    int type = -1;
    EXPECT_TRUE(file.GetItem(L"S", ProjectionRecord::Key(1), type));
    EXPECT_EQ(type, 2);
}

TEST_F(CRDprjTest, ShowsNoParameters)
{
    std::wostringstream stream;
    m_projection.DumpParametersXml(stream, L"");
    EXPECT_TRUE(stream.str().empty());
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> parameters;
    m_projection.GetGeoKeys(codes, parameters);
    EXPECT_TRUE(codes.empty());
    EXPECT_TRUE(parameters.empty());
    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
    values.Add(7.0);
    EXPECT_TRUE(m_projection.GetProjectionConstants(values, names, texts, kinds));
    EXPECT_EQ(values.GetSize(), 1);
    CRDprj refused;
    refused.InitConstants();
    EXPECT_FALSE(refused.GetProjectionConstants(values, names, texts, kinds));
    EXPECT_EQ(values.GetSize(), 1);
}

TEST_F(CRDprjTest, IsNotWhatTheFactoryMakes)
{
    const std::unique_ptr<CProjection> made(ProjectionFactory::CreateProjectionByType(2));
    EXPECT_EQ(dynamic_cast<CRDprj*>(made.get()), nullptr);
    EXPECT_NE(dynamic_cast<RDProjection*>(made.get()), nullptr);
}

// The sums in 40 digits; the last rows lie far outside, where every term counts.
TEST_F(CRDprjTest, SumsTheSeriesForward)
{
    struct Row {
        double latitude, longitude, easting, northing;
    };
    const Row rows[] = {{53.0, 6.0, 196105.282980978813, 557057.73939725433},
                        {51.25, 4.5, 93035.7179667792187, 362574.475031475032},
                        {52.0, 7.0, 265703.907808916569, 446856.618363373419},
                        {40.0, 20.0, 1412726.99653210196, -776142.8288598271}};
    for (const Row& row : rows) {
        const GridPosition grid = ToGrid(m_projection, row.latitude, row.longitude);
        EXPECT_NEAR(grid.easting, row.easting, 1e-8) << row.latitude;
        EXPECT_NEAR(grid.northing, row.northing, 1e-8) << row.latitude;
    }
}

TEST_F(CRDprjTest, SumsTheSeriesBack)
{
    struct Row {
        double easting, northing, latitude, longitude;
    };
    const Row rows[] = {{196105.283, 557057.739, 52.9999999966150265, 6.00000000042054703},
                        {20000.0, 390000.0, 51.4837502204322275, 3.44371124585673714},
                        {270000.0, 600000.0, 53.3750651480521386, 7.11585350460435402},
                        {2155000.0, -1537000.0, 32.1824757016666667, 26.2614018588888889}};
    for (const Row& row : rows) {
        const GeoPosition geo = ToGeo(m_projection, row.easting, row.northing);
        EXPECT_NEAR(geo.latitude, row.latitude, 1e-13) << row.easting;
        EXPECT_NEAR(geo.longitude, row.longitude, 1e-13) << row.easting;
    }
}

TEST_F(CRDprjTest, TheOriginIsTheFalseOrigin)
{
    const GridPosition grid = ToGrid(m_projection, 187762.178 / 3600.0, 19395.5 / 3600.0);
    EXPECT_NEAR(grid.easting, 155000.0, 1e-7);
    EXPECT_NEAR(grid.northing, 463000.0, 1e-7);
    const GeoPosition geo = ToGeo(m_projection, 155000.0, 463000.0);
    EXPECT_EQ(geo.latitude, 187762.178 / 3600.0);
    EXPECT_EQ(geo.longitude, 19395.5 / 3600.0);
}

TEST_F(CRDprjTest, EllipsoidAndUnitEnterNoFormula)
{
    const GridPosition before = ToGrid(m_projection, 52.0, 6.0);
    CRDprj other;
    other.SetEllipsoid(6378388.0, 0.0067);
    const LinearUnit foot(0.3048);
    EXPECT_EQ(other.InitConstants(), 0U);
    EXPECT_EQ(ToGrid(other, 52.0, 6.0).easting, before.easting);
}

TEST_F(CRDprjTest, ScaleFactorsHaveTheirFixedNumbers)
{
    EXPECT_EQ(m_projection.PointScaleFactor(155000.0, 463000.0), 0.9999079);
    EXPECT_DOUBLE_EQ(m_projection.PointScaleFactor(255000.0, 463000.0), 0.9999079 + 10000.0 / 1.63e8);
    double stored = 0.0;
    m_projection.PointScaleFactor(255000.0, 463000.0, stored);
    EXPECT_EQ(stored, m_projection.PointScaleFactor(255000.0, 463000.0));
    const double k1 = 0.9999079 + 4e6 / 1.63e8;
    const double km = 0.9999079 + 1e6 / 1.63e8;
    const double line = m_projection.LineScaleFactor(155000.0, 2463000.0, 155000.0, 463000.0);
    EXPECT_NEAR(line, 6.0 / (1.0 / k1 + 4.0 / km + 1.0 / 0.9999079), 1e-15);
    m_projection.LineScaleFactor(155000.0, 2463000.0, 155000.0, 463000.0, stored);
    EXPECT_EQ(stored, line);
}

TEST_F(CRDprjTest, ConvergenceIsOfTheFirstOrderFromTheRoundedOrigin)
{
    const GeoPosition geo = ToGeo(m_projection, 255000.0, 500000.0);
    EXPECT_NEAR(ConvergenceAt(m_projection, 255000.0, 500000.0),
                std::sin(geo.latitude * D_TO_R) * (5.387638889 - geo.longitude), 1e-14);
    EXPECT_LT(ConvergenceAt(m_projection, 255000.0, 500000.0), -1.0);
    EXPECT_NE(ConvergenceAt(m_projection, 155000.0, 463000.0), 0.0) << "the origin's longitude is rounded";
}

TEST_F(CRDprjTest, GivesNoNumberForNoNumber)
{
    for (const double bad : {kNaN, kInfinity}) {
        EXPECT_TRUE(std::isnan(ToGrid(m_projection, bad, 6.0).northing)) << bad;
        EXPECT_TRUE(std::isnan(ToGeo(m_projection, bad, 5e5).latitude)) << bad;
    }
    EXPECT_TRUE(std::isnan(m_projection.PointScaleFactor(kNaN, 0.0)));
}

} // namespace
