#include "dbcheck/Findings.h"

#include <fmt/format.h>

namespace {

/// Names of records may hold anything, line ends too.
std::string OnOneLine(const std::string& text)
{
    std::string line;
    for (const char c : text) {
        const bool control = static_cast<unsigned char>(c) < 0x20;
        line += control ? fmt::format("\\x{:02x}", static_cast<unsigned>(c)) : std::string(1, c);
    }
    return line;
}

Finding Of(const FileObject& file, const CString& section, const RecordFlaw& flaw)
{
    return {file.GetFileName().ToUtf8(), section.ToUtf8(), flaw.key.ToUtf8(), flaw.what, flaw.remedy};
}

} // namespace

std::string Finding::Line(bool note) const
{
    return OnOneLine(fmt::format("{}: section \"{}\": {}{}{}{}", file, section, note ? "note: " : "", what,
                                 remedy.empty() ? "" : "; ", remedy));
}

void Findings::Fault(const FileObject& file, const CString& section, const RecordFlaw& flaw)
{
    if (const Finding finding = Of(file, section, flaw); IsNew(finding)) {
        m_faults.push_back(finding);
        m_faultySections.insert(finding.section);
    }
}

void Findings::Faults(const FileObject& file, const CString& section, const RecordFlaws& flaws)
{
    for (const RecordFlaw& flaw : flaws) {
        Fault(file, section, flaw);
    }
}

void Findings::Note(const FileObject& file, const CString& section, const RecordFlaw& note)
{
    if (const Finding finding = Of(file, section, note); IsNew(finding)) {
        m_notes.push_back(finding);
    }
}

bool Findings::IsFaulty(const CString& section) const
{
    return m_faultySections.contains(section.ToUtf8());
}

bool Findings::IsNew(const Finding& finding)
{
    return m_seen.insert(fmt::format("{}\n{}\n{}\n{}", finding.file, finding.section, finding.key, finding.what))
        .second;
}
