#include "dbcheck/ListCheck.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>

#include "DatabaseText.h"
#include "dbcheck/RecordKinds.h"
#include "dbcheck/Walk.h"

namespace {

class ListChecker {
public:
    ListChecker(const DatabaseFiles& files, Findings& findings) : m_files(files), m_findings(findings) {}

    void Run()
    {
        for (const FileObject* file : {&m_files.Main(), &m_files.User()}) {
            for (const RecordKind& kind : RecordKinds()) {
                if (!kind.index.IsEmpty()) {
                    CheckList(*file, kind.index, kind);
                    CheckCount(*file, kind.index, kGeneralSection, kind.count, kind.noun);
                }
            }
            ForEachSection(*file, [&](const CString& section) { CheckGroup(*file, section); });
        }
        for (const FileObject* file : {&m_files.Main(), &m_files.User()}) {
            ForEachSection(*file, [&](const CString& section) { CheckListed(*file, section); });
        }
    }

private:
    const FileObject& Other(const FileObject& file) const
    {
        return &file == &m_files.Main() ? m_files.User() : m_files.Main();
    }

    static std::string Line(const CString& key, const CString& value)
    {
        return fmt::format("line {} lists \"{}\"", key.ToUtf8(), value.ToUtf8());
    }

    /// Walks the lines of a list; `check(key, name)` looks for the record of a name.
    template <typename Check>
    void WalkLines(const FileObject& file, const CString& section, Check check)
    {
        std::set<CString> seen;
        ForEachEntry(file, section, [&](const CString& key, const CString& name) {
            if (IsGroupSetting(key)) {
                return;
            }
            if (name.IsEmpty()) {
                m_findings.Note(file, section,
                                {key, fmt::format("line {} lists nothing", key.ToUtf8()), "it can be taken out"});
            } else if (!seen.insert(name).second) {
                m_findings.Note(file, section, {key, Line(key, name) + " once more", "it can be taken out"});
            } else {
                check(key, name);
            }
        });
    }

    void CheckList(const FileObject& file, const CString& section, const RecordKind& kind)
    {
        WalkLines(file, section, [&](const CString& key, const CString& name) {
            const CString record = kind.prefix + name;
            m_listed.insert(record);
            if (file.HasSection(record)) {
                return;
            }
            if (Other(file).HasSection(record)) {
                m_findings.Note(file, section,
                                {key, Line(key, name) + ", whose record is in the other file", "it can be taken out"});
                return;
            }
            m_findings.Fault(file, section,
                             {key, fmt::format("{}, and there is no section \"{}\"", Line(key, name), record.ToUtf8()),
                              fmt::format("add the {}, or take the line out", kind.noun)});
        });
    }

    /// A system is initialised from a file that has its record and a group that is asked for.
    void CheckGroup(const FileObject& file, const CString& section)
    {
        if (section.Left(kGroupPrefix.GetLength()) != kGroupPrefix) {
            return;
        }
        WalkLines(file, section, [&](const CString& key, const CString& name) {
            const CString record = kSystemPrefix + name;
            m_listed.insert(record);
            if (file.HasSection(record) || (Other(file).HasSection(record) && Other(file).HasSection(section))) {
                return;
            }
            const bool elsewhere = Other(file).HasSection(record);
            m_findings.Fault(file, section,
                             {key,
                              fmt::format("{}, and there is no section \"{}\"{}", Line(key, name), record.ToUtf8(),
                                          elsewhere ? " in this file; the other file has it and not the group" : ""),
                              "add the system, or take the line out"});
        });
        CheckCount(file, section, section, kSystemCount, "system");
    }

    /// Counts are never lowered, so one above the highest key is right. One below means that the
    /// next line takes over an old one: allowed, since a delivered group that gets its first system
    /// of the user is listed without being counted.
    void CheckCount(const FileObject& file, const CString& section, const CString& countSection,
                    const CString& countKey, const char* noun)
    {
        int count = 0;
        const bool has = file.GetItem(countSection, countKey, count);
        long long highest = 0;
        ForEachEntry(file, section, [&](const CString& key, const CString&) {
            highest = std::max(highest, SerialOf(key).value_or(0));
        });
        // Nothing is ever added to the main file; there a count that is missing is none too few.
        if (count >= highest || (!has && &file == &m_files.Main())) {
            return;
        }
        CString taken;
        const std::string next = std::to_string(static_cast<long long>(count) + 1);
        const bool takes = file.GetItem(section, CString::FromUtf8(next), taken);
        m_findings.Note(
            file, countSection,
            {countKey,
             fmt::format("key \"{}\" is {}, and section \"{}\" has a line {}{}", countKey.ToUtf8(), count,
                         section.ToUtf8(), highest,
                         takes ? fmt::format(": the next {} takes over line {}, \"{}\"", noun, next, taken.ToUtf8())
                               : std::string()),
             fmt::format("right is {} or more", highest)});
    }

    void CheckListed(const FileObject& file, const CString& section)
    {
        const RecordKind* const kind = KindOf(section);
        if (kind == nullptr || m_listed.contains(section)) {
            return;
        }
        if (kind->index.IsEmpty()) {
            m_findings.Note(file, section,
                            {{},
                             "the system is in no group: one that was removed leaves its systems behind",
                             "list it in a group, or take the record out"});
        } else if (kind->prefix != kEllipsoidPrefix || &file == &m_files.Main()) {
            // Ellipsoids that came with a user's system are never listed.
            m_findings.Fault(file, section,
                             {{},
                              fmt::format("the {} has no line in section \"{}\"", kind->noun, kind->index.ToUtf8()),
                              "add a line, or take the record out"});
        }
    }

    const DatabaseFiles& m_files;
    Findings& m_findings;
    std::set<CString> m_listed; // sections of records that a list of either file names
};

} // namespace

void CheckLists(const DatabaseFiles& files, Findings& findings)
{
    ListChecker(files, findings).Run();
}
