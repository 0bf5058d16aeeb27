#include "base/geoid/GtxGrid.h"

namespace {

constexpr std::size_t kHeader = 40;
constexpr std::size_t kNode = sizeof(float);
constexpr float kNoData = -88.8888F;
constexpr float kMostMetres = 1000.0F; // other marks for no data are huge
// The northernmost row may miss the pole by the rounding of a step, 1e-3 of it.
constexpr double kStepRounding = 1e-3;

bool IsHeight(float value)
{
    return value != kNoData && std::fabs(value) <= kMostMetres; // NaN is none
}

struct Header {
    double latitude;
    double longitude;
    double latitudeStep;
    double longitudeStep;
    std::int32_t rows;
    std::int32_t columns;
};

Header ReadHeader(const unsigned char* at)
{
    constexpr ByteOrder big = ByteOrder::big;
    return {ReadNumberAt<double>(at, big),
            ReadNumberAt<double>(at + 8, big),
            ReadNumberAt<double>(at + 16, big),
            ReadNumberAt<double>(at + 24, big),
            ReadNumberAt<std::int32_t>(at + 32, big),
            ReadNumberAt<std::int32_t>(at + 36, big)};
}

/// Null when the header can be one. Written so that NaN fails.
const wchar_t* FaultOf(const Header& header, std::size_t size)
{
    if (!(std::fabs(header.latitude) <= 90.0)) {
        return L"the latitude of its first node is beyond 90 degrees";
    }
    if (!(std::fabs(header.longitude) <= 360.0)) {
        return L"the longitude of its first node is beyond 360 degrees";
    }
    if (!(header.latitudeStep > 0.0 && header.latitudeStep <= 180.0 && header.longitudeStep > 0.0 &&
          header.longitudeStep <= 360.0)) {
        return L"a step between its nodes is no angle above 0";
    }
    if (header.rows < 1 || header.columns < 1) {
        return L"its number of rows or columns is not above 0";
    }
    const double north = header.latitude + (header.rows - 1) * header.latitudeStep;
    if (north > 90.0 + kStepRounding * header.latitudeStep) {
        return L"its rows go beyond the north pole";
    }
    if ((header.columns - 1) * header.longitudeStep > 360.0 + kStepRounding * header.longitudeStep) {
        return L"its columns go round the Earth more than once";
    }
    const std::uint64_t nodes = std::uint64_t(header.rows) * std::uint64_t(header.columns); // below 2^62
    const std::uint64_t room = (size - kHeader) / kNode;
    if (nodes > room) {
        return L"it is shorter than its numbers of rows and columns ask for";
    }
    return nodes * kNode + kHeader < size ? L"it is longer than its numbers of rows and columns ask for" : nullptr;
}

} // namespace

GtxGrid::GtxGrid(const GridBytes& contents, const NodeAxis& latitudes, const LongitudeAxis& longitudes)
    : m_contents(contents), m_latitudes(latitudes), m_longitudes(longitudes)
{
}

std::unique_ptr<GtxGrid> GtxGrid::Load(const GridBytes& contents, CString& reason)
{
    if (contents.Size() < kHeader) {
        reason = L"it is shorter than the header of a GTX grid";
        return nullptr;
    }
    const Header header = ReadHeader(contents.bytes.data());
    if (const wchar_t* const fault = FaultOf(header, contents.Size()); fault != nullptr) {
        reason = fault;
        return nullptr;
    }
    LongitudeAxis longitudes;
    longitudes.first = header.longitude >= 180.0 ? header.longitude - 360.0 : header.longitude;
    longitudes.step = header.longitudeStep;
    longitudes.count = static_cast<std::size_t>(header.columns);
    const NodeAxis latitudes{header.latitude, header.latitudeStep, static_cast<std::size_t>(header.rows)};
    return std::unique_ptr<GtxGrid>(new GtxGrid(contents, latitudes, longitudes));
}

std::optional<double> GtxGrid::HeightAt(const Place& place) const
{
    CellPlace cell;
    if (!m_latitudes.Locate(place.latitude, cell.row) || !m_longitudes.Locate(place.longitude, cell.column)) {
        return {};
    }
    const unsigned char* const nodes = m_contents.bytes.data() + kHeader;
    double sum = 0.0;
    double weights = 0.0;
    bool whole = true;
    cell.ForCorners([&](std::size_t row, std::size_t column, double weight) {
        const float value = ReadNumberAt<float>(nodes + (row * m_longitudes.count + column) * kNode, ByteOrder::big);
        if (IsHeight(value)) {
            sum += weight * static_cast<double>(value);
            weights += weight;
        } else {
            whole = false;
        }
    });
    if (!whole) {
        if (!(weights > 0.0)) {
            return {};
        }
        sum /= weights;
    }
    return sum;
}

GridDescription GtxGrid::Describe() const
{
    GridDescription description;
    description.format = L"GTX";
    description.remarks = {{L"values", L"heights, metres; bilinear"},
                           {L"no data", L"-88.8888, and what is beyond 1000 m"},
                           {L"all round the Earth", m_longitudes.Closed() ? L"yes" : L"no"}};
    GridDescription::Part part;
    part.south = m_latitudes.first;
    part.north = m_latitudes.Last();
    part.west = m_longitudes.first;
    part.east = m_longitudes.Last();
    part.stepNorth = m_latitudes.step;
    part.stepEast = m_longitudes.step;
    part.rows = m_latitudes.count;
    part.columns = m_longitudes.count;
    description.parts.push_back(part);
    return description;
}
