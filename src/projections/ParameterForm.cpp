#include "projections/ParameterForm.h"

#include "frame/XmlLines.h"
#include "projections/ProjectionType.h"

namespace {

namespace GeoTiff {
constexpr int projectedCSType = 3072;
constexpr int projection = 3074;
constexpr int projCoordTrans = 3075;
constexpr short userDefined = 32767;
} // namespace GeoTiff

CString AngleText(double degrees, int kind)
{
    CString text;
    FormatGeogs(degrees, 7, 7, kind, text, true, true);
    MakeXmlCompatible(text);
    return text;
}

CString LengthText(double value, int decimals)
{
    CString format;
    format.Format(L"%%.%df", decimals);
    CString text;
    text.Format(format, value);
    return text;
}

CString RatioText(double value)
{
    CString text;
    text.Format(L"%f", value);
    return text;
}

CString ShownText(const std::wostream& stream, Shown shown, double value)
{
    switch (shown) {
    case Shown::latitude:
        return AngleText(value, GeogsKind::latitude);
    case Shown::longitude:
        return AngleText(value, GeogsKind::longitude);
    case Shown::length2:
        return LengthText(value, 2);
    case Shown::length3:
        return LengthText(value, 3);
    case Shown::ratio:
        return RatioText(value);
    case Shown::streamed:
    case Shown::text:
        break;
    }
    return XmlNumber(stream, value);
}

} // namespace

bool WriteType(const CProjection& projection, FileObject& file, const CString& section)
{
    return file.SetItem(section, projectionParamKeys[ProjectionKey::type], projection.GetType(), true);
}

void WriteXmlElement(std::wostream& stream, const std::wstring& indent, const wchar_t* name, Shown shown, double value)
{
    XmlLines(stream, indent).Element(name, ShownText(stream, shown, value));
}

void AppendGeoCodes(int type, std::list<std::pair<int, short>>& codes)
{
    codes.emplace_back(GeoTiff::projectedCSType, GeoTiff::userDefined);
    codes.emplace_back(GeoTiff::projection, GeoTiff::userDefined);
    codes.emplace_back(GeoTiff::projCoordTrans, ProjectionType::GeoTiffCode(type));
}
