#include "base/files/SplitPath.h"

#include <string_view>

#include "base/platform/Platform.h"

namespace {

constexpr std::wstring_view kSeparators = L"/\\";

} // namespace

void SplitPath(const CString& full, CString& directory, CString& title, CString& extension)
{
    // Taken before the outputs change: one of them may be `full` itself.
    const std::wstring whole(full.View());
    const std::wstring_view path = whole;

    const std::size_t separator = path.find_last_of(kSeparators);
    const std::size_t name = separator == path.npos ? 0 : separator + 1;
    std::size_t dot = path.find_last_of(L'.');
    // Dots that begin a name, as in ".rc" and "..", begin no extension.
    const std::size_t firstLetter = path.find_first_not_of(L'.', name);
    if (dot == path.npos || dot < name || firstLetter == path.npos || dot < firstLetter) {
        dot = path.size();
    }
    directory = CString(path.substr(0, name));
    title = CString(path.substr(name, dot - name));
    extension = CString(path.substr(dot));
}

CString WithSeparator(const CString& path)
{
    if (path.IsEmpty() || kSeparators.find(path.View().back()) != kSeparators.npos) {
        return path;
    }
    return path + platform::kSeparator;
}
