#include "project/ProjectComparison.h"

#include <algorithm>
#include <cmath>

#include "DatabaseText.h"
#include "SystemCheck.h"
#include "base/geo/Angles.h"
#include "base/keys/KeyTables.h"
#include "base/text/CZorString.h"
#include "base/text/Numbers.h"
#include "project/ProjectFile.h"
#include "project/ProjectText.h"

namespace {

/// A correction of the system's record: its switch, and the numbers that it brings into force.
struct SwitchedNumbers {
    const wchar_t* use;
    std::vector<const wchar_t*> keys;
};
const std::vector<SwitchedNumbers>& Corrections()
{
    static const std::vector<SwitchedNumbers> corrections = {
        {L"Post coorection statu", {L"Post X coorection", L"Post Y coorection", L"Post Z coorection"}},
        {L"Post horizontal adjust statu",
         {L"Post horizonal origin X", L"Post horizonal origin Y", L"Post horizonal rotation", L"Post horizonal scale"}},
        {L"Post vertical adjust statu",
         {L"Post vertical origin X", L"Post vertical origin Y", L"Post vertical slope X", L"Post vertical slope Y"}}};
    return corrections;
}
const CString kScale = L"Post horizonal scale"; // 1 when it is missing, all others 0

double NumberOf(bool present, const std::string& text, double missing)
{
    double value = missing;
    if (present && !numbers::Read(text, value)) {
        value = std::nan("");
    }
    return value;
}

bool FlagOf(bool present, const std::string& text)
{
    bool value = false;
    return present && numbers::Read(text, value) && value;
}

bool SameNumbers(double project, double database, bool tolerant)
{
    return project == database || (tolerant && std::fabs(project - database) <= Epsilon(project * 100.0));
}

const FileObject* FirstOf(const std::vector<const FileObject*>& files)
{
    return files.empty() ? nullptr : files.front();
}

} // namespace

const char* TextOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::agrees:
        return "agrees";
    case Verdict::differs:
        return "differs";
    case Verdict::missingInDatabase:
        return "missing in the database";
    case Verdict::missingInProject:
        break;
    }
    return "missing in the project";
}

ProjectComparison::ProjectComparison(Session& session, const FileObject& project)
    : m_session(session), m_project(project)
{
    if (!project.GetItem(CString(COORDSYSTEM_BACKUP_SECTION), kBackupSystem, m_system)) {
        m_system = ReadReference(project).name.system;
    }
    CompareReference();
    CompareSystem();
    CompareProjection();
    CompareDatum();
    CompareEllipsoid();
    CompareUnit();
    CompareGeoid();
    CompareCorrections();
}

int ProjectComparison::Count(Verdict verdict) const
{
    int count = 0;
    for (const ComparedPart& part : m_parts) {
        count +=
            static_cast<int>(std::count_if(part.values.begin(), part.values.end(),
                                           [verdict](const ComparedValue& value) { return value.verdict == verdict; }));
    }
    return count;
}

void ProjectComparison::Add(const char* label, ValueKind kind, const Side& project, const Side& database,
                            double missing, Exactness exactness)
{
    ComparedValue row;
    row.label = label;
    row.kind = kind;
    row.inProject = project.file != nullptr && project.file->GetItem(project.section, project.key, row.project);
    row.inDatabase = database.file != nullptr && database.file->GetItem(database.section, database.key, row.database);
    if (!row.inProject && !row.inDatabase) {
        return;
    }
    bool same = false;
    if (kind == ValueKind::number) {
        same = SameNumbers(NumberOf(row.inProject, row.project, missing),
                           NumberOf(row.inDatabase, row.database, missing), exactness == Exactness::projection);
    } else if (kind == ValueKind::flag) {
        same = FlagOf(row.inProject, row.project) == FlagOf(row.inDatabase, row.database);
    } else {
        same = row.project == row.database;
    }
    // Without a record nothing of it can agree.
    const bool recordMissing = database.file == nullptr;
    if (!same || recordMissing) {
        row.verdict = !row.inProject    ? Verdict::missingInProject
                      : !row.inDatabase ? Verdict::missingInDatabase
                                        : Verdict::differs;
    }
    m_parts.back().values.push_back(row);
}

void ProjectComparison::Add(const CString& key, ValueKind kind, double missing)
{
    Add(key.ToUtf8().c_str(), kind, {&m_project, m_projectSection, key}, {m_file, m_databaseSection, key}, missing);
}

void ProjectComparison::Begin(const char* part, const CString& name, const CString& projectSection,
                              const std::vector<const FileObject*>& files, const CString& databaseSection)
{
    m_projectSection = projectSection;
    m_databaseSection = databaseSection;
    m_file = FirstOf(files);
    const bool user = m_file == &m_session.Files().User();
    m_parts.push_back({part, name.ToUtf8(), m_file == nullptr ? "" : user ? "user" : "main", {}});
}

/// A record's name: as the backup has it, or, without one, as the system's record in the database.
CString ProjectComparison::NamedBy(const CString& key) const
{
    CString name;
    if (!m_project.GetItem(CString(COORDSYSTEM_BACKUP_SECTION), key, name)) {
        const CString section = kSystemPrefix + m_system;
        if (const FileObject* file = FirstOf(m_session.Files().UserFirst(section)); file != nullptr) {
            file->GetItem(section, key, name);
        }
    }
    return name;
}

/// Whether a switch of the present part is on, on one side at least.
bool ProjectComparison::IsOn(const CString& key) const
{
    bool project = false;
    bool database = false;
    m_project.GetItem(m_projectSection, key, project);
    if (m_file != nullptr) {
        m_file->GetItem(m_databaseSection, key, database);
    }
    return project || database;
}

/// The names by which an application asks for the system, and whether the database has them.
void ProjectComparison::CompareReference()
{
    const CString section = COORDSYSTEM_SECTION;
    SystemName name;
    m_project.GetItem(section, coordsystemKeys[CoordsystemKey::group], name.group);
    m_project.GetItem(section, coordsystemKeys[CoordsystemKey::system], name.system);
    const bool known = HasSystemRecord(m_session.Files(), name);
    Begin("reference", name.system, section, {}, CString());
    for (const int index : {CoordsystemKey::group, CoordsystemKey::system}) {
        const CString& key = coordsystemKeys[static_cast<std::size_t>(index)];
        Add(key.ToUtf8().c_str(), ValueKind::text, {&m_project, section, key},
            {known ? &m_project : nullptr, section, key});
        if (!m_project.HasKey(section, key)) {
            m_parts.back().values.push_back(
                {key.ToUtf8(), ValueKind::text, false, false, "", "", Verdict::missingInProject});
        }
    }
}

void ProjectComparison::CompareSystem()
{
    const CString section = kSystemPrefix + m_system;
    Begin("system", m_system, COORDSYSTEM_BACKUP_SECTION, m_session.Files().UserFirst(section), section);
    for (const CString& key : {kSystemProjection, kSystemDatum, kSystemEllipsoid, kUnitName}) {
        Add(key, ValueKind::text);
    }
}

void ProjectComparison::CompareProjection()
{
    const CString name = NamedBy(kSystemProjection);
    const CString record = kProjectionPrefix + name;
    const CString backup = COORDSYSTEM_BACKUP_SECTION;
    const bool older = !m_project.HasSection(kProjectionBackup) && m_project.HasSection(kOldProjectionBackup);
    Begin("projection", name, older ? kOldProjectionBackup : kProjectionBackup, m_session.Files().UserFirst(record),
          record);
    Add("Projection type", ValueKind::number, {&m_project, backup, kBackupProjectionType},
        {m_file, record, projectionParamKeys[ProjectionKey::type]});
    Add("Projection method", ValueKind::text, {&m_project, backup, kBackupProjectionMethod},
        {m_file, record, kProjectionMethod});
    Add("Unit name", ValueKind::text, {&m_project, backup, kUnitName}, {m_file, record, kUnitName});
    CompareProjectionParameters();
}

/// In the order of the catalogue, then what else stands on either side.
void ProjectComparison::CompareProjectionParameters()
{
    int type = -1;
    if (!m_project.GetItem(m_projectSection, projectionParamKeys[ProjectionKey::type], type) && m_file != nullptr) {
        m_file->GetItem(m_databaseSection, projectionParamKeys[ProjectionKey::type], type);
    }
    CStringArray labels;
    CArray<UINT, UINT> kinds;
    CStringArray keys;
    m_session.NewStaticData()->GetSelPrjMdResults(type, labels, kinds, keys);
    std::vector<CString> order(keys.begin(), keys.end());
    for (std::size_t i = ProjectionKey::latOrigin; i < projectionParamKeys.size(); ++i) {
        if (std::find(order.begin(), order.end(), projectionParamKeys[i]) == order.end()) {
            order.push_back(projectionParamKeys[i]);
        }
    }
    for (const CString& key : order) {
        const bool text =
            key == projectionParamKeys[ProjectionKey::utmZone] || key == projectionParamKeys[ProjectionKey::hemisphere];
        Add(key.ToUtf8().c_str(), text ? ValueKind::text : ValueKind::number, {&m_project, m_projectSection, key},
            {m_file, m_databaseSection, key}, 0.0, Exactness::projection);
    }
}

void ProjectComparison::CompareDatum()
{
    const CString name = NamedBy(kSystemDatum);
    const CString record = kDatumPrefix + name;
    const bool older = !m_project.HasSection(kDatumBackup) && m_project.HasSection(kOldDatumBackup);
    Begin("datum transformation", name, older ? kOldDatumBackup : kDatumBackup, m_session.Files().UserFirst(record),
          record);
    Add(kDatumMethod, ValueKind::text);
    CString projectMethod;
    CString databaseMethod;
    m_project.GetItem(m_projectSection, kDatumMethod, projectMethod);
    if (m_file != nullptr) {
        m_file->GetItem(record, kDatumMethod, databaseMethod);
    }
    const bool none = projectMethod == kNoTransformation && (m_file == nullptr || databaseMethod == projectMethod);
    if (!none) {
        // A backup has no description, and the module takes a record that has one for another.
        Add(transParamKeys[TransKey::description], ValueKind::text);
        Add(transParamKeys[TransKey::source], ValueKind::text);
        Add(transParamKeys[TransKey::target], ValueKind::text);
        const bool moves = projectMethod.Find(kFourteen) >= 0 || databaseMethod.Find(kFourteen) >= 0;
        for (int i = TransKey::shiftX; i <= (moves ? TransKey::epoch : TransKey::scale); ++i) {
            Add(transParamKeys[static_cast<std::size_t>(i)], ValueKind::number);
        }
        CompareDatumEllipsoid(TransKey::source, L"SrcSma", L"SrcSe");
        CompareDatumEllipsoid(TransKey::target, L"DstSma", L"DstSe");
    }
    if (IsOn(transParamKeys[TransKey::fixedHeight])) {
        Add(transParamKeys[TransKey::fixedHeight], ValueKind::flag);
        Add(transParamKeys[TransKey::fixedHeightForward], ValueKind::number);
        Add(transParamKeys[TransKey::fixedHeightReverse], ValueKind::number);
    }
}

/// The numbers of one of its two ellipsoids: the project's copy beside the database's record of
/// that name.
void ProjectComparison::CompareDatumEllipsoid(int nameKey, const CString& axisKey, const CString& eccKey)
{
    const CString& key = transParamKeys[static_cast<std::size_t>(nameKey)];
    CString name;
    if (!m_project.GetItem(m_projectSection, key, name) && m_file != nullptr) {
        m_file->GetItem(m_databaseSection, key, name);
    }
    const CString record = kEllipsoidPrefix + name;
    const FileObject* const file = FirstOf(m_session.Files().MainFirst(record));
    const auto add = [&](int number, const CString& own) {
        const CString& numberKey = spheroidKeys[static_cast<std::size_t>(number)];
        Add((key + L", " + numberKey).ToUtf8().c_str(), ValueKind::number, {&m_project, m_projectSection, own},
            {file, record, numberKey});
    };
    add(SpheroidKey::semiMajor, axisKey);
    add(SpheroidKey::eccSquared, eccKey);
}

void ProjectComparison::CompareEllipsoid()
{
    const CString name = NamedBy(kSystemEllipsoid);
    const CString record = kEllipsoidPrefix + name;
    Begin("ellipsoid", name, kEllipsoidBackup, m_session.Files().UserFirst(record), record);
    Add(spheroidKeys[SpheroidKey::semiMajor], ValueKind::number);
    Add(spheroidKeys[SpheroidKey::eccSquared], ValueKind::number);
}

/// The record is one text, the factor, a comma and the suffix.
void ProjectComparison::CompareUnit()
{
    const CString name = NamedBy(kUnitName);
    std::vector<const FileObject*> files;
    for (const FileObject* file : {&m_session.Files().Main(), &m_session.Files().User()}) {
        if (file->HasKey(kUnitsSection, name)) {
            files.push_back(file);
        }
    }
    Begin("unit", name, kUnitBackup, files, kUnitsSection);
    Add("Factor, suffix", ValueKind::text, {&m_project, kUnitBackup, kUnitName}, {m_file, kUnitsSection, name});
}

bool ProjectComparison::IsManualGeoid() const
{
    CString project;
    CString database;
    m_project.GetItem(m_projectSection, kGeoidMethod, project);
    if (m_file != nullptr) {
        m_file->GetItem(m_databaseSection, kGeoidMethod, database);
    }
    const CString& manual = GeoidmodelTypeKeys[GeoidType::manual];
    return project == manual || database == manual;
}

void ProjectComparison::CompareGeoid()
{
    const CString section = kSystemPrefix + m_system;
    Begin("geoid", CString(), COORDSYSTEM_BACKUP_SECTION, m_session.Files().UserFirst(section), section);
    Add(kGeoidUse, ValueKind::flag);
    if (!IsOn(kGeoidUse)) {
        return;
    }
    Add(kGeoidMethod, ValueKind::text);
    Add(kGeoidGrid, ValueKind::text);
    if (IsManualGeoid()) {
        Add(kGeoidManual, ValueKind::number);
    }
}

void ProjectComparison::CompareCorrections()
{
    const CString section = kSystemPrefix + m_system;
    Begin("corrections", CString(), COORDSYSTEM_BACKUP_SECTION, m_session.Files().UserFirst(section), section);
    for (const SwitchedNumbers& correction : Corrections()) {
        Add(correction.use, ValueKind::flag);
        if (!IsOn(correction.use)) {
            continue;
        }
        for (const wchar_t* key : correction.keys) {
            Add(key, ValueKind::number, kScale == key ? 1.0 : 0.0);
        }
    }
    for (const wchar_t* key : {L"Post coorection model", L"Post coorection file"}) {
        Add(key, ValueKind::text);
    }
}
