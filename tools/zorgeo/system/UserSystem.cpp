#include "system/UserSystem.h"

#include <algorithm>

#include <fmt/format.h>

#include "ToolError.h"

SystemName FindUserSystem(Session& session, const std::string& group, const std::string& system)
{
    // A delivered one of the same name in another group is not meant.
    const std::vector<SystemName> meant = SystemsMeant(session, group, system);
    const bool oneName = !meant.empty() && std::all_of(meant.begin(), meant.end(), [&](const SystemName& other) {
        return other.system == meant.front().system;
    });
    const SystemName name = oneName ? meant.front() : FindSystem(session, group, system);
    if (session.Database().IsSystemCustom(name.group, name.system)) {
        return name;
    }
    if (group.empty()) {
        for (const CString& other : session.Groups()) {
            if (session.Database().IsSystemCustom(other, name.system)) {
                return {other, name.system};
            }
        }
    }
    throw ToolError(
        ExitStatus::usage,
        fmt::format("the system \"{}\" of the group \"{}\" is a delivered one, which stays as it is; store a "
                    "copy under another name: zorgeo show ... --as json, then zorgeo system add",
                    name.system.ToUtf8(), name.group.ToUtf8()));
}
