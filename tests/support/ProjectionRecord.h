#pragma once

#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <utility>

#include "frame/BaseContract.h"
#include "frame/ZorGeoUtility.h"
#include "projections/ProjectionFactory.h"

/// The directory in which the module looks for the catalogue, for the life of this object.
class MainDirectory {
public:
    explicit MainDirectory(const CString& directory) : m_before(ZorGeoUtility::Get())
    {
        ZorGeoUtility::Get().mainDatabaseDir = directory;
        ZorGeoUtility::Get().initialised = true;
    }
    ~MainDirectory() { ZorGeoUtility::Get() = m_before; }
    MainDirectory(const MainDirectory&) = delete;
    MainDirectory& operator=(const MainDirectory&) = delete;

    /// That of the delivered data.
    static CString Delivered() { return CString::FromUtf8(ZORGEO_DATA_DIR); }

private:
    ZorGeoUtility m_before;
};

/// The unit of the process, for the life of this object.
class LinearUnit {
public:
    explicit LinearUnit(double metres) : m_before(Ellipsoid::UnitFactor()) { Ellipsoid::SetUnitFactor(metres); }
    ~LinearUnit() { Ellipsoid::SetUnitFactor(m_before); }
    LinearUnit(const LinearUnit&) = delete;
    LinearUnit& operator=(const LinearUnit&) = delete;

private:
    double m_before;
};

/// A projection record in memory.
struct ProjectionRecord {
    using Numbers = std::initializer_list<std::pair<int, double>>;

    FileObject file;
    CString section = L"Prj-Test";

    ProjectionRecord() { file.CreateSection(section, true); }
    /// With parameters by their index in projectionParamKeys.
    explicit ProjectionRecord(Numbers numbers) : ProjectionRecord()
    {
        for (const auto& [index, value] : numbers) {
            Set(index, value);
        }
    }

    template <class Value>
    void Set(int index, const Value& value)
    {
        file.SetItem(section, Key(index), value, true);
    }
    void Remove(int index) { file.DeleteItem(section, Key(index), false); }

    static const CString& Key(int index) { return projectionParamKeys.at(static_cast<std::size_t>(index)); }
};

struct EllipsoidShape {
    double a; ///< metres
    double e2;
};
inline constexpr EllipsoidShape kGrs80{6378137.0, 0.0066943800229007876};
inline constexpr EllipsoidShape kAiry{6377563.396, 0.0066705400741492318};
inline constexpr EllipsoidShape kClarke1866{6378206.4, 0.006768657997291094};

/// A new projection of a type, with its ellipsoid, loaded. Throws when the load is refused.
inline std::unique_ptr<CProjection> Loaded(std::uint32_t type, const EllipsoidShape& shape, ProjectionRecord record)
{
    std::unique_ptr<CProjection> projection(ProjectionFactory::CreateProjectionByType(type));
    if (!projection || projection->SetEllipsoid(shape.a, shape.e2) != 0 ||
        !projection->LoadParameters(record.file, record.section)) {
        throw std::runtime_error("the projection does not load");
    }
    return projection;
}
