#include "dbcheck/RecordsCheck.h"

#include <algorithm>
#include <map>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "SystemCheck.h"
#include "base/keys/KeyTables.h"
#include "base/text/CZorString.h"
#include "base/text/Numbers.h"
#include "dbcheck/RecordKinds.h"
#include "dbcheck/Walk.h"
#include "system/KnownRecords.h"
#include "system/ProjectionRules.h"

namespace {

constexpr double kWorldAxis = 6378137.0; // metres; the rules ask for the size of the Earth alone
constexpr double kWorldEcc = 0.00669437999014132;

class RecordChecker {
public:
    RecordChecker(Session& session, Findings& findings)
        : m_session(session), m_files(session.Files()), m_findings(findings)
    {
    }

    void Run()
    {
        for (const FileObject* file : {&m_files.Main(), &m_files.User()}) {
            ForEachSection(*file, [&](const CString& section) { Check(*file, section); });
        }
        ForEachSection(m_files.User(), [&](const CString& section) { CheckTwice(section); });
    }

private:
    void Check(const FileObject& file, const CString& section)
    {
        const RecordKind* const kind = KindOf(section);
        if (section == kUnitsSection) {
            ForEachEntry(file, section, [&](const CString& unit, const CString&) { CheckUnitText(file, unit); });
        } else if (kind == nullptr) {
            return;
        } else if (kind->prefix == kSystemPrefix) {
            CheckSystem(file, section);
        } else if (kind->prefix == kDatumPrefix) {
            CheckDatum(file, section);
        } else if (kind->prefix == kProjectionPrefix) {
            CheckProjection(file, section);
        } else if (kind->prefix == kEllipsoidPrefix) {
            m_findings.Faults(file, section, EllipsoidFlaws(file, section));
        }
    }

    void CheckUnitText(const FileObject& file, const CString& unit)
    {
        const RecordFlaws flaws = UnitFlaws(file, unit);
        CString text;
        CString suffix;
        file.GetItem(kUnitsSection, unit, text);
        if (flaws.empty() && (!CZorString(text, L',', true, false).GetItem(1, suffix) || suffix.IsEmpty())) {
            m_findings.Fault(file, kUnitsSection,
                             {unit, fmt::format("unit \"{}\": \"{}\" has no suffix", unit.ToUtf8(), text.ToUtf8()),
                              "right is a factor, a comma and a suffix: 0.3048,ft"});
        }
        m_findings.Faults(file, kUnitsSection, flaws);
    }

    /// The name under a key; empty, with the fault told, when there is none.
    CString NameUnder(const FileObject& file, const CString& section, const CString& key, const char* noun)
    {
        CString name;
        if (!file.GetItem(section, key, name) || name.IsEmpty()) {
            m_findings.Fault(
                file, section,
                {key, fmt::format("key \"{}\" is missing or empty", key.ToUtf8()), fmt::format("name {}", noun)});
        }
        return name;
    }

    void Dangle(const FileObject& file, const CString& section, const CString& key, const CString& name,
                const std::string& record)
    {
        m_findings.Fault(file, section,
                         {key,
                          fmt::format("key \"{}\" names \"{}\", and there is no {} in either file", key.ToUtf8(),
                                      name.ToUtf8(), record),
                          "add the record, or mend the name"});
    }

    void CheckReference(const FileObject& file, const CString& section, const CString& key, const CString& prefix,
                        const char* noun)
    {
        const CString name = NameUnder(file, section, key, noun);
        const CString record = prefix == kDatumPrefix ? DatumSection(m_files, name) : prefix + name;
        if (!name.IsEmpty() && m_files.UserFirst(record).empty()) {
            Dangle(file, section, key, name, fmt::format("section \"{}\"", record.ToUtf8()));
        }
    }

    void CheckUnitReference(const FileObject& file, const CString& section)
    {
        CString unit = NameUnder(file, section, kUnitName, "a unit");
        if (unit.CompareNoCase(kMeterAlias) == 0) {
            unit = kMeters;
        }
        if (!unit.IsEmpty() && !m_files.Main().HasKey(kUnitsSection, unit) &&
            !m_files.User().HasKey(kUnitsSection, unit)) {
            Dangle(file, section, kUnitName, unit, "such unit");
        }
    }

    void CheckSystem(const FileObject& file, const CString& section)
    {
        CheckReference(file, section, kSystemDatum, kDatumPrefix, "a datum transformation");
        CheckReference(file, section, kSystemEllipsoid, kEllipsoidPrefix, "an ellipsoid");
        CheckReference(file, section, kSystemProjection, kProjectionPrefix, "a projection");
        CheckUnitReference(file, section);
        m_findings.Faults(file, section, SwitchFlaws(file, section));
        NoteOtherUnit(file, section);
        NoteOtherEllipsoid(file, section);
    }

    /// The lengths of a projection are taken as they stand, in the system's unit.
    void NoteOtherUnit(const FileObject& file, const CString& section)
    {
        CString unit;
        CString projection;
        CString its;
        file.GetItem(section, kUnitName, unit);
        file.GetItem(section, kSystemProjection, projection);
        const auto files = m_files.UserFirst(kProjectionPrefix + projection);
        if (!files.empty() && files.front()->GetItem(kProjectionPrefix + projection, kUnitName, its) && its != unit) {
            m_findings.Note(file, section,
                            {kUnitName,
                             fmt::format("key \"{}\" is \"{}\", and the lengths of its projection \"{}\" are in \"{}\"",
                                         kUnitName.ToUtf8(), unit.ToUtf8(), projection.ToUtf8(), its.ToUtf8()),
                             "take a projection in the system's unit"});
        }
    }

    void NoteOtherEllipsoid(const FileObject& file, const CString& section)
    {
        CString ellipsoid;
        CString datum;
        CString target;
        file.GetItem(section, kSystemEllipsoid, ellipsoid);
        file.GetItem(section, kSystemDatum, datum);
        const CString record = DatumSection(m_files, datum);
        const auto files = m_files.UserFirst(record);
        CString method;
        if (!files.empty() && files.front()->GetItem(record, transParamKeys[TransKey::target], target) &&
            target != ellipsoid &&
            !(files.front()->GetItem(record, kDatumMethod, method) && method == kNoTransformation)) {
            m_findings.Note(
                file, section,
                {kSystemEllipsoid,
                 fmt::format("key \"{}\" is \"{}\", and its datum transformation \"{}\" leads to \"{}\"",
                             kSystemEllipsoid.ToUtf8(), ellipsoid.ToUtf8(), datum.ToUtf8(), target.ToUtf8()),
                 "as a rule the two are the same"});
        }
    }

    void CheckDatum(const FileObject& file, const CString& section)
    {
        m_findings.Faults(file, section, DatumFlaws(m_files, file, section));
        CString method;
        const bool has = file.GetItem(section, kDatumMethod, method);
        if (has && std::find(kDatumMethods.begin(), kDatumMethods.end(), method.ToUtf8()) == kDatumMethods.end()) {
            m_findings.Note(file, section,
                            {kDatumMethod,
                             fmt::format("key \"{}\": \"{}\" is no method and counts as 7 parameters",
                                         kDatumMethod.ToUtf8(), method.ToUtf8()),
                             "right is \"Bursa/Wolfe(7 Parameters)\" or another of the five methods"});
        }
        for (const bool target : {false, true}) {
            const CString& key = transParamKeys[target ? TransKey::target : TransKey::source];
            CString name;
            if (method != kNoTransformation && DatumUsesOwnEllipsoid(m_files, file, section, target) &&
                file.GetItem(section, key, name)) {
                m_findings.Note(file, section,
                                {key,
                                 fmt::format("key \"{}\" names \"{}\", which has no record; the numbers in this record "
                                             "stand in for it",
                                             key.ToUtf8(), name.ToUtf8()),
                                 {}});
            }
        }
    }

    void CheckProjection(const FileObject& file, const CString& section)
    {
        const RecordFlaws flaws = ProjectionFlaws(file, section);
        const RecordFlaws listing = CatalogueFlaws(m_files, file, section);
        m_findings.Faults(file, section, flaws);
        m_findings.Faults(file, section, listing);
        CheckUnitReference(file, section);
        if (flaws.empty() && listing.empty()) {
            CheckByMethod(file, section);
        }
    }

    /// What the catalogue and the class of the type say of a record that is whole.
    void CheckByMethod(const FileObject& file, const CString& section)
    {
        int type = -1;
        file.GetItem(section, projectionParamKeys[ProjectionKey::type], type);
        ProjectionParameters projection = ParametersOf(type);
        CString method;
        file.GetItem(section, kProjectionMethod, method);
        projection.method = method.ToUtf8();
        for (ProjectionParameter& parameter : projection.all) {
            CString text;
            file.GetItem(section, CString::FromUtf8(parameter.key), text);
            parameter.text = parameter.kind == kTextParameter ? text.ToUtf8() : std::string();
            file.GetItem(section, CString::FromUtf8(parameter.key), parameter.value);
        }
        NoteStrangers(file, section, projection);
        const double metres = MetresOf(file, section);
        CheckProjectionRules(projection, kWorldAxis / metres, kWorldEcc, metres,
                             [&](int index, const std::string& what) { RefusedParameter(file, section, index, what); });
    }

    void RefusedParameter(const FileObject& file, const CString& section, int index, const std::string& what)
    {
        const CString& key = projectionParamKeys[static_cast<std::size_t>(index)];
        m_findings.Fault(file, section, {key, fmt::format("key \"{}\": {}", key.ToUtf8(), what), {}});
    }

    void NoteStrangers(const FileObject& file, const CString& section, const ProjectionParameters& projection)
    {
        ForEachEntry(file, section, [&](const CString& key, const CString&) {
            const auto place = std::find(projectionParamKeys.begin(), projectionParamKeys.end(), key);
            const auto index = static_cast<int>(place - projectionParamKeys.begin());
            if (place == projectionParamKeys.end() || index < ProjectionKey::latOrigin ||
                std::any_of(projection.all.begin(), projection.all.end(),
                            [index](const ProjectionParameter& own) { return own.index == index; })) {
                return;
            }
            m_findings.Note(
                file, section,
                {key, fmt::format("key \"{}\" is no parameter of projection type {}", key.ToUtf8(), projection.type),
                 "it can be taken out"});
        });
    }

    const ProjectionParameters& ParametersOf(int type)
    {
        const auto known = m_parameters.find(type);
        return known != m_parameters.end()
                   ? known->second
                   : m_parameters.emplace(type, ParametersOfType(m_session, type)).first->second;
    }

    double MetresOf(const FileObject& file, const CString& section) const
    {
        CString unit;
        CString text;
        double metres = 1.0;
        file.GetItem(section, kUnitName, unit);
        if (m_files.Main().GetItem(kUnitsSection, unit, text) || m_files.User().GetItem(kUnitsSection, unit, text)) {
            CZorString(text, L',', true, false).GetItem(0, metres);
        }
        return metres > 0.0 ? metres : 1.0;
    }

    /// Look-ups take one file's record here and the other's there.
    void CheckTwice(const CString& section)
    {
        const RecordKind* const kind = KindOf(section);
        const bool units = section == kUnitsSection;
        if ((!units && (kind == nullptr || kind->prefix == kGroupPrefix)) || !m_files.Main().HasSection(section)) {
            return;
        }
        bool told = false;
        ForEachEntry(m_files.User(), section, [&](const CString& key, const CString& value) {
            CString other;
            const bool has = m_files.Main().GetItem(section, key, other);
            if ((told && !units) || (units && !has) || (has && SameValue(value, other))) {
                return;
            }
            told = true;
            m_findings.Note(m_files.User(), section,
                            {key,
                             fmt::format("the main file has this {} too, with other content: key \"{}\" is \"{}\" "
                                         "here and {} there",
                                         units ? "unit" : kind->noun, key.ToUtf8(), value.ToUtf8(),
                                         has ? '"' + other.ToUtf8() + '"' : "missing"),
                             "give one of the two another name"});
        });
    }

    static bool SameValue(const CString& one, const CString& other)
    {
        double first = 0.0;
        double second = 0.0;
        return one == other ||
               (numbers::Read(one.ToUtf8(), first) && numbers::Read(other.ToUtf8(), second) && first == second);
    }

    Session& m_session;
    const DatabaseFiles& m_files;
    Findings& m_findings;
    std::map<int, ProjectionParameters> m_parameters; // by type, without values
};

} // namespace

void CheckRecords(Session& session, Findings& findings)
{
    RecordChecker(session, findings).Run();
}
