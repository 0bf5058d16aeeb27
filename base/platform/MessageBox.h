#pragma once

#include "base/desk/Desk.h"

namespace platform {

/// Shows a message to the user where no host shows messages itself. Returns when the user has
/// seen it, on a platform that can know.
void ShowMessage(const CString& text, MessageIcon icon);

} // namespace platform
