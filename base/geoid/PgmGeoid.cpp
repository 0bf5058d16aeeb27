#include "base/geoid/PgmGeoid.h"

#include <cmath>
#include <optional>

#include "base/text/Numbers.h"

namespace {

// The cubic of a cell: terms x^i y^j with i + j <= 3, x to the east and y to the south in 0 to 1.
constexpr std::size_t kTerms = 10;
constexpr std::array<std::array<int, 2>, kTerms> kPowers = {
    {{0, 0}, {1, 0}, {0, 1}, {2, 0}, {1, 1}, {0, 2}, {3, 0}, {2, 1}, {1, 2}, {0, 3}}};

// The pixels that it is fitted to; the corners of the cell weigh double.
constexpr std::size_t kPixels = 12;
constexpr std::array<std::array<int, 2>, kPixels> kStencil = {
    {{0, -1}, {1, -1}, {-1, 0}, {0, 0}, {1, 0}, {2, 0}, {-1, 1}, {0, 1}, {1, 1}, {2, 1}, {0, 2}, {1, 2}}};
constexpr bool IsCorner(const std::array<int, 2>& at)
{
    return (at[0] == 0 || at[0] == 1) && (at[1] == 0 || at[1] == 1);
}

constexpr double Power(double base, int exponent)
{
    double power = 1.0;
    for (int i = 0; i < exponent; ++i) {
        power *= base;
    }
    return power;
}

using Terms = std::array<double, kTerms>;

// `atPole`: y counts from a pole, and the terms in x alone are left out.
constexpr Terms TermsAt(double x, double y, bool atPole)
{
    Terms terms{};
    for (std::size_t t = 0; t < kTerms; ++t) {
        const bool inXAlone = kPowers[t][0] > 0 && kPowers[t][1] == 0;
        terms[t] = atPole && inXAlone ? 0.0 : Power(x, kPowers[t][0]) * Power(y, kPowers[t][1]);
    }
    return terms;
}

/// What each pixel of the stencil adds to each coefficient.
using Fit = std::array<std::array<double, kPixels>, kTerms>;

constexpr double Size(double value)
{
    return value < 0.0 ? -value : value;
}

/// Solves the normal equations A'WA c = A'W for the twelve unit vectors, by elimination with the
/// largest pivot. A term that is left out has an empty row: its coefficient is made 0.
constexpr Fit Solve(std::array<Terms, kTerms> normal, Fit right)
{
    for (std::size_t k = 0; k < kTerms; ++k) {
        std::size_t pivot = k;
        for (std::size_t r = k + 1; r < kTerms; ++r) {
            pivot = Size(normal[r][k]) > Size(normal[pivot][k]) ? r : pivot;
        }
        std::swap(normal[k], normal[pivot]);
        std::swap(right[k], right[pivot]);
        for (std::size_t r = 0; r < kTerms; ++r) {
            const double factor = r == k ? 0.0 : normal[r][k] / normal[k][k];
            for (std::size_t c = 0; c < kTerms; ++c) {
                normal[r][c] -= factor * normal[k][c];
            }
            for (std::size_t c = 0; c < kPixels; ++c) {
                right[r][c] -= factor * right[k][c];
            }
        }
    }
    for (std::size_t k = 0; k < kTerms; ++k) {
        for (std::size_t c = 0; c < kPixels; ++c) {
            right[k][c] /= normal[k][k];
        }
    }
    return right;
}

// `fromSouth`: y is taken as 1 - y, as in the last row of cells.
constexpr Fit MakeFit(bool atPole, bool fromSouth)
{
    std::array<Terms, kTerms> normal{};
    Fit right{};
    for (std::size_t p = 0; p < kPixels; ++p) {
        const double y = fromSouth ? 1 - kStencil[p][1] : kStencil[p][1];
        const Terms terms = TermsAt(kStencil[p][0], y, atPole);
        const double weight = IsCorner(kStencil[p]) ? 2.0 : 1.0;
        for (std::size_t i = 0; i < kTerms; ++i) {
            right[i][p] = weight * terms[i];
            for (std::size_t j = 0; j < kTerms; ++j) {
                normal[i][j] += weight * terms[i] * terms[j];
            }
        }
    }
    for (std::size_t t = 0; t < kTerms; ++t) {
        normal[t][t] = normal[t][t] == 0.0 ? 1.0 : normal[t][t];
    }
    return Solve(normal, right);
}

constexpr Fit kInside = MakeFit(false, false);
constexpr Fit kNorthPole = MakeFit(true, false);
constexpr Fit kSouthPole = MakeFit(true, true);

} // namespace

/// Reads the text header: P5, comments with the numbers, width and height, the largest pixel.
class PgmGeoid::Loader {
public:
    Loader(const GridBytes& contents, PgmGeoid& geoid, CString& reason)
        : m_text(contents.Text()), m_geoid(geoid), m_reason(reason)
    {
    }

    bool Load()
    {
        if (NextLine() != "P5") {
            return Fail(L"its first line is not P5");
        }
        if (!ReadComments() || !ReadSize()) {
            return false;
        }
        if (!m_offset || !m_scale) {
            return Fail(L"its comments lack the numbers Offset and Scale");
        }
        if (std::fabs(*m_offset) + *m_scale * kMostPixel > kMostMetres) {
            return Fail(L"its Offset and Scale give no heights of a geoid");
        }
        m_geoid.m_offset = *m_offset;
        m_geoid.m_scale = *m_scale;
        m_geoid.m_pixels = m_at;
        const std::uint64_t rest = m_text.size() - m_at;
        const std::uint64_t needed = 2 * std::uint64_t(m_geoid.m_width) * std::uint64_t(m_geoid.m_height);
        if (rest != needed) {
            return Fail(rest < needed ? L"it is shorter than its width and height ask for"
                                      : L"it is longer than its width and height ask for");
        }
        return true;
    }

private:
    static constexpr std::int64_t kMostPixels = 1 << 24; // in a row or column
    static constexpr double kMostPixel = 65535.0;
    static constexpr double kMostMetres = 1e5;
    static constexpr std::string_view kBlank = " \t\r\n";

    bool Fail(const wchar_t* reason)
    {
        m_reason = reason;
        return false;
    }

    std::string_view NextLine()
    {
        const auto end = std::min(m_text.find('\n', m_at), m_text.size());
        const std::string_view line = m_text.substr(m_at, end - m_at);
        m_at = std::min(end + 1, m_text.size());
        return line;
    }

    static std::string_view NextWord(std::string_view& text)
    {
        text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size()));
        const std::string_view word = text.substr(0, text.find_first_of(kBlank));
        text.remove_prefix(word.size());
        return word;
    }

    bool ReadComments()
    {
        while (m_at < m_text.size() && (m_text[m_at] == '#' || m_text[m_at] == '\n')) {
            std::string_view rest = NextLine();
            rest.remove_prefix(rest.empty() ? 0 : 1);
            const std::string_view key = NextWord(rest);
            rest.remove_prefix(std::min(rest.find_first_not_of(kBlank), rest.size()));
            if (!ReadComment(key, rest)) {
                return false;
            }
        }
        return true;
    }

    bool ReadComment(std::string_view key, std::string_view value)
    {
        value = value.substr(0, value.find_last_not_of(" \t\r") + 1);
        if (key == "Description") {
            m_geoid.m_description = value;
        } else if (key == "DateTime") {
            m_geoid.m_dateTime = value;
        } else if (key == "Offset") {
            return ReadFinite(value, m_offset) || Fail(L"its Offset is no number");
        } else if (key == "Scale") {
            return (ReadFinite(value, m_scale) && *m_scale > 0.0) || Fail(L"its Scale is no number above 0");
        } else if (key == "Origin") {
            return value == "90N 0E" || Fail(L"its Origin is not 90N 0E");
        } else if (key == "AreaOrPoint") {
            return value == "Point" || Fail(L"its pixels are areas, not points");
        }
        return true;
    }

    static bool ReadFinite(std::string_view text, std::optional<double>& number)
    {
        double value = 0.0;
        if (!numbers::Read(text, value) || !std::isfinite(value)) {
            return false;
        }
        number = value;
        return true;
    }

    bool ReadSize()
    {
        std::string_view rest = m_text.substr(m_at);
        const std::string_view width = NextWord(rest);
        const std::string_view height = NextWord(rest);
        const std::string_view largest = NextWord(rest);
        long long w = 0;
        long long h = 0;
        if (!numbers::Read(width, w) || !numbers::Read(height, h) || w < 2 || h < 3 || w > kMostPixels ||
            h > kMostPixels) {
            return Fail(L"its width and height are no size of a geoid");
        }
        if (w % 2 != 0 || h % 2 != 1) {
            return Fail(L"its width is odd or its height is even: it does not reach from pole to pole");
        }
        if (largest != "65535") {
            return Fail(L"its pixels are not of 16 bits");
        }
        if (rest.empty()) {
            return Fail(L"it ends with its header");
        }
        m_geoid.m_width = w;
        m_geoid.m_height = h;
        m_at = m_text.size() - rest.size() + 1; // one blank behind the last number
        return true;
    }

    std::string_view m_text;
    PgmGeoid& m_geoid;
    CString& m_reason;
    std::size_t m_at = 0;
    std::optional<double> m_offset;
    std::optional<double> m_scale;
};

std::unique_ptr<PgmGeoid> PgmGeoid::Load(const GridBytes& contents, CString& reason)
{
    std::unique_ptr<PgmGeoid> geoid(new PgmGeoid);
    if (!Loader(contents, *geoid, reason).Load()) {
        return nullptr;
    }
    geoid->m_contents = contents;
    return geoid;
}

/// A pixel, also up to two columns beyond the edge and one row beyond a pole, where the image goes
/// on half round the Earth.
double PgmGeoid::PixelAt(std::int64_t column, std::int64_t row) const
{
    if (row < 0 || row >= m_height) {
        row = row < 0 ? -row : 2 * (m_height - 1) - row;
        column += m_width / 2;
    }
    column = (column + m_width) % m_width;
    const auto place = static_cast<std::size_t>(row * m_width + column);
    return ReadNumberAt<std::uint16_t>(m_contents.bytes.data() + m_pixels + 2 * place, ByteOrder::big);
}

std::optional<double> PgmGeoid::HeightAt(const Place& place) const
{
    if (!(std::fabs(place.latitude) <= 90.0) || !std::isfinite(place.longitude)) {
        return {};
    }
    const auto width = static_cast<double>(m_width);
    const std::int64_t equator = (m_height - 1) / 2;
    double longitude = std::fmod(place.longitude, 360.0);
    longitude = longitude < 0.0 ? longitude + 360.0 : longitude;
    const double x = longitude * width / 360.0;
    const double y = -place.latitude * static_cast<double>(m_height - 1) / 180.0;
    const auto column = static_cast<std::int64_t>(x); // the width itself for a hair west of 0
    const std::int64_t row = std::min(equator - 1, static_cast<std::int64_t>(std::floor(y)));

    const std::int64_t rowFromNorth = row + equator;
    const bool first = rowFromNorth == 0;
    const bool last = rowFromNorth == m_height - 2;
    const Fit& fit = first ? kNorthPole : last ? kSouthPole : kInside;
    const double fy = y - static_cast<double>(row);
    const Terms terms = TermsAt(x - static_cast<double>(column), last && !first ? 1.0 - fy : fy, first || last);
    double height = 0.0;
    for (std::size_t p = 0; p < kPixels; ++p) {
        double weight = 0.0;
        for (std::size_t t = 0; t < kTerms; ++t) {
            weight += terms[t] * fit[t][p];
        }
        height += weight * PixelAt(column + kStencil[p][0], rowFromNorth + kStencil[p][1]);
    }
    return m_offset + m_scale * height;
}

GridDescription PgmGeoid::Describe() const
{
    GridDescription description;
    description.format = L"PGM";
    description.remarks = {{L"values", L"heights, metres; cubic by least squares"},
                           {L"description", CString::FromUtf8(m_description)},
                           {L"date", CString::FromUtf8(m_dateTime)},
                           {L"offset", CString::FromUtf8(numbers::ToText(m_offset))},
                           {L"scale", CString::FromUtf8(numbers::ToText(m_scale))},
                           {L"no data", L"none in this format"},
                           {L"all round the Earth", L"yes"}};
    GridDescription::Part part;
    part.south = -90.0;
    part.north = 90.0;
    part.west = 0.0;
    part.stepEast = 360.0 / static_cast<double>(m_width);
    part.east = 360.0 - part.stepEast;
    part.stepNorth = 180.0 / static_cast<double>(m_height - 1);
    part.rows = static_cast<std::size_t>(m_height);
    part.columns = static_cast<std::size_t>(m_width);
    description.parts.push_back(part);
    return description;
}
