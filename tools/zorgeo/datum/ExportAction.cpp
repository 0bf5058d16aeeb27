#include <filesystem>
#include <string>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "CommonOptions.h"
#include "Output.h"
#include "datum/DatumActions.h"
#include "datum/DatumRecord.h"
#include "platform/Platform.h"

namespace {

constexpr const char* kFooter =
    "The file holds the transformation with the numbers of its two ellipsoids, so that it also serves a\n"
    "machine whose database does not have these. Its description stays behind.\n\n"
    "Example:\n"
    "  zorgeo datum export 'WGS84 to ED50 (EPSG 1311)' ed50.geo --force";

[[noreturn]] void Fail(const std::string& file, const std::string& reason)
{
    throw ToolError(ExitStatus::inputOutput, fmt::format("{}: {}", file, reason));
}

void DemandPlace(const std::string& file, bool force)
{
    std::error_code error;
    const std::filesystem::path path = host::PathOf(file);
    if (std::filesystem::is_directory(path, error)) {
        Fail(file, "this is a directory; name a file in it");
    }
    if (std::filesystem::exists(path, error) && !force) {
        Fail(file, "there is a file of that name already; replace it with --force");
    }
    if (const auto parent = path.parent_path(); !parent.empty() && !std::filesystem::is_directory(parent, error)) {
        Fail(file, "its directory does not exist; make it first");
    }
}

class ExportAction : public Command {
public:
    explicit ExportAction(CLI::App* app) : Command(app)
    {
        app->add_option("NAME", m_name, "The datum transformation, or a part of its name that no other has")
            ->required();
        app->add_option("FILE", m_file, "The section file to write; it appears when it is whole")->required();
        app->add_flag("--force", m_force, "Replace an existing file");
        m_common.AddTo(*app, "Tell what was done as JSON");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        Session session(m_common);
        const NamedDatum datum = FindDatum(session, m_name);
        DemandPlace(m_file, m_force);
        FileObject file;
        const DatumDesk desk(session);
        if (!desk.CoordSys().CreateDtfFileObj(datum.name, file)) {
            throw ToolError(ExitStatus::unusable,
                            fmt::format("the module cannot make the datum transformation \"{}\"", datum.name.ToUtf8()));
        }
        if (!file.FileSave(CString::FromUtf8(m_file), FileMode::saveExclusive)) {
            Fail(m_file, "it cannot be written: " + file.GetErrorText().ToUtf8());
        }
        Tell(datum.name.ToUtf8());
        return ExitStatus::good;
    }

private:
    void Tell(const std::string& datum) const
    {
        const nlohmann::ordered_json object = {{"datum", datum}, {"file", m_file}};
        WriteToStdout(m_common.json ? object.dump(2) + "\n" : fmt::format("datum\t{}\nfile\t{}\n", datum, m_file));
    }

    std::string m_name;
    std::string m_file;
    bool m_force = false;
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeDatumExport(CLI::App& datum)
{
    return std::make_unique<ExportAction>(
        datum.add_subcommand("export", "Write a datum transformation into a file of its own"));
}
