#include "base/text/CArray.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <stdexcept>
#include <vector>

namespace {

using Doubles = CArray<double, double>;

Doubles Of(std::initializer_list<double> items)
{
    Doubles array;
    for (const double item : items) {
        array.Add(item);
    }
    return array;
}

std::vector<double> Content(const Doubles& array)
{
    return {array.begin(), array.end()};
}

TEST(CArray, BeginsEmpty)
{
    const Doubles array;
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.GetCount(), 0);
    EXPECT_EQ(array.GetUpperBound(), -1);
}

TEST(CArray, AddTellsThePosition)
{
    Doubles array;
    EXPECT_EQ(array.Add(1.5), 0);
    EXPECT_EQ(array.Add(2.5), 1);
    EXPECT_EQ(array[1], 2.5);
    array[1] = 3.5;
    EXPECT_EQ(array.GetAt(1), 3.5);
    array.SetAt(0, 4.5);
    EXPECT_EQ(Content(array), (std::vector<double>{4.5, 3.5}));
}

TEST(CArray, NewElementsAreZero)
{
    Doubles array = Of({1});
    array.SetSize(3);
    EXPECT_EQ(Content(array), (std::vector<double>{1, 0, 0}));
    array.SetSize(1);
    EXPECT_EQ(Content(array), (std::vector<double>{1}));
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CArray, GrowsWhereItIsAskedTo)
{
    Doubles array = Of({1});
    array.SetAtGrow(3, 4);
    EXPECT_EQ(Content(array), (std::vector<double>{1, 0, 0, 4}));
    array.SetAtGrow(0, 9);
    array.InsertAt(1, 8);
    EXPECT_EQ(Content(array), (std::vector<double>{9, 8, 0, 0, 4}));
    array.InsertAt(6, 7);
    EXPECT_EQ(Content(array), (std::vector<double>{9, 8, 0, 0, 4, 0, 7}));
}

TEST(CArray, RemovesARange)
{
    Doubles array = Of({0, 1, 2, 3, 4});
    array.RemoveAt(0);
    array.RemoveAt(1, 2);
    EXPECT_EQ(Content(array), (std::vector<double>{1, 4}));
    array.RemoveAt(0, 0);
    EXPECT_EQ(array.GetSize(), 2);
}

TEST(CArray, AppendsAndCopies)
{
    Doubles array = Of({1, 2});
    EXPECT_EQ(array.Append(Of({3})), 2);
    EXPECT_EQ(array.Append(array), 3);
    EXPECT_EQ(Content(array), (std::vector<double>{1, 2, 3, 1, 2, 3}));
    Doubles copy = Of({7});
    copy.Copy(array);
    array[0] = 9;
    EXPECT_EQ(copy[0], 1);
}

TEST(CArray, RefusesABadIndexAndStays)
{
    constexpr int most = std::numeric_limits<int>::max();

    Doubles array = Of({1, 2});
    for (const int index : {-1, 2, 1000, most, -most}) {
        EXPECT_THROW(array.GetAt(index), std::invalid_argument) << index;
        EXPECT_THROW(array[index], std::invalid_argument) << index;
        EXPECT_THROW(array.SetAt(index, 0), std::invalid_argument) << index;
        EXPECT_THROW(array.RemoveAt(index), std::invalid_argument) << index;
    }
    EXPECT_THROW(array.RemoveAt(0, 3), std::invalid_argument);
    EXPECT_THROW(array.RemoveAt(1, most), std::invalid_argument);
    EXPECT_THROW(array.RemoveAt(0, -1), std::invalid_argument);
    EXPECT_THROW(array.RemoveAt(1, -1), std::invalid_argument);
    EXPECT_THROW(array.SetSize(-1), std::invalid_argument);
    EXPECT_THROW(array.SetAtGrow(-1, 0), std::invalid_argument);
    EXPECT_THROW(array.InsertAt(-1, 0), std::invalid_argument);
    EXPECT_EQ(Content(array), (std::vector<double>{1, 2}));
}

TEST(CArray, HoldsUnsignedNumbers)
{
    CArray<UINT, UINT> kinds;
    kinds.Add(4000000000U);
    EXPECT_EQ(kinds[0], 4000000000U);
}

} // namespace
