#include "base/files/FobjSection.h"

FobjSection::FobjSection() = default;
FobjSection::~FobjSection() = default;
FobjSection::FobjSection(const FobjSection&) = default;
FobjSection& FobjSection::operator=(const FobjSection&) = default;
