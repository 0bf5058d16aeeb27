// Copies of records: from the older definition files, delivered and user, or from the project.

#include <array>
#include <cstddef>
#include <span>

#include "database/Zor2NewZorCoordSys.h"
#include "database/ZorGeoDatabase.h"
#include "frame/RecordNames.h"
#include "frame/ZorGeoUtility.h"
#include "projections/ProjectionType.h"

namespace {

bool OpenDefinitions(FileObject& file, const CString& name)
{
    return file.FileOpen(ZorGeoUtility::Get().exeDirectory + name, FileMode::openForReading);
}

void WriteEllipsoid(FileObject& file, const CString& name, double a, double e2)
{
    const CString section = kEllipsoidPrefix + name;
    file.SetItem(section, kSemiMajor, a, true);
    file.SetItem(section, kEccSquared, e2, true);
}

/// An old projection type: its method and its parameters, entries of projectionParamKeys.
struct OldProjection {
    int type;
    const wchar_t* method;
    std::span<const std::size_t> parameters;
};

namespace Key = ProjectionKey;
constexpr std::size_t kOriginOnly[] = {Key::latOrigin, Key::lonOrigin, Key::falseEasting, Key::falseNorthing};
constexpr std::size_t kScaled[] = {Key::latOrigin, Key::lonOrigin, Key::falseEasting, Key::falseNorthing,
                                   Key::scaleFactor};
constexpr std::size_t kTwoParallels[] = {Key::latOrigin,     Key::lonOrigin,        Key::falseEasting,
                                         Key::falseNorthing, Key::southernParallel, Key::northernParallel};
constexpr std::size_t kTrueScale[] = {Key::latOrigin,     Key::lonOrigin,   Key::falseEasting,
                                      Key::falseNorthing, Key::scaleFactor, Key::latTrueScale};

// Every type that can be taken over but UTM, which has no record of its own.
constexpr OldProjection kOldProjections[] = {
    {ProjectionType::transverseMercator, L"Transverse Mercator", kScaled},
    {ProjectionType::rd, L"RD", {}},
    {ProjectionType::lambert2Parallel, L"Lambert 2 Parallel", kTwoParallels},
    {ProjectionType::mercator, L"Mercator", kTrueScale},
    {ProjectionType::cassiniSoldner, L"Cassini_Soldner", kScaled},
    {ProjectionType::lambert1Parallel, L"Lambert 1 Parallel", kScaled},
    {ProjectionType::polyconic, L"Polyconic", kOriginOnly},
};

/// Reads all parameters of a projection, then writes its record. False, nothing written, when one
/// is missing.
bool CopyParameters(const OldProjection& projection, const FileObject& source, const CString& section, FileObject& file,
                    const CString& target)
{
    std::array<double, 6> values{};
    for (std::size_t i = 0; i < projection.parameters.size(); ++i) {
        if (!ReadItem(source, section, projectionParamKeys[projection.parameters[i]], values[i])) {
            return false;
        }
    }
    bool written = file.SetItem(target, kProjectionMethod, projection.method, true);
    for (std::size_t i = 0; i < projection.parameters.size(); ++i) {
        written = written && file.SetItem(target, projectionParamKeys[projection.parameters[i]], values[i], true);
    }
    return written;
}

// Zone texts are of the form "Zone %2d     (%3d %c)".
int ZoneNumber(CString zone)
{
    constexpr int kLengthOfWord = 4;
    const int parenthesis = zone.ReverseFind(L'(');
    if (parenthesis >= 0) {
        zone = zone.Left(parenthesis);
    }
    return numbers::LeadingInteger(zone.Mid(kLengthOfWord));
}

// "Northern", or what is taken for the south. The words were stored as numbers for a time.
CString Hemisphere(CString word, double falseNorthing)
{
    const CString northern = L"Northern";
    const CString southern = L"Southern";
    if (word == L"2") {
        word = southern;
    } else if (word == L"1") {
        word = northern;
    }
    // Kept: the false northing wins over the word: positions of the old project were made with it.
    if (word.CompareNoCase(southern) == 0 && falseNorthing == 0.0) {
        word = northern;
    }
    return word == northern && falseNorthing != 0.0 ? southern : word;
}

} // namespace

// Ellipsoids.

bool Zor2NewZorCoordSys::AddEllipsoidRecord(const CString& name, bool useProject)
{
    if (m_database->HasEllpsoid(name, GeoDbBoth)) {
        return true;
    }
    FileObject definitions;
    // Kept: without the delivered definitions nothing else is asked; a machine that lacks them was
    // never set up for the older generation.
    if (!OpenDefinitions(definitions, ELLIPSOID_DEF_FILENAME)) {
        return false;
    }
    if (CopyEllipsoid(definitions, name)) {
        return true;
    }
    if (OpenDefinitions(definitions, ELLIPSOID_USR_FILENAME) && CopyEllipsoid(definitions, name)) {
        return true;
    }
    return useProject && m_project != nullptr && CopyEllipsoid(*m_project, kEllipsoidBackup);
}

bool Zor2NewZorCoordSys::CopyEllipsoid(const FileObject& source, const CString& section)
{
    double a = 0.0;
    double e2 = 0.0;
    if (!source.HasSection(section) || !ReadItem(source, section, spheroidKeys[SpheroidKey::semiMajor], a) ||
        !ReadItem(source, section, spheroidKeys[SpheroidKey::eccSquared], e2)) {
        return false;
    }
    WriteEllipsoid(m_userFile, section == kEllipsoidBackup ? m_elpName : section, a, e2);
    return true;
}

// Datum transformations.

bool Zor2NewZorCoordSys::AddDatumRecord()
{
    // The section without its prefix occurs in no regular file.
    if (!m_dtfAdded || m_userFile.HasSection(m_dtfName)) {
        return true;
    }
    return CopyDatumFromDefinitions(m_dtfName, false) ||
           (m_project != nullptr && CopyDatum(*m_project, kLegacyDatumBackup, false));
}

bool Zor2NewZorCoordSys::CopyDatumFromDefinitions(const CString& section, bool keepName)
{
    for (const CString* name : {&TRANS_DEF_FILENAME, &TRANS_USR_FILENAME}) {
        FileObject definitions;
        if (OpenDefinitions(definitions, *name) && CopyDatum(definitions, section, keepName)) {
            return true;
        }
    }
    return false;
}

// Takes over a record under its name, or with `keepName` off under m_dtfName.
bool Zor2NewZorCoordSys::CopyDatum(const FileObject& source, CString section, bool keepName)
{
    const CString target = kDatumPrefix + (keepName ? section : m_dtfName);
    if (!source.HasSection(section)) {
        section.MakeUpper();
        if (!source.HasSection(section)) {
            return false;
        }
    }
    // Kept: a value that the old record lacks is 0, an ellipsoid or description empty; the older
    // generation read it so.
    constexpr int kNumbers = TransKey::scale - TransKey::shiftX + 1;
    std::array<double, kNumbers> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        ReadItem(source, section, transParamKeys[TransKey::shiftX + i], values[i]);
    }
    CString sourceEllipsoid;
    CString targetEllipsoid;
    CString description;
    ReadItem(source, section, transParamKeys[TransKey::source], sourceEllipsoid);
    ReadItem(source, section, transParamKeys[TransKey::target], targetEllipsoid);
    ReadItem(source, section, transParamKeys[TransKey::description], description);

    // Every transformation of the older generation is of this method.
    m_userFile.SetItem(target, kDatumMethod, kMethodBursaWolfe7, true);
    m_userFile.SetItem(target, transParamKeys[TransKey::source], sourceEllipsoid, true);
    m_userFile.SetItem(target, transParamKeys[TransKey::target], targetEllipsoid, true);
    for (std::size_t i = 0; i < values.size(); ++i) {
        m_userFile.SetItem(target, transParamKeys[TransKey::shiftX + i], values[i], true);
    }
    m_userFile.SetItem(target, transParamKeys[TransKey::description], description, true);

    AddEllipsoidOfDatum(sourceEllipsoid, kDatumSourceAxis, kDatumSourceEcc);
    AddEllipsoidOfDatum(targetEllipsoid, kDatumTargetAxis, kDatumTargetEcc);
    // Kept: the system's ellipsoid follows the transformation's target, whatever the project named.
    m_elpName = targetEllipsoid;
    return true;
}

// An ellipsoid that the database lacks, from the project's copy of its datum transformation, else
// from the definitions. Found nowhere, it stays missing.
void Zor2NewZorCoordSys::AddEllipsoidOfDatum(const CString& name, const CString& axisKey, const CString& eccKey)
{
    if (m_database->HasEllpsoid(name, GeoDbBoth)) {
        return;
    }
    double a = 0.0;
    double e2 = 0.0;
    if (ReadProject(kLegacyDatumBackup, eccKey, e2) && ReadProject(kLegacyDatumBackup, axisKey, a)) {
        WriteEllipsoid(m_userFile, name, a, e2);
    } else {
        AddEllipsoidRecord(name, false);
    }
}

// Projections.

bool Zor2NewZorCoordSys::AddProjectionRecord()
{
    if (!ProjectHas(PROJECTION_SECTION)) {
        return false;
    }
    // The name as the project has it; m_prjName may be that of a clash.
    CString name;
    ReadProject(PROJECTION_SECTION, projectionParamKeys[ProjectionKey::legacyName], name);
    for (const CString* file : {&PROJECTION_DEF_FILENAME, &PROJECTION_USR_FILENAME}) {
        FileObject definitions;
        if (OpenDefinitions(definitions, *file) && CopyProjection(definitions, name)) {
            return true;
        }
    }
    return CopyProjection(*m_project, kLegacyProjectionBackup);
}

// Kept: a record that the user file has under this name is written over, key by key.
bool Zor2NewZorCoordSys::CopyProjection(const FileObject& source, const CString& section)
{
    int type = 0;
    if (!source.HasSection(section) || !ReadItem(source, section, projectionParamKeys[ProjectionKey::type], type)) {
        return false;
    }
    const CString target = kProjectionPrefix + m_prjName;
    if (type == ProjectionType::utm) {
        // Kept: the line in the list of projections stays, under the old name and counted, with no
        // record behind it; readers skip such lines.
        m_userFile.DeleteSection(target);
        NameUtmProjection(source, section);
        return true;
    }
    m_userFile.SetItem(target, projectionParamKeys[ProjectionKey::type], type, true);
    m_userFile.SetItem(target, kProjectionUnit, m_unitName, true);
    for (const OldProjection& projection : kOldProjections) {
        if (projection.type == type) {
            return CopyParameters(projection, source, section, m_userFile, target);
        }
    }
    return false;
}

// The database has the UTM projections by zone: "UTM Zone-07N".
void Zor2NewZorCoordSys::NameUtmProjection(const FileObject& source, const CString& section)
{
    CString hemisphere;
    CString zoneText;
    double falseNorthing = 0.0;
    ReadItem(source, section, projectionParamKeys[ProjectionKey::hemisphere], hemisphere);
    ReadItem(source, section, projectionParamKeys[ProjectionKey::utmZone], zoneText);
    ReadItem(source, section, projectionParamKeys[ProjectionKey::falseNorthing], falseNorthing);
    const int zone = ZoneNumber(zoneText);
    CString number;
    number.Format(L"%d", zone);
    if (zone < 10) {
        number = L"0" + number;
    }
    const bool northern = Hemisphere(hemisphere, falseNorthing) == L"Northern";
    m_prjName = L"UTM Zone-" + number + (northern ? L"N" : L"S");
}
