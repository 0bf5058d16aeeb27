#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "base/keys/KeyTables.h"

/// Two machines with a database each. The project is made on the first; what a test changes in the
/// second's main database is what the project meets there.
class ProjectTest : public CliTest {
protected:
    ProjectTest() { WriteTestDatabase(MakeDirectory("dataB")); }

    std::string MakeDirectory(const std::string& name) const
    {
        std::filesystem::create_directories(Path(name));
        return Path(name);
    }
    std::string Project() const { return Path("survey.prj"); }
    /// A project with a system of the test database, on the first machine.
    ToolRun New(const std::string& system, std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {"project", "new",     Project(),         "--system",
                                              system,    "--group", test_names::kGroup};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
    ToolRun RunB(std::vector<std::string> arguments, const ToolStreams& streams = {}) const
    {
        for (const std::string& argument :
             {std::string("--data"), Path("dataB"), std::string("--user"), Path("userB")}) {
            arguments.push_back(argument);
        }
        return RunTool(arguments, streams);
    }
    ToolRun OpenB(const std::string& policy, const ToolStreams& streams = {}) const
    {
        return RunB({"project", "open", Project(), "--on-conflict", policy, "--json"}, streams);
    }
    /// `convert --project` of one line, satellite to grid.
    ToolRun ConvertBy(bool machineB, const std::string& line, std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {"convert", "--project", Project(), "--from", "sat", "--to", "grid"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        ToolStreams streams;
        streams.input = line;
        return machineB ? RunB(arguments, streams) : Run(arguments, streams);
    }

    template <typename Value>
    void SetB(const std::string& section, const CString& key, const Value& value) const
    {
        EditedFile(Path("dataB/zorgeodatabase.geo")).file.SetItem(CString::FromUtf8(section), key, value, true);
    }
    void DeleteB(const std::string& section) const
    {
        EditedFile(Path("dataB/zorgeodatabase.geo")).file.DeleteSection(CString::FromUtf8(section));
    }
    /// A system's record and its line in its group.
    void DeleteSystemB(const std::string& name) const
    {
        EditedFile edited(Path("dataB/zorgeodatabase.geo"));
        edited.file.DeleteSection(CString::FromUtf8("Sys-" + name));
        const CString group = CString::FromUtf8(std::string("Gp-") + test_names::kGroup);
        for (int i = 1; i <= 9; ++i) {
            const CString serial = CString::FromUtf8(std::to_string(i));
            CString listed;
            if (edited.file.GetItem(group, serial, listed) && listed.ToUtf8() == name) {
                edited.file.DeleteItem(group, serial, false);
            }
        }
    }
    /// What stands in a file now.
    static std::string Text(const std::string& file, const std::string& section, const CString& key)
    {
        FileObject opened;
        CString text = L"(missing)";
        if (opened.FileOpen(CString::FromUtf8(file), FileMode::openForReading)) {
            opened.GetItem(CString::FromUtf8(section), key, text);
        }
        return text.ToUtf8();
    }
    std::string InProject(const CString& section, const CString& key) const
    {
        return Text(Project(), section.ToUtf8(), key);
    }
    /// Every file of the second machine's user directory but the lock, and the project, by content.
    std::map<std::string, std::string> FilesB() const
    {
        std::map<std::string, std::string> files = {{"survey.prj", Read("survey.prj")}};
        if (std::filesystem::exists(Path("userB"))) {
            for (const std::string& name : FilesIn("userB")) {
                if (name != "zorusergeobase.lock") {
                    files[name] = Read("userB/" + name);
                }
            }
        }
        return files;
    }
};
