#include "base/platform/MessageBox.h"

#include <cstdio>
#include <string>

namespace platform {

void ShowMessage(const CString& text, MessageIcon /*icon*/)
{
    // One write, so that the lines of two threads do not mix.
    const std::string line = text.ToUtf8() + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace platform
