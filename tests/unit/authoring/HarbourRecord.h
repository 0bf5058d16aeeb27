#pragma once

#include <initializer_list>
#include <utility>

#include "authoring/ZorGeoStaticData.h"
#include "tests/support/TestDatabase.h"

/// Values of a projection's parameters in parallel arrays.
struct TestParameters {
    TestParameters() = default;
    TestParameters(std::initializer_list<std::pair<const wchar_t*, double>> parameters)
    {
        for (const auto& [name, value] : parameters) {
            Add(name, value);
        }
    }
    void Add(const wchar_t* name, double value)
    {
        names.Add(name);
        values.Add(value);
        texts.Add(L"shown");
        kinds.Add(3);
    }
    void Set(ZorGeoStaticDataBase& record) { record.SetPrjParams(values, names, texts, kinds); }

    CArray<double, double> values;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
};

/// The delivered database of these tests: two ellipsoids, a unit, and nothing else.
class HarbourDatabase : public TestDatabase {
public:
    HarbourDatabase()
    {
        AddEllipsoid(main, kTestWgs84);
        AddEllipsoid(main, kTestBessel);
        AddUnit(main, L"Meters", L"1.000000,m");
        Save();
    }
    std::string UserText() const { return Directory().Read("user/zorusergeobase.geo"); }
    /// Replaces the user file.
    void SetUserText(std::string_view text) const { Directory().Write("user/zorusergeobase.geo", text); }
};

struct HarbourDatum {
    std::array<double, 7> parameters = {-565.7346, -50.4058, -465.2895, 0.2, -0.15, 0.3, -4.07244};
    /// Rates per year and epoch.
    std::array<double, 8> rates = {0.011, -0.022, 0.015, 0.0011, -0.0022, 0.0015, 0.003, 2010.5};
    bool fixedHeight = true;
    double fixedHeightForward = 44.25;
    double fixedHeightReverse = -43.5;

    void Set(ZorGeoStaticDataBase& record) const
    {
        const auto& p = parameters;
        const auto& r = rates;
        record.SetDtTransferParams(p[0], p[1], p[2], p[3], p[4], p[5], p[6], r[0], r[1], r[2], r[3], r[4], r[5], r[6],
                                   r[7], fixedHeight, fixedHeightForward, fixedHeightReverse);
    }
};

/// A record in which every value that reaches a file is one of its own.
class HarbourRecord : public ZorGeoStaticData {
public:
    HarbourRecord()
    {
        SetSysNameAndKey(L"Harbour Grid", L"system key");
        SetGroupNameAndKey(L"Harbours", L"group key");
        SetDttransNameAndKey(L"Harbour Shift", L"datum key");
        SetDtTransferMdName(L"Bursa/Wolfe(7 Parameters)", 1);
        SetDtfDescp(L"by the port");
        HarbourDatum().Set(*this);
        SetElpNameAndKey(L"Bessel 1841", L"ellipsoid key");
        SetSrcElpsoidParams(6378137.0, 0.25);
        SetUnitNameAndKey(L"Meters", L"unit key");
        SetUnitParams(1.0, 3, L"m");
        SetPrjNameAndType(L"Harbour TM", 0);
        SetPrjMdName(L"Transverse Mercator");
        TestParameters({{L"Longitude of Origin", 5.25},
                        {L"Latitude of Origin", 52.5},
                        {L"False Easting", 500000.5},
                        {L"False Northing", -1000.5},
                        {L"Scale Factor at the Central Meridian", 0.9996},
                        {L"Grid Skew", 0.125}})
            .Set(*this);
        SetGeoModelParams(0, L"EGM96", L"egm96.gtx");
        SetGeoidChartDatum(L"LAT");
        SetGeoidManualInput(41.5);
        SetUsePostCorrctStatu(true);
        SetPostCorrection(1.5, 2.5, 3.5);
        SetPostCorrtModel(L"Grid Model");
        SetPostCorrtFile(L"post.gsb");
        SetPostCorrtType(3);
        SetUsePostHorAdjustStatu(true);
        SetPostHorAdjust(100.5, 200.5, 0.75, 1.0001);
        SetUsePostVertAdjustStatu(true);
        SetPostVertAdjust(300.5, 400.5, 5.5, 6.5);
    }
};
