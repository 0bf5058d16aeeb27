#pragma once

#include <string>

#include "base/files/SectionContents.h"

/// The text form of `contents` (docs/section-files.md). Read again, it gives the same contents.
std::string WriteSections(const SectionContents& contents);
