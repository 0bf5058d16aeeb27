#include "system/Reading.h"

#include <algorithm>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "base/text/Numbers.h"
#include "system/KnownRecords.h"

std::optional<std::string> Reading::PlainName(const JsonNode& node)
{
    auto name = node.RequiredText("a name");
    if (!name) {
        return std::nullopt;
    }
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    const auto control = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    if (name->empty()) {
        node.Fault("the name is empty; give one");
    } else if (std::any_of(name->begin(), name->end(), control)) {
        node.Fault("the name holds a line end, a tab or another control character; use letters, digits, blanks and "
                   "signs");
    } else if (blank(name->front()) || blank(name->back())) {
        node.Fault(fmt::format("the name \"{}\" has blanks at an end; take them off", *name));
    } else {
        return name;
    }
    return std::nullopt;
}

std::optional<std::string> Reading::Name(const JsonNode& node, const CString& prefix) const
{
    auto name = PlainName(node);
    if (!name) {
        return std::nullopt;
    }
    if (!HasRecord(session.Files(), prefix, *name)) {
        if (const auto other = NameInOtherCase(session.Files(), prefix, *name)) {
            node.Fault(fmt::format("\"{}\" differs from the known \"{}\" in capitals alone; take that one, or a name "
                                   "of its own",
                                   *name, *other));
            return std::nullopt;
        }
    }
    return name;
}

std::string Differs(const std::string& what, double there)
{
    return fmt::format("{} is {} there", what, numbers::ToText(there));
}

std::string Differs(const std::string& what, const std::string& there)
{
    return fmt::format("{} is \"{}\" there", what, there);
}

void TakenFault(const JsonNode& node, const std::string& kind, const std::string& name, const std::string& file,
                const std::vector<std::string>& differences)
{
    node.Fault(fmt::format("the name \"{}\" is taken by another {} of {}: {}; give the new one another name, or that "
                           "content",
                           name, kind, file, fmt::join(differences, ", ")));
}
