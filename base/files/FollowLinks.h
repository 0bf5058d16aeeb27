#pragma once

#include <filesystem>

#include "base/platform/Platform.h"

/// Follows the symbolic links in the last part of `target`, which then names what a save replaces.
/// (Links before it lead to the same directory anyway.) False, notWritable, when they lead in a
/// circle or cannot be read.
bool FollowLinks(std::filesystem::path& target, platform::FileFailure& failure);
