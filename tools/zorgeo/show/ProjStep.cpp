#include "show/ProjStep.h"

#include <array>
#include <charconv>

namespace {

// The smallest double has 324 zeros behind the point and 17 digits.
constexpr std::size_t kLongestNumber = 400;

std::string PlainDecimal(double value)
{
    std::array<char, kLongestNumber> text{};
    const double unsignedZero = value == 0.0 ? 0.0 : value;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), unsignedZero, std::chars_format::fixed).ptr;
    return {text.data(), end};
}

} // namespace

ProjStep& ProjStep::With(const char* parameter, double value)
{
    return With(parameter, PlainDecimal(value).c_str());
}

ProjStep& ProjStep::WithUnlessZero(const char* parameter, double value)
{
    return value == 0.0 ? *this : With(parameter, value);
}

ProjStep& ProjStep::With(const char* parameter, const char* value)
{
    m_text.append(" +").append(parameter).append("=").append(value);
    return *this;
}

ProjStep& ProjStep::Flag(const char* name)
{
    m_text.append(" +").append(name);
    return *this;
}

ProjStep& ProjStep::On(const EllipsoidParameters& ellipsoid)
{
    if (ellipsoid.e2 == 0.0) {
        return With("R", ellipsoid.a);
    }
    return With("a", ellipsoid.a).With("es", ellipsoid.e2);
}
