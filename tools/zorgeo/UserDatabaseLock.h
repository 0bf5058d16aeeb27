#pragma once

#include <chrono>

#include "base/text/CString.h"

/// The sole right, among the processes of this tool, to change the user database of a directory.
///
/// A change reads the user database and writes it whole, so two at once would lose one another's
/// additions. Who changes it holds this from before the reading until behind the writing. It is an
/// advisory lock on a file beside the database, which stays there; the system gives it back when
/// the process ends, however it ends. Readers need none: they find the old or the new file, whole.
class UserDatabaseLock {
public:
    static constexpr std::chrono::milliseconds kPatience{10000};

    /// Makes the directory and the file when they are missing and waits for another holder, up to
    /// `patience`. Throws ToolError (3) when that was not enough or the file cannot be made.
    explicit UserDatabaseLock(const CString& userDirectory, std::chrono::milliseconds patience = kPatience);
    ~UserDatabaseLock();
    UserDatabaseLock(const UserDatabaseLock&) = delete;
    UserDatabaseLock& operator=(const UserDatabaseLock&) = delete;

private:
    int m_file = -1;
};
