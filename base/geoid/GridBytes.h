#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

/// The contents of a grid file, and what keeps them in memory. Copies share them.
struct GridBytes {
    std::shared_ptr<const void> owner;
    std::span<const unsigned char> bytes;

    static GridBytes Of(std::vector<unsigned char> contents)
    {
        const auto kept = std::make_shared<const std::vector<unsigned char>>(std::move(contents));
        return {kept, *kept};
    }

    std::size_t Size() const noexcept { return bytes.size(); }
    std::string_view Text() const noexcept
    {
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; // NOLINT: bytes as characters
    }
};

enum class ByteOrder { little, big };

/// A number of two's complement or IEEE form at `at`, which need not be aligned.
template <typename Number>
Number ReadNumberAt(const unsigned char* at, ByteOrder order) noexcept
{
    static_assert(std::is_arithmetic_v<Number> && sizeof(Number) <= sizeof(std::uint64_t));
    using Bits = std::conditional_t<sizeof(Number) == 8, std::uint64_t,
                                    std::conditional_t<sizeof(Number) == 4, std::uint32_t, std::uint16_t>>;
    static_assert(sizeof(Bits) == sizeof(Number));
    Bits bits = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        const std::size_t place = order == ByteOrder::big ? i : sizeof(Number) - 1 - i;
        bits = static_cast<Bits>(static_cast<Bits>(bits << 8) | at[place]);
    }
    Number number{};
    std::memcpy(&number, &bits, sizeof number);
    return number;
}
