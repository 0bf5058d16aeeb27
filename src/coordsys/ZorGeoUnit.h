#pragma once

#include "frame/BaseContract.h"

/// A linear unit as a record of "Units section" and a project's format number describe it.
class ZorGeoUnit {
public:
    ZorGeoUnit();
    ZorGeoUnit(const ZorGeoUnit&);
    ZorGeoUnit& operator=(const ZorGeoUnit&);
    virtual ~ZorGeoUnit();

    /// Takes over name, record text ("0.3048,ft") and format number. What the text does not hold,
    /// a factor or a suffix, keeps its earlier value. Cannot fail.
    void Set(const CString& unitName, const CString& recordText, short formatNumber);

    double factor = 1.0; ///< metres per unit
    CString mnemonic;    ///< suffix, "m"
    CString name;
    short format = 0; ///< number of the display format
    CString text;     ///< the record as it stands in the file
};
