#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/Export.h"
#include "base/text/FormatArgument.h"

/// The framework's wide string, with value semantics.
///
/// Holds wchar_t code units: UTF-16 on Windows, UTF-32 elsewhere. Positions and lengths count
/// code units. Files and terminals hold UTF-8; FromUtf8 and ToUtf8 are the only doors between
/// the two. Nothing here reads the process locale: case rules come from a fixed table of
/// Unicode's simple case mappings, numbers are written as in the "C" locale.
/// A null `const wchar_t*` stands for the empty string wherever one is taken.
/// (The spelling of the operations is part of the interface.)
class ZORBASE_API CString {
public:
    CString() noexcept = default;
    CString(const wchar_t* text);
    CString(const wchar_t* text, int length); ///< a negative length gives the empty string
    CString(std::wstring text) noexcept;
    explicit CString(std::wstring_view text);
    CString(wchar_t character, int count);

    CString(const CString&) = default;
    CString(CString&&) noexcept = default;
    CString& operator=(const CString&) = default;
    CString& operator=(CString&&) noexcept = default;
    CString& operator=(const wchar_t* text);
    ~CString() = default;

    /// Text from UTF-8; each maximal part of an ill-formed sequence becomes one U+FFFD.
    static CString FromUtf8(std::string_view utf8);
    /// The text as UTF-8; an unpaired surrogate becomes U+FFFD.
    std::string ToUtf8() const;
    /// The same, put behind what `out` holds, so that a caller can reuse its buffer.
    void AppendUtf8To(std::string& out) const;

    int GetLength() const noexcept;
    bool IsEmpty() const noexcept;
    void Empty() noexcept;
    const wchar_t* GetString() const noexcept; ///< zero-terminated, valid until the next change
    std::wstring_view View() const noexcept;
    const std::wstring& Std() const noexcept;
    /// The code unit at `index`. Throws std::out_of_range outside [0, length).
    wchar_t GetAt(int index) const;
    wchar_t operator[](int index) const;
    void SetAt(int index, wchar_t character);

    CString& operator+=(const CString& text);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t character);
    void Append(const CString& text);

    /// First position at or after `start`, or -1, also for a start outside [0, length]. An empty
    /// `text` is found at `start`.
    int Find(const wchar_t* text, int start = 0) const;
    int Find(const CString& text, int start = 0) const;
    int Find(wchar_t character, int start = 0) const;
    /// Last position, or -1.
    int ReverseFind(wchar_t character) const;

    CString Left(int count) const;  ///< at most `count` units; a negative count gives none
    CString Right(int count) const; ///< likewise
    CString Mid(int first) const;   ///< from `first` on; a negative position is 0
    CString Mid(int first, int count) const;
    /// Removes up to `count` units from `index` on and returns the new length.
    int Delete(int index, int count = 1);
    /// Puts `text` before `index`, taken into [0, length], and returns the new length.
    int Insert(int index, const CString& text);
    /// Replaces every occurrence from left to right; returns how many. An empty `from` has none.
    int Replace(const CString& from, const CString& to);
    /// The Trim operations take off blanks as base/text/Blanks.h defines them.
    CString& Trim();
    CString& TrimLeft();
    CString& TrimRight();
    CString& TrimRight(wchar_t character);
    CString& MakeUpper(); ///< character by character; the length stays
    CString& MakeLower();

    /// Order by code points, the same on every platform: negative, 0 or positive.
    int Compare(const CString& other) const noexcept;
    int Compare(const wchar_t* other) const noexcept;
    /// The same after simple case folding.
    int CompareNoCase(const CString& other) const noexcept;
    int CompareNoCase(const wchar_t* other) const noexcept;

    /// Replaces the content by `format` with its directives filled in, as printf does in the
    /// "C" locale: flags - + space # 0, width, precision, * for both, and the conversions
    /// d i u x X o c s f F e E g G %. Length modifiers (h, l, ll, j, z, t, L, I32, I64) are
    /// accepted and have no effect, since every argument knows its own type. %s takes wide and
    /// narrow (UTF-8) text alike, %c a character or the number of one; both measure width and
    /// precision in characters (code points). Floating conversions take integers too.
    /// Throws std::invalid_argument when an argument is missing, its type does not suit the
    /// conversion, the directive is none of these, or a width or precision is beyond a million;
    /// the string is then unchanged. Arguments beyond the directives are ignored.
    template <typename... Arguments>
    void Format(const CString& format, const Arguments&... arguments)
    {
        FormatWith(format, {FormatArgument(arguments)...});
    }
    /// The same, put behind the present content.
    template <typename... Arguments>
    void AppendFormat(const CString& format, const Arguments&... arguments)
    {
        CString text;
        text.Format(format, arguments...);
        *this += text;
    }
    void FormatWith(const CString& format, std::initializer_list<FormatArgument> arguments);

    /// Loads text number `id` from the string table that a module gave to LoadDLLResourceDLL
    /// (base/desk/StringTable.h). False, with the content unchanged, when no table has it.
    bool LoadString(unsigned id);

    friend bool operator==(const CString& a, const CString& b) noexcept { return a.m_text == b.m_text; }
    friend bool operator==(const CString& a, const wchar_t* b) noexcept
    {
        return a.View() == (b == nullptr ? std::wstring_view() : std::wstring_view(b));
    }
    friend bool operator<(const CString& a, const CString& b) noexcept { return a.Compare(b) < 0; }

private:
    std::wstring m_text;
};

ZORBASE_API CString operator+(const CString& a, const CString& b);
ZORBASE_API CString operator+(const CString& a, const wchar_t* b);
ZORBASE_API CString operator+(const wchar_t* a, const CString& b);
ZORBASE_API CString operator+(const CString& a, wchar_t b);
// A chain of additions appends to its first result.
ZORBASE_API CString operator+(CString&& a, const CString& b);
ZORBASE_API CString operator+(CString&& a, const wchar_t* b);
ZORBASE_API CString operator+(CString&& a, wchar_t b);

/// Appends and returns the string.
ZORBASE_API CString& operator<<(CString& target, const CString& text);
ZORBASE_API CString& operator<<(CString& target, const wchar_t* text);
/// Writes the text to a wide stream; the stream's width and fill do not apply.
ZORBASE_API std::wostream& operator<<(std::wostream& stream, const CString& text);

template <>
struct std::hash<CString> {
    std::size_t operator()(const CString& text) const noexcept { return std::hash<std::wstring_view>{}(text.View()); }
};
