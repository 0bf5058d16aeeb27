#include "SystemCheck.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "base/text/CZorString.h"
#include "base/text/Numbers.h"

namespace {

using Files = std::vector<const FileObject*>;
using Fault = std::optional<std::string>;

constexpr double kSmallestAxis = 6000000.0; // metres; the module uses no smaller ellipsoid

std::string Place(const FileObject& file, const CString& section)
{
    return fmt::format("{}: section \"{}\"", file.GetFileName().ToUtf8(), section.ToUtf8());
}

[[noreturn]] void Refuse(const std::string& message)
{
    throw ToolError(ExitStatus::unusable, message);
}

/// One key of a section that must be a finite number. No fault gives the number in `value`.
Fault NumberFault(const FileObject& file, const CString& section, const CString& key, double& value)
{
    if (file.GetItem(section, key, value) && std::isfinite(value)) {
        return {};
    }
    CString text;
    if (!file.GetItem(section, key, text)) {
        return fmt::format("{}: key \"{}\" is missing", Place(file, section), key.ToUtf8());
    }
    return fmt::format("{}: key \"{}\": \"{}\" is no number", Place(file, section), key.ToUtf8(), text.ToUtf8());
}

Fault NumbersFault(const FileObject& file, const CString& section, const std::vector<CString>& keys)
{
    for (const CString& key : keys) {
        double ignored = 0.0;
        if (Fault fault = NumberFault(file, section, key, ignored)) {
            return fault;
        }
    }
    return {};
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

Fault EllipsoidFault(const FileObject& file, const CString& section)
{
    double axis = 0.0;
    double ecc = 0.0;
    if (Fault fault = NumberFault(file, section, spheroidKeys[SpheroidKey::semiMajor], axis)) {
        return fault;
    }
    if (Fault fault = NumberFault(file, section, spheroidKeys[SpheroidKey::eccSquared], ecc)) {
        return fault;
    }
    if (axis < kSmallestAxis || ecc < 0.0 || ecc >= 1.0) {
        return fmt::format("{}: semi-major axis {} and squared eccentricity {} are no ellipsoid of the Earth",
                           Place(file, section), axis, ecc);
    }
    return {};
}

constexpr int kPolarStereographic = 15; // its hemisphere is a text

/// The numbers that a projection class cannot do without, by type number; no row: no class.
struct ProjectionNeeds {
    int type;
    std::vector<int> parameters;
};

const std::vector<ProjectionNeeds>& Needs()
{
    using namespace ProjectionKey;
    static const std::vector<int> kPlain = {latOrigin, lonOrigin, falseEasting, falseNorthing};
    static const std::vector<int> kScaled = {latOrigin, lonOrigin, falseEasting, falseNorthing, scaleFactor};
    static const std::vector<ProjectionNeeds> needs = {
        {0, kScaled},
        {1, kScaled},
        {2, {}}, // every parameter has the value of the Netherlands' grid in its absence
        {3, {latOrigin, lonOrigin, falseEasting, falseNorthing, southernParallel, northernParallel}},
        {4, kScaled},
        {7, kScaled},
        {8, kScaled},
        {9, {latOrigin, lonOrigin, falseEasting, falseNorthing, scaleFactor, initialAzimuth, hotineGridSkew}},
        {12, kScaled},
        {13, {latOrigin, lonOrigin, scaleFactor, initialAzimuth, hotineGridSkew, eastingAtCentre, northingAtCentre}},
        {14, kPlain},
        {kPolarStereographic, {falseEasting, falseNorthing, scaleFactor}}};
    return needs;
}

Fault ProjectionFault(const FileObject& file, const CString& section)
{
    const CString& typeKey = projectionParamKeys[ProjectionKey::type];
    long type = 0;
    if (!file.GetItem(section, typeKey, type)) {
        return fmt::format("{}: key \"{}\" is missing or is no number", Place(file, section), typeKey.ToUtf8());
    }
    const auto needs =
        std::find_if(Needs().begin(), Needs().end(), [type](const ProjectionNeeds& row) { return row.type == type; });
    if (needs == Needs().end()) {
        CString method;
        file.GetItem(section, CString(L"Projection method"), method);
        return fmt::format("{}: the projection method \"{}\" (type {}) has no formulas in this module",
                           Place(file, section), method.ToUtf8(), type);
    }
    std::vector<CString> keys;
    for (const int parameter : needs->parameters) {
        keys.push_back(projectionParamKeys[static_cast<std::size_t>(parameter)]);
    }
    Fault fault = NumbersFault(file, section, keys);
    const CString& hemisphereKey = projectionParamKeys[ProjectionKey::hemisphere];
    if (!fault && type == kPolarStereographic && !file.HasKey(section, hemisphereKey)) {
        fault = fmt::format("{}: key \"{}\" is missing", Place(file, section), hemisphereKey.ToUtf8());
    }
    return fault;
}

/// The catalogue lists the type: a projection loads nothing without it.
void CheckCatalogue(const DatabaseFiles& files, const CString& section)
{
    for (const FileObject* file : files.UserFirst(section)) {
        long type = -1;
        if (!file->GetItem(section, projectionParamKeys[ProjectionKey::type], type)) {
            continue;
        }
        FobjSection walk;
        CString key;
        CString method;
        for (bool more = files.Catalogue().GetFirstMapEntry(walk, kCatalogueMethods, key, method); more;
             more = files.Catalogue().GetNextMapEntry(walk, key, method)) {
            if (numbers::LeadingInteger(key) == type && files.Catalogue().HasSection(method)) {
                return;
            }
        }
        Refuse(fmt::format("{}: the method of projection type {} and its parameters are not listed; install the "
                           "delivered catalogue again",
                           files.Catalogue().GetFileName().ToUtf8(), type));
    }
}

/// An ellipsoid of a datum stands in the database, or its two numbers in the datum's own record.
Fault DatumEllipsoidFault(const DatabaseFiles& files, const FileObject& file, const CString& section, int nameKey,
                          const CString& axisKey, const CString& eccKey)
{
    const CString& key = transParamKeys[static_cast<std::size_t>(nameKey)];
    CString name;
    if (!file.GetItem(section, key, name)) {
        return fmt::format("{}: key \"{}\" is missing", Place(file, section), key.ToUtf8());
    }
    Fault first;
    for (const FileObject* candidate : files.MainFirst(kEllipsoidPrefix + name)) {
        const Fault fault = EllipsoidFault(*candidate, kEllipsoidPrefix + name);
        if (!fault) {
            return {};
        }
        first = first ? first : fault;
    }
    double axis = 0.0;
    double ecc = 0.0;
    if (file.GetItem(section, axisKey, axis) && file.GetItem(section, eccKey, ecc) && axis >= kSmallestAxis &&
        ecc < 1.0) {
        return {};
    }
    return first ? first
                 : fmt::format("{}: its ellipsoid \"{}\" has no record \"{}{}\" in either database file",
                               Place(file, section), name.ToUtf8(), kEllipsoidPrefix.ToUtf8(), name.ToUtf8());
}

Fault DatumFault(const DatabaseFiles& files, const FileObject& file, const CString& section)
{
    CString method;
    file.GetItem(section, kDatumMethod, method);
    if (method == kNoTransformation) {
        return {};
    }
    std::vector<CString> keys;
    const auto add = [&keys](int from, int to) {
        std::copy(transParamKeys.begin() + from, transParamKeys.begin() + to + 1, std::back_inserter(keys));
    };
    add(TransKey::shiftX, TransKey::scale);
    if (method.Find(kFourteen) >= 0) {
        add(TransKey::shiftRateX, TransKey::epoch);
    }
    if (Fault fault = NumbersFault(file, section, keys)) {
        return fault;
    }
    Fault fault = DatumEllipsoidFault(files, file, section, TransKey::source, L"SrcSma", L"SrcSe");
    return fault ? fault : DatumEllipsoidFault(files, file, section, TransKey::target, L"DstSma", L"DstSe");
}

/// The section of a datum: as named, or with the part between " - " and ":" left out, as older
/// records name it, or in capitals.
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

/// A switch of the system's record and the numbers that it brings into force.
struct Switch {
    CString statusKey;
    std::vector<CString> keys;
};

const std::vector<Switch>& Switches()
{
    static const std::vector<Switch> switches = {
        {L"Post coorection statu", {L"Post X coorection", L"Post Y coorection", L"Post Z coorection"}},
        {L"Post horizontal adjust statu",
         {L"Post horizonal origin X", L"Post horizonal origin Y", L"Post horizonal rotation", L"Post horizonal scale"}},
        {L"Post vertical adjust statu",
         {L"Post vertical origin X", L"Post vertical origin Y", L"Post vertical slope X", L"Post vertical slope Y"}}};
    return switches;
}

void CheckSwitches(const FileObject& file, const CString& section)
{
    std::vector<Switch> rows = Switches();
    CString method;
    if (file.GetItem(section, kGeoidMethod, method) && method == GeoidmodelTypeKeys[GeoidType::manual]) {
        rows.push_back({kGeoidUse, {kGeoidManual}});
    }
    for (const Switch& row : rows) {
        bool on = false;
        if (!file.GetItem(section, row.statusKey, on)) {
            CString text;
            if (file.GetItem(section, row.statusKey, text)) {
                Refuse(fmt::format("{}: key \"{}\": \"{}\" is neither 1 nor 0; mend the record", Place(file, section),
                                   row.statusKey.ToUtf8(), text.ToUtf8()));
            }
        }
        const Fault fault = on ? NumbersFault(file, section, row.keys) : Fault();
        if (fault) {
            Refuse(*fault + "; mend the record or switch this correction off in it");
        }
    }
}

CString NameIn(const FileObject& file, const CString& section, const CString& key)
{
    CString name;
    if (!file.GetItem(section, key, name) || name.IsEmpty()) {
        Refuse(fmt::format("{}: key \"{}\" is missing or empty; mend the record", Place(file, section), key.ToUtf8()));
    }
    return name;
}

/// The file from which Init takes the system: the user file when it has both sections.
const FileObject* FileOfSystem(const DatabaseFiles& files, const SystemName& name)
{
    for (const FileObject* file : {&files.User(), &files.Main()}) {
        if (file->HasSection(kGroupPrefix + name.group) && file->HasSection(kSystemPrefix + name.system)) {
            return file;
        }
    }
    return nullptr;
}

} // namespace

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
        const CZorString parts(text, L',', true, false);
        double factor = 0.0;
        if (!parts.GetItem(0, factor) || !std::isfinite(factor) || factor <= 0.0) {
            Refuse(fmt::format("{}: unit \"{}\": \"{}\" is no factor and suffix; mend the record",
                               Place(*file, kUnitsSection), unit.ToUtf8(), text.ToUtf8()));
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
    if (unit.CompareNoCase(L"Meter") == 0) {
        unit = L"Meters"; // an alias that Init mends as well
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
