#pragma once

#include "projections/CTMprj.h"

/// Universal Transverse Mercator: the computation of CTMprj, with the texts of zone and hemisphere
/// added.
///
/// No zone is computed: central meridian, false origin and scale factor are stored parameters
/// like those of any Transverse Mercator. The two texts are carried as they stand, unchecked; a
/// record that lacks them loads.
class CUTMprj : public CTMprj {
public:
    CUTMprj();
    ~CUTMprj() override;

    bool LoadParameters(FileObject& file, const CString& section) override;
    bool SaveParameters(FileObject& file, const CString& section) override;
    bool GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                CArray<UINT, UINT>& kinds) const override;
    void DumpParametersXml(std::wostream& stream, const std::wstring& indent) const override;

    /// The zone text, in records of the form "Zone 31     (  3 E)".
    const CString& GetZone() const { return m_zone; }
    /// The hemisphere text, "Northern" or "Southern".
    const CString& GetHemisphere() const { return m_hemisphere; }

private:
    static const ParameterForm<CUTMprj>& Texts();

    CString m_zone;
    CString m_hemisphere;
};
