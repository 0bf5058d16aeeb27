#pragma once

#include <string>
#include <string_view>

#include "base/Export.h"
#include "base/text/CString.h"

/// Numbers as text, independent of any locale. Every reader takes the whole text, blanks at its
/// ends aside, and answers false with the output untouched when it is not such a number or does
/// not fit the type: one beyond its range, and for a floating type also one that is not 0 and too
/// small for it. Digits are decimal, a leading plus sign is allowed, a comma never. NaN and infinity
/// are written "nan", "inf" and "-inf" and read back, in any case of letters.
namespace numbers {

/// The shortest decimal that reads back to the same double.
ZORBASE_API std::string ToText(double value);
ZORBASE_API bool Read(std::string_view text, double& value);
ZORBASE_API bool Read(std::string_view text, float& value);
ZORBASE_API bool Read(std::string_view text, int& value);
ZORBASE_API bool Read(std::string_view text, long& value);
ZORBASE_API bool Read(std::string_view text, long long& value);
ZORBASE_API bool Read(std::string_view text, unsigned& value);
ZORBASE_API bool Read(std::string_view text, unsigned long& value);
ZORBASE_API bool Read(std::string_view text, unsigned long long& value);
/// 1 and 0, and the words true and false in any case of letters.
ZORBASE_API bool Read(std::string_view text, bool& value);

/// The leading decimal integer of a text, as the C library's atoi reads it: leading blanks
/// are skipped, what follows the digits is ignored, a text without digits is 0. A number beyond
/// the range of int gives the nearer end of it.
ZORBASE_API int LeadingInteger(const CString& text);

} // namespace numbers
