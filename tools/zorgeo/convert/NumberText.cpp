#include "convert/NumberText.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace {

constexpr Fault kNoNumber = "no number";
constexpr Fault kNoAngle = "no angle";
constexpr Fault kNoEpoch = "no time: give a decimal year or an ISO date";

// A datum transformation reckons years of 365.25 days from 1970.
constexpr double kYearsPerMillisecond = 3.168808781402895e-11;
constexpr double kFirstYear = 1900.0;
constexpr double kLastYear = 2200.0;

bool IsDigit(char c) noexcept
{
    return c >= '0' && c <= '9';
}

/// Takes `mark` off the front.
bool Take(std::string_view& text, std::string_view mark) noexcept
{
    if (!text.starts_with(mark)) {
        return false;
    }
    text.remove_prefix(mark.size());
    return true;
}

bool TakeBlanks(std::string_view& text) noexcept
{
    const auto size = text.size();
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), size));
    return text.size() != size;
}

/// The sign of a hemisphere letter of this kind, 0 for no letter.
int TakeHemisphere(std::string_view& text, AngleKind kind, Fault& fault) noexcept
{
    if (text.empty()) {
        return 0;
    }
    const char letter = static_cast<char>(text.front() & ~0x20);
    const bool ofLatitude = letter == 'N' || letter == 'S';
    const bool ofLongitude = letter == 'E' || letter == 'W';
    if (!ofLatitude && !ofLongitude) {
        return 0;
    }
    if (ofLatitude != (kind == AngleKind::latitude)) {
        fault = ofLatitude ? "a longitude with a letter of latitude" : "a latitude with a letter of longitude";
    }
    text.remove_prefix(1);
    return letter == 'N' || letter == 'E' ? 1 : -1;
}

/// The spellings of the degree, the minute and the second sign.
constexpr std::string_view kDegreeSigns[] = {"\xC2\xB0", "\xC2\xBA", "\xB0", "d", "D"};
constexpr std::string_view kMinuteSigns[] = {"\xE2\x80\xB2", "\xE2\x80\x99", "\xC2\xB4", "'"};
constexpr std::string_view kSecondSigns[] = {"\xE2\x80\xB3", "\xE2\x80\x9D", "''", "\""};

struct Signs {
    const std::string_view* begin;
    const std::string_view* end;
};
constexpr Signs kSigns[] = {{std::begin(kDegreeSigns), std::end(kDegreeSigns)},
                            {std::begin(kMinuteSigns), std::end(kMinuteSigns)},
                            {std::begin(kSecondSigns), std::end(kSecondSigns)}};

bool TakeSign(std::string_view& text, int place) noexcept
{
    for (const std::string_view* sign = kSigns[place].begin; sign != kSigns[place].end; ++sign) {
        // The two strokes of a second are not a minute sign twice.
        if (place == 1 && text.starts_with("''")) {
            return false;
        }
        if (Take(text, *sign)) {
            return true;
        }
    }
    return false;
}

/// What stands between two numbers: a sign, a colon, a hyphen or blanks.
bool TakeSeparator(std::string_view& text, int place) noexcept
{
    const bool blanks = TakeBlanks(text);
    const bool sign = TakeSign(text, place) || Take(text, ":") || Take(text, "-");
    TakeBlanks(text);
    return blanks || sign;
}

/// Degrees, or degrees and minutes, or degrees, minutes and seconds, without sign.
Fault TakeParts(std::string_view& text, double& degrees) noexcept
{
    constexpr double kPerDegree[] = {1.0, 60.0, 3600.0};
    degrees = 0.0;
    for (int place = 0; place < 3; ++place) {
        if (text.empty() || (!IsDigit(text.front()) && text.front() != '.')) {
            return place == 0 ? kNoAngle : nullptr;
        }
        double part = 0.0;
        const auto read = std::from_chars(text.data(), text.data() + text.size(), part, std::chars_format::fixed);
        if (read.ec != std::errc()) {
            return kNoAngle;
        }
        const auto length = static_cast<std::size_t>(read.ptr - text.data());
        const bool isDecimal = text.substr(0, length).find('.') != std::string_view::npos;
        text.remove_prefix(length);
        if (place > 0 && part >= 60.0) {
            return place == 1 ? "minutes of 60 or more" : "seconds of 60 or more";
        }
        degrees += part / kPerDegree[place];
        const bool separated = TakeSeparator(text, place);
        const bool more = !text.empty() && (IsDigit(text.front()) || text.front() == '.');
        if (more && (!separated || isDecimal || place == 2)) {
            return kNoAngle;
        }
    }
    return nullptr;
}

bool TakeInteger(std::string_view& text, std::size_t digits, int& value) noexcept
{
    value = 0;
    if (text.size() < digits) {
        return false;
    }
    for (std::size_t i = 0; i < digits; ++i) {
        if (!IsDigit(text[i])) {
            return false;
        }
        value = value * 10 + (text[i] - '0');
    }
    text.remove_prefix(digits);
    return true;
}

/// "T12:00", "T12:00:00.5", each with or without Z; in seconds of the day.
Fault TakeTimeOfDay(std::string_view text, double& seconds) noexcept
{
    int hour = 0;
    int minute = 0;
    double s = 0.0;
    if (!(Take(text, "T") || Take(text, " ")) || !TakeInteger(text, 2, hour) || !Take(text, ":") ||
        !TakeInteger(text, 2, minute)) {
        return kNoEpoch;
    }
    if (text.ends_with('Z')) {
        text.remove_suffix(1);
    }
    if (!text.empty() &&
        (!Take(text, ":") || text.empty() || !IsDigit(text.front()) || ReadNumber(text, s) != nullptr)) {
        return kNoEpoch;
    }
    if (hour > 24 || minute > 59 || s >= 61.0) {
        return kNoEpoch;
    }
    seconds = hour * 3600.0 + minute * 60.0 + s;
    return nullptr;
}

Fault ReadDate(std::string_view text, double& milliseconds) noexcept
{
    int year = 0;
    int month = 0;
    int day = 0;
    if (!TakeInteger(text, 4, year) || !Take(text, "-") || !TakeInteger(text, 2, month) || !Take(text, "-") ||
        !TakeInteger(text, 2, day)) {
        return kNoEpoch;
    }
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    double seconds = 0.0;
    if (!date.ok() || (!text.empty() && TakeTimeOfDay(text, seconds) != nullptr)) {
        return kNoEpoch;
    }
    const auto days = std::chrono::sys_days(date).time_since_epoch().count();
    milliseconds = (static_cast<double>(days) * 86400.0 + seconds) * 1000.0;
    return nullptr;
}

} // namespace

std::string_view Trimmed(std::string_view text) noexcept
{
    const auto begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos) {
        return {};
    }
    return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

Fault ReadNumber(std::string_view text, double& value) noexcept
{
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    if (read.ec == std::errc::result_out_of_range) {
        return "a number beyond all range";
    }
    if (read.ec != std::errc() || read.ptr != end) {
        return kNoNumber;
    }
    return std::isfinite(value) ? nullptr : "a number that is not finite";
}

Fault ReadAngle(std::string_view text, AngleKind kind, double& degrees) noexcept
{
    const Fault asNumber = ReadNumber(text, degrees);
    if (asNumber == nullptr || asNumber != kNoNumber) {
        return asNumber;
    }
    text = Trimmed(text);
    Fault fault = nullptr;
    int side = TakeHemisphere(text, kind, fault);
    TakeBlanks(text);
    const int sign = Take(text, "-") ? -1 : Take(text, "+") ? 1 : 0;
    double value = 0.0;
    if (const Fault inParts = TakeParts(text, value); inParts != nullptr) {
        return inParts;
    }
    if (!text.empty() && side == 0) {
        side = TakeHemisphere(text, kind, fault);
    }
    if (!text.empty()) {
        return kNoAngle;
    }
    if (fault == nullptr && sign != 0 && side != 0) {
        fault = "an angle with both a sign and a hemisphere letter";
    }
    if (fault == nullptr) {
        degrees = sign < 0 || side < 0 ? -value : value;
    }
    return fault;
}

Fault AngleFault(double latitude, double longitude) noexcept
{
    // Written so that NaN fails.
    if (!(std::fabs(latitude) <= 90.0)) {
        return "latitude beyond 90 degrees";
    }
    return std::fabs(longitude) <= 360.0 ? nullptr : "longitude beyond 360 degrees";
}

Fault ReadEpoch(std::string_view text, double& milliseconds) noexcept
{
    double year = 0.0;
    if (ReadNumber(text, year) == nullptr) {
        milliseconds = (year - 1970.0) / kYearsPerMillisecond;
    } else if (const Fault fault = ReadDate(text, milliseconds); fault != nullptr) {
        return fault;
    }
    if (!(DecimalYear(milliseconds) >= kFirstYear && DecimalYear(milliseconds) < kLastYear)) {
        return "a time outside the years 1900 to 2200";
    }
    if (milliseconds == 0.0) {
        milliseconds = 1.0; // the first millisecond of 1970: nothing moves in it
    }
    return nullptr;
}

double DecimalYear(double milliseconds) noexcept
{
    return milliseconds * kYearsPerMillisecond + 1970.0;
}
