#include "base/geoid/Ntv2Grid.h"

#include <unordered_map>

#include "base/text/Numbers.h"

namespace {

constexpr double kSeconds = 3600.0; // in a degree
constexpr double kTurn = 360.0 * kSeconds;
constexpr std::size_t kRecord = 16; // a key of eight characters and a value of eight bytes
constexpr std::size_t kKey = 8;
constexpr std::size_t kRecords = 11; // of either header
constexpr std::size_t kHeader = kRecords * kRecord;
constexpr std::size_t kNode = 4 * sizeof(float);
constexpr std::int32_t kMostGrids = 1 << 20;

// Records of the overview header.
constexpr std::size_t kOverviewCount = 0, kSubCount = 1, kGridCount = 2, kShiftUnit = 3, kVersion = 4, kFrom = 5,
                      kTo = 6, kAxes = 7;
// Records of a sub-grid's header.
constexpr std::size_t kName = 0, kParent = 1, kSouth = 4, kNorth = 5, kEast = 6, kWest = 7, kStepNorth = 8,
                      kStepWest = 9, kNodes = 10;

// Degrees; 1e-12 radians, six nanometres on the ground.
constexpr double kSettled = 5.7e-11;
constexpr int kMostRounds = 10;
// Steps by which an extent may miss a whole number of them.
constexpr double kExtentRounding = 0.01;

std::string Trimmed(std::string_view text)
{
    const auto end = text.find_last_not_of(std::string_view(" \0", 2));
    return std::string(text.substr(0, end == std::string_view::npos ? 0 : end + 1));
}

/// The records of a header that lies whole in the file.
class Header {
public:
    Header(const GridBytes& contents, std::size_t at, ByteOrder order)
        : m_bytes(contents.bytes.data() + at), m_text(contents.Text().substr(at, kHeader)), m_order(order)
    {
    }

    std::string_view Key(std::size_t record) const { return m_text.substr(record * kRecord, kKey); }
    std::string Text(std::size_t record) const { return Trimmed(m_text.substr(record * kRecord + kKey, kKey)); }
    template <typename Number>
    Number Value(std::size_t record) const
    {
        return ReadNumberAt<Number>(m_bytes + record * kRecord + kKey, m_order);
    }

private:
    const unsigned char* m_bytes;
    std::string_view m_text;
    ByteOrder m_order;
};

/// Number of nodes from `first` to `last`; 0 when the step does not divide the way between them.
std::size_t CountNodes(double first, double last, double step)
{
    const double steps = (last - first) / step;
    const double whole = std::round(steps);
    // Written so that NaN and infinity give 0.
    if (!(step > 0.0 && whole >= 0.0 && whole <= double{1 << 30} && std::fabs(steps - whole) <= kExtentRounding)) {
        return 0;
    }
    return static_cast<std::size_t>(whole) + 1;
}

} // namespace

bool Ntv2Grid::SubGrid::Locate(double latitude, double west, CellPlace& cell) const
{
    CellPlace place;
    if (!latitudes.Locate(latitude, place.row) || !longitudes.Locate(west, place.column)) {
        return false;
    }
    cell = place;
    return true;
}

/// Reads a file from its first byte to its last.
class Ntv2Grid::Loader {
public:
    Loader(const GridBytes& contents, Ntv2Grid& grid, CString& reason)
        : m_contents(contents), m_grid(grid), m_reason(reason)
    {
    }

    bool Load()
    {
        std::int32_t count = 0;
        if (!ReadOverview(count)) {
            return false;
        }
        std::size_t at = kHeader;
        for (std::int32_t i = 0; i < count; ++i) {
            if (!ReadSubGrid(at)) {
                return false;
            }
        }
        // The end record: some files lack it, and what follows its key may be anything.
        const std::string_view rest = m_contents.Text().substr(at);
        return rest.empty() || rest.starts_with("END") ||
               Fail(L"bytes follow its last sub-grid: its number of sub-grids is too small");
    }

private:
    bool Fail(const wchar_t* reason)
    {
        m_reason = reason;
        return false;
    }
    bool FailIn(const std::string& name, const wchar_t* reason)
    {
        m_reason = L"its sub-grid \"" + CString::FromUtf8(name) + L"\" " + reason;
        return false;
    }

    bool ReadOverview(std::int32_t& count)
    {
        if (m_contents.Size() < kHeader) {
            return Fail(L"it is shorter than the header of an NTv2 grid");
        }
        if (Header(m_contents, 0, ByteOrder::little).Value<std::int32_t>(kOverviewCount) != std::int32_t{kRecords}) {
            m_grid.m_order = ByteOrder::big;
        }
        const Header header(m_contents, 0, m_grid.m_order);
        if (header.Value<std::int32_t>(kOverviewCount) != std::int32_t{kRecords} ||
            header.Value<std::int32_t>(kSubCount) != std::int32_t{kRecords}) {
            return Fail(L"its headers are not of 11 records in either byte order");
        }
        if (header.Text(kShiftUnit) != "SECONDS") {
            m_reason = L"its shifts are in \"" + CString::FromUtf8(header.Text(kShiftUnit)) + L"\", not in SECONDS";
            return false;
        }
        count = header.Value<std::int32_t>(kGridCount);
        m_grid.m_version = header.Text(kVersion);
        m_grid.m_systems = {header.Text(kFrom), header.Text(kTo)};
        for (std::size_t axis = 0; axis < m_grid.m_axes.size(); ++axis) {
            m_grid.m_axes[axis] = header.Value<double>(kAxes + axis);
        }
        return (count >= 1 && count <= kMostGrids) || Fail(L"its number of sub-grids cannot be");
    }

    bool ReadSubGrid(std::size_t& at)
    {
        if (m_contents.Size() - at < kHeader) {
            return Fail(L"it ends before the header of a sub-grid: it is cut short, or its number of sub-grids is too "
                        L"large");
        }
        const Header header(m_contents, at, m_grid.m_order);
        if (!header.Key(kName).starts_with("SUB_NAM")) {
            return Fail(L"what stands where a sub-grid should begin is none");
        }
        SubGrid grid;
        grid.name = header.Text(kName);
        grid.parent = header.Text(kParent);
        if (!ReadExtent(header, grid)) {
            return false;
        }
        const std::uint64_t nodes = std::uint64_t{grid.latitudes.count} * grid.longitudes.count; // below 2^62
        const auto told = header.Value<std::int32_t>(kNodes);
        if (told < 0 || std::uint64_t(told) != nodes) {
            return FailIn(grid.name, L"has another number of nodes than its extent and steps give");
        }
        at += kHeader;
        if (nodes > (m_contents.Size() - at) / kNode) {
            return FailIn(grid.name, L"is cut short: the file ends before its last node");
        }
        grid.nodes = at;
        at += static_cast<std::size_t>(nodes) * kNode;
        Attach(std::move(grid));
        return true;
    }

    bool ReadExtent(const Header& header, SubGrid& grid)
    {
        const auto south = header.Value<double>(kSouth);
        const auto north = header.Value<double>(kNorth);
        const auto east = header.Value<double>(kEast);
        const auto west = header.Value<double>(kWest);
        // Written so that NaN fails.
        if (!(south >= -90.0 * kSeconds && north <= 90.0 * kSeconds && std::fabs(east) <= kTurn &&
              std::fabs(west) <= kTurn && west - east <= kTurn)) {
            return FailIn(grid.name, L"has an extent that is not on the Earth");
        }
        grid.latitudes.first = south;
        grid.latitudes.step = header.Value<double>(kStepNorth);
        grid.latitudes.count = CountNodes(south, north, grid.latitudes.step);
        grid.longitudes.first = east;
        grid.longitudes.step = header.Value<double>(kStepWest);
        grid.longitudes.count = CountNodes(east, west, grid.longitudes.step);
        grid.longitudes.turn = kTurn;
        return (grid.latitudes.count > 0 && grid.longitudes.count > 0) ||
               FailIn(grid.name, L"has an extent that is no whole number of its steps");
    }

    // A parent stands before its children. A grid whose parent does not is a top grid, so that no
    // grid can be its own ancestor.
    void Attach(SubGrid grid)
    {
        const std::size_t place = m_grid.m_grids.size();
        const auto parent = m_places.find(grid.parent);
        Family& family = parent == m_places.end() ? m_tops : m_families[parent->second];
        if (parent != m_places.end()) {
            grid.above = parent->second;
            grid.depth = m_grid.m_grids[grid.above].depth + 1;
            if (family.last == kNone) {
                m_grid.m_grids[grid.above].firstChild = place;
            }
        }
        if (family.last != kNone) {
            m_grid.m_grids[family.last].next = place;
        }
        family.last = place;
        m_places[grid.name] = place;
        m_families.emplace_back();
        m_grid.m_grids.push_back(std::move(grid));
    }

    /// The sub-grids of one parent, in the order of the file.
    struct Family {
        std::size_t last = kNone;
    };

    const GridBytes& m_contents;
    Ntv2Grid& m_grid;
    CString& m_reason;
    std::unordered_map<std::string, std::size_t> m_places; // by name; of equal names the last
    std::vector<Family> m_families;                        // by the parent's place
    Family m_tops;
};

std::unique_ptr<Ntv2Grid> Ntv2Grid::Load(const GridBytes& contents, CString& reason)
{
    std::unique_ptr<Ntv2Grid> grid(new Ntv2Grid);
    if (!Loader(contents, *grid, reason).Load()) {
        return nullptr;
    }
    grid->m_contents = contents;
    return grid;
}

/// The deepest sub-grid that contains a position and whose ancestors do, null for none. Of equally
/// deep ones, which share a border, the first in the file. Walks the tree without a stack, so that
/// nothing is allocated.
const Ntv2Grid::SubGrid* Ntv2Grid::Find(double latitude, double west, CellPlace& cell) const
{
    const SubGrid* found = nullptr;
    for (std::size_t at = 0; at != kNone;) {
        const SubGrid& grid = m_grids[at];
        CellPlace here;
        const bool inside = grid.Locate(latitude, west, here);
        if (inside && (found == nullptr || grid.depth > found->depth)) {
            found = &grid;
            cell = here;
        }
        at = inside && grid.firstChild != kNone ? grid.firstChild : Behind(at);
    }
    return found;
}

/// The sub-grid that follows when those within number `at` are passed over.
std::size_t Ntv2Grid::Behind(std::size_t at) const
{
    while (m_grids[at].next == kNone && m_grids[at].above != kNone) {
        at = m_grids[at].above;
    }
    return m_grids[at].next;
}

std::optional<PlaneShift> Ntv2Grid::Interpolate(const SubGrid& grid, const CellPlace& cell) const
{
    const unsigned char* const nodes = m_contents.bytes.data() + grid.nodes;
    double north = 0.0;
    double west = 0.0;
    cell.ForCorners([&](std::size_t row, std::size_t column, double weight) {
        const unsigned char* const node = nodes + (row * grid.longitudes.count + column) * kNode;
        north += weight * static_cast<double>(ReadNumberAt<float>(node, m_order));
        west += weight * static_cast<double>(ReadNumberAt<float>(node + sizeof(float), m_order));
    });
    if (!std::isfinite(north) || !std::isfinite(west)) {
        return {};
    }
    return PlaneShift{north / kSeconds, -west / kSeconds};
}

/// Degrees, east positive. With `only` that sub-grid alone.
std::optional<PlaneShift> Ntv2Grid::ShiftAt(double latitude, double longitude, const SubGrid* only) const
{
    CellPlace cell;
    const double north = latitude * kSeconds;
    const double west = -longitude * kSeconds;
    if (only != nullptr) {
        return only->Locate(north, west, cell) ? Interpolate(*only, cell) : std::nullopt;
    }
    const SubGrid* const grid = Find(north, west, cell);
    return grid != nullptr ? Interpolate(*grid, cell) : std::nullopt;
}

std::optional<PlaneShift> Ntv2Grid::GeoShiftAt(double latitude, double longitude, bool inverse) const
{
    if (!inverse) {
        return ShiftAt(latitude, longitude, nullptr);
    }
    const auto in = [this](const SubGrid* only) {
        return [this, only](double north, double east) { return ShiftAt(north, east, only); };
    };
    if (const auto shift = ShiftBefore(latitude, longitude, kSettled, kMostRounds, in(nullptr))) {
        return shift;
    }
    CellPlace cell;
    const SubGrid* const here = Find(latitude * kSeconds, -longitude * kSeconds, cell);
    return here != nullptr ? ShiftBefore(latitude, longitude, kSettled, kMostRounds, in(here)) : std::nullopt;
}

GridDescription Ntv2Grid::Describe() const
{
    const auto axes = [this](std::size_t system) {
        return CString::FromUtf8(m_systems[system] + ", semi-axes " + numbers::ToText(m_axes[2 * system]) + " and " +
                                 numbers::ToText(m_axes[2 * system + 1]) + " m");
    };
    GridDescription description;
    description.format = L"NTv2";
    description.remarks = {{L"values", L"shifts of latitude and longitude, seconds; bilinear"},
                           {L"version", CString::FromUtf8(m_version)},
                           {L"from", axes(0)},
                           {L"to", axes(1)},
                           {L"byte order", m_order == ByteOrder::big ? L"big-endian" : L"little-endian"},
                           {L"no data", L"none in this format"}};
    for (const SubGrid& grid : m_grids) {
        GridDescription::Part part;
        part.name = CString::FromUtf8(grid.name);
        part.parent = CString::FromUtf8(grid.parent);
        part.south = grid.latitudes.first / kSeconds;
        part.north = grid.latitudes.Last() / kSeconds;
        // Taken from 0, so that Greenwich is not written as -0.
        part.west = (0.0 - grid.longitudes.Last()) / kSeconds;
        part.east = (0.0 - grid.longitudes.first) / kSeconds;
        part.stepNorth = grid.latitudes.step / kSeconds;
        part.stepEast = grid.longitudes.step / kSeconds;
        part.rows = grid.latitudes.count;
        part.columns = grid.longitudes.count;
        description.parts.push_back(part);
    }
    return description;
}
