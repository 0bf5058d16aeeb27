#pragma once

#include <string_view>

enum class AngleKind { latitude, longitude };

/// Why a text is no such number, a sentence without capital and full stop; null when it is one.
using Fault = const char*;

/// Reads a finite decimal number; the whole text must be one.
Fault ReadNumber(std::string_view text, double& value) noexcept;

/// Reads an angle in degrees: a decimal number, or degrees, minutes and seconds with or without
/// their signs and with a hemisphere letter before or behind: 52.156161, 52°09'22.178"N,
/// 52d09'22.178"N, 52:09:22.178, N52 09.37, 5-23-15.5E. A sign and a letter exclude each other. The
/// range of the whole is not looked at, that of minutes and seconds is.
Fault ReadAngle(std::string_view text, AngleKind kind, double& degrees) noexcept;

/// Whether a position's angles are in range: 90 degrees of latitude, 360 of longitude. NaN is not.
Fault AngleFault(double latitude, double longitude) noexcept;

/// Reads a time: a decimal year (2024.5) or an ISO 8601 date or date and time in UTC (2024-07-01,
/// 2024-07-01T12:00:00Z). The result is milliseconds since 1970, never 0, since that means "now"
/// to the conversions. A decimal year becomes the very number from which a datum transformation
/// makes the same decimal year again, in years of 365.25 days.
Fault ReadEpoch(std::string_view text, double& milliseconds) noexcept;

/// The decimal year of milliseconds since 1970, as a datum transformation reckons it.
double DecimalYear(double milliseconds) noexcept;

std::string_view Trimmed(std::string_view text) noexcept;
