#include "base/files/SectionReader.h"

#include <charconv>
#include <cstdint>
#include <cstring>
#include <utility>

#include "base/files/WellFormed.h"
#include "base/text/CodePoints.h"
#include "base/text/Utf8.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr bool IsSpace(char character) noexcept
{
    return character == ' ' || character == '\t';
}

// Not the blanks of base/text/Blanks.h: no other character is dropped from a line's ends.
std::string_view WithoutSpaces(std::string_view text) noexcept
{
    while (!text.empty() && IsSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Whether one of eight bytes is a control character or no ASCII. May be true without need.
bool HasUnusual(const char* bytes) noexcept
{
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t highs = 0x8080808080808080;

    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes, sizeof eight);
    return ((eight | (eight - 0x20 * ones)) & highs) != 0;
}

// Length of the run of plain ASCII at the beginning of `text`.
std::size_t PlainRun(std::string_view text) noexcept
{
    std::size_t length = 0;
    while (length + 8 <= text.size() && !HasUnusual(text.data() + length)) {
        length += 8;
    }
    while (length < text.size() && static_cast<unsigned char>(text[length]) >= 0x20 &&
           static_cast<unsigned char>(text[length]) < 0x80) {
        ++length;
    }
    return length;
}

} // namespace

SectionReader::SectionReader(std::shared_ptr<const std::string> text) : m_text(std::move(text)), m_contents(m_text) {}

bool SectionReader::Read(SectionContents& contents, TextFault& fault)
{
    std::string_view rest = *m_text;
    if (rest.starts_with(kByteOrderMark)) {
        rest.remove_prefix(kByteOrderMark.size());
    }
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        // Also of a last line that has lost its LF alone, as in a file that was cut there.
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
        ++m_line;
        if (!ReadLine(line)) {
            fault = m_fault;
            return false;
        }
    }
    EndSection();
    contents = std::move(m_contents);
    return true;
}

bool SectionReader::ReadLine(std::string_view line)
{
    if (!CheckCharacters(line)) {
        return false;
    }
    line = WithoutSpaces(line);
    if (line.empty() || line.front() == ';') {
        return true;
    }
    return line.front() == '[' ? ReadSection(line) : ReadEntry(line);
}

bool SectionReader::ReadSection(std::string_view line)
{
    if (line.back() != ']') {
        return Fail(L"a section line must end in ']'");
    }
    EndSection();
    line = line.substr(1, line.size() - 2);
    if (!Unescape(WithoutSpaces(line), m_section.name)) {
        return false;
    }
    const std::size_t earlier = m_contents.Find(m_section.name.Get());
    if (earlier != SectionContents::kNone) {
        CString reason;
        reason.Format(L"section \"%s\" stands here and in line %d", std::string(m_section.name.Get()),
                      m_sectionLines[earlier]);
        return Fail(reason);
    }
    m_inSection = true;
    m_sectionLines.push_back(m_line);
    return true;
}

bool SectionReader::ReadEntry(std::string_view line)
{
    const std::size_t equals = line.find('=');
    if (equals == line.npos) {
        return Fail(L"neither a section nor a key with '='");
    }
    if (!m_inSection) {
        return Fail(L"a key before the first section");
    }
    SectionEntry entry;
    if (!Unescape(WithoutSpaces(line.substr(0, equals)), entry.key) ||
        !Unescape(WithoutSpaces(line.substr(equals + 1)), entry.value)) {
        return false;
    }
    const std::size_t earlier = m_section.entries.Find(entry.key.Get());
    if (earlier != SectionContents::kNone) {
        CString reason;
        reason.Format(L"key \"%s\" stands here and in line %d", std::string(entry.key.Get()), m_keyLines[earlier]);
        return Fail(reason);
    }
    m_section.entries.Add(std::move(entry));
    m_keyLines.push_back(m_line);
    return true;
}

bool SectionReader::CheckCharacters(std::string_view line)
{
    for (std::size_t position = PlainRun(line); position < line.size(); position += PlainRun(line.substr(position))) {
        char32_t code = 0;
        if (!NextWellFormed(line, position, code)) {
            return Fail(L"the text is not UTF-8");
        }
        if (code < 0x20 && code != U'\t') {
            CString reason;
            reason.Format(L"control character U+%04X", static_cast<unsigned>(code));
            return Fail(reason);
        }
    }
    return true;
}

bool SectionReader::Unescape(std::string_view raw, StoredText& text)
{
    std::size_t escape = raw.find('\\');
    if (escape == raw.npos) {
        text = StoredText::In(raw);
        return true;
    }
    std::string plain;
    for (; escape != raw.npos; escape = raw.find('\\')) {
        plain.append(raw, 0, escape);
        raw.remove_prefix(escape + 1);
        if (!UnescapeOne(raw, plain)) {
            return Fail(L"a backslash must be followed by a second one or by a code point, as in \\{20}");
        }
    }
    text = StoredText::CopyOf(plain.append(raw));
    return true;
}

// Takes what follows a backslash off `raw`.
bool SectionReader::UnescapeOne(std::string_view& raw, std::string& text)
{
    constexpr std::size_t mostDigits = 6;

    if (raw.starts_with('\\')) {
        text += '\\';
        raw.remove_prefix(1);
        return true;
    }
    const std::size_t end = raw.find('}');
    if (!raw.starts_with('{') || end == raw.npos || end - 1 > mostDigits) {
        return false;
    }
    unsigned code = 0;
    const char* last = raw.data() + end;
    const auto [stop, error] = std::from_chars(raw.data() + 1, last, code, 16);
    if (error != std::errc() || stop != last || !unicode::IsScalarValue(code)) {
        return false;
    }
    utf8::Append(char32_t{code}, text);
    raw.remove_prefix(end + 1);
    return true;
}

void SectionReader::EndSection()
{
    if (m_inSection) {
        m_contents.Add(std::move(m_section));
    }
    m_section = {};
    m_inSection = false;
    m_keyLines.clear();
}

bool SectionReader::Fail(CString reason)
{
    m_fault = {m_line, std::move(reason)};
    return false;
}
