#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "convert/Columns.h"
#include "convert/TextBuffer.h"

/// A line may be this long, its end included; a longer one is a bad line.
constexpr std::size_t kLongestLine = std::size_t{1} << 20;

/// What is known of the lines of one input. Never changed after a block points to it.
struct InputLines {
    Layout layout;
    std::uint64_t headerLine = 0; ///< number of the header line, 0 for none
};

/// A piece of one input.
struct Block {
    enum class Kind {
        lines,        ///< whole lines
        longLine,     ///< the beginning of a line that is too long
        longLineMore, ///< what follows of it, with its end when that is reached
    };
    Kind kind = Kind::lines;
    TextBuffer text;
    const std::string* name = nullptr; ///< of the input
    const InputLines* lines = nullptr; ///< null while only comments and blank lines were seen
    std::uint64_t firstLine = 1;
    bool closeLine = false; ///< the last line has no end, and another input follows
};

/// Reads the inputs one after the other in blocks of whole lines. A block is what one read gave,
/// so that lines from a pipe are passed on as they come. Never holds more than a block and the
/// beginning of a line.
class BlockReader {
public:
    /// `files` as UTF-8 paths, "-" for standard input. Throws ToolError (4) when one is not there
    /// or is a directory.
    BlockReader(const std::vector<std::string>& files, ColumnRequest columns);
    ~BlockReader();
    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;

    /// The next block, false at the end of the last input. Throws ToolError: 4 when a file cannot
    /// be read, 2 when its columns are not as they were asked for.
    bool Next(Block& block);

    /// Bytes read so far, and of all inputs together; the latter is none when one of them is no
    /// regular file.
    std::uint64_t BytesRead() const { return m_bytesRead; }
    std::optional<std::uint64_t> BytesInAll() const { return m_bytesInAll; }

private:
    bool OpenNext();
    void CloseInput();
    bool ReadMore(TextBuffer& text);
    bool NextOfLongLine(Block& block);
    bool NextLines(Block& block);
    void SettleLayout(const Block& block);
    const std::string& Name() const { return m_files[m_next - 1]; }

    std::vector<std::string> m_files;
    ColumnRequest m_columns;
    std::deque<InputLines> m_settled; // places stay: blocks point to them
    const InputLines* m_lines = nullptr;
    std::size_t m_next = 0; // of m_files; the one before it is open
    int m_file = -1;
    TextBuffer m_carry; // the beginning of a line
    bool m_inLongLine = false;
    bool m_atEnd = false; // of the input
    std::uint64_t m_line = 1;
    std::uint64_t m_bytesRead = 0;
    std::optional<std::uint64_t> m_bytesInAll;
};

/// Whether a line has nothing to convert: a comment or blanks alone.
bool IsPassedThrough(const char* begin, const char* end);
