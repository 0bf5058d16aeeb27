#pragma once

#include <clocale>
#include <locale>
#include <string>

/// A locale of decimal commas and grouped digits, for a test's lifetime: what is written or read
/// meanwhile must not show it. The C library's locale changes too where one with a comma is
/// installed.
class CommaLocale {
public:
    CommaLocale()
        : m_earlier(std::locale::global(
              std::locale(std::locale(std::locale::classic(), new Commas<char>), new Commas<wchar_t>))),
          m_earlierOfC(std::setlocale(LC_ALL, nullptr))
    {
        for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "nl_NL.UTF-8", "German"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) {
                break;
            }
        }
    }
    ~CommaLocale()
    {
        std::locale::global(m_earlier);
        std::setlocale(LC_ALL, m_earlierOfC.c_str());
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    template <typename Character>
    struct Commas : std::numpunct<Character> {
        Character do_decimal_point() const override { return ','; }
        Character do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale m_earlier;
    std::string m_earlierOfC;
};
