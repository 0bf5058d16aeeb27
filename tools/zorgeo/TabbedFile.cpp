#include "TabbedFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <fmt/format.h>

#include "ToolError.h"
#include "platform/Platform.h"

TabbedFile::TabbedFile(const std::string& path, const std::string& remedy) : m_path(path)
{
    const std::filesystem::path file = host::PathOf(path);
    std::error_code error;
    const bool isFile = std::filesystem::is_regular_file(file, error);
    const auto size = isFile ? std::filesystem::file_size(file, error) : 0;
    std::ifstream stream(file, std::ios::binary);
    m_text.resize(error ? 0 : static_cast<std::size_t>(size));
    if (!isFile || error || !stream.read(m_text.data(), static_cast<std::streamsize>(m_text.size()))) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}: {}; {}", path, isFile ? "it cannot be read" : "no such file", remedy));
    }
}

bool TabbedFile::Next(std::vector<std::string_view>& fields)
{
    while (m_next < m_text.size()) {
        const std::size_t end = std::min(m_text.find('\n', m_next), m_text.size());
        std::string_view line = std::string_view(m_text).substr(m_next, end - m_next);
        m_next = end + 1;
        ++m_line;
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (line.empty() || line.front() == '#') {
            continue;
        }
        fields.clear();
        for (std::size_t tab = line.find('\t'); tab != std::string_view::npos; tab = line.find('\t')) {
            fields.push_back(line.substr(0, tab));
            line.remove_prefix(tab + 1);
        }
        fields.push_back(line);
        return true;
    }
    return false;
}

std::string TabbedFile::Place() const
{
    return fmt::format("{}:{}: ", m_path, m_line);
}
