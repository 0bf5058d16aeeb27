#include "base/geoid/BritishTextGrid.h"

#include <array>

#include "base/text/Numbers.h"

namespace {

constexpr double kKilometre = 1000.0;
constexpr std::size_t kFields = 7;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The published rule of the inverse: a tenth of a millimetre, whose own shift differs by nothing.
constexpr double kSettled = 0.0001;
constexpr int kMostRounds = 20;

constexpr std::size_t kRecord = 0, kEasting = 1, kNorthing = 2, kEastShift = 3, kNorthShift = 4, kHeight = 5, kFlag = 6;

using Record = std::array<double, kFields>;

std::string_view NextField(std::string_view& line)
{
    const auto comma = line.find(',');
    const std::string_view field = line.substr(0, comma);
    line.remove_prefix(comma == std::string_view::npos ? line.size() : comma + 1);
    return field;
}

// Metres; far more than any value of a grid of Britain.
constexpr double kMostMetres = 1e9;

/// False when the line is not seven numbers of such a grid; NaN is none.
bool ReadRecord(std::string_view line, Record& record)
{
    for (std::size_t i = 0; i < kFields; ++i) {
        if (!numbers::Read(NextField(line), record[i]) || !(std::fabs(record[i]) <= kMostMetres)) {
            return false;
        }
    }
    return line.empty();
}

bool IsBlank(std::string_view line)
{
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

} // namespace

/// Reads the lines from the first to the last. The first row tells how long the rows are.
class BritishTextGrid::Loader {
public:
    Loader(const GridBytes& contents, BritishTextGrid& grid, CString& reason)
        : m_text(contents.Text()), m_grid(grid), m_reason(reason)
    {
    }

    bool Load()
    {
        if (m_text.starts_with(kByteOrderMark)) {
            m_text.remove_prefix(kByteOrderMark.size());
        }
        while (!m_text.empty()) {
            const std::string_view line = NextLine();
            if (!IsBlank(line) && !ReadLine(line)) {
                return false;
            }
        }
        return Finish();
    }

private:
    bool Fail(const wchar_t* reason)
    {
        m_reason.Format(L"line %d: %s", m_line, reason);
        return false;
    }

    std::string_view NextLine()
    {
        const auto end = std::min(m_text.find('\n'), m_text.size());
        std::string_view line = m_text.substr(0, end);
        m_text.remove_prefix(std::min(end + 1, m_text.size()));
        ++m_line;
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        return line;
    }

    bool ReadLine(std::string_view line)
    {
        Record record{};
        if (!ReadRecord(line, record)) {
            double number = 0.0;
            std::string_view rest = line;
            const bool header =
                m_line == 1 && line.find(',') != std::string_view::npos && !numbers::Read(NextField(rest), number);
            m_grid.m_hasHeader = header;
            return header || Fail(L"it is not seven numbers with commas between them: record, easting, northing, east "
                                  L"shift, north shift, geoid height, datum flag");
        }
        if (m_grid.m_nodes.empty()) {
            m_grid.m_eastings.first = record[kEasting];
            m_grid.m_northings.first = record[kNorthing];
            if (std::fmod(record[kEasting], kKilometre) != 0.0 || std::fmod(record[kNorthing], kKilometre) != 0.0) {
                return Fail(L"its node does not lie on whole kilometres");
            }
        } else if (m_columns == 0 && record[kNorthing] != m_grid.m_northings.first) {
            m_columns = m_grid.m_nodes.size();
        }
        if (!IsNext(record)) {
            return Fail(L"its node is not the next of a grid of whole kilometres, row by row from the south and in a "
                        L"row from the west");
        }
        const bool empty = record[kEastShift] == 0.0 && record[kNorthShift] == 0.0 && record[kHeight] == 0.0;
        m_grid.m_nodes.push_back(
            {record[kEastShift], record[kNorthShift], record[kHeight], record[kFlag] != 0.0 && !empty});
        return true;
    }

    bool IsNext(const Record& record) const
    {
        const std::size_t place = m_grid.m_nodes.size();
        const std::size_t row = m_columns == 0 ? 0 : place / m_columns;
        const std::size_t column = m_columns == 0 ? place : place % m_columns;
        return record[kEasting] == m_grid.m_eastings.first + kKilometre * static_cast<double>(column) &&
               record[kNorthing] == m_grid.m_northings.first + kKilometre * static_cast<double>(row);
    }

    bool Finish()
    {
        const std::size_t nodes = m_grid.m_nodes.size();
        if (nodes == 0) {
            m_reason = L"it holds no node";
            return false;
        }
        m_columns = m_columns == 0 ? nodes : m_columns;
        if (nodes % m_columns != 0) {
            m_reason = L"its last row is cut short";
            return false;
        }
        m_grid.m_eastings = {m_grid.m_eastings.first, kKilometre, m_columns};
        m_grid.m_northings = {m_grid.m_northings.first, kKilometre, nodes / m_columns};
        m_grid.m_nodes.shrink_to_fit();
        return true;
    }

    std::string_view m_text;
    BritishTextGrid& m_grid;
    CString& m_reason;
    std::size_t m_columns = 0; // 0 in the first row
    int m_line = 0;
};

std::unique_ptr<BritishTextGrid> BritishTextGrid::Load(const GridBytes& contents, CString& reason)
{
    std::unique_ptr<BritishTextGrid> grid(new BritishTextGrid);
    return Loader(contents, *grid, reason).Load() ? std::move(grid) : nullptr;
}

/// False, `values` untouched, outside the grid and beside nodes outside the model.
bool BritishTextGrid::Interpolate(double easting, double northing, Node& values) const
{
    CellPlace cell;
    if (!m_northings.Locate(northing, cell.row) || !m_eastings.Locate(easting, cell.column)) {
        return false;
    }
    Node sum{0.0, 0.0, 0.0, true};
    cell.ForCorners([&](std::size_t row, std::size_t column, double weight) {
        const Node& node = m_nodes[row * m_eastings.count + column];
        sum.east += weight * node.east;
        sum.north += weight * node.north;
        sum.height += weight * node.height;
        sum.inside = sum.inside && (node.inside || weight == 0.0);
    });
    if (sum.inside) {
        values = sum;
    }
    return sum.inside;
}

std::optional<double> BritishTextGrid::HeightAt(const Place& place) const
{
    Node values{};
    return Interpolate(place.easting, place.northing, values) ? std::optional(values.height) : std::nullopt;
}

std::optional<PlaneShift> BritishTextGrid::GridShiftAt(double easting, double northing, bool inverse) const
{
    const auto shiftAt = [this](double e, double n) {
        Node values{};
        return Interpolate(e, n, values) ? std::optional(PlaneShift{values.east, values.north}) : std::nullopt;
    };
    return inverse ? ShiftBefore(easting, northing, kSettled, kMostRounds, shiftAt) : shiftAt(easting, northing);
}

GridDescription BritishTextGrid::Describe() const
{
    GridDescription description;
    description.format = L"British text grid";
    description.geographic = false;
    description.remarks = {{L"values", L"shifts of easting and northing, and heights, metres; bilinear"},
                           {L"header line", m_hasHeader ? L"yes" : L"no"},
                           {L"no data", L"datum flag 0, or shifts and height 0"}};
    GridDescription::Part part;
    part.south = m_northings.first;
    part.north = m_northings.Last();
    part.west = m_eastings.first;
    part.east = m_eastings.Last();
    part.stepNorth = kKilometre;
    part.stepEast = kKilometre;
    part.rows = m_northings.count;
    part.columns = m_eastings.count;
    description.parts.push_back(part);
    return description;
}
