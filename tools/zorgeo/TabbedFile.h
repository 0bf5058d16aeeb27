#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A text file with a record to the line, its fields apart by tabs. Empty lines and lines that
/// begin with # are no records; a line may end with CR LF.
class TabbedFile {
public:
    /// Reads the file whole. Throws ToolError (3) with `remedy` when that fails.
    TabbedFile(const std::string& path, const std::string& remedy);

    /// Goes to the next record. False at the end, `fields` untouched. The fields live as long as this.
    bool Next(std::vector<std::string_view>& fields);
    /// "path:line: " of the record last read, before what is wrong with it.
    std::string Place() const;

private:
    std::string m_path;
    std::string m_text;
    std::size_t m_next = 0;
    int m_line = 0;
};
