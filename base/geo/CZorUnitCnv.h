#pragma once

#include <map>

#include "base/Export.h"
#include "base/text/CString.h"

/// The suite's converter into display units, one unit per category.
class ZORBASE_API CZorUnitCnv {
public:
    static constexpr int datumRotation = 28;

    /// Defines the display unit of `category`: shown = value * factor + offset. The texts are
    /// the category's name, the unit's name and its suffix. False, nothing changed, for a
    /// negative category, a factor that is 0 or not finite, or an offset that is not finite.
    bool SetUnit(int category, double factor, double offset, const CString& categoryName, const CString& unitName,
                 const CString& suffix);
    /// The value in the category's display unit; unchanged when no unit was set.
    double ConvertUnit(int category, double value) const;

private:
    struct Unit {
        double factor = 1.0;
        double offset = 0.0;
        CString categoryName;
        CString unitName;
        CString suffix;
    };
    std::map<int, Unit> m_units;
};

/// Door to the process's one unit converter.
class ZORBASE_API StaticFormats {
public:
    static CZorUnitCnv& GetUnitCnv();
};
