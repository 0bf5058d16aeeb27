#pragma once

#include "Session.h"
#include "base/files/FileObject.h"
#include "project/NamingDesk.h"

/// Opens a project as an application of the suite does: the module compares its backup with the
/// database, brings in what the database lacks, and has `desk` name anew what differs. Project and
/// user database then hold the same system, which is the result.
///
/// Throws ToolError: 3 when reference, backup or a record of the database cannot be used, 5 when a
/// name was not given. What is then left of the work is not to be published.
SystemName Reconcile(Session& session, FileObject& project, NamingDesk& desk);
