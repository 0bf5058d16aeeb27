#include "convert/BlockReader.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include <fmt/format.h>

#include "ToolError.h"
#include "platform/Platform.h"

namespace {

constexpr std::size_t kReadSize = std::size_t{128} << 10;
constexpr std::string_view kByteOrder = "\xEF\xBB\xBF";

[[noreturn]] void Fail(const std::string& name, int error)
{
    throw ToolError(ExitStatus::inputOutput, fmt::format("{}: {}", name, host::ErrorText(error)));
}

/// The end of the text's last whole line.
std::size_t EndOfLines(std::string_view text)
{
    const auto last = text.rfind('\n');
    return last == std::string_view::npos ? 0 : last + 1;
}

} // namespace

bool IsPassedThrough(const char* begin, const char* end)
{
    if (begin != end && *begin == '#') {
        return true;
    }
    return std::all_of(begin, end, [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
}

BlockReader::BlockReader(const std::vector<std::string>& files, ColumnRequest columns)
    : m_files(files), m_columns(std::move(columns)), m_bytesInAll(0)
{
    for (const std::string& file : m_files) {
        std::error_code error;
        const auto path = host::PathOf(file);
        if (file == "-") {
            m_bytesInAll.reset();
        } else if (const auto status = std::filesystem::status(path, error); !std::filesystem::exists(status)) {
            Fail(file, ENOENT);
        } else if (std::filesystem::is_directory(status)) {
            Fail(file, EISDIR);
        } else if (!std::filesystem::is_regular_file(status)) {
            m_bytesInAll.reset();
        } else if (m_bytesInAll) {
            *m_bytesInAll += std::filesystem::file_size(path, error);
        }
    }
}

BlockReader::~BlockReader()
{
    CloseInput();
}

void BlockReader::CloseInput()
{
    if (m_file > host::kStderr) {
        host::Close(m_file);
    }
    m_file = -1;
}

bool BlockReader::OpenNext()
{
    CloseInput();
    if (m_next == m_files.size()) {
        return false;
    }
    const std::string& name = m_files[m_next++];
    m_file = name == "-" ? host::kStdin : host::OpenForReading(host::PathOf(name));
    if (m_file < 0) {
        Fail(name, errno);
    }
    m_lines = nullptr;
    m_line = 1;
    m_atEnd = false;
    m_inLongLine = false;
    return true;
}

bool BlockReader::ReadMore(TextBuffer& text)
{
    const long long count = host::Read(m_file, text.Room(kReadSize), kReadSize);
    if (count < 0) {
        Fail(Name(), errno);
    }
    text.Advance(static_cast<std::size_t>(count));
    m_bytesRead += static_cast<std::uint64_t>(count);
    m_atEnd = count == 0;
    return count > 0;
}

bool BlockReader::Next(Block& block)
{
    for (;;) {
        if (m_file < 0 && !OpenNext()) {
            return false;
        }
        block.text.Clear();
        block.name = &Name();
        block.lines = m_lines;
        block.closeLine = false;
        block.firstLine = m_line;
        if (!m_atEnd && (m_inLongLine ? NextOfLongLine(block) : NextLines(block))) {
            return true;
        }
        if (m_atEnd) {
            CloseInput();
        }
    }
}

bool BlockReader::NextOfLongLine(Block& block)
{
    block.kind = Block::Kind::longLineMore;
    if (!ReadMore(block.text)) {
        return false;
    }
    if (const auto end = block.text.View().find('\n'); end != std::string_view::npos) {
        const std::string_view rest = block.text.View().substr(end + 1);
        m_carry.Clear();
        m_carry.Append(rest);
        block.text.Truncate(end + 1);
        m_inLongLine = false;
        ++m_line;
    }
    return true;
}

bool BlockReader::NextLines(Block& block)
{
    block.kind = Block::Kind::lines;
    block.text.Append(m_carry.View());
    m_carry.Clear();
    std::size_t whole = 0;
    while (whole == 0) {
        const bool more = ReadMore(block.text);
        whole = more ? EndOfLines(block.text.View()) : block.text.Size();
        if (!more) {
            break;
        }
        if (whole == 0 && block.text.Size() > kLongestLine) {
            block.kind = Block::Kind::longLine;
            m_inLongLine = true;
            return true;
        }
    }
    if (whole == 0) {
        return false;
    }
    m_carry.Append(block.text.View().substr(whole));
    block.text.Truncate(whole);
    const std::string_view lines = block.text.View();
    m_line += static_cast<std::uint64_t>(std::count(lines.begin(), lines.end(), '\n'));
    block.closeLine = lines.back() != '\n' && m_next < m_files.size();
    if (m_lines == nullptr) {
        SettleLayout(block);
    }
    block.lines = m_lines;
    return true;
}

void BlockReader::SettleLayout(const Block& block)
{
    std::string_view lines = block.text.View();
    std::uint64_t line = block.firstLine;
    const bool atStartOfInput = line == 1;
    if (atStartOfInput && lines.starts_with(kByteOrder)) {
        lines.remove_prefix(kByteOrder.size());
    }
    for (; !lines.empty(); ++line) {
        const auto length = std::min(lines.find('\n'), lines.size());
        std::string_view text = lines.substr(0, length);
        if (text.ends_with('\r')) {
            text.remove_suffix(1);
        }
        if (!IsPassedThrough(text.data(), text.data() + text.size()) && text.size() <= kLongestLine) {
            InputLines& settled = m_settled.emplace_back();
            settled.layout = FindLayout(m_columns, text, Name());
            settled.headerLine = settled.layout.hasHeader ? line : 0;
            m_lines = &settled;
            return;
        }
        lines.remove_prefix(std::min(length + 1, lines.size()));
    }
}
