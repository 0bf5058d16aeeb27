#pragma once

#include <vector>

#include "base/text/CString.h"

/// A string split into items at a separator, "0.3048,ft" into "0.3048" and "ft".
///
/// An empty text has no item, a text without the separator has one, and each separator begins
/// a further item, which may be empty.
class ZORBASE_API CZorString {
public:
    /// Empty, with this separator.
    explicit CZorString(wchar_t separator);
    /// The same, loaded with `text` at once. See LoadString for the two flags.
    CZorString(const CString& text, wchar_t separator, bool trim, bool skipEmpty);
    ~CZorString();

    /// Splits `text`, in place of what was loaded before. `trim` takes blanks off the ends of
    /// each item; `skipEmpty` drops items that are empty, so that those behind move up.
    void LoadString(const CString& text, bool trim, bool skipEmpty);

    int GetCount() const noexcept;
    /// The item as a number; the whole item must be one. False, output untouched, when there is
    /// no such item or it is no number.
    bool GetItem(int index, double& value) const;
    bool GetItem(int index, unsigned& value) const;
    /// The item's text. False, output untouched, when there is no such item.
    bool GetItem(int index, CString& value) const;

private:
    const CString* ItemAt(int index) const noexcept;

    wchar_t m_separator;
    std::vector<CString> m_items;
};
