#include "SystemCheck.h"

#include <optional>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "RecordCheck.h"
#include "ToolError.h"
#include "base/keys/KeyTables.h"

namespace {

using Files = std::vector<const FileObject*>;
using Fault = RecordFault;

[[noreturn]] void Refuse(const std::string& message)
{
    throw ToolError(ExitStatus::unusable, message);
}

/// Passes when one of the files holds a usable record, as Init goes on to the next file when a
/// part cannot be made from the first.
template <typename Test>
void CheckRecord(const Files& files, const CString& section, const CString& namedBy, Test test)
{
    Fault first;
    for (const FileObject* file : files) {
        Fault fault = test(*file, section);
        if (!fault) {
            return;
        }
        if (!first) {
            first = fault;
        }
    }
    if (!first) {
        Refuse(fmt::format("section \"{}\", which {} names, is in neither database file; add the record or mend the "
                           "name",
                           section.ToUtf8(), namedBy.ToUtf8()));
    }
    Refuse(*first + "; mend the record");
}

Fault FirstOf(const FileObject& file, const CString& section, const RecordFlaws& flaws)
{
    return flaws.empty() ? Fault() : PlaceOf(file, section) + ": " + flaws.front().what;
}

} // namespace

RecordFault EllipsoidFault(const FileObject& file, const CString& section)
{
    return FirstOf(file, section, EllipsoidFlaws(file, section));
}

RecordFault ProjectionFault(const FileObject& file, const CString& section)
{
    return FirstOf(file, section, ProjectionFlaws(file, section));
}

RecordFault DatumFault(const DatabaseFiles& files, const FileObject& file, const CString& section)
{
    return FirstOf(file, section, DatumFlaws(files, file, section));
}

namespace {

/// The catalogue lists the type: a projection loads nothing without it.
void CheckCatalogue(const DatabaseFiles& files, const CString& section)
{
    for (const FileObject* file : files.UserFirst(section)) {
        for (const RecordFlaw& flaw : CatalogueFlaws(files, *file, section)) {
            Refuse(flaw.what + "; " + flaw.remedy);
        }
        if (file->HasKey(section, projectionParamKeys[ProjectionKey::type])) {
            return;
        }
    }
}

void CheckSwitches(const FileObject& file, const CString& section)
{
    for (const RecordFlaw& flaw : SwitchFlaws(file, section)) {
        Refuse(fmt::format("{}: {}; {}", PlaceOf(file, section), flaw.what, flaw.remedy));
    }
}

CString NameIn(const FileObject& file, const CString& section, const CString& key)
{
    CString name;
    if (!file.GetItem(section, key, name) || name.IsEmpty()) {
        Refuse(
            fmt::format("{}: key \"{}\" is missing or empty; mend the record", PlaceOf(file, section), key.ToUtf8()));
    }
    return name;
}

} // namespace

CString DatumSection(const DatabaseFiles& files, const CString& name)
{
    const CString asNamed = kDatumPrefix + name;
    CString shortened = asNamed;
    const int dash = shortened.Find(L" - ");
    const int colon = shortened.Find(L':');
    if (dash > 0 && colon > dash + 3) {
        shortened.Delete(dash + 3, colon - dash - 2);
    }
    for (const CString& section : {asNamed, shortened}) {
        if (!files.UserFirst(section).empty()) {
            return section;
        }
    }
    return asNamed;
}

const FileObject* FileOfSystem(const DatabaseFiles& files, const SystemName& name)
{
    for (const FileObject* file : {&files.User(), &files.Main()}) {
        if (file->HasSection(kGroupPrefix + name.group) && file->HasSection(kSystemPrefix + name.system)) {
            return file;
        }
    }
    return nullptr;
}

bool HasSystemRecord(const DatabaseFiles& files, const SystemName& name)
{
    return FileOfSystem(files, name) != nullptr;
}

void CheckUnit(const DatabaseFiles& files, const CString& unit, const std::string& namedBy)
{
    for (const FileObject* file : {&files.Main(), &files.User()}) {
        CString text;
        if (!file->GetItem(kUnitsSection, unit, text)) {
            continue;
        }
        for (const RecordFlaw& flaw : UnitFlaws(*file, unit)) {
            Refuse(fmt::format("{}: {}; {}", PlaceOf(*file, kUnitsSection), flaw.what, flaw.remedy));
        }
        return;
    }
    Refuse(fmt::format("the unit \"{}\", which {} names, is in neither database file; see: zorgeo list units",
                       unit.ToUtf8(), namedBy));
}

void CheckSystemRecord(const DatabaseFiles& files, const SystemName& name)
{
    const CString section = kSystemPrefix + name.system;
    const FileObject* const file = FileOfSystem(files, name);
    if (file == nullptr) {
        Refuse(fmt::format("the group \"{}\" lists the system \"{}\", and its section \"{}\" is missing in that file; "
                           "add the record or take it off the list",
                           name.group.ToUtf8(), name.system.ToUtf8(), section.ToUtf8()));
    }
    CString unit = NameIn(*file, section, kUnitName);
    if (unit.CompareNoCase(kMeterAlias) == 0) {
        unit = kMeters;
    }
    CheckUnit(files, unit, "the system \"" + name.system.ToUtf8() + "\"");
    const CString ellipsoid = kEllipsoidPrefix + NameIn(*file, section, kSystemEllipsoid);
    const CString projection = kProjectionPrefix + NameIn(*file, section, kSystemProjection);
    const CString datum = DatumSection(files, NameIn(*file, section, kSystemDatum));
    // Not "the next file": the ellipsoid is made from the first file that has the section at all.
    Files first = files.UserFirst(ellipsoid);
    if (first.size() > 1) {
        first.pop_back();
    }
    CheckRecord(first, ellipsoid, L"the system", EllipsoidFault);
    CheckRecord(files.UserFirst(projection), projection, L"the system", ProjectionFault);
    CheckCatalogue(files, projection);
    CheckRecord(files.UserFirst(datum), datum, L"the system",
                [&files](const FileObject& in, const CString& at) { return DatumFault(files, in, at); });
    for (const FileObject* settings : files.MainFirst(section)) {
        CheckSwitches(*settings, section);
    }
}
