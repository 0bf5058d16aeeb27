#pragma once

#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// One point of a text of points, with the projection that it belongs to.
struct PointCase {
    std::string where; ///< file and line
    std::string source;
    unsigned type = 0;
    std::vector<std::pair<std::string, std::string>> parameters; ///< key of the record and value
    double semiMajor = 0.0, eccSquared = 0.0;
    double unit = 1.0;      ///< metres
    double tolerance = 0.0; ///< metres on the ground, both ways
    double roundTrip = 0.0; ///< degrees; 0 is not asked
    double latitude = 0.0, longitude = 0.0, easting = 0.0, northing = 0.0;
};

inline void PrintTo(const PointCase& point, std::ostream* stream)
{
    *stream << point.where << ", " << point.source;
}

/// Reader of tests/data/points/*.cases: a line per fact, each stands until another takes its place.
///
///     source      free text, begins a new projection
///     projection  type number  key=value ...
///     ellipsoid   a (metres)  e2          or  a  1/f with a slash: 6377563.396 1/299.3249646
///     unit        metres per unit         (1 when left out)
///     tolerance   number  mm or m
///     roundtrip   degrees
///     geo latitude longitude grid easting northing
///
/// Angles are decimal degrees, or 50:30:00N. Lines that begin with # and empty ones are skipped.
class PointCases {
public:
    /// Throws std::runtime_error with file and line at anything else.
    static std::vector<PointCase> Read(const std::filesystem::path& path)
    {
        std::ifstream file(path);
        if (!file) {
            throw std::runtime_error("cannot read " + path.string());
        }
        PointCases reader;
        std::string line;
        for (int number = 1; std::getline(file, line); ++number) {
            reader.m_state.where = path.filename().string() + ":" + std::to_string(number);
            reader.Line(line);
        }
        return reader.m_cases;
    }

private:
    [[noreturn]] void Refuse(const std::string& what) const { throw std::runtime_error(m_state.where + ": " + what); }

    double Number(const std::string& text) const
    {
        double value = 0.0;
        const char* end = text.data() + text.size();
        if (std::from_chars(text.data(), end, value).ptr != end || text.empty()) {
            Refuse("no number: " + text);
        }
        return value;
    }

    double Angle(std::string text) const
    {
        double sign = 1.0;
        if (!text.empty() && std::string("NESW").find(text.back()) != std::string::npos) {
            sign = text.back() == 'S' || text.back() == 'W' ? -1.0 : 1.0;
            text.pop_back();
        }
        double angle = 0.0;
        double size = 1.0;
        std::istringstream parts(text);
        for (std::string part; std::getline(parts, part, ':'); size *= 60.0) {
            angle += Number(part) / size;
        }
        return sign * angle;
    }

    void Ellipsoid(std::istringstream& words)
    {
        std::string axis;
        std::string shape;
        words >> axis >> shape;
        m_state.semiMajor = Number(axis);
        if (shape.rfind("1/", 0) == 0) {
            const double f = 1.0 / Number(shape.substr(2));
            m_state.eccSquared = f * (2.0 - f);
        } else {
            m_state.eccSquared = Number(shape);
        }
    }

    void Projection(std::istringstream& words)
    {
        words >> m_state.type;
        m_state.parameters.clear();
        for (std::string word; words >> word;) {
            const std::size_t sign = word.find('=');
            if (sign == std::string::npos) {
                Refuse("no parameter: " + word);
            }
            m_state.parameters.emplace_back(word.substr(0, sign), word.substr(sign + 1));
        }
    }

    void Point(std::istringstream& words)
    {
        std::string lat, lon, grid, easting, northing;
        words >> lat >> lon >> grid >> easting >> northing;
        if (grid != "grid" || m_state.tolerance <= 0.0) {
            Refuse("no point, or no tolerance");
        }
        m_state.latitude = Angle(lat);
        m_state.longitude = Angle(lon);
        m_state.easting = Number(easting);
        m_state.northing = Number(northing);
        m_cases.push_back(m_state);
    }

    void Line(const std::string& line)
    {
        std::istringstream words(line);
        std::string keyword;
        std::string value;
        if (!(words >> keyword) || keyword[0] == '#') {
            return;
        }
        if (keyword == "source") {
            const std::string where = m_state.where;
            m_state = {};
            m_state.where = where;
            std::getline(words >> std::ws, m_state.source);
        } else if (keyword == "projection") {
            Projection(words);
        } else if (keyword == "ellipsoid") {
            Ellipsoid(words);
        } else if (keyword == "geo") {
            Point(words);
        } else if (keyword == "unit" && words >> value) {
            m_state.unit = Number(value);
        } else if (keyword == "roundtrip" && words >> value) {
            m_state.roundTrip = Number(value);
        } else if (std::string unit; keyword == "tolerance" && words >> value >> unit) {
            m_state.tolerance = Number(value) * (unit == "mm" ? 0.001 : 1.0);
        } else {
            Refuse("not understood: " + line);
        }
    }

    PointCase m_state;
    std::vector<PointCase> m_cases;
};
