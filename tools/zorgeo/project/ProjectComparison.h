#pragma once

#include <string>
#include <vector>

#include "Session.h"
#include "base/files/FileObject.h"

/// How a project and the database stand to each other in one value. A value that is missing counts
/// as what the module takes for it: 0, off, empty, a horizontal scale of 1.
enum class Verdict { agrees, differs, missingInDatabase, missingInProject };
const char* TextOf(Verdict verdict);

enum class ValueKind { text, number, flag };

/// One value on both sides, as the files have it; empty where it is missing.
struct ComparedValue {
    std::string label; ///< the key in the file, or the catalogue's label
    ValueKind kind = ValueKind::text;
    bool inProject = false;
    bool inDatabase = false;
    std::string project;
    std::string database;
    Verdict verdict = Verdict::agrees;
};

/// One part of a system.
struct ComparedPart {
    std::string part;     ///< "reference", "system", "projection", "datum transformation", "ellipsoid", "unit",
                          ///< "geoid", "corrections"
    std::string name;     ///< of the record, in the project
    std::string database; ///< which file answered: "user", "main", empty for none
    std::vector<ComparedValue> values;
};

/// A project's backup beside the records of the same names in the database; for a project without
/// a backup, the records that the reference's system names. Nothing is opened and nothing changed.
class ProjectComparison {
public:
    ProjectComparison(Session& session, const FileObject& project);

    const std::vector<ComparedPart>& Parts() const { return m_parts; }
    int Count(Verdict verdict) const;

private:
    /// Where one value stands; no file: nowhere.
    struct Side {
        const FileObject* file;
        CString section;
        CString key;
    };
    /// Numbers are compared exactly, a projection's within the module's tolerance.
    enum class Exactness { exact, projection };

    void Add(const char* label, ValueKind kind, const Side& project, const Side& database, double missing = 0.0,
             Exactness exactness = Exactness::exact);
    void Add(const CString& key, ValueKind kind, double missing = 0.0);
    /// Begins a part: its section in the project, and the first of the files that has its record.
    void Begin(const char* part, const CString& name, const CString& projectSection,
               const std::vector<const FileObject*>& files, const CString& databaseSection);
    CString NamedBy(const CString& key) const;
    bool IsOn(const CString& key) const;
    bool IsManualGeoid() const;

    void CompareReference();
    void CompareSystem();
    void CompareProjection();
    void CompareProjectionParameters();
    void CompareDatum();
    void CompareDatumEllipsoid(int nameKey, const CString& axisKey, const CString& eccKey);
    void CompareEllipsoid();
    void CompareUnit();
    void CompareGeoid();
    void CompareCorrections();

    Session& m_session;
    const FileObject& m_project;
    CString m_system;
    std::vector<ComparedPart> m_parts;
    // Of the part that is being compared.
    CString m_projectSection;
    const FileObject* m_file = nullptr;
    CString m_databaseSection;
};
