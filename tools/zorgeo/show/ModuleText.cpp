#include "show/ModuleText.h"

#include <algorithm>
#include <array>
#include <locale>
#include <sstream>

#include <fmt/format.h>

#include "ToolError.h"

namespace {

constexpr int kXmlDecimals = 12; // degrees of a rotation to a micrometre, and a micrometre of a shift
constexpr const char* kRoot = "coordinatesystem";

struct GeoKeyName {
    int key;
    const char* name;
};

/// The names of GeoTIFF 1.1 (OGC 19-008), of the keys that the module writes.
constexpr GeoKeyName kGeoKeyNames[] = {{3072, "ProjectedCSTypeGeoKey"},
                                       {3074, "ProjectionGeoKey"},
                                       {3075, "ProjCoordTransGeoKey"},
                                       {3078, "ProjStdParallel1GeoKey"},
                                       {3079, "ProjStdParallel2GeoKey"},
                                       {3080, "ProjNatOriginLongGeoKey"},
                                       {3081, "ProjNatOriginLatGeoKey"},
                                       {3082, "ProjFalseEastingGeoKey"},
                                       {3083, "ProjFalseNorthingGeoKey"},
                                       {3084, "ProjFalseOriginLongGeoKey"},
                                       {3085, "ProjFalseOriginLatGeoKey"},
                                       {3086, "ProjFalseOriginEastingGeoKey"},
                                       {3087, "ProjFalseOriginNorthingGeoKey"},
                                       {3088, "ProjCenterLongGeoKey"},
                                       {3089, "ProjCenterLatGeoKey"},
                                       {3090, "ProjCenterEastingGeoKey"},
                                       {3091, "ProjCenterNorthingGeoKey"},
                                       {3092, "ProjScaleAtNatOriginGeoKey"},
                                       {3093, "ProjScaleAtCenterGeoKey"},
                                       {3094, "ProjAzimuthAngleGeoKey"},
                                       {3095, "ProjStraightVertPoleLongGeoKey"},
                                       {3096, "ProjRectifiedGridAngleGeoKey"}};

const char* NameOfGeoKey(int key)
{
    for (const GeoKeyName& row : kGeoKeyNames) {
        if (row.key == key) {
            return row.name;
        }
    }
    return "";
}

CString Wide(const std::string& text)
{
    return CString::FromUtf8(text);
}

bool IsNameCharacter(char c)
{
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return letter || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
}

/// The names of elements that are no XML names, each once. A fragment has no attributes.
std::vector<std::string> BadNames(const std::string& xml)
{
    std::vector<std::string> bad;
    for (std::size_t at = xml.find('<'); at != std::string::npos; at = xml.find('<', at + 1)) {
        const std::size_t end = xml.find('>', at);
        const std::size_t begin = at + (xml.compare(at, 2, "</") == 0 ? 2 : 1);
        if (end == std::string::npos || xml.compare(at, 2, "<?") == 0) {
            continue;
        }
        const std::string name = xml.substr(begin, end - begin);
        if (!std::all_of(name.begin(), name.end(), IsNameCharacter) &&
            std::find(bad.begin(), bad.end(), name) == bad.end()) {
            bad.push_back(name);
        }
    }
    return bad;
}

/// Whether an ampersand begins something that is no entity of XML.
bool HasLooseAmpersand(const std::string& xml)
{
    constexpr std::array<const char*, 6> kEntities = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "&#"};
    for (std::size_t at = xml.find('&'); at != std::string::npos; at = xml.find('&', at + 1)) {
        const bool entity = std::any_of(kEntities.begin(), kEntities.end(), [&](const char* known) {
            return xml.compare(at, std::char_traits<char>::length(known), known) == 0;
        });
        if (!entity) {
            return true;
        }
    }
    return false;
}

} // namespace

std::string ForTerminal(const std::string& text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!pair) {
            out += text[i] == '\r' ? '\n' : text[i];
        }
    }
    return out;
}

std::string ModuleText::Description(bool named) const
{
    ZorGeoDatabaseBase& database = m_session.Database();
    const auto& [group, system] = m_opened.name;
    const CString geoid = Wide(m_opened.request.geoidModel);
    const CString grid = Wide(m_opened.request.geoidFile);
    const CString chart = Wide(m_opened.request.chartDatum);
    const CString post = Wide(m_opened.request.postModel);
    const CString file = Wide(m_opened.request.postFile);
    return (named ? database.DumpSystemText(group, system, geoid, grid, chart, post, file)
                  : database.DumpSystemIDText(group, system, geoid, grid, chart, post, file))
        .ToUtf8();
}

SystemExport ModuleText::Xml() const
{
    ZorGeoCoordSysBase& coordSys = *m_opened.coordSys;
    std::wostringstream stream;
    stream.imbue(std::locale::classic());
    stream << std::fixed;
    stream.precision(kXmlDecimals);
    const std::wstring indent = L"  ";
    coordSys.DumpProjectionXml(stream, indent, 0);
    coordSys.DumpDatumXml(stream, indent);
    coordSys.DumpEllipsoidXml(stream, indent);
    coordSys.DumpGeoidXml(stream, indent);
    coordSys.DumpPostCorrectionXml(stream, indent);
    SystemExport out;
    out.text = fmt::format("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<{0}>\n{1}</{0}>\n", kRoot,
                           CString(stream.str()).ToUtf8());
    for (const std::string& name : BadNames(out.text)) {
        out.remarks.push_back(fmt::format("the element name \"{}\" is no XML name: a strict reader refuses the "
                                          "document",
                                          name));
    }
    if (HasLooseAmpersand(out.text)) {
        out.remarks.emplace_back("a name has an ampersand, which is written as it is: a strict reader refuses the "
                                 "document");
    }
    return out;
}

std::string ModuleText::GeoKeys() const
{
    std::list<std::pair<int, short>> codes;
    std::list<std::pair<int, double>> numbers;
    m_opened.coordSys->GetGeoKeys(codes, numbers);
    if (codes.empty() && numbers.empty()) {
        throw ToolError(ExitStatus::unusable, "the projection of this system has no GeoTIFF keys");
    }
    std::string text;
    for (const auto& [key, value] : codes) {
        text += fmt::format("{}\t{}\t{}\n", key, NameOfGeoKey(key), value);
    }
    for (const auto& [key, value] : numbers) {
        text += fmt::format("{}\t{}\t{}\n", key, NameOfGeoKey(key), fmt::to_string(value));
    }
    return text;
}

std::string ModuleText::Utm() const
{
    CStringA zone;
    CStringA hemisphere;
    double falseNorthing = 0.0;
    if (!m_opened.coordSys->GetFauParameters(zone, hemisphere, falseNorthing)) {
        throw ToolError(ExitStatus::unusable, fmt::format("\"{}\" is no UTM system", m_opened.name.system.ToUtf8()));
    }
    return fmt::format("zone\t{}\nhemisphere\t{}\nfalse northing\t{}\n", zone.GetString(), hemisphere.GetString(),
                       fmt::to_string(falseNorthing));
}
