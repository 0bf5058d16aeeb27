#include "base/platform/MessageBox.h"

#include "base/files/SplitPath.h"
#include "base/registry/ExecutablePath.h"

// Behind the headers of the base layer, whose names its macros would change.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace {

/// The name of the running program, which stands above a message.
CString ProgramName()
{
    CString file;
    CString directory;
    CString title;
    CString extension;
    if (ExecutablePath(file)) {
        SplitPath(file, directory, title, extension);
    }
    return title;
}

} // namespace

namespace platform {

void ShowMessage(const CString& text, MessageIcon icon)
{
    const UINT style = icon == MessageIcon::exclamation ? MB_OK | MB_ICONEXCLAMATION : MB_OK;
    MessageBoxW(GetActiveWindow(), text.GetString(), ProgramName().GetString(), style);
}

} // namespace platform
