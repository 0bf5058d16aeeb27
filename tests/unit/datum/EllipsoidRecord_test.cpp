#include <gtest/gtest.h>

#include "database/ZorGeoDatabase.h"
#include "datum/Ellipsoid.h"

namespace {

const CString kSection = L"Elp-Bessel";

void Write(FileObject& file, const CString& section, double a, double e2)
{
    file.SetItem(section, L"SemiMajor", a, true);
    file.SetItem(section, L"EccSqrd", e2, true);
}

} // namespace

TEST(EllipsoidRecord, LoadsFromItsSection)
{
    FileObject file;
    Write(file, kSection, 6377397.155, 0.006674372230614);
    Ellipsoid ellipsoid;
    EXPECT_TRUE(ellipsoid.LoadFrom(file, kSection));
    EXPECT_EQ(ellipsoid.name, kSection);
    EXPECT_EQ(ellipsoid.semiMajor, 6377397.155);
    EXPECT_EQ(ellipsoid.eccSquared, 0.006674372230614);
    EXPECT_NEAR(ellipsoid.semiMinor, 6356078.963, 1e-3);
    EXPECT_EQ(ellipsoid.status, 0);
    EXPECT_EQ(ellipsoid.valid, 1);
}

TEST(EllipsoidRecord, MissingSectionChangesOnlyTheName)
{
    FileObject file;
    Ellipsoid ellipsoid;
    ellipsoid.Set(6378137.0, 0.00669438);
    EXPECT_FALSE(ellipsoid.LoadFrom(file, kSection));
    EXPECT_EQ(ellipsoid.name, kSection);
    EXPECT_EQ(ellipsoid.semiMajor, 6378137.0);
    EXPECT_EQ(ellipsoid.status, 0);
}

TEST(EllipsoidRecord, RefusesWhatSetRefuses)
{
    FileObject file;
    Write(file, kSection, 5000000.0, 0.0066);
    Ellipsoid ellipsoid;
    EXPECT_FALSE(ellipsoid.LoadFrom(file, kSection));
    EXPECT_EQ(ellipsoid.status, 1);
}

TEST(EllipsoidRecord, MissingAxisIsRefused)
{
    FileObject file;
    file.SetItem(kSection, L"EccSqrd", 0.0066, true);
    Ellipsoid ellipsoid;
    EXPECT_FALSE(ellipsoid.LoadFrom(file, kSection));
    EXPECT_EQ(ellipsoid.status, 1);
}

TEST(EllipsoidRecord, MissingEccentricityIsASphere)
{
    FileObject file;
    file.SetItem(kSection, L"SemiMajor", 6371000.0, true);
    Ellipsoid ellipsoid;
    EXPECT_TRUE(ellipsoid.LoadFrom(file, kSection));
    EXPECT_EQ(ellipsoid.eccSquared, 0.0);
}

// A broken datum record leaves its file in the mode that throws.
TEST(EllipsoidRecord, FileThatThrowsIsNoException)
{
    FileObject file;
    file.CreateSection(kSection, true);
    file.ThrowExceptions(true);
    Ellipsoid ellipsoid;
    EXPECT_NO_THROW(EXPECT_FALSE(ellipsoid.LoadFrom(file, kSection)));
    EXPECT_EQ(ellipsoid.status, 1);
    file.SetItem(kSection, L"EccSqrd", 0.0066, true);
    EXPECT_NO_THROW(EXPECT_FALSE(ellipsoid.LoadFrom(file, kSection)));
    EXPECT_EQ(ellipsoid.eccSquared, 0.0066) << "read also behind a missing axis";
    file.DeleteItem(kSection, L"EccSqrd", false);
    file.SetItem(kSection, L"SemiMajor", 6371000.0, true);
    EXPECT_NO_THROW(EXPECT_TRUE(ellipsoid.LoadFrom(file, kSection))) << "a sphere";
}

TEST(EllipsoidRecord, MainFileAnswersFirst)
{
    ZorGeoDatabase database;
    Write(database.GetMainFile(), kSection, 6377397.155, 0.006674372230614);
    Write(database.GetUserFile(), kSection, 6378388.0, 0.006722670022);
    Ellipsoid ellipsoid;
    EXPECT_TRUE(ellipsoid.LoadFromDatabase(database, kSection));
    EXPECT_EQ(ellipsoid.semiMajor, 6377397.155);
}

TEST(EllipsoidRecord, UserFileAnswersWhenTheMainFileCannot)
{
    ZorGeoDatabase database;
    Write(database.GetUserFile(), kSection, 6378388.0, 0.006722670022);
    Ellipsoid ellipsoid;
    EXPECT_TRUE(ellipsoid.LoadFromDatabase(database, kSection));
    EXPECT_EQ(ellipsoid.semiMajor, 6378388.0);
    EXPECT_EQ(ellipsoid.name, kSection);

    Write(database.GetMainFile(), kSection, 5000000.0, 0.0);
    Ellipsoid other;
    EXPECT_TRUE(other.LoadFromDatabase(database, kSection));
    EXPECT_EQ(other.semiMajor, 6378388.0);

    EXPECT_FALSE(other.LoadFromDatabase(database, L"Elp-Nowhere"));
    EXPECT_EQ(other.name, L"Elp-Nowhere");
}

TEST(EllipsoidRecord, SavesWhatLoadsAgainBitForBit)
{
    Ellipsoid ellipsoid;
    ellipsoid.Set(6378249.2000000002, 0.1 * 0.06803);
    FileObject file;
    EXPECT_TRUE(ellipsoid.SaveTo(file, L"Elp-Other"));
    Ellipsoid read;
    EXPECT_TRUE(read.LoadFrom(file, L"Elp-Other"));
    EXPECT_EQ(read.semiMajor, ellipsoid.semiMajor);
    EXPECT_EQ(read.eccSquared, ellipsoid.eccSquared);
}
