#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "convert/Frame.h"
#include "convert/NumberText.h"

/// The values that a line of text may hold: the coordinates of a position in the order of its
/// frame, a time, and the coordinates of a second position. A place in arrays.
namespace Slot {
constexpr int first = 0, second = 1, third = 2, time = 3, ofEnd = 4, count = 7;

/// Which of the positions a coordinate belongs to, 0 or 1, and which of its coordinates it is.
constexpr int PositionOf(int slot)
{
    return slot / ofEnd;
}
constexpr int CoordinateOf(int slot)
{
    return slot % ofEnd;
}
} // namespace Slot

/// What the command line says of the columns of every input.
struct ColumnRequest {
    Frame from = Frame::sat;
    int positions = 1; ///< in a line; 1 or 2
    /// 0: found from the first line; ' ' any blanks; else the character between two columns.
    char delimiter = 0;
    /// Per slot a number from 1, a name of the header line, or empty: not given.
    std::array<std::string, Slot::count> columns;
    /// The third coordinate must be there: the result cannot be had without it.
    bool needsHeight = false;
};

/// How the value of a slot is called where lines have `positions` positions.
const char* NameOfSlot(Frame from, int positions, int slot);

/// Reads "lat=2,lon=3,h=4,t=5" (of two positions "lat1=2,lon1=3,lat2=4,lon2=5") into `request.columns`, for its frame.
/// Names in any case of letters. Throws ToolError (2) telling what would be right.
void ReadColumnList(const std::string& text, ColumnRequest& request);
/// Reads the text of a coordinate: an angle or a number, as the frame has it.
Fault ReadCoordinate(Frame from, int slot, std::string_view text, double& value);
/// Reads the name or the character of a delimiter. Throws ToolError (2).
char ReadDelimiter(const std::string& text);

/// A piece of a line.
struct Field {
    const char* begin = nullptr;
    const char* end = nullptr;
    std::string_view Text() const { return {begin, static_cast<std::size_t>(end - begin)}; }
};

/// Where the values stand in the lines of one input.
struct Layout {
    char delimiter = ' ';
    int positions = 1;
    /// Slot of each column from the first on, -1 for a column of no interest.
    std::vector<signed char> slots;
    bool hasHeight = false; ///< every position has one
    bool hasTime = false;
    /// The first line is a header.
    bool hasHeader = false;
    /// The coordinate slots that the lines have, from left to right.
    std::vector<int> order;
};

/// Finds the fields of a line, without blanks around them. A column that the line does not have
/// leaves its field null.
void SplitLine(const Layout& layout, const char* begin, const char* end, std::array<Field, Slot::count>& fields);

/// Settles the layout of an input from its first line that is neither blank nor a comment.
/// Without a given delimiter, the first of tab, semicolon, comma and blanks under which the line
/// reads. Without given columns, the coordinates are the first columns, and behind a single
/// position the third is a height when it is a number in the first line. Throws ToolError (2) when a header name is not
/// there or a height is missing that the conversion needs.
Layout FindLayout(const ColumnRequest& request, std::string_view firstLine, const std::string& input);
