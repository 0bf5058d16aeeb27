#include "system/JsonFile.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>
#include <vector>

#include <fmt/format.h>

#include "ToolError.h"
#include "platform/Platform.h"
#include "system/JsonPointer.h"

namespace {

using Json = nlohmann::ordered_json;

/// Walks over the text as the parser does, to see what the parsed value no longer shows: keys that
/// stand twice, and where the text ends to be JSON.
class TextCheck : public nlohmann::json_sax<Json> {
public:
    TextCheck(const std::string& text, FaultList& faults) : m_text(text), m_faults(faults) {}

    bool null() override { return Value(); }
    bool boolean(bool) override { return Value(); }
    bool number_integer(number_integer_t) override { return Value(); }
    bool number_unsigned(number_unsigned_t) override { return Value(); }
    bool number_float(number_float_t, const string_t&) override { return Value(); }
    bool string(string_t&) override { return Value(); }
    bool binary(binary_t&) override { return Value(); }

    bool start_object(std::size_t) override { return Open(false); }
    bool start_array(std::size_t) override { return Open(true); }
    bool end_object() override { return Close(); }
    bool end_array() override { return Close(); }

    bool key(string_t& name) override
    {
        Level& level = m_levels.back();
        level.key = name;
        if (!level.keys.insert(name).second) {
            m_faults.Add(Pointer(), "the key stands twice; leave one");
        }
        return true;
    }

    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception& error) override
    {
        const std::size_t at = std::min(position > 0 ? position - 1 : 0, m_text.size());
        const std::size_t lineBegin = at == 0 ? 0 : m_text.rfind('\n', at - 1) + 1; // npos + 1 is 0
        const auto line = 1 + std::count(m_text.begin(), m_text.begin() + static_cast<std::ptrdiff_t>(at), '\n');
        m_faults.Add(fmt::format("line {}, column {}", line, at - lineBegin + 1),
                     fmt::format("this is no JSON: {}", Reason(error.what())));
        return false;
    }

private:
    struct Level {
        bool array = false;
        std::size_t index = 0;
        std::string key;
        std::set<std::string> keys;
    };

    /// The library's message without its own prefix and place.
    static std::string Reason(std::string message)
    {
        for (const char* mark : {"] ", "column "}) {
            if (const auto found = message.find(mark); found != std::string::npos) {
                message.erase(0, found + std::string(mark).size());
            }
        }
        const auto colon = message.find(": ");
        const bool place = colon != std::string::npos && message.find_first_not_of("0123456789") == colon;
        return place ? message.substr(colon + 2) : message;
    }

    bool Value()
    {
        if (!m_levels.empty() && m_levels.back().array) {
            ++m_levels.back().index;
        }
        return true;
    }
    bool Open(bool array)
    {
        m_levels.push_back({array, 0, {}, {}});
        return true;
    }
    bool Close()
    {
        m_levels.pop_back();
        return Value();
    }
    std::string Pointer() const
    {
        std::string pointer;
        for (const Level& level : m_levels) {
            pointer += level.array ? PointerTo(level.index) : PointerTo(level.key);
        }
        return pointer;
    }

    const std::string& m_text;
    FaultList& m_faults;
    std::vector<Level> m_levels;
};

} // namespace

std::string ReadWholeFile(const std::string& path)
{
    std::ostringstream text;
    if (path == "-") {
        text << std::cin.rdbuf();
        return text.str();
    }
    errno = 0;
    std::ifstream in(host::PathOf(path), std::ios::binary);
    text << in.rdbuf();
    if (!in.is_open() || in.bad()) {
        throw ToolError(ExitStatus::inputOutput, fmt::format("{}: {}", path, host::ErrorText(errno)));
    }
    return text.str();
}

Json ParseJson(const std::string& text, FaultList& faults)
{
    TextCheck check(text, faults);
    if (!Json::sax_parse(text, &check)) {
        return nullptr;
    }
    return Json::parse(text, nullptr, false);
}
