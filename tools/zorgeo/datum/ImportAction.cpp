#include <algorithm>
#include <cmath>
#include <string>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include "CommonOptions.h"
#include "DatabaseText.h"
#include "Output.h"
#include "RecordCheck.h"
#include "ToolDesk.h"
#include "UserDatabaseLock.h"
#include "UserDirectory.h"
#include "base/files/CFile.h"
#include "base/keys/KeyTables.h"
#include "datum/DatumActions.h"
#include "datum/DatumRecord.h"
#include "system/KnownRecords.h"

namespace {

constexpr const char* kFooter =
    "FILE is one that datum export wrote; NAME is the transformation's name in it. A name that the\n"
    "database has is never given other content: --as gives the new transformation a name of its own.\n\n"
    "Example:\n"
    "  zorgeo datum export 'WGS84 to ED50 (EPSG 1311)' ed50.geo --force &&\n"
    "  zorgeo datum import ed50.geo 'WGS84 to ED50 (EPSG 1311)'";

[[noreturn]] void Fail(ExitStatus status, const std::string& message)
{
    throw ToolError(status, message);
}

/// The section of the transformation `name` in a file; older files write it without the prefix.
CString SectionIn(const FileObject& file, const CString& name)
{
    for (const CString& section : {kDatumPrefix + name, name}) {
        if (!name.IsEmpty() && file.HasSection(section)) {
            return section;
        }
    }
    std::vector<std::string> sections;
    FobjSection walk;
    CString section;
    for (bool more = file.GetFirstSectionEntry(walk, section); more; more = file.GetNextSectionEntry(walk, section)) {
        sections.push_back('"' + section.ToUtf8() + '"');
    }
    Fail(ExitStatus::usage, fmt::format("{}: there is no section \"{}{}\" in it; it has {}",
                                        file.GetFileName().ToUtf8(), kDatumPrefix.ToUtf8(), name.ToUtf8(),
                                        sections.empty() ? "none" : fmt::format("{}", fmt::join(sections, ", "))));
}

CString WithoutPrefix(const CString& name)
{
    const bool has = name.Left(kDatumPrefix.GetLength()) == kDatumPrefix;
    return has ? name.Mid(kDatumPrefix.GetLength()) : name;
}

/// The one record in a file in memory, under the name that it gets.
FileObject RecordAs(const FileObject& file, const CString& section, const CString& name)
{
    FileObject record;
    FobjSection walk;
    CString key;
    CString value;
    for (bool more = file.GetFirstMapEntry(walk, section, key, value); more;
         more = file.GetNextMapEntry(walk, key, value)) {
        record.SetItem(kDatumPrefix + name, key, value, true);
    }
    return record;
}

class ImportAction : public Command {
public:
    explicit ImportAction(CLI::App* app) : Command(app)
    {
        app->add_option("FILE", m_file, "The section file that holds the transformation")->required();
        app->add_option("NAME", m_name, "Its name there")->required();
        app->add_option("--as", m_as, "The name under which the database gets it")->type_name("NAME");
        m_common.AddTo(*app, "Tell what was done as JSON");
        app->footer(kFooter);
    }

    ExitStatus Run() override
    {
        if (!CFile::Exists(CString::FromUtf8(m_file))) {
            Fail(ExitStatus::inputOutput, m_file + ": no such file");
        }
        FileObject file;
        OpenOrExplain(file, CString::FromUtf8(m_file), "export the transformation again");
        const CString section = SectionIn(file, CString::FromUtf8(m_name));
        m_datum = WithoutPrefix(m_as.empty() ? section : CString::FromUtf8(m_as));
        // Held from before the reading of the user database until behind its writing.
        const UserDatabaseLock lock(UserDirectoryOf(m_common));
        Session session(m_common);
        const RecordFlaws flaws = DatumFlaws(session.Files(), file, section);
        if (!flaws.empty()) {
            Fail(ExitStatus::unusable,
                 fmt::format("{}: {}; {}", PlaceOf(file, section), flaws.front().what, flaws.front().remedy));
        }
        const DatumRecord record(file, section);
        DemandSameEllipsoids(session.Files(), file, section, record);
        const bool known = IsKnown(session, record);
        if (!known) {
            WarnOfLine(session.Files().User());
            FileObject source = RecordAs(file, section, m_datum);
            Add(session, source);
            Verify(session, record);
        }
        Tell(session, !known);
        return ExitStatus::good;
    }

private:
    /// The database's ellipsoids go before the numbers in the record, and the transformation would
    /// become another one.
    void DemandSameEllipsoids(const DatabaseFiles& files, const FileObject& file, const CString& section,
                              const DatumRecord& record) const
    {
        const NamedDatum datum{m_datum, &file, section};
        for (const bool target : {false, true}) {
            CartesianForm own;
            const CartesianForm known = EllipsoidOf(files, datum, target);
            if (!record.on || !file.GetItem(section, target ? kDatumTargetAxis : kDatumSourceAxis, own.a) ||
                !file.GetItem(section, target ? kDatumTargetEcc : kDatumSourceEcc, own.e2)) {
                continue;
            }
            constexpr double kSameAxis = 1e-6; // metres
            constexpr double kSameEcc = 1e-12; // 6 micrometres
            if (std::fabs(own.a - known.a) > kSameAxis || std::fabs(own.e2 - known.e2) > kSameEcc) {
                Fail(ExitStatus::nobodyToAsk,
                     fmt::format(
                         "{}: its ellipsoid \"{}\" has a semi-major axis of {} and a squared eccentricity of {}, "
                         "and the database's of that name {} and {}; give it another name in the file",
                         PlaceOf(file, section), (target ? record.target : record.source).ToUtf8(), own.a, own.e2,
                         known.a, known.e2));
            }
        }
    }

    /// Whether the database has the transformation with the same content. Throws ToolError (5) when
    /// it has the name with other content.
    bool IsKnown(Session& session, const DatumRecord& record) const
    {
        const CString section = kDatumPrefix + m_datum;
        for (const FileObject* file : session.Files().MainFirst(section)) {
            const auto differences = DifferencesOf(DatumRecord(*file, section), "the database", record, m_file);
            if (!differences.empty()) {
                Fail(ExitStatus::nobodyToAsk,
                     fmt::format("{}: the database has the name with other content: {}; nothing was changed, keep the "
                                 "new one under a name of its own with --as NAME",
                                 PlaceOf(*file, section), fmt::join(differences, ", ")));
            }
            return true;
        }
        if (const auto other = NameInOtherCase(session.Files(), kDatumPrefix, m_datum.ToUtf8())) {
            Fail(ExitStatus::nobodyToAsk,
                 fmt::format("the database has \"{}\", which differs from \"{}\" in the case of letters alone; give "
                             "another name with --as NAME",
                             *other, m_datum.ToUtf8()));
        }
        return false;
    }

    /// A line of the list that the count does not cover is taken over by the next transformation.
    static void WarnOfLine(const FileObject& user)
    {
        int count = 0;
        user.GetItem(kGeneralSection, kDatumCount, count);
        const std::string line = std::to_string(static_cast<long long>(count) + 1);
        CString listed;
        if (user.GetItem(kDatumsSection, CString::FromUtf8(line), listed)) {
            Remark(fmt::format("{}: line {} of the list, \"{}\", is taken over; that transformation stays and is found "
                               "by its name",
                               user.GetFileName().ToUtf8(), line, listed.ToUtf8()));
        }
    }

    void Add(const Session& session, FileObject& source) const
    {
        const ToolDesk messages;
        const DatumDesk desk(session);
        if (!desk.CoordSys().SaveDtfFileObjToDB(&source, m_datum)) {
            Fail(ExitStatus::unusable,
                 fmt::format("{}: the module cannot make the transformation \"{}\"", m_file, m_name));
        }
    }

    /// The module answers well also when the file could not be written, so it is read again.
    void Verify(Session& session, const DatumRecord& record) const
    {
        session.Reopen();
        const CString section = kDatumPrefix + m_datum;
        const FileObject& user = session.Files().User();
        CStringArray listed;
        session.Database().GetAllDtfNames(listed);
        if (!user.HasSection(section) || !DifferencesOf(DatumRecord(user, section), "", record, "").empty() ||
            std::find(listed.begin(), listed.end(), m_datum) == listed.end()) {
            Fail(ExitStatus::inputOutput, fmt::format("{}{}: the transformation could not be written into it",
                                                      session.UserDirectory().ToUtf8(), kUserDatabaseFile.ToUtf8()));
        }
    }

    void Tell(const Session& session, bool added) const
    {
        const std::string database = (session.UserDirectory() + kUserDatabaseFile).ToUtf8();
        const nlohmann::ordered_json object = {
            {"datum", m_datum.ToUtf8()}, {"file", m_file}, {"database", database}, {"added", added}};
        WriteToStdout(m_common.json ? object.dump(2) + "\n"
                                    : fmt::format("datum\t{}\n{}\t{}\n", m_datum.ToUtf8(),
                                                  added ? "added to" : "known already, not added to", database));
    }

    std::string m_file;
    std::string m_name;
    std::string m_as;
    CString m_datum; // the name in the database
    CommonOptions m_common;
};

} // namespace

std::unique_ptr<Command> MakeDatumImport(CLI::App& datum)
{
    return std::make_unique<ImportAction>(
        datum.add_subcommand("import", "Add a datum transformation from a file to the user database"));
}
