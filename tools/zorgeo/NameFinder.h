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

/// The one system that the user means, in one group or, when `group` is empty, in any. A system
/// that several groups list is one record; the first group then stands for it. Throws ToolError
/// (2) listing the candidates.
SystemName FindSystem(Session& session, const std::string& group, const std::string& system);
