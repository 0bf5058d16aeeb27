#include "convert/LineConverter.h"

#include <cstring>

#include <fmt/format.h>

#include "convert/FixedNumber.h"

namespace {

constexpr std::size_t kShownOfLine = 200; // bytes of a bad line in its message
constexpr std::string_view kByteOrder = "\xEF\xBB\xBF";
constexpr const char* kTooLong = "a line longer than 1 MiB";

char SeparatorOf(const Layout& layout)
{
    return layout.delimiter;
}

/// Where the column before one that begins at `begin` ends: in front of the separator.
const char* EndOfColumnBefore(const Layout& layout, const char* from, const char* begin)
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (begin != from && isBlank(begin[-1]) && (layout.delimiter == ' ' || begin[-1] != layout.delimiter)) {
        --begin;
    }
    if (begin != from && begin[-1] == layout.delimiter) {
        --begin;
    }
    return begin;
}

} // namespace

/// A line without its end, and the end: "\n", "\r\n", "\r" or nothing.
struct LineConverter::Line {
    const char* begin;
    const char* end;
    const char* next;
    std::uint64_t number;

    std::string_view Text() const { return {begin, static_cast<std::size_t>(end - begin)}; }
    std::string_view End() const { return {end, static_cast<std::size_t>(next - end)}; }
};

void BlockResult::Clear()
{
    text.Clear();
    complaints.clear();
    good = 0;
    bad = 0;
    stopped = false;
}

LineConverter::LineConverter(const Calculation& calculation, Frame from, const LineRequest& request)
    : m_calculation(calculation), m_form(calculation.Results()), m_from(from), m_request(request)
{
}

void LineConverter::Convert(const Block& block, BlockResult& result) const
{
    result.Clear();
    if (block.kind != Block::Kind::lines) {
        ConvertLongLine(block, result);
        return;
    }
    ConvertLines(block, result);
    if (block.closeLine && result.text.Size() > 0 && !result.stopped && result.text.View().back() != '\n') {
        result.text.Append('\n');
    }
}

void LineConverter::ConvertLines(const Block& block, BlockResult& result) const
{
    const char* at = block.text.Data();
    const char* const end = at + block.text.Size();
    std::uint64_t number = block.firstLine;
    if (number == 1 && block.text.View().starts_with(kByteOrder)) {
        result.text.Append(kByteOrder);
        at += kByteOrder.size();
    }
    for (; at != end && !result.stopped; ++number) {
        const auto* newline = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
        Line line{at, newline == nullptr ? end : newline, newline == nullptr ? end : newline + 1, number};
        if (line.end != line.begin && line.end[-1] == '\r') {
            --line.end;
        }
        at = line.next;
        if (IsPassedThrough(line.begin, line.end)) {
            result.text.Append(line.begin, line.next);
        } else if (number == block.lines->headerLine) {
            WriteHeader(line, block.lines->layout, result.text);
        } else if (line.next - line.begin > static_cast<std::ptrdiff_t>(kLongestLine)) {
            Complain(line, block, kTooLong, result);
        } else {
            ConvertLine(line, block, result);
        }
    }
}

void LineConverter::ConvertLine(const Line& line, const Block& block, BlockResult& result) const
{
    const Layout& layout = block.lines->layout;
    std::array<Field, Slot::count> fields;
    SplitLine(layout, line.begin, line.end, fields);
    LineValues in;
    LineResults out{};
    in.hasHeight = layout.hasHeight;
    in.time = m_request.epoch.value_or(0.0);
    std::string detail; // empty texts allocate nothing
    const char* fault = ReadFields(fields, layout, in, detail);
    if (fault == nullptr) {
        fault = m_calculation.Calculate(in, out, detail);
    }
    if (fault != nullptr) {
        Complain(line, block, detail.empty() ? fault : fmt::format("{} {}", fault, detail), result);
        return;
    }
    ++result.good;
    WriteLine(line, layout, fields, result.text, [&](TextBuffer& text, std::size_t place) {
        text.AdvanceTo(WriteFixed(text.Room(kFixedNumberRoom), out[place], m_form.columns[place].decimals));
    });
}

const char* LineConverter::ReadFields(const std::array<Field, Slot::count>& fields, const Layout& layout,
                                      LineValues& in, std::string& detail) const
{
    const auto bad = [&](int slot, const char* fault) {
        detail = fmt::format("is {}", fault);
        return NameOfSlot(m_from, layout.positions, slot);
    };
    for (const int slot : layout.order) {
        const Field& field = fields[static_cast<std::size_t>(slot)];
        Position& position = in.positions[static_cast<std::size_t>(Slot::PositionOf(slot))];
        double& value = position[static_cast<std::size_t>(Slot::CoordinateOf(slot))];
        const char* fault = field.begin == field.end ? "missing" : ReadCoordinate(m_from, slot, field.Text(), value);
        if (fault != nullptr) {
            return bad(slot, fault);
        }
    }
    if (layout.hasTime) {
        const Field& field = fields[Slot::time];
        const char* fault = field.begin == field.end ? "missing" : ReadEpoch(field.Text(), in.time);
        if (fault != nullptr) {
            return bad(Slot::time, fault);
        }
    }
    return nullptr;
}

template <typename Write>
void LineConverter::WriteBehind(const Line& line, const Layout& layout, TextBuffer& out, Write write) const
{
    out.Append(line.begin, line.end);
    for (std::size_t place = 0; place < m_form.Count(layout.hasHeight); ++place) {
        out.Append(SeparatorOf(layout));
        write(out, place);
    }
    out.Append(line.End());
}

/// Writes a line with `write(out, place)` for each result, in place of the old coordinates or
/// behind the line. The results stand in their order: they take the places of the old pairs from
/// left to right, and a height that of the old one. When they are fewer than the coordinates of the
/// pairs, the rest of these goes; when they are more, the rest stands behind the last pair.
template <typename Write>
void LineConverter::WriteLine(const Line& line, const Layout& layout, const std::array<Field, Slot::count>& fields,
                              TextBuffer& out, Write write) const
{
    if (m_request.append) {
        WriteBehind(line, layout, out, write);
        return;
    }
    const char* from = line.begin;
    std::size_t ofPairs = 0;
    const std::size_t inPairs = 2 * static_cast<std::size_t>(layout.positions);
    const std::size_t forPairs = m_form.columns.size() - (m_form.lastIsHeight ? 1U : 0U);
    for (const int slot : layout.order) {
        const bool height = Slot::CoordinateOf(slot) == Slot::third;
        if (height && !m_form.lastIsHeight) {
            continue;
        }
        const std::size_t place = height ? m_form.columns.size() - 1 : ofPairs++;
        const Field& field = fields[static_cast<std::size_t>(slot)];
        if (!height && place >= forPairs) {
            if (field.begin != nullptr) {
                out.Append(from, EndOfColumnBefore(layout, from, field.begin));
                from = field.end;
            }
            continue;
        }
        if (field.begin == nullptr) { // a marked line that is too short
            out.Append(from, line.end);
            from = line.end;
            out.Append(SeparatorOf(layout));
        } else {
            out.Append(from, field.begin);
            from = field.end;
        }
        write(out, place);
        for (std::size_t more = ofPairs; !height && ofPairs == inPairs && more < forPairs; ++more) {
            out.Append(SeparatorOf(layout));
            write(out, more);
        }
    }
    out.Append(from, line.next);
}

void LineConverter::WriteHeader(const Line& line, const Layout& layout, TextBuffer& out) const
{
    std::array<Field, Slot::count> fields;
    SplitLine(layout, line.begin, line.end, fields);
    WriteLine(line, layout, fields, out,
              [this](TextBuffer& text, std::size_t place) { text.Append(m_form.columns[place].name); });
}

void LineConverter::Complain(const Line& line, const Block& block, std::string_view reason, BlockResult& result) const
{
    const std::string_view text = line.Text();
    const bool cut = text.size() > kShownOfLine;
    result.complaints += fmt::format("{}:{}: {}: {}{}\n", *block.name, line.number, reason,
                                     text.substr(0, kShownOfLine), cut ? "..." : "");
    ++result.bad;
    WriteBad(line, block, result);
}

void LineConverter::WriteBad(const Line& line, const Block& block, BlockResult& result) const
{
    if (m_request.bad == BadLine::stop) {
        result.stopped = true;
    } else if (m_request.bad == BadLine::keep) {
        result.text.Append(line.begin, line.next);
    } else if (m_request.bad == BadLine::mark) {
        // An input that begins with a line too long has no columns yet.
        static const Layout kUnknown = [] {
            Layout layout;
            layout.order = {Slot::first, Slot::second};
            return layout;
        }();
        const Layout& layout = block.lines != nullptr ? block.lines->layout : kUnknown;
        std::array<Field, Slot::count> fields{};
        const bool tooLong = line.next - line.begin > static_cast<std::ptrdiff_t>(kLongestLine);
        if (!tooLong) {
            SplitLine(layout, line.begin, line.end, fields);
            WriteLine(line, layout, fields, result.text, [](TextBuffer& text, std::size_t) { text.Append('*'); });
            return;
        }
        for (std::size_t place = 0; place < m_form.Count(layout.hasHeight); ++place) {
            result.text.Append(place == 0 ? std::string_view() : std::string_view(&layout.delimiter, 1));
            result.text.Append('*');
        }
        result.text.Append(line.End());
    }
}

void LineConverter::ConvertLongLine(const Block& block, BlockResult& result) const
{
    const char* const begin = block.text.Data();
    const char* const end = begin + block.text.Size();
    if (block.kind == Block::Kind::longLine) {
        Complain({begin, end, end, block.firstLine}, block, kTooLong, result);
        return;
    }
    if (m_request.bad == BadLine::keep) {
        result.text.Append(begin, end);
    } else if (m_request.bad == BadLine::mark && end != begin && end[-1] == '\n') {
        const bool carriageReturn = end - begin > 1 && end[-2] == '\r';
        result.text.Append(carriageReturn ? "\r\n" : "\n");
    }
}
