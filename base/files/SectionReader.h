#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/files/SectionContents.h"
#include "base/text/CString.h"

/// What is wrong with a text that is no section file.
struct TextFault {
    int line = 0; ///< counted from 1
    CString reason;
};

/// Reads the text form of a section file, which docs/section-files.md tells.
class SectionReader {
public:
    explicit SectionReader(std::shared_ptr<const std::string> text);

    /// False, `contents` untouched, when the text is no section file.
    bool Read(SectionContents& contents, TextFault& fault);

private:
    bool ReadLine(std::string_view line);
    bool ReadSection(std::string_view line);
    bool ReadEntry(std::string_view line);
    bool CheckCharacters(std::string_view line);
    bool Unescape(std::string_view raw, StoredText& text);
    bool UnescapeOne(std::string_view& raw, std::string& text);
    void EndSection();
    bool Fail(CString reason);

    std::shared_ptr<const std::string> m_text;
    SectionContents m_contents;
    // The section that is being read, and where it and its keys stand.
    Section m_section;
    bool m_inSection = false;
    std::vector<int> m_keyLines;
    std::vector<int> m_sectionLines;
    int m_line = 0;
    TextFault m_fault;
};
