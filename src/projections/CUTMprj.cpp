#include "projections/CUTMprj.h"

#include "projections/ParameterForm.h"
#include "projections/ProjectionType.h"

const ParameterForm<CUTMprj>& CUTMprj::Texts()
{
    using M = CUTMprj;
    static constexpr LoadedParameter<M> load[] = {{ProjectionKey::hemisphere, &M::m_hemisphere, Need::optional},
                                                  {ProjectionKey::utmZone, &M::m_zone, Need::optional}};
    static constexpr SavedParameter<M> save[] = {{ProjectionKey::hemisphere, &M::m_hemisphere},
                                                 {ProjectionKey::utmZone, &M::m_zone}};
    static constexpr XmlElement<M> xml[] = {{L"zone", &M::m_zone, Shown::text},
                                            {L"hemisphere", &M::m_hemisphere, Shown::text}};
    static constexpr ParameterForm<M> form = {load, save, xml, {}};
    return form;
}

CUTMprj::CUTMprj() : CTMprj(ProjectionType::utm) {}

CUTMprj::~CUTMprj() = default;

bool CUTMprj::LoadParameters(FileObject& file, const CString& section)
{
    const int count = ProjectionCatalogue().FindStaticDataSize(GetType());
    if (count == 0) {
        return false;
    }
    SetConstantsSize(count);
    m_sized = true;
    ReadByForm(*this, Texts(), file, section);
    StoreConstantsByForm(*this, Texts());
    return CTMprj::LoadParameters(file, section);
}

bool CUTMprj::SaveParameters(FileObject& file, const CString& section)
{
    CTMprj::SaveParameters(file, section);
    WriteByForm(*this, Texts(), file, section);
    return true;
}

bool CUTMprj::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                     CArray<UINT, UINT>& kinds) const
{
    return CTMprj::GetProjectionConstants(values, names, texts, kinds);
}

void CUTMprj::DumpParametersXml(std::wostream& stream, const std::wstring& indent) const
{
    CTMprj::DumpParametersXml(stream, indent);
    DumpXmlByForm(*this, Texts(), stream, indent);
}
