#include "dbcheck/SystemsCheck.h"

#include <map>
#include <set>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "ModelCheck.h"
#include "SystemCheck.h"
#include "ToolDesk.h"
#include "base/keys/KeyTables.h"
#include "dbcheck/RecordKinds.h"
#include "dbcheck/Walk.h"
#include "project/ProjectFile.h"

namespace {

class SystemChecker {
public:
    SystemChecker(Session& session, Findings& findings)
        : m_session(session), m_files(session.Files()), m_findings(findings)
    {
        AddFormats(m_project);
    }

    std::size_t Run()
    {
        for (const FileObject* file : {&m_files.User(), &m_files.Main()}) {
            ForEachSection(*file, [&](const CString& section) {
                if (section.Left(kGroupPrefix.GetLength()) == kGroupPrefix) {
                    CheckGroup(*file, section);
                }
            });
        }
        return m_done.size();
    }

private:
    void CheckGroup(const FileObject& file, const CString& section)
    {
        const CString group = section.Mid(kGroupPrefix.GetLength());
        ForEachEntry(file, section, [&](const CString& key, const CString& system) {
            const SystemName name{group, system};
            const FileObject* const record = IsGroupSetting(key) ? nullptr : FileOfSystem(m_files, name);
            if (record != nullptr && m_done.insert({record, system}).second) {
                CheckOne(name, *record);
            }
        });
    }

    void CheckOne(const SystemName& name, const FileObject& record)
    {
        const CString section = kSystemPrefix + name.system;
        const auto coordSys = m_session.NewCoordSys();
        if (!coordSys->Init(name.group, name.system, L"", L"", L"", L"", L"", m_project, kKeepUnit, true)) {
            const std::string cause = CauseOf(record, section);
            m_findings.Fault(record, section,
                             {{},
                              "the system cannot be initialised: " +
                                  (cause.empty() ? "its projection refuses the parameters" : cause),
                              cause.empty() ? "mend the projection's record" : "mend what is told of it"});
            return;
        }
        const FileObject& settings = *m_files.MainFirst(section).front();
        if (coordSys->GetGeoidModelMd() != GeoidmodelTypeKeys[GeoidType::manual]) {
            const auto tryGeoid = [&] { return TryGeoid(m_files, name, *coordSys); };
            TellModel(settings, section, kGeoidGrid, {coordSys->GetGeoidModelMd(), coordSys->GetGeoidGrid()},
                      coordSys->HasGeoidModel(), m_geoids, tryGeoid);
        }
        const auto tryPost = [&] { return TryPostModel(*coordSys); };
        TellModel(settings, section, kPostFile, {coordSys->GetGridCorrectionModel(), coordSys->GetGridCorrectionFile()},
                  true, m_posts, tryPost);
    }

    using Model = std::pair<CString, CString>; // name and file
    using Faults = std::map<Model, std::string>;

    /// Many systems share a model, whose file is then tried once.
    template <typename Try>
    void TellModel(const FileObject& file, const CString& section, const CString& key, const Model& model, bool inForce,
                   Faults& known, Try tryModel)
    {
        if (!inForce) {
            return;
        }
        auto found = known.find(model);
        if (found == known.end()) {
            found = known.emplace(model, tryModel().fault).first;
        }
        if (!found->second.empty()) {
            m_findings.Fault(file, section,
                             {key, fmt::format("key \"{}\": {}", key.ToUtf8(), found->second),
                              "bring the file, or switch the model off in the record"});
        }
    }

    /// The section that is at fault among those of a system; empty when none is.
    std::string CauseOf(const FileObject& record, const CString& section) const
    {
        struct Part {
            CString key;
            CString prefix;
        };
        if (m_findings.IsFaulty(section)) {
            return "its own record is at fault";
        }
        for (const Part& part : {Part{kSystemEllipsoid, kEllipsoidPrefix}, Part{kSystemProjection, kProjectionPrefix},
                                 Part{kSystemDatum, kDatumPrefix}}) {
            CString name;
            record.GetItem(section, part.key, name);
            const CString its = part.prefix == kDatumPrefix ? DatumSection(m_files, name) : part.prefix + name;
            if (m_findings.IsFaulty(its)) {
                return fmt::format("section \"{}\" is at fault", its.ToUtf8());
            }
        }
        return m_findings.IsFaulty(kUnitsSection) ? "its unit is at fault" : std::string();
    }

    Session& m_session;
    const DatabaseFiles& m_files;
    Findings& m_findings;
    FileObject m_project;
    std::set<std::pair<const FileObject*, CString>> m_done;
    Faults m_geoids;
    Faults m_posts;
};

} // namespace

std::size_t CheckSystems(Session& session, Findings& findings)
{
    const ToolDesk messages;
    return SystemChecker(session, findings).Run();
}
