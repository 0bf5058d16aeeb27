#include "convert/OutputFile.h"

#include <cerrno>

#include <fmt/format.h>

#include "ToolError.h"
#include "platform/Platform.h"

OutputFile::OutputFile(const std::string& file)
    : m_name(file.empty() || file == "-" ? "standard output" : file), m_file(host::kStdout)
{
    if (file.empty() || file == "-") {
        if (!host::StandardOutputIsOpen()) {
            throw ToolError(ExitStatus::inputOutput, "standard output is closed");
        }
        return;
    }
    std::error_code error;
    // Behind a symbolic link stands the file that is meant; the link stays.
    m_final = std::filesystem::weakly_canonical(host::PathOf(file), error);
    m_final = error ? host::PathOf(file) : m_final;
    const auto status = std::filesystem::status(m_final, error);
    if (std::filesystem::is_directory(status)) {
        Fail(EISDIR);
    }
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        m_file = host::OpenForWriting(m_final);
    } else {
        OpenTemporary();
    }
    if (m_file < 0) {
        Fail(errno);
    }
}

void OutputFile::OpenTemporary()
{
    auto temporary = m_final;
    temporary += fmt::format(".{}.part", host::ProcessId());
    m_file = host::CreateNewFile(temporary);
    if (m_file < 0) {
        return;
    }
    m_temporary = temporary;
    host::RemoveOnInterrupt({m_temporary});
    std::error_code ignored;
    if (const auto status = std::filesystem::status(m_final, ignored); std::filesystem::exists(status)) {
        std::filesystem::permissions(m_temporary, status.permissions(), ignored);
    }
}

OutputFile::~OutputFile()
{
    if (m_file > host::kStderr) {
        host::Close(m_file);
    }
    if (!m_temporary.empty()) {
        std::error_code ignored;
        std::filesystem::remove(m_temporary, ignored);
        host::RemoveOnInterrupt({});
    }
}

void OutputFile::Fail(int error) const
{
    throw ToolError(ExitStatus::inputOutput, fmt::format("{}: {}", m_name, host::ErrorText(error)));
}

void OutputFile::Write(std::string_view text)
{
    if (const int error = host::WriteAll(m_file, text.data(), text.size()); error != 0) {
        Fail(error);
    }
}

void OutputFile::Finish()
{
    if (m_temporary.empty()) {
        return;
    }
    const int file = m_file;
    m_file = -1;
    if (const int error = host::SyncAndClose(file); error != 0) {
        Fail(error);
    }
    std::error_code error;
    std::filesystem::rename(m_temporary, m_final, error);
    if (error) {
        Fail(error.value());
    }
    m_temporary.clear();
    host::RemoveOnInterrupt({});
}
