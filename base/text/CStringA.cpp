#include "base/text/CStringA.h"

#include <utility>

CStringA::CStringA(const char* text) : m_text(text == nullptr ? "" : text) {}

CStringA::CStringA(std::string text) noexcept : m_text(std::move(text)) {}

int CStringA::GetLength() const noexcept
{
    return static_cast<int>(m_text.size());
}

bool CStringA::IsEmpty() const noexcept
{
    return m_text.empty();
}

const char* CStringA::GetString() const noexcept
{
    return m_text.c_str();
}

std::string_view CStringA::View() const noexcept
{
    return m_text;
}

const std::string& CStringA::Std() const noexcept
{
    return m_text;
}
