#include "KnownDifferences.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

KnownDifferences::KnownDifferences()
{
    std::ifstream stream(ZORGEO_DATA_DIR "known-differences.tsv");
    if (!stream) {
        throw std::runtime_error("known-differences.tsv cannot be read");
    }
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line.front() == '#') {
            continue;
        }
        std::istringstream fields(line);
        int code = 0;
        double size = 0.0;
        std::string way;
        std::string cause;
        if (!(fields >> code >> way >> size) || !std::getline(fields >> std::ws, cause) || cause.empty()) {
            throw std::runtime_error("known-differences.tsv: " + line);
        }
        m_stated[{code, way}] = size;
    }
}

double KnownDifferences::Stated(int code, const std::string& way) const
{
    const auto found = m_stated.find({code, way});
    return found == m_stated.end() ? 0.0 : found->second;
}

bool KnownDifferences::Has(int code) const
{
    const auto next = m_stated.lower_bound({code, ""});
    return next != m_stated.end() && next->first.first == code;
}
