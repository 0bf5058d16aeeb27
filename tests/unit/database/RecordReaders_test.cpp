#include "database/RecordReaders.h"

#include "tests/unit/database/DatabaseFixture.h"

namespace {

/// Outputs of a datum record, each with a value of its own that a reading may leave.
struct DatumOutputs {
    CString method = L"m", source = L"s", target = L"t";
    double numbers[15] = {101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 112, 113, 114, 115};
    bool fixedHeight = true;
    double forward = 201;
    double reverse = 202;

    DatumRecordView View()
    {
        DatumRecordView view{method, source, target, {}, fixedHeight, forward, reverse};
        for (std::size_t i = 0; i < view.numbers.size(); ++i) {
            view.numbers[i] = &numbers[i];
        }
        return view;
    }
};

} // namespace

TEST(RecordReaders, GroupListsASystemInAnyCaseOfLetters)
{
    FileObject file;
    file.SetItem(L"Gp-Harbours", L"4", L"Harbour Grid", true);
    EXPECT_TRUE(FindSystem(file, L"Harbours", L"harbour GRID"));
    EXPECT_FALSE(FindSystem(file, L"harbours", L"Harbour Grid"));
    EXPECT_FALSE(FindSystem(file, L"Harbours", L"Harbour"));
}

TEST(RecordReaders, SystemNamedByTheSystemCountCountsAsListed)
{
    FileObject file;
    file.SetItem(L"Gp-Harbours", L"1", L"Harbour Grid", true);
    file.SetItem(L"Gp-Harbours", L"System count", L"12", true);
    EXPECT_TRUE(FindSystem(file, L"Harbours", L"12"));
}

TEST(RecordReaders, SystemTextsComeFromTheirKeys)
{
    FileObject file;
    const std::pair<const wchar_t*, const wchar_t*> entries[] = {
        {L"Datumtransform name", L"Shift"}, {L"Unit name", L"Meters"},       {L"Ellipsoid name", L"Bessel"},
        {L"Geoid model method", L"OSGM"},   {L"Projection name", L"Zone 3"}, {L"System description", L"A port"}};
    for (const auto& [key, value] : entries) {
        file.SetItem(L"Sys-Harbour Grid", key, value, true);
    }
    SystemInfo info;
    LoadSystemInfo(file, L"Harbour Grid", info);
    EXPECT_EQ(info.datum, L"Shift");
    EXPECT_EQ(info.unit, L"Meters");
    EXPECT_EQ(info.ellipsoid, L"Bessel");
    EXPECT_EQ(info.geoidMethod, L"OSGM");
    EXPECT_EQ(info.projection, L"Zone 3");
    EXPECT_EQ(info.description, L"A port");
}

TEST(RecordReaders, SystemTextsThatAreMissingStay)
{
    FileObject file;
    file.SetItem(L"Sys-Harbour Grid", L"Unit name", L"Meters", true);
    SystemInfo info{L"d", L"u", L"e", L"g", L"p", L"x"};
    LoadSystemInfo(file, L"Other", info);
    EXPECT_EQ(info.unit, L"u");
    LoadSystemInfo(file, L"Harbour Grid", info);
    EXPECT_EQ(info.datum, L"d");
    EXPECT_EQ(info.unit, L"Meters");
    EXPECT_EQ(info.ellipsoid, L"e");
    EXPECT_EQ(info.geoidMethod, L"g");
    EXPECT_EQ(info.projection, L"p");
    EXPECT_EQ(info.description, L"x");
}

TEST(RecordReaders, UnitIsFoundInAnyCaseAndSpeltAsInTheFile)
{
    FileObject file;
    file.SetItem(L"Units section", L"Feet", L"0.304800,ft", true);
    CString value = L"v";
    CString key = L"k";
    EXPECT_FALSE(FindUnit(file, L"Fathoms", value, key));
    EXPECT_EQ(value, L"v");
    EXPECT_EQ(key, L"k");
    EXPECT_TRUE(FindUnit(file, L"fEET", value, key));
    EXPECT_EQ(value, L"0.304800,ft");
    EXPECT_EQ(key, L"Feet");
}

TEST(RecordReaders, EllipsoidNeedsBothNumbers)
{
    FileObject file;
    file.SetItem(L"Elp-Half", L"SemiMajor", 6377397.155, true);
    file.SetItem(L"Elp-Text", L"SemiMajor", 6377397.155, true);
    file.SetItem(L"Elp-Text", L"EccSqrd", L"about 0.007", true);
    file.SetItem(L"Elp-Whole", L"SemiMajor", 6377397.155, true);
    file.SetItem(L"Elp-Whole", L"EccSqrd", 0.006674372, true);
    double a = 1.0;
    double s = 2.0;
    for (const wchar_t* name : {L"None", L"Half", L"Text"}) {
        EXPECT_FALSE(FindElpsoid(file, name, a, s));
        EXPECT_EQ(a, 1.0);
        EXPECT_EQ(s, 2.0);
    }
    EXPECT_TRUE(FindElpsoid(file, L"Whole", a, s));
    EXPECT_EQ(a, 6377397.155);
    EXPECT_EQ(s, 0.006674372);
}

TEST(RecordReaders, TargetEllipsoidNeedsItsKey)
{
    FileObject file;
    file.SetItem(L"Dtf-Bare", L"Method name", L"No Transformation", true);
    file.SetItem(L"Dtf-Shift", transParamKeys[3], L"Bessel", true);
    CString target = L"t";
    EXPECT_FALSE(FindTargetElp(file, L"None", target));
    EXPECT_FALSE(FindTargetElp(file, L"Bare", target));
    EXPECT_EQ(target, L"t");
    EXPECT_TRUE(FindTargetElp(file, L"Shift", target));
    EXPECT_EQ(target, L"Bessel");
}

TEST(RecordReaders, DatumRecordIsReadWhole)
{
    FileObject file;
    file.SetItem(L"Dtf-Shift", L"Method name", L"Helmert(14 Parameters)", true);
    file.SetItem(L"Dtf-Shift", transParamKeys[2], L"WGS84", true);
    file.SetItem(L"Dtf-Shift", transParamKeys[3], L"Bessel", true);
    // The number under an entry is its position in the table of keys.
    for (const std::size_t entry : {4u, 5u, 6u, 7u, 8u, 9u, 10u, 12u, 13u, 14u, 15u, 16u, 17u, 18u, 19u, 21u, 22u}) {
        file.SetItem(L"Dtf-Shift", transParamKeys[entry], static_cast<double>(entry) + 0.5, true);
    }
    file.SetItem(L"Dtf-Shift", transParamKeys[20], true, true);
    DatumOutputs out;
    out.fixedHeight = false;
    ASSERT_TRUE(FindDtfByName(file, L"Shift", out.View()));
    EXPECT_EQ(out.method, L"Helmert(14 Parameters)");
    EXPECT_EQ(out.source, L"WGS84");
    EXPECT_EQ(out.target, L"Bessel");
    const double expected[15] = {4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5, 12.5, 13.5, 14.5, 15.5, 16.5, 17.5, 18.5, 19.5};
    for (int i = 0; i < 15; ++i) {
        EXPECT_EQ(out.numbers[i], expected[i]) << i;
    }
    EXPECT_TRUE(out.fixedHeight);
    EXPECT_EQ(out.forward, 21.5);
    EXPECT_EQ(out.reverse, 22.5);
}

TEST(RecordReaders, DatumRecordWithoutNumbersLeavesShiftsAndClearsRates)
{
    FileObject file;
    file.SetItem(L"Dtf-Bare", L"Method name", L"No Transformation", true);
    DatumOutputs out;
    ASSERT_TRUE(FindDtfByName(file, L"Bare", out.View()));
    EXPECT_EQ(out.method, L"No Transformation");
    EXPECT_EQ(out.source, L"s");
    EXPECT_EQ(out.target, L"t");
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(out.numbers[i], 101 + i);
    }
    for (int i = 7; i < 15; ++i) {
        EXPECT_EQ(out.numbers[i], 0.0);
    }
    EXPECT_FALSE(out.fixedHeight);
    EXPECT_EQ(out.forward, 0.0);
    EXPECT_EQ(out.reverse, 0.0);
}

TEST(RecordReaders, MissingDatumLeavesAllOutputs)
{
    DatumOutputs out;
    EXPECT_FALSE(FindDtfByName(FileObject(), L"None", out.View()));
    EXPECT_EQ(out.method, L"m");
    EXPECT_EQ(out.numbers[14], 115);
    EXPECT_TRUE(out.fixedHeight);
    EXPECT_EQ(out.forward, 201);
}

TEST(RecordReaders, DatumFoundByItsShortenedNameIsReadUnderTheLongOne)
{
    FileObject file;
    file.SetItem(L"Dtf-A -  C", L"Method name", L"Helmert(7 Parameters)", true);
    file.SetItem(L"Dtf-A -  C", transParamKeys[4], 600.0, true);
    DatumOutputs out;
    ASSERT_TRUE(FindDtfByName(file, L"A - B: C", out.View()));
    EXPECT_EQ(out.method, L"m");
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(out.numbers[i], 101 + i);
    }
    for (int i = 7; i < 15; ++i) {
        EXPECT_EQ(out.numbers[i], 0.0);
    }
    EXPECT_FALSE(out.fixedHeight);
}

TEST(RecordReaders, NameIsShortenedOnlyBetweenABlankedDashAndALaterColon)
{
    struct Case {
        const wchar_t* record;
        const wchar_t* asked;
        bool found;
    };
    const Case cases[] = {
        {L"Dtf-A - ", L"A - B:", true},                   // nothing behind the colon
        {L"Dtf-A - ", L"A - :", false},                   // nothing between: the name stays as it is
        {L"Dtf-A -  C - D: E", L"A - B: C - D: E", true}, // first dash, first colon
        {L"Dtf-A: - ", L"A: - B:", false},                // the first colon stands before the dash
        {L"Dtf-A-  C", L"A-B: C", false},                 // a dash without blanks
        {L"Dtf- -  C", L" - B: C", true},                 // the dash may open the name: the prefix is before it
    };
    for (const Case& c : cases) {
        FileObject file;
        file.SetItem(c.record, L"Method name", L"x", true);
        DatumOutputs out;
        EXPECT_EQ(FindDtfByName(file, c.asked, out.View()), c.found) << CString(c.asked).ToUtf8();
    }
}
