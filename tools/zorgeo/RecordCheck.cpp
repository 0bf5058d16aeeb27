#include "RecordCheck.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "base/keys/KeyTables.h"
#include "base/text/CZorString.h"
#include "base/text/Numbers.h"

namespace {

constexpr double kSmallestAxis = 6000000.0; // metres; the module uses no smaller ellipsoid

const std::string kMendRecord = "mend the record";
const std::string kGiveNumber = "give a number";

/// Reads one key that must be a finite number; what is wrong goes to `flaws`.
bool ReadNumber(const FileObject& file, const CString& section, const CString& key, double& value, RecordFlaws& flaws)
{
    if (file.GetItem(section, key, value) && std::isfinite(value)) {
        return true;
    }
    CString text;
    const std::string what = file.GetItem(section, key, text)
                                 ? fmt::format("key \"{}\": \"{}\" is no number", key.ToUtf8(), text.ToUtf8())
                                 : fmt::format("key \"{}\" is missing", key.ToUtf8());
    flaws.push_back({key, what, kGiveNumber});
    return false;
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

/// The ellipsoid of a datum: the key of its name, and those of the two numbers in the datum's record.
struct DatumEllipsoid {
    int nameKey;
    CString axisKey;
    CString eccKey;
};

const DatumEllipsoid& EllipsoidOf(bool target)
{
    static const DatumEllipsoid kSource = {TransKey::source, kDatumSourceAxis, kDatumSourceEcc};
    static const DatumEllipsoid kTarget = {TransKey::target, kDatumTargetAxis, kDatumTargetEcc};
    return target ? kTarget : kSource;
}

/// What is wrong with the record of an ellipsoid, in the first file that has it; nothing when one
/// of the files has a usable one.
std::string EllipsoidRecordFlaw(const DatabaseFiles& files, const CString& name)
{
    const CString section = kEllipsoidPrefix + name;
    std::string first;
    for (const FileObject* file : files.MainFirst(section)) {
        const RecordFlaws flaws = EllipsoidFlaws(*file, section);
        if (flaws.empty()) {
            return {};
        }
        first = first.empty() ? PlaceOf(*file, section) + ": " + flaws.front().what : first;
    }
    return first.empty() ? fmt::format("its ellipsoid \"{}\" has no record \"{}\" in either database file",
                                       name.ToUtf8(), section.ToUtf8())
                         : first;
}

/// The numbers in the datum's own record serve when neither file has the ellipsoid whole.
bool OwnNumbersServe(const DatabaseFiles& files, const CString& name, const FileObject& file, const CString& section,
                     const DatumEllipsoid& ellipsoid)
{
    double axis = 0.0;
    double ecc = 0.0;
    const CString record = kEllipsoidPrefix + name;
    for (const FileObject* candidate : files.MainFirst(record)) {
        if (candidate->GetItem(record, spheroidKeys[SpheroidKey::semiMajor], axis) &&
            candidate->GetItem(record, spheroidKeys[SpheroidKey::eccSquared], ecc)) {
            return false;
        }
    }
    return file.GetItem(section, ellipsoid.axisKey, axis) && file.GetItem(section, ellipsoid.eccKey, ecc) &&
           axis >= kSmallestAxis && ecc >= 0.0 && ecc < 1.0;
}

void AddDatumEllipsoidFlaw(const DatabaseFiles& files, const FileObject& file, const CString& section,
                           const DatumEllipsoid& ellipsoid, RecordFlaws& flaws)
{
    const CString& key = transParamKeys[static_cast<std::size_t>(ellipsoid.nameKey)];
    CString name;
    if (!file.GetItem(section, key, name)) {
        flaws.push_back({key, fmt::format("key \"{}\" is missing", key.ToUtf8()),
                         "name an ellipsoid; see: zorgeo list ellipsoids"});
        return;
    }
    const std::string flaw = EllipsoidRecordFlaw(files, name);
    if (!flaw.empty() && !OwnNumbersServe(files, name, file, section, ellipsoid)) {
        flaws.push_back({key, fmt::format("key \"{}\": {}", key.ToUtf8(), flaw),
                         fmt::format("add the ellipsoid, or its numbers here under \"{}\" and \"{}\"",
                                     ellipsoid.axisKey.ToUtf8(), ellipsoid.eccKey.ToUtf8())});
    }
}

} // namespace

const std::vector<CorrectionSwitch>& CorrectionSwitches()
{
    static const std::vector<CorrectionSwitch> switches = {
        {L"Post coorection statu", {L"Post X coorection", L"Post Y coorection", L"Post Z coorection"}},
        {L"Post horizontal adjust statu",
         {L"Post horizonal origin X", L"Post horizonal origin Y", L"Post horizonal rotation", L"Post horizonal scale"}},
        {L"Post vertical adjust statu",
         {L"Post vertical origin X", L"Post vertical origin Y", L"Post vertical slope X", L"Post vertical slope Y"}}};
    return switches;
}

std::string PlaceOf(const FileObject& file, const CString& section)
{
    return fmt::format("{}: section \"{}\"", file.GetFileName().ToUtf8(), section.ToUtf8());
}

RecordFlaws NumberFlaws(const FileObject& file, const CString& section, const std::vector<CString>& keys)
{
    RecordFlaws flaws;
    for (const CString& key : keys) {
        double ignored = 0.0;
        ReadNumber(file, section, key, ignored, flaws);
    }
    return flaws;
}

RecordFlaws BooleanFlaws(const FileObject& file, const CString& section, const CString& key)
{
    bool ignored = false;
    CString text;
    if (file.GetItem(section, key, ignored) || !file.GetItem(section, key, text)) {
        return {};
    }
    return {{key, fmt::format("key \"{}\": \"{}\" is neither 1 nor 0", key.ToUtf8(), text.ToUtf8()), kMendRecord}};
}

RecordFlaws EllipsoidFlaws(const FileObject& file, const CString& section)
{
    RecordFlaws flaws;
    double axis = 0.0;
    double ecc = 0.0;
    const bool hasAxis = ReadNumber(file, section, spheroidKeys[SpheroidKey::semiMajor], axis, flaws);
    const bool hasEcc = ReadNumber(file, section, spheroidKeys[SpheroidKey::eccSquared], ecc, flaws);
    if (hasAxis && hasEcc && (axis < kSmallestAxis || ecc < 0.0 || ecc >= 1.0)) {
        const bool small = axis < kSmallestAxis;
        flaws.push_back(
            {spheroidKeys[small ? SpheroidKey::semiMajor : SpheroidKey::eccSquared],
             fmt::format("semi-major axis {} and squared eccentricity {} are no ellipsoid of the Earth", axis, ecc),
             "right is an axis of 6000000 metres or more and a squared eccentricity from 0 to below 1"});
    }
    return flaws;
}

RecordFlaws ProjectionFlaws(const FileObject& file, const CString& section)
{
    const CString& typeKey = projectionParamKeys[ProjectionKey::type];
    long type = 0;
    if (!file.GetItem(section, typeKey, type)) {
        return {{typeKey, fmt::format("key \"{}\" is missing or is no number", typeKey.ToUtf8()),
                 "give the number of the method; see: zorgeo list methods"}};
    }
    const auto needs =
        std::find_if(Needs().begin(), Needs().end(), [type](const ProjectionNeeds& row) { return row.type == type; });
    if (needs == Needs().end()) {
        CString method;
        file.GetItem(section, kProjectionMethod, method);
        return {{typeKey,
                 fmt::format("the projection method \"{}\" (type {}) has no formulas in this module", method.ToUtf8(),
                             type),
                 "take another method; see: zorgeo list methods"}};
    }
    std::vector<CString> keys;
    for (const int parameter : needs->parameters) {
        keys.push_back(projectionParamKeys[static_cast<std::size_t>(parameter)]);
    }
    RecordFlaws flaws = NumberFlaws(file, section, keys);
    const CString& hemisphereKey = projectionParamKeys[ProjectionKey::hemisphere];
    if (type == kPolarStereographic && !file.HasKey(section, hemisphereKey)) {
        flaws.push_back({hemisphereKey, fmt::format("key \"{}\" is missing", hemisphereKey.ToUtf8()),
                         "right is \"Northern\" or \"Southern\""});
    }
    return flaws;
}

RecordFlaws CatalogueFlaws(const DatabaseFiles& files, const FileObject& file, const CString& section)
{
    const CString& typeKey = projectionParamKeys[ProjectionKey::type];
    long type = -1;
    if (!file.GetItem(section, typeKey, type)) {
        return {};
    }
    const FileObject& catalogue = files.Catalogue();
    FobjSection walk;
    CString key;
    CString method;
    for (bool more = catalogue.GetFirstMapEntry(walk, kCatalogueMethods, key, method); more;
         more = catalogue.GetNextMapEntry(walk, key, method)) {
        if (numbers::LeadingInteger(key) == type && catalogue.HasSection(method)) {
            return {};
        }
    }
    return {{typeKey,
             fmt::format("{}: the method of projection type {} and its parameters are not listed",
                         catalogue.GetFileName().ToUtf8(), type),
             "install the delivered catalogue again"}};
}

RecordFlaws DatumFlaws(const DatabaseFiles& files, const FileObject& file, const CString& section)
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
    RecordFlaws flaws = NumberFlaws(file, section, keys);
    for (const bool target : {false, true}) {
        AddDatumEllipsoidFlaw(files, file, section, EllipsoidOf(target), flaws);
    }
    return flaws;
}

bool DatumUsesOwnEllipsoid(const DatabaseFiles& files, const FileObject& file, const CString& section, bool target)
{
    const DatumEllipsoid& ellipsoid = EllipsoidOf(target);
    CString name;
    return file.GetItem(section, transParamKeys[static_cast<std::size_t>(ellipsoid.nameKey)], name) &&
           !EllipsoidRecordFlaw(files, name).empty() && OwnNumbersServe(files, name, file, section, ellipsoid);
}

RecordFlaws UnitFlaws(const FileObject& file, const CString& unit)
{
    CString text;
    file.GetItem(kUnitsSection, unit, text);
    const CZorString parts(text, L',', true, false);
    double factor = 0.0;
    if (parts.GetItem(0, factor) && std::isfinite(factor) && factor > 0.0) {
        return {};
    }
    return {
        {unit, fmt::format("unit \"{}\": \"{}\" is no factor and suffix", unit.ToUtf8(), text.ToUtf8()), kMendRecord}};
}

RecordFlaws SwitchFlaws(const FileObject& file, const CString& section)
{
    std::vector<CorrectionSwitch> rows = CorrectionSwitches();
    CString method;
    if (file.GetItem(section, kGeoidMethod, method) && method == GeoidmodelTypeKeys[GeoidType::manual]) {
        rows.push_back({kGeoidUse, {kGeoidManual}});
    }
    RecordFlaws flaws;
    for (const CorrectionSwitch& row : rows) {
        bool on = false;
        file.GetItem(section, row.statusKey, on);
        for (const RecordFlaw& flaw : BooleanFlaws(file, section, row.statusKey)) {
            flaws.push_back(flaw);
        }
        for (RecordFlaw& flaw : on ? NumberFlaws(file, section, row.keys) : RecordFlaws()) {
            flaw.remedy = "mend the record or switch this correction off in it";
            flaws.push_back(flaw);
        }
    }
    return flaws;
}
