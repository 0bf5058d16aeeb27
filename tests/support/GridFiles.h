#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "base/geoid/GridBytes.h"

// Grid files made by tests, as bytes. Fields of a header can be set to anything, so that a file can
// lie; the nodes are then written as the honest header tells.

/// Puts a number behind `bytes` in a byte order.
template <typename Number>
void AppendNumber(std::string& bytes, Number number, ByteOrder order)
{
    const auto raw = std::bit_cast<std::array<char, sizeof(Number)>>(number);
    const bool asIs = (order == ByteOrder::little) == (std::endian::native == std::endian::little);
    bytes.append(raw.begin(), raw.end());
    if (!asIs) {
        std::reverse(bytes.end() - sizeof(Number), bytes.end());
    }
}

template <typename Number>
void ReplaceNumber(std::string& bytes, std::size_t at, Number number, ByteOrder order)
{
    std::string text;
    AppendNumber(text, number, order);
    bytes.replace(at, text.size(), text);
}

inline GridBytes AsGrid(const std::string& bytes)
{
    return GridBytes::Of({bytes.begin(), bytes.end()});
}

/// A value at a node, from its row and column, counted in the order of the file.
using NodeRule = std::function<double(int row, int column)>;

struct GtxFile {
    double south = 50.0;
    double west = 4.0;
    double latitudeStep = 0.5;
    double longitudeStep = 0.5;
    int rows = 2;
    int columns = 3;

    std::string Bytes(const NodeRule& value) const
    {
        std::string bytes;
        for (const double number : {south, west, latitudeStep, longitudeStep}) {
            AppendNumber(bytes, number, ByteOrder::big);
        }
        AppendNumber(bytes, std::int32_t{rows}, ByteOrder::big);
        AppendNumber(bytes, std::int32_t{columns}, ByteOrder::big);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                AppendNumber(bytes, static_cast<float>(value(row, column)), ByteOrder::big);
            }
        }
        return bytes;
    }
};

/// Seconds; longitudes positive west, shifts north and west positive, as in the file.
struct Ntv2SubGrid {
    std::string name = "GRID";
    std::string parent = "NONE";
    double south = 0.0;
    double east = 0.0;
    double latitudeStep = 3600.0;
    double longitudeStep = 3600.0;
    int rows = 2;
    int columns = 2;
    NodeRule north;
    NodeRule west;
};

struct Ntv2File {
    ByteOrder order = ByteOrder::little;
    bool hasEnd = true;
    std::string unit = "SECONDS";
    std::vector<Ntv2SubGrid> grids;

    std::string Bytes() const
    {
        std::string bytes;
        Integer(bytes, "NUM_OREC", 11);
        Integer(bytes, "NUM_SREC", 11);
        Integer(bytes, "NUM_FILE", static_cast<std::int32_t>(grids.size()));
        Text(bytes, "GS_TYPE", unit);
        Text(bytes, "VERSION", "TEST1.0");
        Text(bytes, "SYSTEM_F", "OLD");
        Text(bytes, "SYSTEM_T", "NEW");
        Double(bytes, "MAJOR_F", 6377397.155);
        Double(bytes, "MINOR_F", 6356078.963);
        Double(bytes, "MAJOR_T", 6378137.0);
        Double(bytes, "MINOR_T", 6356752.314);
        for (const Ntv2SubGrid& grid : grids) {
            Append(bytes, grid);
        }
        if (hasEnd) {
            Double(bytes, "END", 3.33e32);
        }
        return bytes;
    }

private:
    void Append(std::string& bytes, const Ntv2SubGrid& grid) const
    {
        Text(bytes, "SUB_NAME", grid.name);
        Text(bytes, "PARENT", grid.parent);
        Text(bytes, "CREATED", "20010101");
        Text(bytes, "UPDATED", "20010101");
        Double(bytes, "S_LAT", grid.south);
        Double(bytes, "N_LAT", grid.south + (grid.rows - 1) * grid.latitudeStep);
        Double(bytes, "E_LONG", grid.east);
        Double(bytes, "W_LONG", grid.east + (grid.columns - 1) * grid.longitudeStep);
        Double(bytes, "LAT_INC", grid.latitudeStep);
        Double(bytes, "LONG_INC", grid.longitudeStep);
        Integer(bytes, "GS_COUNT", grid.rows * grid.columns);
        for (int row = 0; row < grid.rows; ++row) {
            for (int column = 0; column < grid.columns; ++column) {
                for (const double value : {grid.north(row, column), grid.west(row, column), -1.0, -1.0}) {
                    AppendNumber(bytes, static_cast<float>(value), order);
                }
            }
        }
    }
    static void Padded(std::string& bytes, std::string text)
    {
        text.resize(8, ' ');
        bytes += text;
    }
    static void Text(std::string& bytes, const std::string& key, const std::string& value)
    {
        Padded(bytes, key);
        Padded(bytes, value);
    }
    void Integer(std::string& bytes, const std::string& key, std::int32_t value) const
    {
        Padded(bytes, key);
        AppendNumber(bytes, value, order);
        bytes.append(4, '\0');
    }
    void Double(std::string& bytes, const std::string& key, double value) const
    {
        Padded(bytes, key);
        AppendNumber(bytes, value, order);
    }
};

/// The same shift at every node, or any other rule of one number.
inline NodeRule Constant(double value)
{
    return [value](int, int) { return value; };
}

struct PgmFile {
    int width = 8;
    int height = 5;
    std::string header = "P5\n# Geoid for tests\n# Description A synthetic geoid\n# DateTime 2001-02-03\n"
                         "# Offset -108\n# Scale 0.003\n# Origin 90N 0E\n# AreaOrPoint Point\n";

    std::string Bytes(const std::function<int(int row, int column)>& pixel) const
    {
        std::string bytes = header + std::to_string(width) + " " + std::to_string(height) + "\n65535\n";
        for (int row = 0; row < height; ++row) {
            for (int column = 0; column < width; ++column) {
                AppendNumber(bytes, static_cast<std::uint16_t>(pixel(row, column)), ByteOrder::big);
            }
        }
        return bytes;
    }
};

/// Lines of the British text grid; kilometres.
struct BritishFile {
    struct Node {
        double east;
        double north;
        double height;
        int flag = 1;
    };
    int west = 0;
    int south = 0;
    int columns = 3;
    int rows = 2;
    std::string header;
    std::string lineEnd = "\n";

    std::string Text(const std::function<Node(int row, int column)>& node) const
    {
        std::string text = header;
        int record = 0;
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                const Node at = node(row, column);
                text += std::to_string(++record) + "," + std::to_string(1000 * (west + column)) + "," +
                        std::to_string(1000 * (south + row)) + "," + std::to_string(at.east) + "," +
                        std::to_string(at.north) + "," + std::to_string(at.height) + "," + std::to_string(at.flag) +
                        lineEnd;
            }
        }
        return text;
    }
};
