#include "TestDatabase.h"

#include <stdexcept>
#include <vector>

#include "base/keys/KeyTables.h"

namespace {

CString Wide(const std::string& text)
{
    return CString::FromUtf8(text);
}

class Writer {
public:
    explicit Writer(const std::string& path)
    {
        if (!m_file.FileOpen(Wide(path), FileMode::createNew)) {
            throw std::runtime_error("cannot create " + path);
        }
    }
    ~Writer() { m_file.FileSave(CString(), FileMode::saveExclusive); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    template <typename Value>
    void Set(const std::string& section, const std::string& key, const Value& value)
    {
        m_file.SetItem(Wide(section), Wide(key), value, true);
    }
    void Set(const std::string& section, const std::string& key, const char* value)
    {
        m_file.SetItem(Wide(section), Wide(key), Wide(value), true);
    }
    template <typename Value>
    void Set(const std::string& section, const CString& key, const Value& value)
    {
        m_file.SetItem(Wide(section), key, value, true);
    }
    void Index(const std::string& section, const std::vector<const char*>& names)
    {
        int number = 0;
        for (const char* name : names) {
            Set(section, std::to_string(++number), name);
        }
    }

private:
    FileObject m_file;
};

void WriteSystem(Writer& out, const std::string& name, const char* datum = "None", const char* ellipsoid = "WGS84",
                 const char* unit = "Meters", const char* projection = "UTM 31")
{
    const std::string section = "Sys-" + name;
    out.Set(section, "Datumtransform name", datum);
    out.Set(section, "Unit name", unit);
    out.Set(section, "Ellipsoid name", ellipsoid);
    out.Set(section, "Projection name", projection);
}

void WriteProjection(Writer& out, const std::string& name, double falseEasting, const char* unit)
{
    const std::string section = "Prj-" + name;
    out.Set(section, projectionParamKeys[ProjectionKey::type], 0);
    out.Set(section, "Projection method", "Transverse Mercator");
    out.Set(section, "Unit name", unit);
    out.Set(section, projectionParamKeys[ProjectionKey::latOrigin], 0.0);
    out.Set(section, projectionParamKeys[ProjectionKey::lonOrigin], 3.0);
    out.Set(section, projectionParamKeys[ProjectionKey::falseEasting], falseEasting);
    out.Set(section, projectionParamKeys[ProjectionKey::falseNorthing], 0.0);
    out.Set(section, projectionParamKeys[ProjectionKey::scaleFactor], 0.9996);
}

void WriteDatum(Writer& out, const std::string& name, const char* method, const char* target, double scale)
{
    const std::string section = "Dtf-" + name;
    out.Set(section, "Method name", method);
    out.Set(section, transParamKeys[TransKey::source], CString(L"WGS84"));
    out.Set(section, transParamKeys[TransKey::target], Wide(target));
    for (int i = TransKey::shiftX; i <= TransKey::epoch; ++i) {
        const bool shift = i <= TransKey::shiftZ;
        const double value = shift ? scale * kMovedShift[i - TransKey::shiftX] : 0.0;
        out.Set(section, transParamKeys[static_cast<std::size_t>(i)], value);
    }
}

void WriteEllipsoid(Writer& out, const std::string& name, double axis, double eccSquared)
{
    out.Set("Elp-" + name, spheroidKeys[SpheroidKey::semiMajor], axis);
    out.Set("Elp-" + name, spheroidKeys[SpheroidKey::eccSquared], eccSquared);
}

void WriteSystems(Writer& out)
{
    using namespace test_names;
    WriteSystem(out, kPlain);
    WriteSystem(out, kTwin);
    WriteSystem(out, kMoved, "To International", "International 1924");
    WriteSystem(out, kMoving, "Moving");
    WriteSystem(out, kFeet, "None", "WGS84", "Feet", "UTM 31 feet");
    WriteSystem(out, kGeoid);
    out.Set("Sys-" + std::string(kGeoid), "Geoid model use statu", true);
    out.Set("Sys-" + std::string(kGeoid), "Geoid model method", "Manual");
    out.Set("Sys-" + std::string(kGeoid), "Manual input value", 45.0);
    WriteSystem(out, kLost);
    out.Set("Sys-" + std::string(kLost), "Geoid model use statu", true);
    out.Set("Sys-" + std::string(kLost), "Geoid model method", "EGM2008");
    out.Set("Sys-" + std::string(kLost), "Geoid model grid", "lost-geoid.gtx");
    WriteSystem(out, kShift);
    out.Set("Sys-" + std::string(kShift), "Post coorection statu", true);
    out.Set("Sys-" + std::string(kShift), "Post X coorection", 10.0);
    out.Set("Sys-" + std::string(kShift), "Post Y coorection", 20.0);
    out.Set("Sys-" + std::string(kShift), "Post Z coorection", 1.0);
}

void WriteCatalogue(const std::string& path)
{
    Writer out(path);
    out.Set("Projections-Section", "0", "Transverse Mercator");
    const std::vector<int> parameters = {ProjectionKey::latOrigin,    ProjectionKey::lonOrigin,
                                         ProjectionKey::falseEasting, ProjectionKey::falseNorthing,
                                         ProjectionKey::scaleFactor,  ProjectionKey::gridSkew};
    int place = 0;
    for (const int parameter : parameters) {
        const CString& key = projectionParamKeys[static_cast<std::size_t>(parameter)];
        const int kind = parameter == ProjectionKey::latOrigin ? 2 : parameter == ProjectionKey::lonOrigin ? 1 : 3;
        out.Set("ParaStatic-Section", key, key + (L"," + CString::FromUtf8(std::to_string(kind))));
        out.Set("Transverse Mercator", std::to_string(place++), key);
    }
    out.Set("Transverse Mercator", "Unitflag", true);
}

} // namespace

void WriteTestDatabase(const std::string& directory)
{
    using namespace test_names;
    {
        Writer out(directory + "/zorgeodatabase.geo");
        out.Index("Groups Section", {kGroup, "Other"});
        out.Index(std::string("Gp-") + kGroup, {kPlain, kMoved, kMoving, kFeet, kGeoid, kLost, kShift});
        out.Index("Gp-Other", {kTwin});
        out.Set("Gp-Other", "System count", "1");
        WriteSystems(out);
        out.Index("DatumTransform Section", {"None", "To International", "Moving"});
        out.Set("Dtf-None", "Method name", "No Transformation");
        WriteDatum(out, "To International", "Bursa/Wolfe(7 Parameters)", "International 1924", 1.0);
        WriteDatum(out, "Moving", "Bursa/Wolfe(14 Parameters)", "WGS84", 0.0);
        out.Set("Dtf-Moving", transParamKeys[TransKey::shiftRateZ], 1.0);
        out.Set("Dtf-Moving", transParamKeys[TransKey::epoch], 2020.0);
        out.Index("Projections section", {"UTM 31", "UTM 31 feet"});
        WriteProjection(out, "UTM 31", 500000.0, "Meters");
        WriteProjection(out, "UTM 31 feet", 500000.0 / 0.3048, "Feet");
        out.Index("Ellipsoids section", {"WGS84", "International 1924"});
        WriteEllipsoid(out, "WGS84", 6378137.0, 0.00669437999014131699);
        WriteEllipsoid(out, "International 1924", 6378388.0, 0.00672267002233332200);
        out.Set("Units section", "Meters", "1.000000,m");
        out.Set("Units section", "Feet", "0.304800,ft");
    }
    WriteCatalogue(directory + "/ZorProjectionStatic.dat");
}

EditedFile::EditedFile(const std::string& path)
{
    if (!file.FileOpen(CString::FromUtf8(path), FileMode::openForReading)) {
        throw std::runtime_error("cannot open " + path);
    }
}

EditedFile::~EditedFile()
{
    file.FileSave(CString(), FileMode::saveExclusive);
}
