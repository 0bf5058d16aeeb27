#include "base/geo/CExTime.h"

#include <gtest/gtest.h>

#include <ctime>

TEST(CExTime, IsTheSystemTimeInMilliseconds)
{
    const double before = static_cast<double>(std::time(nullptr)) * 1000.0;
    const double now = CExTime::GetCurTime();
    const double after = static_cast<double>(std::time(nullptr)) * 1000.0;
    // time() counts whole seconds.
    EXPECT_GE(now, before - 1000.0);
    EXPECT_LE(now, after + 1000.0);
}

TEST(CExTime, RunsOnAnInstalledSourceUntilItIsTakenOut)
{
    CExTime::SetSource([] { return 1704067200000.0; }); // 2024 January 1, 0 h
    EXPECT_EQ(CExTime::GetCurTime(), 1704067200000.0);
    CExTime::SetSource(nullptr);
    EXPECT_NE(CExTime::GetCurTime(), 1704067200000.0);
}
