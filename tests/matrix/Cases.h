#pragma once

#include <string>
#include <vector>

#include "tests/matrix/Rules.h"

// The cases of the matrix: what stands in the files, how the system is opened, what the user
// answers.
namespace matrix {

/// A record of the backup's name in a database file.
enum class State { absent, equal, differs };
struct Places {
    State user = State::absent;
    State main = State::absent;
};

/// Where the system's group stands.
enum class Groups { withSystem, nowhere, everywhere };
/// How a system differs that does: in a value, or in the records it names.
enum class Difference { value, reference };
/// Which generation of sections the project's backup has. `both`: the older ones hold other values.
enum class Sections { current, older, both };
enum class Form { byName, open, openSilent };
enum class Answers {
    free,        ///< a name that is not taken
    takenFirst,  ///< the present name, two other taken ones, no name, then a free one
    takenAlways, ///< the same taken name again and again
    takenOfMain, ///< a name of the main file; nothing looks names up
    takenOfUser, ///< a name of the user file; nothing looks names up
    unchanged,   ///< the present name; nothing looks names up
    cancel,      ///< free names, then cancel at dialog `cancelAt`
};

/// A change of the files behind what the rest of a case says.
struct Tweak {
    const char* name;
    void (*apply)(rules::Machine&);
};

struct Case {
    Places projection, datum, system;
    Groups groups = Groups::withSystem;
    Difference difference = Difference::value;
    Sections sections = Sections::current;
    Form form = Form::byName;
    Answers answers = Answers::free;
    int cancelAt = 0;
    int projectionType = 0;
    std::string datumMethod = "Bursa/Wolfe(7 Parameters)";
    /// The database's transformation has a description.
    bool described = false;
    std::string unit = "none";
    const Tweak* tweak = nullptr;
    /// The second Init is of the same object, else of a new one.
    bool sameObject = false;
};

/// Letters, digits and underscores; no two cases have the same.
std::string NameOf(const Case& each);

/// The files of a case. The project is not open yet.
rules::Machine MachineOf(const Case& each);

/// The user of a case; `init` (1 or 2) keeps the free names of two runs apart.
rules::User UserOf(const Case& each, int init);
/// A user who finds a free name for everything.
rules::User WillingUser(int init);

rules::Call CallOf(const Case& each, const SectionFile& project);

/// Every combination of absent, equal and differs for the three records, in the user file, the main
/// file and both, with the user's answers, both forms of Init and both generations of backup.
std::vector<Case> EveryCombination();
/// The three records each in its own state in either file, a quarter of all.
std::vector<Case> EveryPlace();
/// Methods of datum transformations, types of projections, descriptions.
std::vector<Case> EveryKind();
/// Corrections, and projects and databases with something missing or out of the ordinary.
std::vector<Case> EveryTweak();

} // namespace matrix
