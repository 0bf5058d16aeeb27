#include <fmt/format.h>

#include "CommonOptions.h"
#include "DatabaseFiles.h"
#include "DatabaseText.h"
#include "NameFinder.h"
#include "Output.h"
#include "SystemCheck.h"
#include "base/keys/KeyTables.h"
#include "platform/Platform.h"
#include "project/ProjectActions.h"
#include "project/ProjectFile.h"
#include "project/ProjectReport.h"
#include "project/ProjectText.h"

namespace {

constexpr const char* kFooter =
    "The system is made from what the project names and holds, and goes into the user database under\n"
    "the name of the project's directory, in the group \"User Defined Coordinate Systems\"; reference and\n"
    "backup go into the project. docs/older-projects.md tells where each record is looked for.\n\n"
    "Example:\n"
    "  zorgeo project convert-old Survey1/project.prj";

[[noreturn]] void Refuse(ExitStatus status, const FileObject& project, const std::string& text)
{
    throw ToolError(status, fmt::format("{}: {}", project.GetFileName().ToUtf8(), text));
}

/// The sections without which nothing can be converted, and the key that names a record; a datum
/// transformation may go without a name.
void CheckOldProject(const FileObject& project)
{
    struct Row {
        CString section;
        CString key;
        bool named;
    };
    const Row rows[] = {{SPHEROID_SECTION, spheroidKeys[SpheroidKey::legacyName], true},
                        {TRANSFORMATION_SECTION, transParamKeys[TransKey::datumKey], false},
                        {PROJECTION_SECTION, projectionParamKeys[ProjectionKey::legacyName], true},
                        {UNITS_SECTION, kOldUnitName, true}};
    constexpr const char* kRemedy = "this is no whole project of the older generation; bring a copy of it back";
    for (const Row& row : rows) {
        if (!project.HasSection(row.section)) {
            Refuse(ExitStatus::unusable, project,
                   fmt::format("section \"{}\" is missing; {}", row.section.ToUtf8(), kRemedy));
        }
        if (row.named && !project.HasKey(row.section, row.key)) {
            Refuse(ExitStatus::unusable, project,
                   fmt::format("section \"{}\": key \"{}\" is missing; {}", row.section.ToUtf8(), row.key.ToUtf8(),
                               kRemedy));
        }
    }
}

/// The name of the project's directory, which the system gets.
CString NameFor(const FileObject& project)
{
    const auto file = host::PathOf(project.GetFileName().ToUtf8());
    const CString name = CString::FromUtf8(host::Utf8Of(file.parent_path().filename()));
    if (CString::FromUtf8(host::Utf8Of(file.filename())).CompareNoCase(kProjectFileName) != 0 || name.IsEmpty()) {
        Refuse(ExitStatus::usage, project,
               "a project of the older generation is called project.prj, and its directory gives the system its name; "
               "put it into a directory under that name");
    }
    return name;
}

SystemName Convert(Session& session, FileObject& project)
{
    SystemName name;
    if (!session.Database().ConvertProj2Geobase(project, name.group, name.system)) {
        Refuse(ExitStatus::unusable, project,
               fmt::format("the project cannot be converted; a record that it names is neither in the definition files "
                           "in {} nor whole in its own sections \"{}\", \"{}\" and \"{}\", or its projection has no "
                           "counterpart today",
                           host::Utf8Of(host::ExecutableDirectory()), kEllipsoidBackup.ToUtf8(),
                           kOldProjectionBackup.ToUtf8(), kOldDatumBackup.ToUtf8()));
    }
    return name;
}

class ConvertOldAction : public Command {
public:
    explicit ConvertOldAction(CLI::App* app) : Command(app)
    {
        app->add_option("FILE", m_file, "The project, called project.prj")->required();
        app->add_flag("--use-existing", m_useExisting,
                      "A system of that name in the database is this project's, converted before");
        m_common.AddTo(*app, "Tell what was done as JSON");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        const Workbench bench(m_common, m_file, Workbench::Use::change);
        return bench.Run([&] {
            Session session(bench.Options());
            FileObject project;
            OpenOrExplain(project, CString::FromUtf8(bench.Project()), "run it again");
            if (!session.Database().IsOldZorProject(CString::FromUtf8(bench.Project()))) {
                Refuse(ExitStatus::unusable, project,
                       "it names its group and system and is no project of the older generation; zorgeo project open "
                       "FILE opens it");
            }
            CheckOldProject(project);
            const SystemName name = SystemFor(session, project);
            const FileObject before = session.Files().User();
            session.Reopen();
            CheckSystemRecord(session.Files(), name);
            WriteInto(session, project, name);
            SaveProject(project, bench.Project());
            Tell({m_file, name, {}, NewRecords(before, session.Files().User()), bench.Publish()}, m_common.json);
            return ExitStatus::good;
        });
    }

private:
    SystemName SystemFor(Session& session, FileObject& project) const
    {
        const CString name = NameFor(project);
        if (!session.Database().HasSystem(name, GeoDbBoth)) {
            return Convert(session, project);
        }
        if (!m_useExisting) {
            Refuse(ExitStatus::nobodyToAsk, project,
                   fmt::format("the database has a system \"{}\" already, the name of the project's directory; give "
                               "the directory another name, or --use-existing when that system is this project's, "
                               "converted before",
                               name.ToUtf8()));
        }
        Remark(fmt::format("nothing is converted: the database's system \"{}\" is taken as it is", name.ToUtf8()));
        return FindSystem(session, "", name.ToUtf8());
    }

    static void WriteInto(Session& session, FileObject& project, const SystemName& name)
    {
        AddFormats(project);
        WriteBackup(session, project, name);
        const std::unique_ptr<ZorGeoCoordSysBase> coordSys = session.NewCoordSys();
        coordSys->Init(name.group, name.system, L"", L"", L"", L"", L"", project, kKeepUnit, true);
        WriteReference(project, *coordSys, kKeepUnit);
    }

    std::string m_file;
    bool m_useExisting = false;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeProjectConvertOld(CLI::App& project)
{
    return std::make_unique<ConvertOldAction>(
        project.add_subcommand("convert-old", "Convert a project of the older generation"));
}
