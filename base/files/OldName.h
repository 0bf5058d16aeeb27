#pragma once

#include <filesystem>

/// Under so many names contents can be set aside beside one file.
constexpr int kOldNames = 999;

/// The name, counted from 1, under which the contents of `file` are set aside in its directory
/// when a new file takes its place: "a.geo.old-1".
std::filesystem::path OldName(const std::filesystem::path& file, int number);
