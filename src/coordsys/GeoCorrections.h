#pragma once

#include <iosfwd>
#include <memory>
#include <string>

#include "frame/BaseContract.h"

class XmlLines;

/// A system's geoid and post corrections in working form: what CalGeoidHeight and CalPostXYZ of
/// ZORGeoCoordSys compute with.
///
/// Units: grid positions, shifts and heights in the system's linear unit. Copies share the
/// models; the last owner frees them.
class GeoCorrections {
public:
    std::shared_ptr<GeoidModel> pGeoidModel;
    std::shared_ptr<GeoidModel> pPostModel;
    int geoidType = -1;     ///< type number of pGeoidModel, -1 for none
    int postType = -1;      ///< type number of pPostModel, -1 for none
    CString geoidModelName; ///< the name that CreateGeoidModel was given
    CString postFileName;   ///< nothing sets it; shown in descriptions when it is not empty
    double shiftX = 0.0;
    double shiftY = 0.0;
    double shiftZ = 0.0;
    double manualSeparation = 0.0;
    bool manualGeoid = false; ///< manualSeparation is the geoid height everywhere
    bool horAdjust = false;
    double horOriginX = 0.0;
    double horOriginY = 0.0;
    double horRotation = 0.0; ///< arc seconds
    double horCos = 1.0;      ///< of minus horRotation
    double horSin = 0.0;
    double horScale = 1.0;
    bool vertAdjust = false;
    double vertOriginX = 0.0;
    double vertOriginY = 0.0;
    double vertSlopeX = 0.0; ///< plain number: height per length
    double vertSlopeY = 0.0;

    /// Type number of a geoid or correction model, 2 to 31, in any case of letters; -1 for a name
    /// that no model has.
    static int ModelType(const CString& name);

    /// Makes the geoid model `name` and tells it which system it serves. False when the name is
    /// unknown (an earlier model then stays), when no such model can be made (none is left), or
    /// when the model refuses (it stays, and decides by its own answers).
    bool CreateGeoidModel(const CString& name, ZorGeoCoordSysBase* coordSys);
    /// Makes the post correction model `name`, in place of an earlier one. An unknown name leaves
    /// none. Whether the model accepts the system is not asked.
    void CreatePostModel(const CString& name, ZorGeoCoordSysBase* coordSys);
    /// Has both models answer in the unit that the system has now. A copy of this record keeps its
    /// models in the unit that they had.
    void TakeUnitOf(ZorGeoCoordSysBase* coordSys);

    void SetShifts(double x, double y, double z);
    /// Rotation in arc seconds; a scale of 0 is taken as 1.
    void SetHorAdjust(double originX, double originY, double rotation, double scale);
    void ClearHorAdjust();
    /// Slopes in parts per million, as databases hold them.
    void SetVertAdjust(double originX, double originY, double slopeX, double slopeY);
    void ClearVertAdjust();

    /// Turns, scales and shifts a grid position, or back. Cannot fail. The outputs may be the
    /// inputs.
    void AdjustXY(double x, double y, double& outX, double& outY, bool inverse) const;
    /// Model, then adjusts and shifts; back in the same order. Cannot fail.
    void PostXYZ(double x, double y, double z, double& outX, double& outY, double& outZ, bool inverse) const;
    /// Height of the geoid above the ellipsoid. False, with `height` as it was, without a fixed
    /// separation and a model, or when the model has no answer.
    bool GeoidHeight(double latitude, double longitude, double x, double y, double& height, CString& message) const;
    /// Adds the post model's geographic shift, degrees; takes it off for `inverse`. Leaves the
    /// position as it is without a model or when the model has none.
    void ShiftGeographic(double& latitude, double& longitude, bool inverse) const;

    /// Write the geoid, and the post model with shifts and adjusts, as XML elements; a part that is
    /// not there writes nothing. Each line begins with the indent.
    void DumpGeoidXml(std::wostream& stream, const std::wstring& indent) const;
    void DumpPostXml(std::wostream& stream, const std::wstring& indent) const;

private:
    void SetRotation(double arcSeconds);
    double PlaneHeight(double x, double y) const;
    void DumpPostModelXml(const XmlLines& outer) const;
    void DumpPostAdjustXml(const XmlLines& outer) const;
};
