#pragma once

#include <iosfwd>
#include <string>

#include "base/Export.h"
#include "base/text/CString.h"

class ZorGeoCoordSysBase;

/// A geoid or grid correction model.
///
/// Latitudes and longitudes are decimal degrees; easting, northing, heights and grid corrections
/// are in the unit of the caller's grid. An operation that a model does not have, or cannot
/// answer at a place, returns false with its outputs untouched; callers go on as if there were
/// no model. The Cal operations are const, allocate nothing, whether they answer or refuse (but
/// for the text of a `message`), and may be called from several threads at once.
/// The order of the virtual operations is part of the interface.
class ZORBASE_API GeoidModel {
public:
    virtual ~GeoidModel();

    /// Told once, before use, which coordinate system the model serves. False: not usable.
    virtual bool InitModel(ZorGeoCoordSysBase* coordSys) = 0;
    /// Correction at a grid point, forward (`inverse` false) or for the way back.
    virtual bool CalGridShift(double x, double y, double& dx, double& dy, bool inverse) const = 0;
    /// Geoid height at a position; `message` receives a remark for the user, if any.
    virtual bool CalGeoidHeight(double latitude, double longitude, double easting, double northing, double& height,
                                CString& message) const = 0;
    /// Correction of a geographic position, degrees.
    virtual bool CalGeoShift(double latitude, double longitude, double& dlat, double& dlon, bool inverse) const = 0;
    /// Loads the model's file. False when it cannot be opened or is none of this model.
    virtual bool SetModelFile(const CString& file) = 0;
    virtual void SetChartDatum(const CString& chartDatum) = 0;
    /// The file in use, empty for none.
    virtual CString GetModelFile() const = 0;
    virtual void DumpXml(std::wostream& stream, const std::wstring indent) const = 0;
};
