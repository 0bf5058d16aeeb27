#include "project/NamingDesk.h"

#include <algorithm>

#include <fmt/format.h>

#include "Output.h"
#include "platform/Platform.h"

namespace {

/// One line of standard input without its end and without blanks around it. False at the end of
/// the input.
bool ReadLine(std::string& line)
{
    line.clear();
    char character = '\0';
    while (host::Read(host::kStdin, &character, 1) == 1) {
        if (character == '\n') {
            const auto begin = line.find_first_not_of(" \t\r");
            const auto end = line.find_last_not_of(" \t\r");
            line = begin == std::string::npos ? std::string() : line.substr(begin, end - begin + 1);
            return true;
        }
        line += character;
    }
    return false;
}

} // namespace

const char* TextOf(NameKind kind)
{
    switch (kind) {
    case NameKind::projection:
        return "projection";
    case NameKind::datumTransformation:
        return "datum transformation";
    case NameKind::system:
        break;
    }
    return "system";
}

void NamingDesk::ShowMessage(const CString& text, MessageIcon icon)
{
    if (!m_quiet) {
        ToolDesk::ShowMessage(text, icon);
    }
}

bool NamingDesk::AskName(NameKind kind, const CString&, CString& name)
{
    const CString suggestion = FirstFree(kind, name);
    const std::string conflict = fmt::format("the project's {} \"{}\" differs from the record of that name in the "
                                             "database",
                                             TextOf(kind), name.ToUtf8());
    CString answer = suggestion;
    if (m_policy == OnConflict::ask && host::IsTerminal(host::kStdin) && host::IsTerminal(host::kStderr)) {
        Remark(conflict);
        if (!AskOnTerminal(kind, name, suggestion, answer)) {
            m_refusal = fmt::format("{}, and no other name was given; nothing was changed", conflict);
            return false;
        }
    } else if (m_policy != OnConflict::suffix) {
        m_refusal = fmt::format("{}, and nobody can be asked for another; nothing was changed. Give --on-conflict "
                                "suffix, which makes it \"{}\", or run it on a terminal with --on-conflict ask",
                                conflict, suggestion.ToUtf8());
        return false;
    } else if (!m_quiet) {
        Remark(fmt::format("{}; the project's is now \"{}\"", conflict, answer.ToUtf8()));
    }
    m_renamed.push_back({kind, name, answer});
    name = answer;
    return true;
}

bool NamingDesk::IsFree(NameKind kind, const CString& name)
{
    ZorGeoDatabaseBase& database = m_session.Database();
    database.Init(); // the module may have written a moment ago
    switch (kind) {
    case NameKind::projection:
        return !database.HasProjection(name, GeoDbBoth);
    case NameKind::datumTransformation:
        return !database.HasDtf(name, GeoDbBoth);
    case NameKind::system:
        break;
    }
    return !database.HasSystem(name, GeoDbBoth);
}

CString NamingDesk::FirstFree(NameKind kind, const CString& name)
{
    // A name that was given here is counted on, not given a suffix of its own.
    const auto own = std::find_if(m_renamed.begin(), m_renamed.end(),
                                  [&](const Renaming& row) { return row.kind == kind && row.to == name; });
    const CString base = own == m_renamed.end() ? name : own->from;
    for (int number = 2;; ++number) {
        const CString candidate = base + CString::FromUtf8(fmt::format(" ({})", number));
        if (IsFree(kind, candidate)) {
            return candidate;
        }
    }
}

bool NamingDesk::AskOnTerminal(NameKind kind, const CString& taken, const CString& suggestion, CString& answer)
{
    for (std::string line;;) {
        WriteToStderr(fmt::format("New name for the project's {} \"{}\", for example \"{}\": ", TextOf(kind),
                                  taken.ToUtf8(), suggestion.ToUtf8()));
        if (!ReadLine(line)) {
            WriteToStderr("\n");
            return false;
        }
        answer = CString::FromUtf8(line);
        if (answer.IsEmpty()) {
            Remark("a name is needed; the end of the input (Ctrl-D) leaves everything as it is");
        } else if (answer.ToUtf8() != line) {
            Remark("this is no UTF-8 text");
        } else if (!IsFree(kind, answer)) {
            Remark(fmt::format("the name \"{}\" is taken as well", line));
        } else {
            return true;
        }
    }
}
