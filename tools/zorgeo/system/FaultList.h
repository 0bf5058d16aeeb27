#pragma once

#include <string>
#include <vector>

/// What is wrong with one file, all of it, so that one run tells everything.
class FaultList {
public:
    explicit FaultList(std::string file) : m_file(std::move(file)) {}

    /// `place` is a JSON pointer (empty: the whole file) or a line; `fault` says what is wrong and
    /// what would be right.
    void Add(const std::string& place, const std::string& fault);
    bool Empty() const { return m_faults.empty(); }
    /// Throws ToolError (3) with every fault; nothing when there is none.
    void ThrowIfAny() const;

private:
    std::string m_file;
    std::vector<std::string> m_faults;
};
