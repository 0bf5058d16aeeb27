#pragma once

#include <set>
#include <string>
#include <vector>

#include "RecordCheck.h"

/// One thing that a check of the database has to say.
struct Finding {
    std::string file;
    std::string section;
    std::string key;  ///< empty: the section as a whole
    std::string what; ///< names the key when there is one
    std::string remedy;

    /// "FILE: section "NAME": WHAT; REMEDY", on one line whatever the names hold.
    std::string Line(bool note) const;
};

/// What is wrong (faults), and what is allowed and worth knowing (notes), each once.
class Findings {
public:
    void Fault(const FileObject& file, const CString& section, const RecordFlaw& flaw);
    void Faults(const FileObject& file, const CString& section, const RecordFlaws& flaws);
    void Note(const FileObject& file, const CString& section, const RecordFlaw& note);

    const std::vector<Finding>& AllFaults() const { return m_faults; }
    const std::vector<Finding>& AllNotes() const { return m_notes; }
    /// Whether a section has a fault, in either file.
    bool IsFaulty(const CString& section) const;

private:
    bool IsNew(const Finding& finding);

    std::vector<Finding> m_faults;
    std::vector<Finding> m_notes;
    std::set<std::string> m_seen;
    std::set<std::string> m_faultySections;
};
