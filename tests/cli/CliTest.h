#pragma once

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunTool.h"
#include "TestDatabase.h"
#include "tests/support/TempDirectory.h"

/// A directory with a database of its own, and the program run with it.
class CliTest : public testing::Test {
protected:
    CliTest();

    std::string Path(const std::string& name) const { return (m_directory.Path() / name).string(); }
    std::string MainDatabase() const { return Path("data/zorgeodatabase.geo"); }
    std::string Catalogue() const { return Path("data/ZorProjectionStatic.dat"); }
    void Write(const std::string& name, const std::string& content) const { m_directory.Write(name, content); }
    std::string Read(const std::string& name) const { return m_directory.Read(name); }
    std::vector<std::string> FilesIn(const std::string& directory) const;

    /// Any command with this database.
    ToolRun Run(std::vector<std::string> arguments, const ToolStreams& streams = {}) const;
    /// `convert system --from sat --to grid` with further arguments.
    ToolRun Convert(const std::string& system, const std::string& input, std::vector<std::string> more = {}) const;
    ToolRun ConvertFrom(const std::string& system, const std::string& from, const std::string& to,
                        const std::string& input, std::vector<std::string> more = {}) const;

    /// The numbers of a line, blanks between them.
    static std::vector<double> Numbers(const std::string& line);

private:
    TempDirectory m_directory;
};
