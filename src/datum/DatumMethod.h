#pragma once

#include "frame/RecordNames.h"

/// A method of datum transformations that has parameters: 7, or 14 with their yearly rates.
struct DatumMethod {
    const CString& name; ///< in records; compared exactly
    bool hasRates;
    /// The sign of a rotation as the method's publications state it, per stored one: records hold
    /// position vector rotations whatever the method.
    double rotationSign;
};

/// By method number less one; number 0 is a transformation without parameters.
inline constexpr DatumMethod kDatumMethods[] = {{kMethodBursaWolfe7, false, 1.0},
                                                {kMethodHelmert7, false, -1.0},
                                                {kMethodBursaWolfe14, true, 1.0},
                                                {kMethodHelmert14, true, -1.0}};

/// The method numbers up to this one have seven parameters, those beyond fourteen.
inline constexpr int kLastOfSevenParameters = 2;
static_assert(!kDatumMethods[kLastOfSevenParameters - 1].hasRates && kDatumMethods[kLastOfSevenParameters].hasRates);

/// Number of the method of that name; 0 for a name that is none of them.
inline int DatumMethodNumber(const CString& name)
{
    int number = 1;
    for (const DatumMethod& method : kDatumMethods) {
        if (method.name == name) {
            return number;
        }
        ++number;
    }
    return 0;
}

/// Null for a name that is none of them.
inline const DatumMethod* FindDatumMethod(const CString& name)
{
    const int number = DatumMethodNumber(name);
    return number == 0 ? nullptr : &kDatumMethods[number - 1];
}

/// Whether `name` is that of a method of 14 parameters.
inline bool HasRates(const CString& name)
{
    return DatumMethodNumber(name) > kLastOfSevenParameters;
}
