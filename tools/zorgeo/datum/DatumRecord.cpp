#include "datum/DatumRecord.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "NameFinder.h"
#include "RecordCheck.h"
#include "ToolError.h"
#include "base/keys/KeyTables.h"
#include "base/text/Numbers.h"

namespace {

constexpr double kSame = 1e-13; // of a number above 1, and below: what the writing of a number may change

bool Same(double one, double other)
{
    return std::fabs(one - other) <= kSame * std::max(1.0, std::fabs(one));
}

void AddOnce(std::vector<CString>& names, const CString& name)
{
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        names.push_back(name);
    }
}

/// The names of all records, the list's names without a record included.
std::vector<CString> DatumNames(Session& session)
{
    std::vector<CString> names;
    for (const FileObject* file : {&session.Files().Main(), &session.Files().User()}) {
        FobjSection walk;
        CString section;
        for (bool more = file->GetFirstSectionEntry(walk, section); more;
             more = file->GetNextSectionEntry(walk, section)) {
            if (section.Left(kDatumPrefix.GetLength()) == kDatumPrefix) {
                AddOnce(names, section.Mid(kDatumPrefix.GetLength()));
            }
        }
    }
    CStringArray listed;
    session.Database().GetAllDtfNames(listed);
    for (const CString& name : listed) {
        AddOnce(names, name);
    }
    return names;
}

} // namespace

DatumRecord::DatumRecord(const FileObject& file, const CString& section) : method(L"Bursa/Wolfe(7 Parameters)")
{
    file.GetItem(section, kDatumMethod, method);
    on = method != kNoTransformation;
    if (!on) {
        return;
    }
    file.GetItem(section, transParamKeys[TransKey::source], source);
    file.GetItem(section, transParamKeys[TransKey::target], target);
    const auto add = [&](int from, int to) {
        for (auto key = static_cast<std::size_t>(from); key <= static_cast<std::size_t>(to); ++key) {
            double value = 0.0;
            file.GetItem(section, transParamKeys[key], value);
            numbers.emplace_back(transParamKeys[key], value);
        }
    };
    add(TransKey::shiftX, TransKey::scale);
    if (method.Find(kFourteen) >= 0) {
        const std::size_t first = numbers.size();
        add(TransKey::shiftRateX, TransKey::epoch);
        moves = numbers.back().second != 0.0 &&
                std::any_of(numbers.begin() + static_cast<std::ptrdiff_t>(first), numbers.end() - 1,
                            [](const auto& rate) { return rate.second != 0.0; });
    }
    bool fixedHeight = false;
    file.GetItem(section, transParamKeys[TransKey::fixedHeight], fixedHeight);
    if (fixedHeight) {
        numbers.emplace_back(transParamKeys[TransKey::fixedHeight], 1.0);
        add(TransKey::fixedHeightForward, TransKey::fixedHeightReverse);
    }
}

std::vector<std::string> DifferencesOf(const DatumRecord& there, const std::string& where, const DatumRecord& here,
                                       const std::string& other)
{
    std::vector<std::string> differences;
    const auto add = [&](const CString& key, const std::string& one, const std::string& two) {
        differences.push_back(fmt::format("{} is {} in {} and {} in {}", key.ToUtf8(), one, where, two, other));
    };
    const auto compare = [&](const CString& key, const CString& one, const CString& two) {
        if (one != two) {
            add(key, '"' + one.ToUtf8() + '"', '"' + two.ToUtf8() + '"');
        }
    };
    compare(kDatumMethod, there.method, here.method);
    compare(transParamKeys[TransKey::source], there.source, here.source);
    compare(transParamKeys[TransKey::target], there.target, here.target);
    const auto valueOf = [](const DatumRecord& record, const CString& key) {
        const auto found = std::find_if(record.numbers.begin(), record.numbers.end(),
                                        [&key](const auto& number) { return number.first == key; });
        return found == record.numbers.end() ? 0.0 : found->second;
    };
    const std::vector<std::pair<CString, double>>& longer =
        there.numbers.size() > here.numbers.size() ? there.numbers : here.numbers;
    for (const auto& [key, ignored] : longer) {
        const double one = valueOf(there, key);
        const double two = valueOf(here, key);
        if (!Same(one, two)) {
            add(key, numbers::ToText(one), numbers::ToText(two));
        }
    }
    return differences;
}

NamedDatum FindDatum(Session& session, const std::string& wanted)
{
    const CString name = FindName(DatumNames(session), wanted, "datum transformation");
    const CString section = kDatumPrefix + name;
    const auto files = session.Files().MainFirst(section);
    if (files.empty()) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("the datum transformation \"{}\" is listed, and its section \"{}\" is in neither "
                                    "database file; add the record or take it off the list",
                                    name.ToUtf8(), section.ToUtf8()));
    }
    for (const RecordFlaw& flaw : DatumFlaws(session.Files(), *files.front(), section)) {
        throw ToolError(ExitStatus::unusable,
                        fmt::format("{}: {}; {}", PlaceOf(*files.front(), section), flaw.what, flaw.remedy));
    }
    return {name, files.front(), section};
}

CartesianForm EllipsoidOf(const DatabaseFiles& files, const NamedDatum& datum, bool target)
{
    CartesianForm form;
    CString name;
    datum.file->GetItem(datum.section, transParamKeys[target ? TransKey::target : TransKey::source], name);
    const CString section = kEllipsoidPrefix + name;
    for (const FileObject* file : files.MainFirst(section)) {
        if (file->GetItem(section, spheroidKeys[SpheroidKey::semiMajor], form.a) &&
            file->GetItem(section, spheroidKeys[SpheroidKey::eccSquared], form.e2)) {
            return form;
        }
    }
    datum.file->GetItem(datum.section, target ? kDatumTargetAxis : kDatumSourceAxis, form.a);
    datum.file->GetItem(datum.section, target ? kDatumTargetEcc : kDatumSourceEcc, form.e2);
    return form;
}

DatumDesk::DatumDesk(const Session& session) : m_coordSys(session.NewCoordSys())
{
    // Transformations by name need no system, only the database, and an Init that is told of no
    // system opens that, in silence. Its false is for the system.
    m_coordSys->Init(L"", L"", L"", L"", L"", L"", L"", m_project, kKeepUnit, true);
}
