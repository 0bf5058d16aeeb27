#pragma once

#include <cstdint>
#include <iosfwd>
#include <list>
#include <string>
#include <utility>

#include "datum/Ellipsoid.h"
#include "frame/BaseContract.h"

/// A map projection: the contract between a coordinate system and the formulas.
///
/// Latitude and longitude are decimal degrees, north and east positive. Eastings, northings and
/// false origins are in the system's linear unit, convergence in degrees, scale factors pure
/// numbers. The semi-major axis enters as a_u = a / Ellipsoid::UnitFactor().
///
/// Life: constructed, given its ellipsoid (SetEllipsoid), loaded once (LoadParameters, which ends
/// in InitConstants), from then on only read. The numeric operations report nothing: they yield
/// what the arithmetic yields, NaN and infinity included, and do not look at the status. They
/// allocate nothing, open nothing and lock nothing; several threads may call them on one object.
/// The order of the virtual operations is part of the interface.
class CProjection {
public:
    CProjection(const CProjection&) = delete;
    CProjection& operator=(const CProjection&) = delete;

    virtual ~CProjection();

    /// Forms from the parameters and the ellipsoid what the numeric operations need. The result is
    /// one of ProjectionStatus, and is kept as the status where the class does not say otherwise.
    virtual std::uint32_t InitConstants() = 0;

    /// Reads the parameters from the section and fills the constants (see GetProjectionConstants).
    /// False, with nothing changed, when the file lacks the section. False, with every parameter
    /// that was found read, when a required key is missing, the catalogue does not know the
    /// type, or InitConstants refuses. Without an ellipsoid the constants are complete all the
    /// same and the result is false. Throws std::invalid_argument when the catalogue's section of
    /// the type lacks its "Unitflag" (see SetConstantValue); the delivered one never does.
    virtual bool LoadParameters(FileObject& file, const CString& section) = 0;
    /// Writes the parameters and the type number, creating section and keys as needed. True.
    virtual bool SaveParameters(FileObject& file, const CString& section) = 0;

    virtual void GeoToGrid(double latitude, double longitude, double& easting, double& northing) const = 0;
    virtual void GridToGeo(double easting, double northing, double& latitude, double& longitude) const = 0;
    virtual void GridConvergence(double easting, double northing, double& convergence) const = 0;
    virtual double PointScaleFactor(double easting, double northing) const = 0;
    /// Stores what the form above returns.
    virtual void PointScaleFactor(double easting, double northing, double& factor) const = 0;
    /// The scale factor of the line between two grid points.
    virtual double LineScaleFactor(double easting1, double northing1, double easting2, double northing2) const = 0;
    /// Stores what the form above returns.
    virtual void LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                 double& factor) const = 0;

    /// The parameters for display, in the catalogue's order: values, labels, texts and kinds (1 a
    /// longitude, 2 a latitude, else a plain number). The outputs are emptied first. True.
    virtual bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                        CArray<UINT, UINT>& kinds) const = 0;
    /// Appends the GeoTIFF keys of the projection: the code keys to `codes`, the parameters to
    /// `parameters`.
    virtual void GetGeoKeys(std::list<std::pair<int, short>>& codes,
                            std::list<std::pair<int, double>>& parameters) const = 0;

    /// Writes one line per parameter. The base writes nothing.
    virtual void DumpParametersXml(std::wostream& stream, const std::wstring& indent) const;
    /// Writes the line that names the type.
    virtual void DumpTypeXml(std::wostream& stream, const std::wstring& indent) const;

    /// Title of the file, and section, that the parameters came from. The name is what SetName
    /// gave until LoadParameters puts the section in its place.
    const CString& GetFileTitle() const { return m_fileTitle; }
    const CString& GetName() const { return m_name; }
    void SetName(const CString& name) { m_name = name; }

    /// The type number of ProjectionType.h.
    std::int32_t GetType() const { return m_type; }
    /// Result of the last InitConstants; 0 before the first.
    std::int32_t GetStatus() const { return m_status; }

    const Ellipsoid& GetEllipsoid() const { return m_ellipsoid; }
    /// Semi-major axis in metres and squared eccentricity.
    void GetEllipsoid(double& semiMajor, double& eccSquared) const;
    /// Sets the ellipsoid; the result is that of Ellipsoid::Set, 0 when it can be used. Takes
    /// effect with the next InitConstants.
    int SetEllipsoid(double semiMajor, double eccSquared) { return m_ellipsoid.Set(semiMajor, eccSquared); }

    /// First step of a load: takes the section for the name, and the file's title. False, nothing
    /// changed, when the file lacks the section.
    bool TakeSection(const FileObject& file, const CString& section);

    /// Sizes the four arrays of constants. A negative count throws std::invalid_argument.
    void SetConstantsSize(int count);
    int GetConstantsSize() const { return m_constantsCount; }
    /// Puts a parameter, with the label and kind of the catalogue and its text for display, at its
    /// place in the catalogue's order; at the first place when the catalogue lacks the label.
    /// `index` counts in projectionParamKeys. False, nothing stored, when the place lies beyond
    /// the sized arrays by more than one; just behind them throws std::invalid_argument.
    bool SetConstantValue(int index, double value);
    /// The same for a parameter that is a text; its value is 0.
    bool SetConstantText(int index, const CString& text);

    /// Writes name, type and parameters as one element.
    void DumpXml(std::wostream& stream, const std::wstring& indent) const;

    /// Scales an offset from the ground to the grid at a point. The scale factor is kept while the
    /// point stays within 1000 units, in each axis, of where it was computed. True.
    /// The one operation on a loaded projection that changes it.
    bool ProjectOffset(double& x, double& y, double easting, double northing);

    /// The scale factor that ProjectOffset keeps, and where it was computed.
    struct ScaleCache {
        double factor = 0.0;
        double easting = 0.0;
        double northing = 0.0;
        bool valid = false;
    };
    const ScaleCache& GetScaleCache() const { return m_scaleCache; }

protected:
    explicit CProjection(std::int32_t type);

    /// a_u and b_u, with the unit factor as it stands at the call.
    double SemiMajorInUnits() const { return m_ellipsoid.semiMajor / Ellipsoid::UnitFactor(); }
    double SemiMinorInUnits() const { return m_ellipsoid.semiMinor / Ellipsoid::UnitFactor(); }

    /// Keeps `status` and returns it.
    std::uint32_t SetStatus(std::uint32_t status);

private:
    bool SetConstant(int index, double value, const CString* text);

    CString m_fileTitle;
    CString m_name;
    std::int32_t m_type;
    std::int32_t m_status = 0;

protected:
    Ellipsoid m_ellipsoid;

private:
    std::int32_t m_constantsCount = 0;
    ScaleCache m_scaleCache;
    CArray<double, double> m_constantValues;
    CStringArray m_constantNames;
    CStringArray m_constantTexts;
    CArray<UINT, UINT> m_constantKinds;
};

/// What InitConstants answers.
namespace ProjectionStatus {
constexpr std::uint32_t usable = 0;
constexpr std::uint32_t badEllipsoid = 1;
constexpr std::uint32_t refusedParameter = 2;
} // namespace ProjectionStatus
