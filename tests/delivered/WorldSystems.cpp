#include "WorldSystems.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

#include "frame/ReadItem.h"
#include "frame/RecordNames.h"

namespace {

std::vector<std::string> Split(const std::string& line, char separator)
{
    std::vector<std::string> fields;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, separator);) {
        fields.push_back(field);
    }
    fields.resize(std::max<std::size_t>(fields.size(), 8));
    return fields;
}

CString Text(const FileObject& file, const CString& section, const CString& key)
{
    CString value;
    ReadItem(file, section, key, value);
    return value;
}

// The code in "WGS84 to Amersfoort (EPSG 4833)".
int CodeIn(const std::string& name)
{
    const std::size_t at = name.find("(EPSG ");
    return at == std::string::npos ? 0 : std::atoi(name.c_str() + at + 6);
}

void ReadRecord(const FileObject& file, WorldSystem& system)
{
    const CString section = kSystemPrefix + system.name;
    if (!file.HasSection(section)) {
        throw std::runtime_error("the database has no system " + system.name.ToUtf8());
    }
    const CString projection = kProjectionPrefix + Text(file, section, kSystemProjection);
    system.transformation = CodeIn(Text(file, section, kSystemDatum).ToUtf8());
    system.published = std::atoi(Text(file, section, kSystemDescription).ToUtf8().substr(5).c_str());
    system.kind = Text(file, projection, kProjectionMethod).ToUtf8() + ", " +
                  Text(file, section, kSystemUnit).ToUtf8() + (file.HasKey(section, kHorAdjustUse) ? ", turned" : "");
}

} // namespace

std::vector<WorldSystem> ReadWorldSystems()
{
    std::ifstream stream(ZORGEO_DATA_DIR "zorgeosystems.tsv");
    FileObject file;
    if (!stream || !file.FileOpen(CString::FromUtf8(ZORGEO_DATA_DIR) + kMainDatabaseFile, FileMode::openForReading)) {
        throw std::runtime_error("a file of the database cannot be read: " + file.GetErrorText().ToUtf8());
    }
    std::vector<WorldSystem> systems;
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line.front() == '#') {
            continue;
        }
        const std::vector<std::string> fields = Split(line, '\t');
        const CString name = CString::FromUtf8(fields[0]);
        if (systems.empty() || !(systems.back().name == name)) {
            WorldSystem system;
            system.name = name;
            system.group = CString::FromUtf8(Split(fields[1], ';').front());
            system.code = std::atoi(fields[2].c_str());
            ReadRecord(file, system);
            systems.push_back(system);
        }
        systems.back().boxes.push_back(
            {std::stod(fields[3]), std::stod(fields[4]), std::stod(fields[5]), std::stod(fields[6])});
    }
    return systems;
}

std::vector<WorldSystem> SampleOf(const std::vector<WorldSystem>& systems)
{
    std::set<std::string> seen;
    std::vector<WorldSystem> sample;
    for (const WorldSystem& system : systems) {
        if (seen.insert(system.kind).second || system.name == kDefaultSystem) {
            sample.push_back(system);
        }
    }
    return sample;
}
