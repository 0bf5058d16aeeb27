#pragma once

#include <map>
#include <string>
#include <utility>

/// The committed list of differences that are known: where the formulas of a system are off in its
/// area of use by more than a millimetre, or in its convergence by a hundredth of a degree. Its sizes stand in the
/// systems' descriptions.
class KnownDifferences {
public:
    /// Throws when the file cannot be read or an entry has no size or no cause.
    KnownDifferences();

    /// What is stated for `way` ("forward", "inverse", "road": metres; "convergence": degrees) of a
    /// system; 0 for none.
    double Stated(int code, const std::string& way) const;
    bool Has(int code) const;

private:
    std::map<std::pair<int, std::string>, double> m_stated;
};
