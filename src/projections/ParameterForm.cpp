#include "projections/ParameterForm.h"

#include <locale>
#include <sstream>

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

/// As the stream would write it, its locale aside.
CString StreamedText(const std::wostream& stream, double value)
{
    std::wostringstream text;
    text.copyfmt(stream);
    text.imbue(std::locale::classic());
    text << value;
    return text.str();
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
    return StreamedText(stream, value);
}

} // namespace

bool WriteType(const CProjection& projection, FileObject& file, const CString& section)
{
    return file.SetItem(section, projectionParamKeys[ProjectionKey::type], projection.GetType(), true);
}

void WriteXmlElement(std::wostream& stream, const std::wstring& indent, const wchar_t* name, Shown shown, double value)
{
    WriteXmlElement(stream, indent, name, ShownText(stream, shown, value));
}

void WriteXmlElement(std::wostream& stream, const std::wstring& indent, const wchar_t* name, const CString& text)
{
    stream << indent << L'<' << name << L'>' << text << L"</" << name << L">\n";
}

void AppendGeoCodes(int type, std::list<std::pair<int, short>>& codes)
{
    codes.emplace_back(GeoTiff::projectedCSType, GeoTiff::userDefined);
    codes.emplace_back(GeoTiff::projection, GeoTiff::userDefined);
    codes.emplace_back(GeoTiff::projCoordTrans, ProjectionType::GeoTiffCode(type));
}
