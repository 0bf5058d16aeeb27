#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/desk/Desk.h"
#include "tests/matrix/SectionFile.h"

// The rules by which a project's backup and the database come together, told over plain maps of
// section and key, with nothing of the module in them. They predict what an Init returns, asks,
// writes and leaves.
namespace rules {

/// The files that a coordinate system meets.
struct Machine {
    SectionFile catalogue;
    SectionFile main;
    SectionFile user;
    SectionFile project; ///< as it stands on disk
    SectionFile open;    ///< the same in memory, where a host that opened it holds it
    /// Whether the name dialog finds a database in which to look names up.
    bool dialogKnowsDatabase = true;
};

/// What one coordinate system object carries from step to step and from Init to Init. Numbers are
/// kept as the texts that files hold.
struct Object {
    std::string group, system, datum, projection, projectionMethod, ellipsoid, unit;
    bool geoidUsed = false, postUsed = false, horizontalUsed = false, verticalUsed = false;
    std::string geoidMethod, geoidGrid, geoidManual = "0", postFile, postModel;
    std::array<std::string, 3> post = {"0", "0", "0"};
    std::array<std::string, 4> horizontal = {"0", "0", "0", "0"};
    std::array<std::string, 4> vertical = {"0", "0", "0", "0"};
    bool isInit = false;
    bool silent = false;
};

struct Call {
    bool byName = true; ///< the project is given by its file name, else as an open file
    bool silent = false;
    std::string group, system;
    std::string unit = "none";
};

/// A question of the name dialog.
struct Question {
    NameKind kind;
    std::string presentName;
    int dialog;  ///< counted from 1 within an Init
    int attempt; ///< counted from 1 within a dialog
};
/// The user: a name, or nothing to cancel.
using User = std::function<std::optional<std::string>(const Question&)>;

struct Asked {
    Question question;
    std::optional<std::string> answer;
};

struct Outcome {
    bool result = false;
    std::vector<Asked> asked;
    std::vector<std::string> messages;
    bool projectSaved = false;
    bool userSaved = false;

    int Dialogs() const { return asked.empty() ? 0 : asked.back().question.dialog; }
    bool Quiet() const { return asked.empty() && messages.empty() && !projectSaved && !userSaved; }
};

/// What Init does to `machine` and `object`.
Outcome Init(Machine& machine, Object& object, const Call& call, const User& user);

} // namespace rules
