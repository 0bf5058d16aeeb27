#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// Three coordinates in the order of their frame.
using Position = std::array<double, 3>;

/// What was read from a line of text.
struct LineValues {
    std::array<Position, 2> positions{}; ///< the second only where lines have two
    bool hasHeight = false;              ///< else the third coordinates are neither read nor written
    double time = 0.0;                   ///< milliseconds since 1970
};

/// The numbers that come out for a line, in the order of their columns.
using LineResults = std::array<double, 4>;

/// How results are called and written.
struct ResultColumn {
    const char* name;
    int decimals;
};
struct ResultForm {
    std::vector<ResultColumn> columns;
    /// The last result is a height: it stands in the place of the old one, and only lines with a
    /// height have it. Otherwise an old height stays as it is.
    bool lastIsHeight = false;

    std::size_t Count(bool hasHeight) const { return columns.size() - (lastIsHeight && !hasHeight ? 1 : 0); }
};

/// What a command works out for every line. Const throughout, so that several threads may use
/// one object.
class Calculation {
public:
    Calculation() = default;
    virtual ~Calculation();
    Calculation(const Calculation&) = delete;
    Calculation& operator=(const Calculation&) = delete;

    virtual const ResultForm& Results() const = 0;
    /// Whether the results depend on the time.
    virtual bool NeedsTime() const = 0;
    /// Null when it went well, else the reason; `detail`, put behind the reason, is written on
    /// failure alone.
    virtual const char* Calculate(const LineValues& in, LineResults& out, std::string& detail) const = 0;
};
