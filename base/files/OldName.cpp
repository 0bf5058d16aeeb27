#include "base/files/OldName.h"

#include <string>

std::filesystem::path OldName(const std::filesystem::path& file, int number)
{
    std::filesystem::path name = file;
    name += ".old-" + std::to_string(number);
    return name;
}
