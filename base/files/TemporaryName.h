#pragma once

#include <filesystem>

/// A file name in `directory` that cannot be foreseen. It does not depend on the name of the file
/// that it stands in for, which may already be as long as the system allows.
std::filesystem::path TemporaryName(const std::filesystem::path& directory);
