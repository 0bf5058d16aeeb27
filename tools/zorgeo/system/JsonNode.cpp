#include "system/JsonNode.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "base/text/Numbers.h"
#include "system/JsonPointer.h"

namespace {

const nlohmann::ordered_json kNothing = nullptr;

} // namespace

JsonNode JsonNode::operator[](const char* key) const
{
    return {Has(key) ? (*m_value)[key] : kNothing, m_pointer + PointerTo(std::string(key)), *m_faults};
}

std::vector<JsonNode> JsonNode::Elements() const
{
    std::vector<JsonNode> elements;
    if (!m_value->is_array()) {
        Fault("an array [...] should stand here");
        return elements;
    }
    for (std::size_t i = 0; i < m_value->size(); ++i) {
        elements.emplace_back((*m_value)[i], m_pointer + PointerTo(i), *m_faults);
    }
    return elements;
}

bool JsonNode::IsObjectOf(std::initializer_list<const char*> known) const
{
    if (!m_value->is_object()) {
        Fault(fmt::format("an object {{...}} should stand here, with the keys {}", fmt::join(known, ", ")));
        return false;
    }
    for (const auto& [key, value] : m_value->items()) {
        if (std::find(known.begin(), known.end(), key) == known.end()) {
            m_faults->Add(m_pointer + PointerTo(key),
                          fmt::format("unknown key; the keys here are {}", fmt::join(known, ", ")));
        }
    }
    return true;
}

std::optional<std::string> JsonNode::Text() const
{
    if (!Given()) {
        return std::nullopt;
    }
    if (!m_value->is_string()) {
        Fault("a text in quotes should stand here");
        return std::nullopt;
    }
    return m_value->get<std::string>();
}

std::optional<double> JsonNode::Number(const NumberRange& range) const
{
    if (!Given()) {
        return std::nullopt;
    }
    if (!m_value->is_number()) {
        Fault(fmt::format("a number without quotes should stand here: {}", range.what));
        return std::nullopt;
    }
    const double value = m_value->get<double>();
    // Written so that NaN is a fault.
    if (!(value >= range.least && value <= range.most)) {
        Fault(fmt::format("{} is out of range; right is {}", numbers::ToText(value), range.what));
        return std::nullopt;
    }
    return value;
}

bool JsonNode::Complain(const std::string& what) const
{
    if (Given()) {
        return false;
    }
    Fault("missing or null; give " + what);
    return true;
}

std::optional<std::string> JsonNode::RequiredText(const char* what) const
{
    return Complain(what) ? std::nullopt : Text();
}

std::optional<double> JsonNode::RequiredNumber(const NumberRange& range) const
{
    return Complain(range.what) ? std::nullopt : Number(range);
}

std::optional<std::array<double, 3>> JsonNode::RequiredTriple(const char* unit) const
{
    const NumberRange range = AnyNumber("a finite number");
    if (Complain(fmt::format("{{\"x\": ..., \"y\": ..., \"z\": ..., \"unit\": \"{}\"}}", unit)) ||
        !IsObjectOf({"x", "y", "z", "unit"})) {
        return std::nullopt;
    }
    (*this)["unit"].MustBe(unit);
    const auto x = (*this)["x"].RequiredNumber(range);
    const auto y = (*this)["y"].RequiredNumber(range);
    const auto z = (*this)["z"].RequiredNumber(range);
    if (!x || !y || !z) {
        return std::nullopt;
    }
    return std::array<double, 3>{*x, *y, *z};
}

std::optional<double> JsonNode::RequiredMeasure(const NumberRange& range, const char* unit) const
{
    if (Complain(fmt::format("{{\"value\": ..., \"unit\": \"{}\"}}", unit)) || !IsObjectOf({"value", "unit"})) {
        return std::nullopt;
    }
    (*this)["unit"].MustBe(unit);
    return (*this)["value"].RequiredNumber(range);
}

void JsonNode::MustBe(const std::string& wanted) const
{
    if (const auto text = Text(); text && *text != wanted) {
        Fault(fmt::format("\"{}\" cannot stand here; right is \"{}\"", *text, wanted));
    }
}

NumberRange AnyNumber(const char* what)
{
    return {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max(), what};
}
