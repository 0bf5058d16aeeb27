#pragma once

#include <memory>

#include "base/geoid/CorrectionGrid.h"
#include "base/geoid/GeoidModel.h"

/// A geoid or correction model that stands in a grid file: GTX, NTv2, PGM or British text
/// (docs/grids.md). The file's contents choose the reader, whatever the model is called.
///
/// Files hold metres; heights and grid positions are in the linear unit that the system had at
/// InitModel. A file is taken in SetModelFile, whole or, above 64 MiB, mapped.
class ZORBASE_API GridModel final : public GeoidModel {
public:
    /// `type` is the model's index into GeoidmodelTypeKeys.
    explicit GridModel(unsigned short type);

    /// The same model, its file read no second time, in the unit that `coordSys` has now. A model
    /// of another class comes back itself, and so does one that is told nothing new.
    static std::shared_ptr<GeoidModel> InUnitOf(ZorGeoCoordSysBase* coordSys, std::shared_ptr<GeoidModel> model);

    /// Takes the system's unit. True.
    bool InitModel(ZorGeoCoordSysBase* coordSys) override;
    bool CalGridShift(double x, double y, double& dx, double& dy, bool inverse) const override;
    bool CalGeoidHeight(double latitude, double longitude, double easting, double northing, double& height,
                        CString& message) const override;
    bool CalGeoShift(double latitude, double longitude, double& dlat, double& dlon, bool inverse) const override;
    /// A name without a directory that is not there is looked for in the user's data directory, then
    /// in the delivered one. False, with Reason telling why and no grid left, when the file cannot be
    /// read or is no whole grid.
    bool SetModelFile(const CString& file) override;
    void SetChartDatum(const CString& chartDatum) override;
    CString GetModelFile() const override;
    void DumpXml(std::wostream& stream, const std::wstring indent) const override;

    /// Why the last SetModelFile was false; empty when it was true.
    const CString& Reason() const noexcept { return m_reason; }
    /// The grid in use, null for none.
    const CorrectionGrid* Grid() const noexcept { return m_grid.get(); }

private:
    unsigned short m_type;
    double m_metresPerUnit = 1.0;
    CString m_file;
    CString m_chartDatum;
    CString m_reason;
    std::shared_ptr<const CorrectionGrid> m_grid; // copies of a model share it
};
