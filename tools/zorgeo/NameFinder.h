#pragma once

#include <string>
#include <vector>

#include "Session.h"
#include "base/text/CString.h"

/// The places in `names` that `wanted` means: the exact names; else those equal without regard
/// to case; else those that contain it without regard to case. Empty when nothing fits.
std::vector<std::size_t> MatchName(const std::vector<CString>& names, const CString& wanted);

/// Whether `name` contains `part` without regard to case. Everything contains an empty part.
bool ContainsNoCase(const CString& name, const CString& part);

/// The one name that `wanted` means. Throws ToolError (2) listing the candidates when several
/// fit, or what there is when none does; `kind` is what to call it, "group" or "unit".
CString FindName(const std::vector<CString>& names, const std::string& wanted, const std::string& kind);

/// The systems that the user can mean, in one group or, when `group` is empty, in any: by name, as
/// MatchName reads it, or by "EPSG:28992", a code of the delivered table. A record that several
/// groups list is one, under the first of them; records of one name in the two databases are two.
/// Throws ToolError: 2 for a group that is unknown or ambiguous and for a code that the database
/// does not have, with the reason where the list of those left out has it; 3 when the table cannot
/// be read or names a system that the database lacks. Lines of the table with faults are told.
std::vector<SystemName> SystemsMeant(Session& session, const std::string& group, const std::string& system);

/// The one of SystemsMeant. Throws ToolError (2) also when there is none or, listing them, several.
SystemName FindSystem(Session& session, const std::string& group, const std::string& system);
