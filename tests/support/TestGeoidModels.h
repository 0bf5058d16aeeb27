#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "base/geoid/GeoidModel.h"
#include "base/geoid/GeoidModelList.h"

// Geoid and correction models for tests. What a model answers is told by its TestGeoidSettings,
// every call to it is recorded there, and ScopedGeoidModel<type> puts such models into the list:
//
//     TestGeoidSettings settings = ConstantGeoid(43.5);
//     settings.gridShift = ConstantShift(1.0, -2.0);
//     ScopedGeoidModel<7> egm96(settings);
//     ... Init of a system with method "EGM96" ...
//     EXPECT_EQ(settings.calls->files.size(), 1u);

/// What was asked of the models made with one TestGeoidSettings, in order. Outlives them.
struct TestGeoidCalls {
    struct Height {
        double latitude, longitude, easting, northing;
    };
    /// Of CalGridShift (x, y) and CalGeoShift (latitude, longitude).
    struct Shift {
        double first, second;
        bool inverse;
    };
    std::vector<ZorGeoCoordSysBase*> inits;
    std::vector<CString> files;
    std::vector<CString> chartDatums;
    std::vector<Height> heights;
    std::vector<Shift> gridShifts;
    std::vector<Shift> geoShifts;
    int made = 0;
    int destroyed = 0;
};

struct TestGeoidSettings {
    using HeightRule = std::function<bool(double latitude, double longitude, double& height)>;
    using ShiftRule = std::function<bool(double first, double second, double& d1, double& d2, bool inverse)>;

    /// Rules that are not set refuse.
    HeightRule height;
    ShiftRule gridShift;
    ShiftRule geoShift;
    /// Given out with a height.
    CString message;
    bool acceptsInit = true;
    bool acceptsFile = true;
    /// False: calls to the three Cal operations are not recorded, which then allocate nothing.
    bool recordsCalculations = true;

    std::shared_ptr<TestGeoidCalls> calls = std::make_shared<TestGeoidCalls>();
    std::shared_ptr<std::mutex> mutex = std::make_shared<std::mutex>();
};

class TestGeoidModel final : public GeoidModel {
public:
    explicit TestGeoidModel(TestGeoidSettings settings) : m_settings(std::move(settings)) { ++m_settings.calls->made; }
    ~TestGeoidModel() override { ++m_settings.calls->destroyed; }
    TestGeoidModel(const TestGeoidModel&) = delete;
    TestGeoidModel& operator=(const TestGeoidModel&) = delete;

    bool InitModel(ZorGeoCoordSysBase* coordSys) override
    {
        m_settings.calls->inits.push_back(coordSys);
        return m_settings.acceptsInit;
    }
    bool CalGridShift(double x, double y, double& dx, double& dy, bool inverse) const override
    {
        Record(m_settings.calls->gridShifts, {x, y, inverse});
        return m_settings.gridShift && m_settings.gridShift(x, y, dx, dy, inverse);
    }
    bool CalGeoidHeight(double latitude, double longitude, double easting, double northing, double& height,
                        CString& message) const override
    {
        Record(m_settings.calls->heights, {latitude, longitude, easting, northing});
        if (!m_settings.height || !m_settings.height(latitude, longitude, height)) {
            return false;
        }
        message = m_settings.message;
        return true;
    }
    bool CalGeoShift(double latitude, double longitude, double& dlat, double& dlon, bool inverse) const override
    {
        Record(m_settings.calls->geoShifts, {latitude, longitude, inverse});
        return m_settings.geoShift && m_settings.geoShift(latitude, longitude, dlat, dlon, inverse);
    }
    bool SetModelFile(const CString& file) override
    {
        m_settings.calls->files.push_back(file);
        if (m_settings.acceptsFile) {
            m_file = file;
        }
        return m_settings.acceptsFile;
    }
    void SetChartDatum(const CString& chartDatum) override { m_settings.calls->chartDatums.push_back(chartDatum); }
    CString GetModelFile() const override { return m_file; }
    void DumpXml(std::wostream& stream, const std::wstring indent) const override
    {
        stream << indent << L"<testgeoid>" << m_file << L"</testgeoid>" << std::endl;
    }

private:
    template <typename Call>
    void Record(std::vector<Call>& calls, Call call) const
    {
        if (m_settings.recordsCalculations) {
            const std::lock_guard lock(*m_settings.mutex);
            calls.push_back(call);
        }
    }

    TestGeoidSettings m_settings;
    CString m_file;
};

/// Supplies test models as type number `type` for its lifetime; afterwards the type is served as
/// before. One per type at a time. A model that was made may outlive it.
template <unsigned short type>
class ScopedGeoidModel {
public:
    explicit ScopedGeoidModel(const TestGeoidSettings& settings)
        : m_before(GeoidModelList::GetGeoidModelList().MakerOf(type))
    {
        Settings() = settings;
        GeoidModelList::GetGeoidModelList().Register(type,
                                                     []() -> GeoidModel* { return new TestGeoidModel(Settings()); });
    }
    ~ScopedGeoidModel() { GeoidModelList::GetGeoidModelList().Register(type, m_before); }
    ScopedGeoidModel(const ScopedGeoidModel&) = delete;
    ScopedGeoidModel& operator=(const ScopedGeoidModel&) = delete;

private:
    static TestGeoidSettings& Settings()
    {
        static TestGeoidSettings settings;
        return settings;
    }

    GeoidModelList::Maker m_before;
};

/// Takes the reader of type number `type` out for its lifetime.
template <unsigned short type>
class ScopedNoGeoidModel {
public:
    ScopedNoGeoidModel() : m_before(GeoidModelList::GetGeoidModelList().MakerOf(type))
    {
        GeoidModelList::GetGeoidModelList().Register(type, nullptr);
    }
    ~ScopedNoGeoidModel() { GeoidModelList::GetGeoidModelList().Register(type, m_before); }
    ScopedNoGeoidModel(const ScopedNoGeoidModel&) = delete;
    ScopedNoGeoidModel& operator=(const ScopedNoGeoidModel&) = delete;

private:
    GeoidModelList::Maker m_before;
};

/// A model with the same geoid height everywhere and no shifts.
inline TestGeoidSettings ConstantGeoid(double height)
{
    TestGeoidSettings settings;
    settings.height = [height](double, double, double& out) {
        out = height;
        return true;
    };
    return settings;
}

/// The same shift everywhere, in both directions.
inline TestGeoidSettings::ShiftRule ConstantShift(double d1, double d2)
{
    return [d1, d2](double, double, double& out1, double& out2, bool) {
        out1 = d1;
        out2 = d2;
        return true;
    };
}

/// A shift that grows with the place: d1 = c1 + g1 * first, d2 = c2 + g2 * second, in both
/// directions.
inline TestGeoidSettings::ShiftRule LinearShift(double c1, double g1, double c2, double g2)
{
    return [=](double first, double second, double& out1, double& out2, bool) {
        out1 = c1 + g1 * first;
        out2 = c2 + g2 * second;
        return true;
    };
}

/// Geoid heights at the nodes of a latitude and longitude grid, degrees; bilinear between them.
struct TestHeightGrid {
    double south = 0.0;
    double west = 0.0;
    double step = 1.0;
    int rows = 0;    ///< at least 2
    int columns = 0; ///< at least 2
    /// Rows from south to north, in a row from west to east.
    std::vector<double> heights;

    /// False, `height` untouched, outside the grid and for NaN.
    bool HeightAt(double latitude, double longitude, double& height) const
    {
        const double y = (latitude - south) / step;
        const double x = (longitude - west) / step;
        if (!(x >= 0.0 && x <= columns - 1 && y >= 0.0 && y <= rows - 1)) {
            return false;
        }
        const int row = std::min(static_cast<int>(y), rows - 2);
        const int column = std::min(static_cast<int>(x), columns - 2);
        const double fy = y - row;
        const double fx = x - column;
        const double low = (1.0 - fx) * At(row, column) + fx * At(row, column + 1);
        const double high = (1.0 - fx) * At(row + 1, column) + fx * At(row + 1, column + 1);
        height = (1.0 - fy) * low + fy * high;
        return true;
    }

    double At(int row, int column) const { return heights.at(static_cast<std::size_t>(row * columns + column)); }
};

/// A model with the heights of `grid`, which refuses outside it, and no shifts.
inline TestGeoidSettings GridGeoid(const TestHeightGrid& grid)
{
    TestGeoidSettings settings;
    settings.height = [grid](double latitude, double longitude, double& out) {
        return grid.HeightAt(latitude, longitude, out);
    };
    return settings;
}
