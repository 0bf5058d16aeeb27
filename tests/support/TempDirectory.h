#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include "base/text/CString.h"

/// A fresh directory for one test, removed with everything in it at the end.
class TempDirectory {
public:
    TempDirectory()
    {
        static std::atomic<unsigned> next{0};
        const auto base = std::filesystem::temp_directory_path();
        do {
            m_path = base / ("zorgeo-test-" + std::to_string(std::filesystem::hash_value(base)) + "-" +
                             std::to_string(reinterpret_cast<std::uintptr_t>(&next) ^ ProcessId()) + "-" +
                             std::to_string(next++));
        } while (!std::filesystem::create_directory(m_path));
    }
    ~TempDirectory()
    {
        std::error_code ignored;
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, std::filesystem::perm_options::add,
                                     ignored);
        std::filesystem::remove_all(m_path, ignored);
    }
    TempDirectory(const TempDirectory&)            = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    /// The directory with its trailing separator.
    CString Directory() const { return CString::FromUtf8((m_path / "").string()); }
    CString File(std::string_view name) const { return CString::FromUtf8((m_path / name).string()); }

    CString Write(std::string_view name, std::string_view content) const
    {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << content;
        return File(name);
    }
    std::string Read(std::string_view name) const
    {
        std::ostringstream content;
        content << std::ifstream(m_path / name, std::ios::binary).rdbuf();
        return content.str();
    }

private:
    static std::uintptr_t ProcessId();
    std::filesystem::path m_path;
};

#if defined(_WIN32)
#include <process.h>
inline std::uintptr_t TempDirectory::ProcessId() { return static_cast<std::uintptr_t>(_getpid()); }
#else
#include <unistd.h>
inline std::uintptr_t TempDirectory::ProcessId() { return static_cast<std::uintptr_t>(getpid()); }
#endif
