#pragma once

#include <charconv>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A section file as plain data, UTF-8, order kept. Reads and writes the text form told in
/// docs/section-files.md as far as no name or value needs an escape. Independent of FileObject on
/// purpose: expectations are not made with what they judge.
class SectionFile {
public:
    using Item = std::pair<std::string, std::string>;
    struct Section {
        std::string name;
        std::vector<Item> items;
        bool operator==(const Section&) const = default;
    };

    static SectionFile Parsed(std::string_view text)
    {
        SectionFile file;
        while (!text.empty()) {
            const std::size_t end = text.find('\n');
            const std::string_view line = text.substr(0, end);
            text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
            if (line.empty() || line.front() == ';') {
                continue;
            }
            if (line.front() == '[') {
                file.m_sections.push_back({std::string(line.substr(1, line.size() - 2)), {}});
                continue;
            }
            const std::size_t equals = line.find('=');
            file.m_sections.back().items.emplace_back(line.substr(0, equals), line.substr(equals + 1));
        }
        return file;
    }

    std::string Text() const
    {
        std::string text;
        for (const Section& section : m_sections) {
            text += (text.empty() ? "[" : "\n[") + section.name + "]\n";
            for (const Item& item : section.items) {
                text += item.first + "=" + item.second + "\n";
            }
        }
        return text;
    }

    const std::vector<Section>& Sections() const { return m_sections; }
    /// Null when there is no such section.
    const Section* Find(std::string_view name) const
    {
        for (const Section& section : m_sections) {
            if (section.name == name) {
                return &section;
            }
        }
        return nullptr;
    }
    bool Has(std::string_view section) const { return Find(section) != nullptr; }
    /// Null when the section or the key is missing.
    const std::string* Find(std::string_view section, std::string_view key) const
    {
        if (const Section* const found = Find(section)) {
            for (const Item& item : found->items) {
                if (item.first == key) {
                    return &item.second;
                }
            }
        }
        return nullptr;
    }

    /// The section, made at the end when it is missing.
    Section& Create(const std::string& name)
    {
        if (const Section* const found = Find(name)) {
            return const_cast<Section&>(*found);
        }
        return m_sections.emplace_back(Section{name, {}});
    }
    void Set(const std::string& section, const std::string& key, const std::string& value)
    {
        if (const std::string* const found = Find(section, key)) {
            const_cast<std::string&>(*found) = value;
        } else {
            Create(section).items.emplace_back(key, value);
        }
    }
    void Remove(std::string_view section)
    {
        std::erase_if(m_sections, [&](const Section& each) { return each.name == section; });
    }
    void Remove(const std::string& section, std::string_view key)
    {
        std::erase_if(Create(section).items, [&](const Item& item) { return item.first == key; });
    }

    bool operator==(const SectionFile&) const = default;

private:
    std::vector<Section> m_sections;
};

/// A double as files hold it: the shortest text that reads back to the same bits.
inline std::string NumberText(double value)
{
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

/// Nothing when `text` as a whole is no number.
template <typename Number>
std::optional<Number> NumberIn(const std::string& text)
{
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}
