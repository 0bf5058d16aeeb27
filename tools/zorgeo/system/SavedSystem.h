#pragma once

#include <string>

#include "Session.h"
#include "base/files/FileObject.h"
#include "system/NewSystem.h"

/// The user database as it stands, to be put back when a change of it turns out wrong.
class UserDatabaseCopy {
public:
    explicit UserDatabaseCopy(const Session& session);
    /// Writes nothing when the file is as it was. False when it could not be written.
    bool PutBack() const;

private:
    FileObject m_file;
    std::string m_text; ///< the file's bytes
};

/// Saves the system in the user database and looks whether it arrived: the files are read afresh,
/// the record is compared with them in every part, and the system is initialised and converts
/// there and back. The module's own answer does not tell a save that failed.
///
/// Throws ToolError with the user database as it was: 4 when the record is not there as it should
/// be, 3 when the system cannot be initialised or converts to no numbers.
void SaveAndVerify(Session& session, const NewSystem& system);
