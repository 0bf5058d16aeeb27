// A ready system described for other tools: PROJ.4 text, GeoTIFF keys, the three values of a UTM
// system, XML. Nothing here reads a file.

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "coordsys/ZORGeoCoordSys.h"
#include "datum/CDatumTransform.h"
#include "datum/Ellipsoid.h"
#include "projections/CProjection.h"
#include "projections/CUTMprj.h"
#include "projections/ProjectionType.h"

namespace {

// The text in which a zone is written and scanned, by its number in the string table.
constexpr unsigned kZoneFormat = 15393;

constexpr wchar_t kNorthern[] = L"Northern";
constexpr wchar_t kSouthern[] = L"Southern";
constexpr double kSouthernFalseNorthing = 10000000.0; // metres, of every southern zone

constexpr int kNoConstant = -1;

// The PROJ.4 text of a projection type: the places, in the catalogue's order, of the constants that
// fill the format one after the other.
struct Proj4Row {
    int type;
    const wchar_t* format;
    std::array<int, 7> constants;
};

constexpr std::array<int, 7> kNone = {kNoConstant, kNoConstant, kNoConstant, kNoConstant,
                                      kNoConstant, kNoConstant, kNoConstant};
constexpr std::array<int, 7> kOriginAndScale = {1, 0, 4, 2, 3, kNoConstant, kNoConstant};
constexpr std::array<int, 7> kTwoParallels = {4, 5, 1, 0, 2, 3, kNoConstant};
constexpr std::array<int, 7> kTrueScale = {1, 0, 4, 2, 3, 6, kNoConstant};
constexpr std::array<int, 7> kOblique = {1, 0, 4, 2, 3, 5, 6};
constexpr std::array<int, 7> kLongitudeAndOrigin = {0, 2, 3, kNoConstant, kNoConstant, kNoConstant, kNoConstant};

constexpr wchar_t kObliqueFormat[] = L"+proj=omerc +lat_0=%f +lonc=%f +k_0=%f +x_0=%f +y_0=%f +alpha=%f +gamma=%f ";

// Types that are not listed have no text: those without formulas, and Universal Polar Stereographic.
// Kept: "+lonc" for Mercator, where PROJ reads "+lon_0" alone: PROJ takes such a text with the
// central meridian at 0. And the blanks at the end of three texts, so that two stand before "+a".
constexpr Proj4Row kProj4Rows[] = {
    {ProjectionType::transverseMercator, L"+proj=tmerc +lat_0=%f +lon_0=%f +k_0=%f +x_0=%f +y_0=%f", kOriginAndScale},
    // Kept: the published grid whatever the record says, with an ellipsoid of its own before the system's.
    {ProjectionType::rd,
     L"+proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.999908 +x_0=155000 +y_0=463000 "
     L"+ellps=bessel ",
     kNone},
    {ProjectionType::lambert2Parallel, L"+proj=lcc +lat_1=%f +lat_2=%f +lat_0=%f +lon_0=%f +x_0=%f +y_0=%f",
     kTwoParallels},
    {ProjectionType::mercator, L"+proj=merc +lat_0=%f +lonc=%f +k_0=%f +x_0=%f +y_0=%f +lat_ts=%f", kTrueScale},
    {ProjectionType::stereographic, L"+proj=sterea +lat_0=%f +lon_0=%f +k_0=%f +x_0=%f +y_0=%f", kOriginAndScale},
    {ProjectionType::cassiniSoldner, L"+proj=cass +lat_0=%f +lon_0=%f +k_0=%f +x_0=%f +y_0=%f", kOriginAndScale},
    {ProjectionType::hotineA, kObliqueFormat, kOblique},
    {ProjectionType::lambert1Parallel, L"+proj=lcc +lat_1=%f +lon_0=%f +k_0=%f +x_0=%f +y_0=%f", kOriginAndScale},
    {ProjectionType::hotineB, kObliqueFormat, kOblique},
    {ProjectionType::polyconic, L"+proj=poly +lon_0=%f +x_0=%f +y_0=%f", kLongitudeAndOrigin},
};

// Throws std::invalid_argument when a place lies beyond the constants.
CString TextOfConstants(const Proj4Row& row, const CArray<double, double>& constants)
{
    std::array<double, 7> v = {};
    for (std::size_t i = 0; i < v.size() && row.constants[i] != kNoConstant; ++i) {
        v[i] = constants.GetAt(row.constants[i]);
    }
    CString text;
    text.Format(row.format, v[0], v[1], v[2], v[3], v[4], v[5], v[6]);
    return text;
}

// The first number of a text that was written by `format`, as a scan by the format reads it: a
// blank skips any blanks, any other character must be there, the number takes no more characters
// than its width, and without a width all its digits. 0 when the text is another.
int FirstNumber(CString text, const CString& format)
{
    int place = 0;
    for (; place < format.GetLength() && format[place] != L'%'; ++place) {
        if (format[place] == L' ') {
            text.TrimLeft();
        } else if (text.IsEmpty() || text[0] != format[place]) {
            return 0;
        } else {
            text.Delete(0);
        }
    }
    if (place == format.GetLength()) {
        return 0;
    }
    const int width = numbers::LeadingInteger(format.Mid(place + 1));
    text.TrimLeft();
    return numbers::LeadingInteger(width > 0 ? text.Left(width) : text);
}

// 0 without the text that a zone is written by.
int ZoneNumber(const CUTMprj& utm)
{
    CString format;
    format.LoadString(kZoneFormat);
    return FirstNumber(utm.GetZone(), format);
}

CString UtmText(const CUTMprj& utm)
{
    CString text;
    text.Format(L"+proj=utm +zone=%d", ZoneNumber(utm));
    // Kept: in exact case here, in any case for the three values; records are written in this one.
    return utm.GetHemisphere() == kSouthern ? text + L" +south" : text;
}

// Empty for a type that has no text.
CString Proj4Projection(int type, const CProjection* projection, const CArray<double, double>& constants)
{
    if (type == ProjectionType::utm) {
        const auto* const utm = dynamic_cast<const CUTMprj*>(projection);
        return utm ? UtmText(*utm) : CString();
    }
    const auto* const row = std::find_if(std::begin(kProj4Rows), std::end(kProj4Rows),
                                         [type](const Proj4Row& r) { return r.type == type; });
    return row == std::end(kProj4Rows) ? CString() : TextOfConstants(*row, constants);
}

CString Proj4Ellipsoid(ZORGeoCoordSys& system)
{
    double a = 0.0, b = 0.0, eccentricity = 0.0, reserved = 0.0, flattening = 0.0, inverseFlattening = 0.0;
    system.GetEllipsoidAllParameters(a, b, eccentricity, reserved, flattening, inverseFlattening);
    CString text;
    text.Format(L"+a=%f +b=%f", a, b);
    return text;
}

// Kept: "+units=m" beside the factor, whatever the unit. PROJ goes by "+units" and leaves the factor
// aside: what it makes of such a text is in metres.
CString Proj4Unit(ZORGeoCoordSys& system)
{
    double factor = 0.0;
    system.GetLinearUnitCnv(factor);
    CString text;
    text.Format(L"+units=m +to_meter=%f", factor);
    return text;
}

// Records go from the satellite ellipsoid to the local one, this text the other way, so every sign
// changes, that of a zero too. Rates and the fixed height have no place in it.
CString Proj4Datum(ZORGeoCoordSys& system)
{
    std::array<double, 15> p = {};
    bool fixedHeight = false;
    double forward = 0.0;
    double reverse = 0.0;
    system.GetDatumParameters(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11], p[12], p[13],
                              p[14], fixedHeight, forward, reverse);
    CString text;
    text.Format(L"+towgs84=%f,%f,%f,%f,%f,%f,%f", -p[0], -p[1], -p[2], -p[3], -p[4], -p[5], -p[6]);
    return text;
}

} // namespace

CString ZORGeoCoordSys::GetGDALProj4CoordSysText()
{
    CArray<double, double> constants;
    CStringArray names;
    CStringArray texts;
    CArray<UINT, UINT> kinds;
    GetProjectionConstants(constants, names, texts, kinds);
    const CString projection = Proj4Projection(m_projectionType, m_pProjection.get(), constants);
    if (projection.IsEmpty()) {
        return {};
    }
    return projection + L" " + Proj4Ellipsoid(*this) + L" " + Proj4Unit(*this) + L" " + Proj4Datum(*this) +
           L" +no_defs";
}

void ZORGeoCoordSys::GetGeoKeys(std::list<std::pair<int, short>>& shortKeys,
                                std::list<std::pair<int, double>>& doubleKeys)
{
    if (m_pProjection) {
        m_pProjection->GetGeoKeys(shortKeys, doubleKeys);
    }
}

bool ZORGeoCoordSys::GetFauParameters(CStringA& zone, CStringA& hemisphere, double& falseNorthing)
{
    const auto* const utm = dynamic_cast<const CUTMprj*>(m_pProjection.get());
    if (m_projectionType != ProjectionType::utm || !utm) {
        return false;
    }
    const bool north = utm->GetHemisphere().CompareNoCase(kNorthern) == 0;
    zone = std::to_string(ZoneNumber(*utm));
    hemisphere = north ? "n" : "s";
    falseNorthing = north ? 0.0 : kSouthernFalseNorthing;
    return true;
}

void ZORGeoCoordSys::DumpProjectionXml(std::wostream& stream, const std::wstring indent, int) const
{
    if (m_pProjection) {
        m_pProjection->DumpXml(stream, indent);
    }
}

void ZORGeoCoordSys::DumpDatumXml(std::wostream& stream, const std::wstring indent)
{
    if (m_pDatum) {
        m_pDatum->DumpXml(stream, indent.c_str());
    }
}

void ZORGeoCoordSys::DumpEllipsoidXml(std::wostream& stream, const std::wstring indent)
{
    if (m_pEllipsoid) {
        m_pEllipsoid->DumpXml(stream, indent);
    }
}

void ZORGeoCoordSys::DumpGeoidXml(std::wostream& stream, const std::wstring indent)
{
    m_corrections.DumpGeoidXml(stream, indent);
}

void ZORGeoCoordSys::DumpPostCorrectionXml(std::wostream& stream, const std::wstring indent)
{
    m_corrections.DumpPostXml(stream, indent);
}
