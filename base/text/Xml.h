#pragma once

#include "base/Export.h"
#include "base/text/CString.h"

/// Escapes in place what may not stand in XML 1.0 text: & < > " ' become entities, a character
/// that XML cannot hold at all becomes U+FFFD.
ZORBASE_API void MakeXmlCompatible(CString& text);
