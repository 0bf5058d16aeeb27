// Every system of the delivered database against PROJ's own reading of its EPSG code.

#include "WorldFixture.h"

namespace {

constexpr int kShares = 16; // so that several processors share the work

class WorldDatabase : public WorldFixture, public ::testing::TestWithParam<int> {};

} // namespace

TEST_P(WorldDatabase, AgreesWithTheEpsgCodes)
{
    const std::vector<WorldSystem> systems = ReadWorldSystems();
    ASSERT_GE(systems.size(), 4900U);
    int checked = 0;
    for (std::size_t i = static_cast<std::size_t>(GetParam()); i < systems.size(); i += kShares) {
        Check(systems[i]);
        ++checked;
    }
    EXPECT_GE(checked, 4900 / kShares - 2);
}

INSTANTIATE_TEST_SUITE_P(Share, WorldDatabase, ::testing::Range(0, kShares));
