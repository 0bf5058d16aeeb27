#include "projections/ProjectionType.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Row {
    int type;
    const wchar_t* text;
    short code;
};

constexpr Row kRows[] = {
    {0, L"Transfer Mercator", 1},
    {1, L"Universal Transfer Mercator", 1},
    {2, L"RD", 0},
    {3, L"Lambert2P", 8},
    {4, L"Mercator", 7},
    {5, L"Azimuthal", 0},
    {6, L"Gnomonic", 0},
    {7, L"Stereographic", 14},
    {8, L"Cassini", 18},
    {9, L"Hotine Oblique Mercator(A)", 3},
    {10, L"Laborde", 0},
    {11, L"Nzmg", 0},
    {12, L"Lambert1P", 9},
    {13, L"Hotine Oblique Mercator(B)", 3},
    {14, L"Polyconic", 22},
    {15, L"Universal Polar Stereographic", 18},
    {16, L"Unknow type", 0},
    {-1, L"Unknow type", 0},
    {1 << 30, L"Unknow type", 0},
};

TEST(ProjectionType, HasTheTextsOfTheFiles)
{
    for (const Row& row : kRows) {
        EXPECT_EQ(std::wstring(ProjectionType::Text(row.type)), row.text) << row.type;
    }
}

TEST(ProjectionType, HasTheCodesOfGeoTiffAndThatOfCassiniForPolarStereographic)
{
    for (const Row& row : kRows) {
        EXPECT_EQ(ProjectionType::GeoTiffCode(row.type), row.code) << row.type;
    }
}

} // namespace
