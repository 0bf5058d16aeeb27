#include "system/FaultList.h"

#include <fmt/format.h>

#include "ToolError.h"

void FaultList::Add(const std::string& place, const std::string& fault)
{
    m_faults.push_back(fmt::format("{}: {}: {}", m_file, place.empty() ? "the whole file" : place, fault));
}

void FaultList::ThrowIfAny() const
{
    if (m_faults.empty()) {
        return;
    }
    std::string message = fmt::format("{}: {} {}; nothing is written", m_file, m_faults.size(),
                                      m_faults.size() == 1 ? "fault" : "faults");
    for (const std::string& fault : m_faults) {
        message += "\n  " + fault;
    }
    throw ToolError(ExitStatus::unusable, message);
}
