#include "datum/DatumMethod.h"

#include <gtest/gtest.h>

TEST(DatumMethod, NamesAreComparedExactly)
{
    struct Row {
        const wchar_t* name;
        int number;
        bool hasRates;
        double rotationSign; ///< 0 for no method
    };
    const Row rows[] = {{L"Bursa/Wolfe(7 Parameters)", 1, false, 1.0},
                        {L"Helmert(7 Parameters)", 2, false, -1.0},
                        {L"Bursa/Wolfe(14 Parameters)", 3, true, 1.0},
                        {L"Helmert(14 Parameters)", 4, true, -1.0},
                        {L"No Transformation", 0, false, 0.0},
                        {L"helmert(14 parameters)", 0, false, 0.0},
                        {L"Helmert(14 Parameters) - Coordinate frame rotation", 0, false, 0.0},
                        {L"", 0, false, 0.0}};
    for (const Row& row : rows) {
        const CString name = row.name;
        EXPECT_EQ(DatumMethodNumber(name), row.number) << name.ToUtf8();
        EXPECT_EQ(HasRates(name), row.hasRates) << name.ToUtf8();
        const DatumMethod* const method = FindDatumMethod(name);
        ASSERT_EQ(method != nullptr, row.number != 0) << name.ToUtf8();
        if (method) {
            EXPECT_EQ(method->name, name);
            EXPECT_EQ(method->hasRates, row.hasRates) << name.ToUtf8();
            EXPECT_EQ(method->rotationSign, row.rotationSign) << name.ToUtf8();
        }
    }
}
