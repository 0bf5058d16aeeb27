#include "base/text/CZorString.h"

#include <string_view>
#include <utility>

#include "base/text/Blanks.h"
#include "base/text/Numbers.h"

CZorString::CZorString(wchar_t separator) : m_separator(separator) {}

CZorString::CZorString(const CString& text, wchar_t separator, bool trim, bool skipEmpty) : m_separator(separator)
{
    LoadString(text, trim, skipEmpty);
}

CZorString::~CZorString() = default;

void CZorString::LoadString(const CString& text, bool trim, bool skipEmpty)
{
    std::vector<CString> items;
    std::wstring_view rest = text.View();
    for (bool more = !rest.empty(); more;) {
        const std::size_t end = rest.find(m_separator);
        std::wstring_view item = rest.substr(0, end);
        if (trim) {
            item = WithoutLeadingBlanks(WithoutTrailingBlanks(item));
        }
        if (!item.empty() || !skipEmpty) {
            items.emplace_back(item);
        }
        more = end != rest.npos;
        rest.remove_prefix(more ? end + 1 : rest.size());
    }
    m_items = std::move(items);
}

int CZorString::GetCount() const noexcept
{
    return static_cast<int>(m_items.size());
}

bool CZorString::GetItem(int index, double& value) const
{
    const CString* item = ItemAt(index);
    return item != nullptr && numbers::Read(item->ToUtf8(), value);
}

bool CZorString::GetItem(int index, unsigned& value) const
{
    const CString* item = ItemAt(index);
    return item != nullptr && numbers::Read(item->ToUtf8(), value);
}

bool CZorString::GetItem(int index, CString& value) const
{
    const CString* item = ItemAt(index);
    if (item == nullptr) {
        return false;
    }
    value = *item;
    return true;
}

const CString* CZorString::ItemAt(int index) const noexcept
{
    return index < 0 || index >= GetCount() ? nullptr : &m_items[static_cast<std::size_t>(index)];
}
