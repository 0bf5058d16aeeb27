#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "database/ZorGeoDatabase.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"
#include "tests/support/TempDirectory.h"

/// A database file as text, section by section.
class GeoText {
public:
    using Entries = std::vector<std::pair<CString, std::string>>;

    GeoText& Section(const CString& name, const Entries& entries)
    {
        m_text += "[" + name.ToUtf8() + "]\n";
        for (const auto& [key, value] : entries) {
            m_text += key.ToUtf8() + "=" + value + "\n";
        }
        return *this;
    }
    /// An index section: serial numbers from 1 on.
    GeoText& List(const CString& section, const std::vector<std::string>& names)
    {
        Entries entries;
        int serial = 0;
        for (const std::string& name : names) {
            entries.emplace_back(CString::FromUtf8(std::to_string(++serial)), name);
        }
        return Section(section, entries);
    }
    const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};

/// The directories of both files, known to the module.
class DatabaseTest : public testing::Test {
protected:
    DatabaseTest()
    {
        DataSearch& search = DataSearch::GetDataSearch();
        search.SetDataPath(DataSearch::deliveredDatabase, mainDirectory.Directory());
        search.SetDataPath(DataSearch::userDatabase, userDirectory.Directory());
        search.SetDataPath(DataSearch::currentProject, userDirectory.Directory());
        search.SetDataPath(DataSearch::projectsRoot, userDirectory.Directory());
        search.SetDataPath(DataSearch::temporary, userDirectory.Directory());
        ZorGeoUtility::Get() = ZorGeoUtility();
    }
    ~DatabaseTest() override
    {
        DataSearch::GetDataSearch().Reset();
        ZorGeoUtility::Get() = ZorGeoUtility();
    }

    CString WriteMain(const GeoText& content) { return mainDirectory.Write("zorgeodatabase.geo", content.Text()); }
    CString WriteUser(const GeoText& content) { return userDirectory.Write("zorusergeobase.geo", content.Text()); }
    /// Writes both files and opens them.
    void Open(ZorGeoDatabase& database, const GeoText& mainContent, const GeoText& userContent)
    {
        WriteMain(mainContent);
        WriteUser(userContent);
        ASSERT_TRUE(database.Init());
    }

    TempDirectory mainDirectory;
    TempDirectory userDirectory;
};

/// The list as UTF-8, for comparison with expected names.
inline std::vector<std::string> Names(const CStringArray& list)
{
    std::vector<std::string> names;
    for (const CString& name : list) {
        names.push_back(name.ToUtf8());
    }
    return names;
}

using NameList = std::vector<std::string>;
