#pragma once

#include "base/registry/ZorGeoDatabaseBase.h"

/// A database without records: every operation does nothing and answers false, 0 or the empty
/// text. To be derived from for the few operations that a test needs.
class EmptyDatabase : public ZorGeoDatabaseBase {
public:
    bool Init() override { return {}; }
    bool GetUnitParametersByName(CString, CString&, CString&, double&, short&) override { return {}; }
    bool GetAllGroupNames(CStringArray&, geodb_type) override { return {}; }
    bool GetAllSystemNamesByGroupName(CStringArray&, CString) override { return {}; }
    bool GetAllSystemNames(CStringArray&) override { return {}; }
    bool GetAllDtfNames(CStringArray&) override { return {}; }
    bool GetAllUnitNames(CStringArray&) override { return {}; }
    bool GetAllEllipsoidNames(CStringArray&) override { return {}; }
    bool GetAllProjectionNames(CStringArray&) override { return {}; }
    bool FindGroupAndSysByPrjName(CString, CString&, CString&) override { return {}; }
    CString GetPrjNameByGroupAndSysNames(CString, CString) override { return {}; }
    bool GetAllPrjNamesByMdName(std::vector<CString>&, CString) override { return {}; }
    bool GetDtfNamesByElps(CStringArray&, CString, CString) override { return {}; }
    bool GetAllDtfNamesByOneElp(CStringArray&, CString, bool) override { return {}; }
    CString GetDtfNameByGroupAndSysNames(CString, CString) override { return {}; }
    CString GetUnitNameByGroupAndSysNames(CString, CString) override { return {}; }
    CString GetPrjMdNameByGroupAndSysNames(CString, CString) override { return {}; }
    CString GetPrjMdNameByPrjName(CString) override { return {}; }
    CString GetPrjUnit(CString) override { return {}; }
    bool GetPrjConstantsByName(CString, CArray<double, double>&, CStringArray&, CStringArray&,
                               CArray<UINT, UINT>&) override
    {
        return {};
    }
    int GetPrjTypeByPrjName(CString) override { return {}; }
    bool GetPrjUTMInfo(CString, CString&, CString&) override { return {}; }
    CString GetDatumKeyByName(CString) override { return {}; }
    bool GetElpParamByElpName(CString, double&, double&, double&, double&, double&, double&) override { return {}; }
    bool GetElpsoidParametersByDtName(CString, CString&, double&, double&, double&, double&, double&, double&) override
    {
        return {};
    }
    bool GetDtfParamByName(CString, CString&, double&, double&, double&, double&, double&, double&, double&, double&,
                           double&, double&, double&, double&, double&, double&, double&, CString&, CString&, bool&,
                           double&, double&) override
    {
        return {};
    }
    bool GetElpNamesByDtfName(CString, CString&, CString&) override { return {}; }
    CString GetDtfFilePathByDtfName(CString) override { return {}; }
    CString GetDtfDescription(CString) override { return {}; }
    CString GetElpKeyByName(CString) override { return {}; }
    CString GetDefaultSrcElpName() override { return {}; }
    bool IsOldZorProject(const CString&) override { return {}; }
    bool ConvertProj2Geobase(FileObject&, CString&, CString&) override { return {}; }
    bool HasGroup(CString, unsigned) override { return {}; }
    bool HasSystem(CString, unsigned) override { return {}; }
    bool HasDtf(CString, unsigned) override { return {}; }
    bool HasEllpsoid(CString, unsigned) override { return {}; }
    bool HasUint(CString, unsigned) override { return {}; }
    bool HasProjection(CString, unsigned) override { return {}; }
    bool HasDtfUsedInMoreSystem(CString, unsigned) override { return {}; }
    bool HasProjectionUsedInMoreSystem(CString, unsigned) override { return {}; }
    CString DumpDatumfText(CString, bool) override { return {}; }
    CString DumpElpText(CString) override { return {}; }
    CString DumpSystemText(CString, CString, CString, CString, CString, CString, CString) override { return {}; }
    CString DumpPrjText(CString) override { return {}; }
    CString DumpPrjText(CString, CString, bool) override { return {}; }
    CString DumpUnitText(CString) override { return {}; }
    CString GetDefaultGeoidModelMd(CString, CString) override { return {}; }
    CString GetSupportedGeoidModels(CString, CString) override { return {}; }
    CString GetCustomSupportedGeoidModels(CString, CString) override { return {}; }
    CString GetDefaultGeoidGrid(CString, CString) override { return {}; }
    void GetGridCorrection(CString, CString, double&, double&, double&) override {}
    void GetPostHorAdjust(CString, CString, double&, double&, double&, double&) override {}
    void GetPostVertAdjust(CString, CString, double&, double&, double&, double&) override {}
    CString GetDefaultGridCorrectionFile(CString, CString) override { return {}; }
    CString GetDefaultGridCorrectionModel(CString, CString) override { return {}; }
    bool HasGeoidModel(CString, CString) override { return {}; }
    bool HasPostCorrection(CString, CString) override { return {}; }
    bool HasPostHorAdjust(CString, CString) override { return {}; }
    bool HasPostVertAdjust(CString, CString) override { return {}; }
    bool SetGeoidModel(CString, CString, CString, CString, bool) override { return {}; }
    bool SetManualGeoidModel(CString, CString, CString, double, bool) override { return {}; }
    double GetGeoidManualSeparation(CString, CString) override { return {}; }
    bool SetpostCorrections(CString, CString, double, double, double, CString, CString, bool) override { return {}; }
    bool RemoveSystem(CString, CString) override { return {}; }
    void GetDefaultGroupAndSystem(CString&, CString&) override {}
    bool CreateNewUnit(CString, double, CString, short) override { return {}; }
    CString DumpSystemIDText(CString, CString, CString, CString, CString, CString, CString) override { return {}; }
    CString GetSystemUnit(CString, CString) override { return {}; }
    bool IsSystemCustom(CString, CString) override { return {}; }
    bool GetAllDatumKeys(CStringArray&) override { return {}; }
};
