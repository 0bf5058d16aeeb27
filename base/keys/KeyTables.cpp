#include "base/keys/KeyTables.h"

// Entries that no library of the suite reads any more keep their place, since the others are
// known by their position.

const std::array<CString, 18> coordsystemKeys = {
    L"Reserved0",    // 0
    L"Reserved1",    // 1
    L"Reserved2",    // 2
    L"Reserved3",    // 3
    L"Reserved4",    // 4
    L"Reserved5",    // 5
    L"Reserved6",    // 6
    L"Group name",   // 7
    L"System name",  // 8
    L"Reserved9",    // 9
    L"Linear unit",  // 10
    L"Reserved11",   // 11
    L"Module",       // 12
    L"Geoid method", // 13
    L"Geoid grid",   // 14
    L"Chart datum",  // 15
    L"Post model",   // 16
    L"Post file",    // 17
};

const std::array<CString, 2> formatParamKeys = {
    L"Format",      // 0
    L"Unit format", // 1
};

const std::array<CString, 23> projectionParamKeys = {
    L"Projection name",  // 0
    L"Projection type",  // 1
    L"Projection",       // 2
    L"LatOrigin",        // 3
    L"LonOrigin",        // 4
    L"FalseEasting",     // 5
    L"FalseNorthing",    // 6
    L"ScaleFactor",      // 7
    L"1stParallel",      // 8
    L"2ndParallel",      // 9
    L"Reserved10",       // 10
    L"UTMZone",          // 11
    L"Hemisphere",       // 12
    L"Reserved13",       // 13
    L"Reserved14",       // 14
    L"Reserved15",       // 15
    L"GridSkew",         // 16
    L"InitialAzimuth",   // 17
    L"LatTrueScale",     // 18
    L"Reserved19",       // 19
    L"EastingAtCentre",  // 20
    L"NorthingAtCentre", // 21
    L"HotineGridSkew",   // 22
};

const std::array<CString, 23> transParamKeys = {
    L"Datum transformation", // 0
    L"Description",          // 1
    L"Source",     // 2
    L"Target ellipsoid",     // 3
    L"Shift X",              // 4
    L"Shift Y",              // 5
    L"Shift Z",              // 6
    L"Rotation X",           // 7
    L"Rotation Y",           // 8
    L"Rotation Z",           // 9
    L"Scale",                // 10
    L"Reserved11",           // 11
    L"Shift rate X",         // 12
    L"Shift rate Y",         // 13
    L"Shift rate Z",         // 14
    L"Rotation rate X",      // 15
    L"Rotation rate Y",      // 16
    L"Rotation rate Z",      // 17
    L"Scale rate",           // 18
    L"Epoch",                // 19
    L"Fixed height",         // 20
    L"Fixed height forward", // 21
    L"Fixed height reverse", // 22
};

const std::array<CString, 4> spheroidKeys = {
    L"Ellipsoid name", // 0
    L"Spheroid",       // 1
    L"SemiMajor",      // 2
    L"EccSqrd",        // 3
};

const std::array<CString, 32> GeoidmodelTypeKeys = {
    L"None",          // 0
    L"Manual",        // 1: one fixed separation
    L"OSGM",          // 2: Great Britain, Northern Ireland, Ireland
    L"Grid Model",    // 3: a grid file of any origin
    L"OSTN",          // 4: Great Britain, shifts in the grid
    L"NTv2",          // 5: shifts in latitude and longitude
    L"SWEN",          // 6: Sweden
    L"EGM96",         // 7: world
    L"EGM2008",       // 8: world
    L"NLGEO2018",     // 9: Netherlands
    L"GCG2016",       // 10: Germany
    L"RAF20",         // 11: France
    L"AUSGeoid2020",  // 12: Australia, GDA2020
    L"GEOID18",       // 13: United States
    L"CGG2013",       // 14: Canada, gravimetric
    L"HT2_2010",      // 15: Canada, CGVD28
    L"NKG2015",       // 16: Nordic and Baltic countries
    L"NZGeoid2016",   // 17: New Zealand
    L"AUSGeoid09",    // 18: Australia, GDA94
    L"GEOID12B",      // 19: United States
    L"hBG18",         // 20: Belgium
    L"CHGeo2004",     // 21: Switzerland
    L"EGM08_REDNAP",  // 22: Spain
    L"ITALGEO2005",   // 23: Italy
    L"HREF2018B",     // 24: Norway
    L"SWEN17_RH2000", // 25: Sweden, RH 2000
    L"FIN2005N00",    // 26: Finland
    L"EST-GEOID2017", // 27: Estonia
    L"GSIGEO2011",    // 28: Japan
    L"KNGeoid18",     // 29: Korea
    L"MAPGEO2015",    // 30: Brazil
    L"SAGEOID2010",   // 31: South Africa
};

const wchar_t* const COORDSYSTEM_SECTION = L"COORDINATE SYSTEM";
const wchar_t* const COORDSYSTEM_BACKUP_SECTION = L"COORDINATE SYSTEM BACKUP";
const wchar_t* const FORMATS_SECTION = L"FORMATS";

const wchar_t* const TRANSFORMATION_SECTION = L"TRANSFORMATION";
const wchar_t* const PROJECTION_SECTION = L"PROJECTION";
const wchar_t* const SPHEROID_SECTION = L"SPHEROID";
const wchar_t* const UNITS_SECTION = L"UNITS";

const CString TRANS_DEF_FILENAME = L"Datums.def";
const CString TRANS_USR_FILENAME = L"Datums.usr";
const CString PROJECTION_DEF_FILENAME = L"Projections.def";
const CString PROJECTION_USR_FILENAME = L"Projections.usr";
const CString ELLIPSOID_DEF_FILENAME = L"Ellipsoids.def";
const CString ELLIPSOID_USR_FILENAME = L"Ellipsoids.usr";
