#include "system/JsonPointer.h"

std::string PointerTo(const std::string& key)
{
    std::string step = "/";
    for (const char c : key) {
        step += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
    }
    return step;
}

std::string PointerTo(std::size_t index)
{
    return "/" + std::to_string(index);
}
