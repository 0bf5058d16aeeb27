#include "authoring/ZorGeoStaticData.h"

#include "database/ZorGeoDatabase.h"
#include "datum/DatumMethod.h"
#include "frame/DescriptionText.h"
#include "projections/ProjectionType.h"

namespace {

// Numbers of the string table: the method list as an editor shows it, by method number.
constexpr unsigned kMethodTexts[] = {15411, 15392, 15412, 15400, 15413};
constexpr unsigned kSevenParameterText = kMethodTexts[1];

} // namespace

// The catalogue, a member, fills the directories.
ZorGeoStaticData::ZorGeoStaticData()
{
    for (const unsigned id : kMethodTexts) {
        m_dtMdNames.Add(LabelText(id));
    }
}

ZorGeoStaticData::~ZorGeoStaticData() = default;

void ZorGeoStaticData::SetElpNameAndKey(CString name, CString key)
{
    m_elpName = name;
    m_elpKey = key;
    ZorGeoDatabase database;
    if (database.Init()) {
        database.GetElpParamByElpName(name, m_elpSemiMajor, m_elpSemiMinor, m_elpEcc, m_elpEccSqrd, m_elpFlat,
                                      m_elpInvFlat);
    }
}

// Kept: an identity in the seven parameter method, by its list text, and not "No Transformation";
// the method number stays what it was. Editors show the parameters of what this leaves.
void ZorGeoStaticData::SetNoDtf(CString name)
{
    m_dtMdName = LabelText(kSevenParameterText);
    m_dtName = name;
    SetDtTransferParams(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, false, 0.0, 0.0);
}

int ZorGeoStaticData::GetDtfMdType(CString name)
{
    return GetDtfType(name);
}

int ZorGeoStaticData::GetDtfType(const CString& name) const
{
    for (int method = 0; method < m_dtMdNames.GetSize(); ++method) {
        if (m_dtMdNames[method].Find(name) != -1) {
            return method;
        }
    }
    return -1;
}

void ZorGeoStaticData::GetAllDtTransMdNames(CStringArray& out)
{
    out.Copy(m_dtMdNames);
}

int ZorGeoStaticData::GetDtTransMethodByName(CString name)
{
    return DatumMethodNumber(name);
}

bool ZorGeoStaticData::BeUTMPrj(int type)
{
    return type == ProjectionType::utm;
}

// The catalogue's answers.

void ZorGeoStaticData::GetAllPrjMdNames(CStringArray& out)
{
    m_catalogue.GetAllPrjMdNames(out);
}

int ZorGeoStaticData::GetPrjType(CString method)
{
    return m_catalogue.GetPrjType(method);
}

void ZorGeoStaticData::GetSelPrjMdResults(int type, CStringArray& names, CArray<UINT, UINT>& numbers,
                                          CStringArray& keys)
{
    m_catalogue.GetSelPrjMdResults(type, names, numbers, keys);
}

bool ZorGeoStaticData::CanPrjUnitChange(int type)
{
    return m_catalogue.CanPrjUnitChange(type);
}

CString ZorGeoStaticData::FindStaticData(int index, UINT& kind)
{
    return m_catalogue.FindStaticData(index, kind);
}

int ZorGeoStaticData::FindStaticDataSize(int type)
{
    return m_catalogue.FindStaticDataSize(type);
}
