#include "base/files/TemporaryName.h"

#include <random>
#include <string>

std::filesystem::path TemporaryName(const std::filesystem::path& directory)
{
    constexpr int kLetters = 24; // of 32: 120 bits

    std::random_device source;
    std::string name = ".zorgeo-";
    for (int i = 0; i < kLetters; ++i) {
        name += "abcdefghijklmnopqrstuvwxyz234567"[source() % 32];
    }
    return directory / (name + ".tmp");
}
