#pragma once

#include <array>
#include <filesystem>
#include <stdexcept>

#include "datum/CDatumTransform.h"
#include "datum/Ellipsoid.h"
#include "frame/BaseContract.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"
#include "tests/support/TempDirectory.h"

// Databases for tests: records as plain values, and a main file, a user file, a catalogue and a
// project in a directory of their own.
//
//     TestDatabase database;
//     AddEllipsoid(database.main, kTestWgs84);
//     AddSystem(database.user, {.group = L"Harbours", .name = L"Harbour Grid", ...});
//     database.Save();

struct TestEllipsoid {
    CString name;
    double a; ///< metres
    double e2;
};
inline const TestEllipsoid kTestWgs84{L"WGS84", 6378137.0, 0.00669437999014};
inline const TestEllipsoid kTestBessel{L"Bessel 1841", 6377397.155, 0.006674372231};

struct TestDatum {
    CString name = {};
    CString source = L"WGS84";
    CString target = L"Bessel 1841";
    CString method = kMethodBursaWolfe7;
    /// Shift X, Y, Z (metres), rotation X, Y, Z (arc seconds), scale (ppm).
    std::array<double, 7> parameters{};
    /// Their rates per year, and the epoch; written for methods of 14 parameters.
    std::array<double, 8> rates{};
};

/// A projection of the parameters that Transverse Mercator has.
struct TestProjection {
    CString name = {};
    int type = 0;
    CString method = L"Transverse Mercator";
    double latOrigin = 0.0;
    double lonOrigin = 5.0;
    double falseEasting = 500000.0;
    double falseNorthing = 0.0;
    double scaleFactor = 0.9996;
};

struct TestSystem {
    CString group = {};
    CString name = {};
    CString datum = {};
    CString projection = {};
    CString ellipsoid = L"Bessel 1841";
    CString unit = L"Meters";
};

/// Puts `name` into an index section under the next serial number.
inline void AddToIndex(FileObject& file, const CString& section, const CString& name)
{
    int serial = 0;
    CString key;
    do {
        key.Format(L"%d", ++serial);
    } while (file.HasKey(section, key));
    file.SetItem(section, key, name, true);
}

inline void AddEllipsoid(FileObject& file, const TestEllipsoid& ellipsoid)
{
    const CString section = kEllipsoidPrefix + ellipsoid.name;
    AddToIndex(file, kEllipsoidsSection, ellipsoid.name);
    file.SetItem(section, kSemiMajor, ellipsoid.a, true);
    file.SetItem(section, kEccSquared, ellipsoid.e2, true);
}

inline void AddDatum(FileObject& file, const TestDatum& datum)
{
    const CString section = kDatumPrefix + datum.name;
    AddToIndex(file, kDatumsSection, datum.name);
    file.SetItem(section, kDatumMethod, datum.method, true);
    if (datum.method == kMethodNone) {
        return;
    }
    file.SetItem(section, transParamKeys[TransKey::source], datum.source, true);
    file.SetItem(section, transParamKeys[TransKey::target], datum.target, true);
    for (std::size_t i = 0; i < datum.parameters.size(); ++i) {
        file.SetItem(section, transParamKeys[TransKey::shiftX + i], datum.parameters[i], true);
    }
    if (datum.method == kMethodBursaWolfe14 || datum.method == kMethodHelmert14) {
        for (std::size_t i = 0; i < datum.rates.size(); ++i) {
            file.SetItem(section, transParamKeys[TransKey::shiftRateX + i], datum.rates[i], true);
        }
    }
}

inline void AddProjection(FileObject& file, const TestProjection& projection)
{
    const CString section = kProjectionPrefix + projection.name;
    AddToIndex(file, kProjectionsSection, projection.name);
    file.SetItem(section, projectionParamKeys[ProjectionKey::type], projection.type, true);
    file.SetItem(section, kProjectionMethod, projection.method, true);
    file.SetItem(section, projectionParamKeys[ProjectionKey::latOrigin], projection.latOrigin, true);
    file.SetItem(section, projectionParamKeys[ProjectionKey::lonOrigin], projection.lonOrigin, true);
    file.SetItem(section, projectionParamKeys[ProjectionKey::falseEasting], projection.falseEasting, true);
    file.SetItem(section, projectionParamKeys[ProjectionKey::falseNorthing], projection.falseNorthing, true);
    file.SetItem(section, projectionParamKeys[ProjectionKey::scaleFactor], projection.scaleFactor, true);
}

/// `record` is factor, comma, suffix.
inline void AddUnit(FileObject& file, const CString& name, const CString& record)
{
    file.SetItem(kUnitsSection, name, record, true);
}

/// The system's record, its line in its group, and the group's line in the list of groups.
inline void AddSystem(FileObject& file, const TestSystem& system)
{
    const CString group = kGroupPrefix + system.group;
    const CString section = kSystemPrefix + system.name;
    if (!file.HasSection(group)) {
        AddToIndex(file, kGroupsSection, system.group);
    }
    AddToIndex(file, group, system.name);
    file.SetItem(section, kSystemDatum, system.datum, true);
    file.SetItem(section, kSystemUnit, system.unit, true);
    file.SetItem(section, kSystemEllipsoid, system.ellipsoid, true);
    file.SetItem(section, kSystemProjection, system.projection, true);
}

/// A database of its own for one test: empty files and the delivered catalogue, with DataSearch
/// and ZorGeoUtility pointed at them. Fill the files, then Save. At the end the process is as it
/// was before: default directories, unit factors 1.
class TestDatabase {
public:
    TestDatabase()
    {
        namespace fs = std::filesystem;
        for (const char* directory : {"main", "user", "project"}) {
            fs::create_directory(m_directory.Path() / directory);
        }
        fs::copy_file(fs::path(ZORGEO_DATA_DIR) / "ZorProjectionStatic.dat",
                      m_directory.Path() / "main" / "ZorProjectionStatic.dat");
        Create(main, m_directory.File("main/zorgeodatabase.geo"));
        Create(user, m_directory.File("user/zorusergeobase.geo"));
        Create(project, m_directory.File("project/project.prj"));
        DataSearch& search = DataSearch::GetDataSearch();
        search.SetDataPath(DataSearch::deliveredDatabase, m_directory.File("main"));
        search.SetDataPath(DataSearch::userDatabase, m_directory.File("user"));
        search.SetDataPath(DataSearch::currentProject, m_directory.File("project"));
        search.SetDataPath(DataSearch::projectsRoot, m_directory.Directory());
        ZorGeoUtility::Get() = ZorGeoUtility();
        ZorGeoUtility::Get().Fill();
    }
    ~TestDatabase()
    {
        DataSearch::GetDataSearch().Reset();
        ZorGeoUtility::Get() = ZorGeoUtility();
        Ellipsoid::SetUnitFactor(1.0);
        CDatumTransform::SetUnitCnv(1.0);
    }
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    /// Writes the three files.
    void Save() const
    {
        for (const FileObject* file : {&main, &user, &project}) {
            if (!file->FileSave(L"", FileMode::saveExclusive)) {
                throw std::runtime_error("cannot save " + file->GetFileName().ToUtf8());
            }
        }
    }

    CString MainFile() const { return main.GetFileName(); }
    CString UserFile() const { return user.GetFileName(); }
    CString ProjectFile() const { return project.GetFileName(); }
    const TempDirectory& Directory() const { return m_directory; }

    FileObject main;
    FileObject user;
    FileObject project;

private:
    static void Create(FileObject& file, const CString& path)
    {
        if (!file.FileOpen(path, FileMode::createNew)) {
            throw std::runtime_error("cannot create " + path.ToUtf8());
        }
    }

    TempDirectory m_directory;
};
