#include "machining/SmartLinkRules.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using namespace TessaronResources;

TEST(SmartLinkRules, StandsAtTheTruncatedPreference)
{
    const double inf = std::numeric_limits<double>::infinity();
    const struct
    {
        double preference;
        int position;
    } cases[] = {{0, 0},    {0.35, 3}, {0.7, 7},   {0.3, 3},  {1.0, 10},
                 {1.5, 10}, {-0.5, 0}, {1e30, 10}, {-inf, 0}, {std::numeric_limits<double>::quiet_NaN(), 0}};
    for (const auto& one : cases)
    {
        SmartLinkData data{0, 0, one.preference};
        EXPECT_EQ(SmartLinkRules(data).position(), one.position) << one.preference;
    }
}

TEST(SmartLinkRules, WritesThePreferenceAtOnceAndTheRestOnApply)
{
    SmartLinkData data{5, -1, 0.35};
    SmartLinkRules rules(data);
    EXPECT_TRUE(rules.depthFirst());
    EXPECT_TRUE(rules.rapidPlaneOnly());
    for (int position = 0; position <= SmartLinkRules::lastPosition; ++position)
    {
        rules.moveTo(position);
        EXPECT_EQ(data.linkPreference, position / 10.0);
        EXPECT_EQ(rules.position(), position);
    }
    EXPECT_EQ(data.depthFirst, 5);
    EXPECT_EQ(data.rapidPlaneOnly, -1);

    rules.apply(true, false);
    EXPECT_EQ(data.depthFirst, 1);
    EXPECT_EQ(data.rapidPlaneOnly, 0);
    rules.apply(false, true);
    EXPECT_EQ(data.depthFirst, 0);
    EXPECT_EQ(data.rapidPlaneOnly, 1);
}

TEST(SmartLinkRules, SortsByDepthForPositiveValuesOnly)
{
    for (const int value : {-1, 0, 1, 7})
    {
        SmartLinkData data{value, 0, 0};
        EXPECT_EQ(SmartLinkRules(data).depthFirst(), value > 0) << value;
    }
}

} // namespace
