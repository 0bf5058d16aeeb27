#pragma once

#include <array>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "system/FaultList.h"

/// What a number may be, both ends included, and how to say so.
struct NumberRange {
    double least;
    double most;
    const char* what; ///< "a latitude in degrees, -90 to 90"
};

/// A value of a JSON file with its place in it. What it should be and is not becomes a fault there.
/// A missing member and null are the same: not given.
class JsonNode {
public:
    JsonNode(const nlohmann::ordered_json& value, std::string pointer, FaultList& faults)
        : m_value(&value), m_pointer(std::move(pointer)), m_faults(&faults)
    {
    }

    bool Given() const { return !m_value->is_null(); }
    bool Has(const char* key) const { return m_value->is_object() && m_value->contains(key); }
    /// A member; one that is not given when there is none or this is no object.
    JsonNode operator[](const char* key) const;
    /// The elements of an array. A fault, and none, when this is no array.
    std::vector<JsonNode> Elements() const;
    /// Whether this is an object. A fault for anything else, null too, and for each member whose
    /// key is not among `known`.
    bool IsObjectOf(std::initializer_list<const char*> known) const;

    /// The value, nothing when it is not given. A fault, and nothing, when it is no such value.
    std::optional<std::string> Text() const;
    std::optional<double> Number(const NumberRange& range) const;
    /// The same, and a fault when it is not given.
    std::optional<std::string> RequiredText(const char* what) const;
    std::optional<double> RequiredNumber(const NumberRange& range) const;
    /// {"x", "y", "z", "unit"}; the unit may be left out, and must be `unit` otherwise.
    std::optional<std::array<double, 3>> RequiredTriple(const char* unit) const;
    /// {"value", "unit"}, likewise.
    std::optional<double> RequiredMeasure(const NumberRange& range, const char* unit) const;
    /// A fault unless this is `wanted` or not given.
    void MustBe(const std::string& wanted) const;

    void Fault(const std::string& what) const { m_faults->Add(m_pointer, what); }
    /// Whether the value is not given, which is a fault: "give `what`".
    bool Complain(const std::string& what) const;

private:
    const nlohmann::ordered_json* m_value;
    std::string m_pointer;
    FaultList* m_faults;
};

/// Any finite number.
NumberRange AnyNumber(const char* what);
