#include "base/text/CString.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>
#include <utility>

#include "base/text/Blanks.h"
#include "base/text/CaseMapping.h"
#include "base/text/CodePoints.h"
#include "base/text/PrintfFormat.h"
#include "base/text/Utf8.h"

namespace {

std::wstring_view TextOf(const wchar_t* text)
{
    return text == nullptr ? std::wstring_view() : std::wstring_view(text);
}

CString Joined(std::wstring_view a, std::wstring_view b)
{
    std::wstring text;
    text.reserve(a.size() + b.size());
    text.append(a).append(b);
    return text;
}

// A count or position of the interface as an offset into a text of `size` units.
std::size_t Within(int position, std::size_t size)
{
    return position <= 0 ? 0 : std::min(static_cast<std::size_t>(position), size);
}

// What a search found, as the interface tells it.
int PositionOf(std::size_t found)
{
    return found == std::wstring::npos ? -1 : static_cast<int>(found);
}

std::size_t CheckedIndex(int index, std::size_t size)
{
    if (index < 0 || static_cast<std::size_t>(index) >= size) {
        throw std::out_of_range("CString: index out of range");
    }
    return static_cast<std::size_t>(index);
}

} // namespace

CString::CString(const wchar_t* text) : m_text(TextOf(text)) {}

CString::CString(const wchar_t* text, int length)
    : m_text(text == nullptr || length <= 0 ? std::wstring_view()
                                            : std::wstring_view(text, static_cast<std::size_t>(length)))
{
}

CString::CString(std::wstring text) noexcept : m_text(std::move(text)) {}

CString::CString(std::wstring_view text) : m_text(text) {}

CString::CString(wchar_t character, int count) : m_text(static_cast<std::size_t>(std::max(count, 0)), character) {}

CString& CString::operator=(const wchar_t* text)
{
    m_text = TextOf(text);
    return *this;
}

CString CString::FromUtf8(std::string_view utf8)
{
    return utf8::Decode<wchar_t>(utf8);
}

std::string CString::ToUtf8() const
{
    std::string out;
    AppendUtf8To(out);
    return out;
}

void CString::AppendUtf8To(std::string& out) const
{
    utf8::Append(View(), out);
}

int CString::GetLength() const noexcept
{
    return static_cast<int>(m_text.size());
}

bool CString::IsEmpty() const noexcept
{
    return m_text.empty();
}

void CString::Empty() noexcept
{
    m_text.clear();
}

const wchar_t* CString::GetString() const noexcept
{
    return m_text.c_str();
}

std::wstring_view CString::View() const noexcept
{
    return m_text;
}

const std::wstring& CString::Std() const noexcept
{
    return m_text;
}

wchar_t CString::GetAt(int index) const
{
    return m_text[CheckedIndex(index, m_text.size())];
}

wchar_t CString::operator[](int index) const
{
    return GetAt(index);
}

void CString::SetAt(int index, wchar_t character)
{
    m_text[CheckedIndex(index, m_text.size())] = character;
}

CString& CString::operator+=(const CString& text)
{
    m_text += text.m_text;
    return *this;
}

CString& CString::operator+=(const wchar_t* text)
{
    m_text += TextOf(text);
    return *this;
}

CString& CString::operator+=(wchar_t character)
{
    m_text += character;
    return *this;
}

void CString::Append(const CString& text)
{
    m_text += text.m_text;
}

int CString::Find(const wchar_t* text, int start) const
{
    return start < 0 ? -1 : PositionOf(View().find(TextOf(text), static_cast<std::size_t>(start)));
}

int CString::Find(const CString& text, int start) const
{
    return start < 0 ? -1 : PositionOf(View().find(text.View(), static_cast<std::size_t>(start)));
}

int CString::Find(wchar_t character, int start) const
{
    return start < 0 ? -1 : PositionOf(View().find(character, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(wchar_t character) const
{
    return PositionOf(View().rfind(character));
}

CString CString::Left(int count) const
{
    return CString(View().substr(0, Within(count, m_text.size())));
}

CString CString::Right(int count) const
{
    return CString(View().substr(m_text.size() - Within(count, m_text.size())));
}

CString CString::Mid(int first) const
{
    return CString(View().substr(Within(first, m_text.size())));
}

CString CString::Mid(int first, int count) const
{
    return CString(View().substr(Within(first, m_text.size()), Within(count, m_text.size())));
}

int CString::Delete(int index, int count)
{
    m_text.erase(Within(index, m_text.size()), Within(count, m_text.size()));
    return GetLength();
}

int CString::Insert(int index, const CString& text)
{
    m_text.insert(Within(index, m_text.size()), text.m_text);
    return GetLength();
}

int CString::Replace(const CString& from, const CString& to)
{
    const std::wstring_view text = View();
    const std::wstring_view old = from.View();
    if (old.empty()) {
        return 0;
    }
    std::wstring result;
    int count = 0;
    std::size_t start = 0;
    for (auto found = text.find(old); found != text.npos; found = text.find(old, start)) {
        result.append(text.substr(start, found - start)).append(to.View());
        start = found + old.size();
        ++count;
    }
    if (count > 0) {
        result.append(text.substr(start));
        m_text = std::move(result);
    }
    return count;
}

CString& CString::Trim()
{
    return TrimRight().TrimLeft();
}

CString& CString::TrimLeft()
{
    m_text.erase(0, m_text.size() - WithoutLeadingBlanks(View()).size());
    return *this;
}

CString& CString::TrimRight()
{
    m_text.resize(WithoutTrailingBlanks(View()).size());
    return *this;
}

CString& CString::TrimRight(wchar_t character)
{
    m_text.resize(m_text.find_last_not_of(character) + 1);
    return *this;
}

CString& CString::MakeUpper()
{
    unicode::MapInPlace(m_text.data(), m_text.size(), unicode::ToUpper);
    return *this;
}

CString& CString::MakeLower()
{
    unicode::MapInPlace(m_text.data(), m_text.size(), unicode::ToLower);
    return *this;
}

int CString::Compare(const CString& other) const noexcept
{
    return unicode::Compare(View(), other.View());
}

int CString::Compare(const wchar_t* other) const noexcept
{
    return unicode::Compare(View(), TextOf(other));
}

int CString::CompareNoCase(const CString& other) const noexcept
{
    return unicode::CompareNoCase(View(), other.View());
}

int CString::CompareNoCase(const wchar_t* other) const noexcept
{
    return unicode::CompareNoCase(View(), TextOf(other));
}

void CString::FormatWith(const CString& format, std::initializer_list<FormatArgument> arguments)
{
    m_text = PrintfFormat(format.View(), {arguments.begin(), arguments.size()}).Text();
}

CString operator+(const CString& a, const CString& b)
{
    return Joined(a.View(), b.View());
}

CString operator+(const CString& a, const wchar_t* b)
{
    return Joined(a.View(), TextOf(b));
}

CString operator+(const wchar_t* a, const CString& b)
{
    return Joined(TextOf(a), b.View());
}

CString operator+(const CString& a, wchar_t b)
{
    return Joined(a.View(), {&b, 1});
}

CString operator+(CString&& a, const CString& b)
{
    return std::move(a += b);
}

CString operator+(CString&& a, const wchar_t* b)
{
    return std::move(a += b);
}

CString operator+(CString&& a, wchar_t b)
{
    return std::move(a += b);
}

CString& operator<<(CString& target, const CString& text)
{
    return target += text;
}

CString& operator<<(CString& target, const wchar_t* text)
{
    return target += text;
}

std::wostream& operator<<(std::wostream& stream, const CString& text)
{
    return stream.write(text.GetString(), text.GetLength());
}
