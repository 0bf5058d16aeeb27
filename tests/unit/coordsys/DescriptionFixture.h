#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/TestGeoidModels.h"
#include "tests/unit/coordsys/CoordSysFixture.h"

/// The systems of tests/data/xml/systems.geo, one for every projection, datum method and
/// correction. Their geoid model EGM96 is a test model, which shows its file.
class DescribedSystems {
public:
    DescribedSystems() : m_geoid(ConstantGeoid(43.5))
    {
        std::filesystem::copy_file(Folder() / "systems.geo", database.MainFile().ToUtf8(),
                                   std::filesystem::copy_options::overwrite_existing);
        database.main.FileOpen(database.MainFile(), FileMode::openForReading);
        database.project.SetItem(FORMATS_SECTION, formatParamKeys[FormatKey::unitFormat], 3.0, true);
    }

    static std::filesystem::path Folder() { return std::filesystem::path(ZORGEO_SOURCE_DIR) / "tests/data/xml"; }

    /// Names of the systems, in the file's order.
    std::vector<CString> Names() const
    {
        std::vector<CString> names;
        CString key, name;
        for (int i = 1; key.Format(L"%d", i), database.main.GetItem(kGroupPrefix + Group(), key, name); ++i) {
            names.push_back(name);
        }
        return names;
    }

    /// Init of a system; the answer of Init.
    bool Init(ZORGeoCoordSys& system, const CString& name, const CString& unit = L"none")
    {
        database.Save();
        return system.Init(Group(), name, L"", L"", L"", L"", L"", database.project, unit, true);
    }

    /// Sets one key of the projection that a system names.
    template <typename Value>
    void SetProjectionItem(const CString& projection, int index, const Value& value)
    {
        database.main.SetItem(kProjectionPrefix + projection, projectionParamKeys[static_cast<std::size_t>(index)],
                              value, true);
    }

    TestDatabase database;

private:
    static CString Group() { return L"Descriptions"; }

    ModuleTexts m_texts;
    ScopedGeoidModel<7> m_geoid;
};
