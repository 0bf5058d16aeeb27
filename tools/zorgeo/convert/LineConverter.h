#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "convert/BlockReader.h"
#include "convert/Calculation.h"
#include "convert/TextBuffer.h"

/// What becomes of a line that cannot be converted.
enum class BadLine {
    mark, ///< written with * in place of the coordinates
    keep, ///< written as it came
    drop, ///< left out
    stop, ///< the run ends before it
};

/// How lines are read and written.
struct LineRequest {
    BadLine bad = BadLine::mark;
    bool append = false; ///< results behind the line instead of in place
    /// Milliseconds since 1970 for lines without a time column; none: not given.
    std::optional<double> epoch;
};

/// What came out of one block.
struct BlockResult {
    TextBuffer text;
    std::string complaints; ///< "file:line: reason: text" lines for standard error
    std::uint64_t good = 0;
    std::uint64_t bad = 0;
    bool stopped = false;

    void Clear();
};

/// Turns blocks of lines into blocks of lines with the results of a calculation. Const throughout,
/// so that several threads may use one object; allocates for a bad line alone.
class LineConverter {
public:
    /// Reads coordinates of the frame `from`. `calculation` must outlive the object.
    LineConverter(const Calculation& calculation, Frame from, const LineRequest& request);

    void Convert(const Block& block, BlockResult& result) const;

private:
    struct Line;
    void ConvertLines(const Block& block, BlockResult& result) const;
    void ConvertLine(const Line& line, const Block& block, BlockResult& result) const;
    const char* ReadFields(const std::array<Field, Slot::count>& fields, const Layout& layout, LineValues& in,
                           std::string& detail) const;
    template <typename Write>
    void WriteBehind(const Line& line, const Layout& layout, TextBuffer& out, Write write) const;
    template <typename Write>
    void WriteLine(const Line& line, const Layout& layout, const std::array<Field, Slot::count>& fields,
                   TextBuffer& out, Write write) const;
    void WriteHeader(const Line& line, const Layout& layout, TextBuffer& out) const;
    void Complain(const Line& line, const Block& block, std::string_view reason, BlockResult& result) const;
    void WriteBad(const Line& line, const Block& block, BlockResult& result) const;
    void ConvertLongLine(const Block& block, BlockResult& result) const;

    const Calculation& m_calculation;
    const ResultForm& m_form;
    Frame m_from;
    LineRequest m_request;
};
