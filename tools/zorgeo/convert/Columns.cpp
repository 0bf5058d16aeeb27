#include "convert/Columns.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include <fmt/format.h>

#include "ToolError.h"
#include "convert/NumberText.h"

namespace {

constexpr char kBlanks = ' ';
constexpr char kDelimiters[] = {'\t', ';', ',', kBlanks};
constexpr int kMostColumns = 10000;
constexpr const char* kTimeName = "t";

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool SameName(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return lower(x) == lower(y); });
}

/// Whether lines as asked for may have the value.
bool Exists(const ColumnRequest& request, int slot)
{
    return Slot::PositionOf(slot) < request.positions;
}

/// Column, from 0, of a value for which none was given; -1 for none. The heights of two positions
/// have none: nothing in a line would tell them from the coordinates behind them.
int DefaultColumn(const ColumnRequest& request, int slot)
{
    const int coordinate = Slot::CoordinateOf(slot);
    if (slot == Slot::time || (request.positions > 1 && coordinate == Slot::third)) {
        return -1;
    }
    return 2 * Slot::PositionOf(slot) + coordinate;
}

/// What a right list of columns looks like, for messages.
std::string RightList(const ColumnRequest& request)
{
    std::string list = fmt::format("--columns for --from {} reads like ", TraitsOf(request.from).name);
    int column = 0;
    for (int slot = 0; slot < Slot::count; ++slot) {
        if (Exists(request, slot) && DefaultColumn(request, slot) >= 0) {
            list += fmt::format("{}={},", NameOfSlot(request.from, request.positions, slot), ++column);
        }
    }
    return list + fmt::format("{}={}", kTimeName, column + 1);
}

/// The number of a column given as one, from 1; 0 for a name.
int NumberOf(const std::string& column)
{
    int number = 0;
    const auto read = std::from_chars(column.data(), column.data() + column.size(), number);
    return read.ec == std::errc() && read.ptr == column.data() + column.size() ? number : 0;
}

bool AnyGiven(const ColumnRequest& request)
{
    return std::any_of(request.columns.begin(), request.columns.end(), [](const auto& text) { return !text.empty(); });
}

bool AnyByName(const ColumnRequest& request)
{
    return std::any_of(request.columns.begin(), request.columns.end(),
                       [](const auto& text) { return !text.empty() && NumberOf(text) == 0; });
}

/// Every field of a line under a delimiter, without blanks around them.
std::vector<std::string_view> AllFields(char delimiter, std::string_view line)
{
    std::vector<std::string_view> fields;
    if (delimiter == kBlanks) {
        for (line = Trimmed(line); !line.empty(); line = Trimmed(line)) {
            const auto length = std::min(line.find_first_of(" \t"), line.size());
            fields.push_back(line.substr(0, length));
            line.remove_prefix(length);
        }
        return fields;
    }
    for (;;) {
        const auto at = line.find(delimiter);
        fields.push_back(Trimmed(line.substr(0, at)));
        if (at == std::string_view::npos) {
            return fields;
        }
        line.remove_prefix(at + 1);
    }
}

bool Reads(const ColumnRequest& request, int slot, std::string_view text)
{
    double ignored = 0.0;
    if (slot == Slot::time) {
        return ReadEpoch(text, ignored) == nullptr;
    }
    return ReadCoordinate(request.from, slot, text, ignored) == nullptr;
}

/// Column of each slot counted from 0, -1 for none, and whether the line reads with them.
struct Attempt {
    char delimiter = kBlanks;
    std::array<int, Slot::count> columns{-1, -1, -1, -1, -1, -1, -1};
    bool reads = true;
    std::string missingName;
};

int PlaceOfHeader(const std::vector<std::string_view>& fields, const std::string& name)
{
    const auto place =
        std::find_if(fields.begin(), fields.end(), [&](std::string_view field) { return SameName(field, name); });
    return place == fields.end() ? -1 : static_cast<int>(place - fields.begin());
}

Attempt TryDelimiter(const ColumnRequest& request, char delimiter, std::string_view line)
{
    Attempt attempt;
    attempt.delimiter = delimiter;
    const auto fields = AllFields(delimiter, line);
    const bool header = AnyByName(request);
    const bool given = AnyGiven(request);
    for (int slot = 0; slot < Slot::count; ++slot) {
        const auto s = static_cast<std::size_t>(slot);
        const std::string& asked = request.columns[s];
        if (!given) {
            attempt.columns[s] = Exists(request, slot) ? DefaultColumn(request, slot) : -1;
        } else if (!asked.empty()) {
            const int number = NumberOf(asked);
            attempt.columns[s] = number > 0 ? number - 1 : PlaceOfHeader(fields, asked);
            if (attempt.columns[s] < 0) {
                attempt.missingName = attempt.missingName.empty() ? asked : attempt.missingName;
                attempt.reads = false;
            }
        }
        const int column = attempt.columns[s];
        if (column >= 0 && !header) {
            const bool reads = column < static_cast<int>(fields.size()) &&
                               Reads(request, slot, fields[static_cast<std::size_t>(column)]);
            if (!reads && !given && slot == Slot::third && TraitsOf(request.from).heightOptional) {
                attempt.columns[s] = -1;
            } else {
                attempt.reads = attempt.reads && reads;
            }
        }
    }
    return attempt;
}

Attempt BestAttempt(const ColumnRequest& request, std::string_view line)
{
    if (request.delimiter != 0) {
        return TryDelimiter(request, request.delimiter, line);
    }
    for (const char delimiter : kDelimiters) {
        if (Attempt attempt = TryDelimiter(request, delimiter, line); attempt.reads) {
            return attempt;
        }
    }
    // The line is bad under all of them; what it holds is then the best sign there is.
    for (const char delimiter : kDelimiters) {
        if (line.find(delimiter) != std::string_view::npos) {
            return TryDelimiter(request, delimiter, line);
        }
    }
    return TryDelimiter(request, kBlanks, line);
}

/// Puts the coordinates where they are by default when the list names none of them. Refuses a
/// list that leaves one out.
void DemandCoordinates(ColumnRequest& request, const std::string& right)
{
    const auto& columns = request.columns;
    bool onlyTime = true;
    for (int slot = 0; slot < Slot::count; ++slot) {
        onlyTime = onlyTime && (slot == Slot::time || columns[static_cast<std::size_t>(slot)].empty());
    }
    const bool heightOptional = TraitsOf(request.from).heightOptional;
    for (int slot = 0; slot < Slot::count; ++slot) {
        const bool height = Slot::CoordinateOf(slot) == Slot::third;
        if (slot == Slot::time || !Exists(request, slot) || (height && heightOptional)) {
            continue;
        }
        std::string& column = request.columns[static_cast<std::size_t>(slot)];
        if (onlyTime) {
            column = std::to_string(DefaultColumn(request, slot) + 1);
        } else if (column.empty()) {
            throw ToolError(ExitStatus::usage, "a coordinate has no column; " + right);
        }
    }
    if (request.positions > 1 && columns[Slot::third].empty() != columns[Slot::ofEnd + Slot::third].empty()) {
        throw ToolError(ExitStatus::usage, "both ends of a line have a height or none; " + right);
    }
}

} // namespace

const char* NameOfSlot(Frame from, int positions, int slot)
{
    if (slot == Slot::time) {
        return kTimeName;
    }
    const FrameTraits& traits = TraitsOf(from);
    const auto coordinate = static_cast<std::size_t>(Slot::CoordinateOf(slot));
    return positions == 1 ? traits.coordinates[coordinate]
                          : traits.ends[static_cast<std::size_t>(Slot::PositionOf(slot))][coordinate];
}

Fault ReadCoordinate(Frame from, int slot, std::string_view text, double& value)
{
    const int coordinate = Slot::CoordinateOf(slot);
    if (!TraitsOf(from).angles || coordinate == Slot::third) {
        return ReadNumber(text, value);
    }
    return ReadAngle(text, coordinate == Slot::first ? AngleKind::latitude : AngleKind::longitude, value);
}

void ReadColumnList(const std::string& text, ColumnRequest& request)
{
    const std::string right = RightList(request);
    for (const std::string_view item : AllFields(',', text)) {
        const auto equals = item.find('=');
        const auto name = Trimmed(item.substr(0, equals));
        int slot = 0;
        while (slot < Slot::count &&
               !(Exists(request, slot) && SameName(name, NameOfSlot(request.from, request.positions, slot)))) {
            ++slot;
        }
        const auto column = equals == std::string_view::npos ? std::string_view() : Trimmed(item.substr(equals + 1));
        if (slot == Slot::count || column.empty() || !request.columns[static_cast<std::size_t>(slot)].empty()) {
            throw ToolError(ExitStatus::usage, fmt::format("\"{}\" is no column; {}", item, right));
        }
        const std::string asText(column);
        const bool digits = asText.find_first_not_of("0123456789") == std::string::npos;
        if (digits && (NumberOf(asText) < 1 || NumberOf(asText) > kMostColumns)) {
            throw ToolError(ExitStatus::usage,
                            fmt::format("columns are counted from 1 to {}; {}", kMostColumns, right));
        }
        request.columns[static_cast<std::size_t>(slot)] = asText;
    }
    DemandCoordinates(request, right);
    for (int slot = 1; slot < Slot::count; ++slot) {
        const std::string& column = request.columns[static_cast<std::size_t>(slot)];
        if (!column.empty() && std::count(request.columns.begin(), request.columns.end(), column) > 1) {
            throw ToolError(ExitStatus::usage, fmt::format("column {} is named twice; {}", column, right));
        }
    }
}

char ReadDelimiter(const std::string& text)
{
    struct Name {
        const char* name;
        char delimiter;
    };
    constexpr Name kNames[] = {{"blank", kBlanks}, {" ", kBlanks}, {"comma", ','},     {",", ','}, {"tab", '\t'},
                               {"\t", '\t'},       {"\\t", '\t'},  {"semicolon", ';'}, {";", ';'}};
    for (const Name& row : kNames) {
        if (text == row.name) {
            return row.delimiter;
        }
    }
    throw ToolError(ExitStatus::usage,
                    fmt::format("\"{}\" is no delimiter; give blank, comma, tab or semicolon", text));
}

void SplitLine(const Layout& layout, const char* begin, const char* end, std::array<Field, Slot::count>& fields)
{
    fields = {};
    const char* at = begin;
    const auto store = [&fields](signed char slot, const char* from, const char* to) {
        if (slot >= 0) {
            fields[static_cast<unsigned char>(slot)] = {from, to};
        }
    };
    if (layout.delimiter == kBlanks) {
        for (const signed char slot : layout.slots) {
            while (at != end && IsBlank(*at)) {
                ++at;
            }
            const char* const from = at;
            while (at != end && !IsBlank(*at)) {
                ++at;
            }
            if (from == at) {
                return;
            }
            store(slot, from, at);
        }
        return;
    }
    for (const signed char slot : layout.slots) {
        const auto* stop =
            static_cast<const char*>(std::memchr(at, layout.delimiter, static_cast<std::size_t>(end - at)));
        const char* from = at;
        const char* to = stop == nullptr ? end : stop;
        if (slot >= 0) {
            while (from != to && IsBlank(*from)) {
                ++from;
            }
            while (from != to && IsBlank(to[-1])) {
                --to;
            }
            store(slot, from, to);
        }
        if (stop == nullptr) {
            return;
        }
        at = stop + 1;
    }
}

Layout FindLayout(const ColumnRequest& request, std::string_view firstLine, const std::string& input)
{
    const Attempt attempt = BestAttempt(request, firstLine);
    if (!attempt.missingName.empty()) {
        throw ToolError(ExitStatus::usage, fmt::format("{}: the header line has no column \"{}\"; it reads: {}", input,
                                                       attempt.missingName, firstLine.substr(0, 200)));
    }
    Layout layout;
    layout.delimiter = attempt.delimiter;
    layout.positions = request.positions;
    layout.hasHeader = AnyByName(request);
    layout.hasHeight = attempt.columns[Slot::third] >= 0;
    layout.hasTime = attempt.columns[Slot::time] >= 0;
    if (request.needsHeight && !layout.hasHeight) {
        throw ToolError(ExitStatus::usage,
                        fmt::format("{}: cartesian coordinates need a height, and the lines have none; name its column "
                                    "with --columns",
                                    input));
    }
    const int last = *std::max_element(attempt.columns.begin(), attempt.columns.end());
    layout.slots.assign(static_cast<std::size_t>(last) + 1U, -1);
    for (int slot = 0; slot < Slot::count; ++slot) {
        if (const int column = attempt.columns[static_cast<std::size_t>(slot)]; column >= 0) {
            layout.slots[static_cast<std::size_t>(column)] = static_cast<signed char>(slot);
        }
    }
    for (const signed char slot : layout.slots) {
        if (slot >= 0 && slot != Slot::time) {
            layout.order.push_back(slot);
        }
    }
    return layout;
}
