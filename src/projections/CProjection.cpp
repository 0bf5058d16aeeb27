#include "projections/CProjection.h"

#include <cmath>
#include <limits>

#include "frame/XmlLines.h"
#include "projections/ProjectionCatalogue.h"
#include "projections/ProjectionType.h"

namespace {

constexpr UINT kKindLongitude = 1;
constexpr UINT kKindLatitude = 2;

// The label whose numbers are shown with eight decimals; the spelling is that of the catalogue.
constexpr wchar_t kScaleFactorLabel[] = L"Scale Factor at the Central Meridian";

// Trailing zeros are taken off a number down to this many characters.
constexpr int kKeptCharacters = 7;

// How far, in system units and in each axis, a point may move before ProjectOffset computes its
// scale factor again. The scale changes by 1e-5 at most on the grids in use.
constexpr double kScaleCacheReach = 1000.0;

CString NumberText(double value, const CString& label)
{
    CString text;
    const double whole = std::trunc(value);
    if (value - whole == 0.0) {
        const bool fits = std::fabs(whole) < static_cast<double>(std::numeric_limits<long long>::max());
        fits ? text.Format(L"%d", static_cast<long long>(whole)) : text.Format(L"%.0f", whole);
        return text;
    }
    text.Format(label == kScaleFactorLabel ? L"%.8f" : L"%.6f", value);
    while (text.GetLength() > kKeptCharacters && text[text.GetLength() - 1] == L'0') {
        text = text.Left(text.GetLength() - 1);
    }
    return text;
}

CString DisplayText(double value, UINT kind, const CString& label)
{
    if (kind != kKindLongitude && kind != kKindLatitude) {
        return NumberText(value, label);
    }
    CString text;
    FormatGeogs(value, 7, 7, kind == kKindLongitude ? GeogsKind::longitude : GeogsKind::latitude, text, true, true);
    return text;
}

/// The place of a label; 0 when the catalogue lacks it, so that the value is not lost.
int PlaceOf(const CString& label, const CStringArray& labels)
{
    for (int i = 0; i < labels.GetSize(); ++i) {
        if (labels[i].CompareNoCase(label) == 0) {
            return i;
        }
    }
    return 0;
}

} // namespace

CProjection::CProjection(std::int32_t type) : m_type(type) {}

CProjection::~CProjection() = default;

void CProjection::DumpParametersXml(std::wostream&, const std::wstring&) const {}

void CProjection::DumpTypeXml(std::wostream& stream, const std::wstring& indent) const
{
    XmlLines(stream, indent).Element(L"type", ProjectionType::Text(m_type));
}

void CProjection::DumpXml(std::wostream& stream, const std::wstring& indent) const
{
    const XmlLines lines(stream, indent);
    const std::wstring inner = indent + L"  ";
    lines.Tag(L"<projection>");
    lines.Inner().Element(L"name", m_name);
    DumpTypeXml(stream, inner);
    DumpParametersXml(stream, inner);
    lines.Tag(L"</projection>");
}

void CProjection::GetEllipsoid(double& semiMajor, double& eccSquared) const
{
    semiMajor = m_ellipsoid.semiMajor;
    eccSquared = m_ellipsoid.eccSquared;
}

bool CProjection::TakeSection(const FileObject& file, const CString& section)
{
    if (!file.HasSection(section)) {
        return false;
    }
    m_name = section;
    m_fileTitle = file.GetFileTitle();
    return true;
}

std::uint32_t CProjection::SetStatus(std::uint32_t status)
{
    m_status = static_cast<std::int32_t>(status);
    return status;
}

void CProjection::SetConstantsSize(int count)
{
    m_constantsCount = count;
    m_constantValues.SetSize(count);
    m_constantNames.SetSize(count);
    m_constantKinds.SetSize(count);
    m_constantTexts.SetSize(count);
}

bool CProjection::SetConstantValue(int index, double value)
{
    return SetConstant(index, value, nullptr);
}

bool CProjection::SetConstantText(int index, const CString& text)
{
    return SetConstant(index, 0.0, &text);
}

bool CProjection::SetConstant(int index, double value, const CString* text)
{
    ProjectionCatalogue catalogue;
    CStringArray labels;
    CArray<UINT, UINT> kinds;
    CStringArray keys;
    catalogue.GetParaStaticData(m_type, labels, kinds, keys);
    UINT kind = 0;
    const CString label = catalogue.FindStaticData(index, kind);
    const int position = PlaceOf(label, labels);
    if (position > m_constantValues.GetSize()) {
        return false;
    }
    m_constantValues.SetAt(position, value);
    m_constantNames.SetAt(position, label);
    m_constantKinds.SetAt(position, kind);
    m_constantTexts.SetAt(position, text ? *text : DisplayText(value, kind, label));
    return true;
}

bool CProjection::GetProjectionConstants(CArray<double, double>& values, CStringArray& names, CStringArray& texts,
                                         CArray<UINT, UINT>& kinds) const
{
    values.Copy(m_constantValues);
    names.Copy(m_constantNames);
    texts.Copy(m_constantTexts);
    kinds.Copy(m_constantKinds);
    return true;
}

void CProjection::PointScaleFactor(double easting, double northing, double& factor) const
{
    factor = PointScaleFactor(easting, northing);
}

void CProjection::LineScaleFactor(double easting1, double northing1, double easting2, double northing2,
                                  double& factor) const
{
    factor = LineScaleFactor(easting1, northing1, easting2, northing2);
}

bool CProjection::ProjectOffset(double& x, double& y, double easting, double northing)
{
    const bool near = m_scaleCache.valid && std::fabs(m_scaleCache.easting - easting) <= kScaleCacheReach &&
                      std::fabs(m_scaleCache.northing - northing) <= kScaleCacheReach;
    if (!near) {
        m_scaleCache = {PointScaleFactor(easting, northing), easting, northing, true};
    }
    x *= m_scaleCache.factor;
    y *= m_scaleCache.factor;
    return m_scaleCache.valid;
}
