#pragma once

#include <filesystem>
#include <initializer_list>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

#include "tests/support/TestDatabase.h"

/// A machine on which the older generation of programs was in use: its definition files beside
/// the program, its unit table beside the delivered database, and a project "Survey1".
///
/// As made, the project uses a Transverse Mercator and a datum transformation that the delivered
/// definition files have, and the ellipsoid and unit of the main file; the user file is empty.
/// Change what a test needs, put into `absent` the files that are to be missing, then SaveAll.
class OldMachine : public TestDatabase {
public:
    using Items = std::initializer_list<std::pair<const wchar_t*, const wchar_t*>>;

    OldMachine()
    {
        ZorGeoUtility::Get().exeDirectory = Directory().File("program/");
        AddEllipsoid(main, kTestWgs84);
        AddEllipsoid(main, kTestBessel);
        AddUnit(main, L"Meters", L"1.000000,m");
        Set(survey, L"SPHEROID", {{L"Spheroid", L"Bessel 1841"}});
        Set(survey, L"ELLIPSOID_BACKUP", {{L"SemiMajor", L"6377397.155"}, {L"EccSqrd", L"0.006674372231"}});
        Set(survey, L"TRANSFORMATION", {{L"Datum transformation", L"Old Shift"}});
        Set(survey, L"PROJECTION", {{L"Projection", L"Old TM"}});
        Set(survey, L"UNITS", {{L"System Units", L"Meters"}});
        SetDatum(datumDef, L"Old Shift");
        SetTransverseMercator(projectionDef, L"Old TM");
        Set(ellipsoidDef, L"Airy 1830", {{L"SemiMajor", L"6377563.396"}, {L"EccSqrd", L"0.00667054"}});
    }

    static void Set(FileObject& file, const CString& section, Items items)
    {
        file.CreateSection(section, true);
        for (const auto& [key, value] : items) {
            file.SetItem(section, key, value, true);
        }
    }
    static void SetDatum(FileObject& file, const CString& section)
    {
        Set(file, section,
            {{L"Description", L"North Sea"},
             {L"Source", L"WGS84"},
             {L"Target ellipsoid", L"Bessel 1841"},
             {L"Shift X", L"-565.7346"},
             {L"Shift Y", L"-50.4058"},
             {L"Shift Z", L"-465.2895"},
             {L"Rotation X", L"0.2"},
             {L"Rotation Y", L"-0.15"},
             {L"Rotation Z", L"0.3"},
             {L"Scale", L"-4.07244"}});
    }
    static void SetTransverseMercator(FileObject& file, const CString& section)
    {
        Set(file, section,
            {{L"Projection type", L"0"},
             {L"LatOrigin", L"0"},
             {L"LonOrigin", L"5"},
             {L"FalseEasting", L"155000"},
             {L"FalseNorthing", L"100"},
             {L"ScaleFactor", L"0.9996"}});
    }

    /// Writes every file anew but the absent ones, and opens the project.
    void SaveAll()
    {
        const std::pair<const FileObject*, const char*> files[] = {{&main, "main/zorgeodatabase.geo"},
                                                                   {&user, "user/zorusergeobase.geo"},
                                                                   {&ellipsoidDef, "program/Ellipsoids.def"},
                                                                   {&ellipsoidUsr, "program/Ellipsoids.usr"},
                                                                   {&datumDef, "program/Datums.def"},
                                                                   {&datumUsr, "program/Datums.usr"},
                                                                   {&projectionDef, "program/Projections.def"},
                                                                   {&projectionUsr, "program/Projections.usr"},
                                                                   {&units, "main/Units.uni"},
                                                                   {&survey, "Survey1/project.prj"}};
        for (const auto& [file, name] : files) {
            if (absent.contains(file)) {
                std::filesystem::remove(Directory().Path() / name);
            } else {
                Directory().Write(name, Text(*file));
            }
        }
        if (!survey.FileOpen(Directory().File("Survey1/project.prj"), FileMode::openForReading)) {
            throw std::runtime_error("cannot open the project");
        }
    }

    /// The user file on the disk.
    std::string UserText() const { return Directory().Read("user/zorusergeobase.geo"); }
    /// One of its texts; "<none>" when it has no such key.
    std::string OnDisk(const CString& section, const CString& key) const
    {
        FileObject file;
        CString text = L"<none>";
        if (file.FileOpen(UserFile(), FileMode::openForReading)) {
            file.GetItem(section, key, text);
        }
        return text.ToUtf8();
    }
    bool HasOnDisk(const CString& section) const
    {
        FileObject file;
        return file.FileOpen(UserFile(), FileMode::openForReading) && file.HasSection(section);
    }

    /// The file's text, for contents without anything to escape. A save would flush to the disk.
    static std::string Text(const FileObject& file)
    {
        std::string text;
        FobjSection sections;
        CString section;
        for (bool more = file.GetFirstSectionEntry(sections, section); more;
             more = file.GetNextSectionEntry(sections, section)) {
            text += "[" + section.ToUtf8() + "]\n";
            FobjSection entries;
            CString key, value;
            for (bool next = file.GetFirstMapEntry(entries, section, key, value); next;
                 next = file.GetNextMapEntry(entries, key, value)) {
                text += key.ToUtf8() + "=" + value.ToUtf8() + "\n";
            }
        }
        return text;
    }

    FileObject ellipsoidDef, ellipsoidUsr;
    FileObject datumDef, datumUsr;
    FileObject projectionDef, projectionUsr;
    FileObject units;
    FileObject survey; ///< the project
    std::set<const FileObject*> absent;
};
