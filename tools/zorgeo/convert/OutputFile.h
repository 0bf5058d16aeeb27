#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Where the lines go: standard output, or a file that appears whole or not at all. A file is
/// written under a temporary name beside the final one and renamed by Finish; an object that is
/// destroyed before leaves nothing behind. A device or pipe is written directly.
class OutputFile {
public:
    /// An empty name or "-" is standard output. Throws ToolError (4).
    explicit OutputFile(const std::string& file);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Throws ToolError (4) naming the file and what is wrong.
    void Write(std::string_view text);
    /// Puts the file in its place. Throws ToolError (4).
    void Finish();

private:
    [[noreturn]] void Fail(int error) const;
    void OpenTemporary();

    std::string m_name;
    std::filesystem::path m_final;
    std::filesystem::path m_temporary; // empty when none is in use
    int m_file;
};
