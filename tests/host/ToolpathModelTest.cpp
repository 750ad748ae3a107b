#include "host/ToolpathModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace host
{

namespace
{

using exchange::FeedRate;
using exchange::LinearMove;
using exchange::RapidMove;

constexpr double pi = std::numbers::pi;

template <class Move>
Move to(double x, double y, double z)
{
    return Move{Point3(x, y, z)};
}

// Two levels of a square of 10 by 10, the upper one first.
exchange::ToolpathRecords twoSquares()
{
    exchange::ToolpathRecords toolpath;
    auto& records = toolpath.records;
    records.emplace_back(exchange::SpindleSpeed{9000});
    for (const double z : {-2.0, -4.0})
    {
        records.emplace_back(to<RapidMove>(0, 0, 10));
        records.emplace_back(FeedRate{100});
        records.emplace_back(to<LinearMove>(0, 0, z));
        records.emplace_back(FeedRate{400});
        records.emplace_back(to<LinearMove>(10, 0, z));
        records.emplace_back(to<LinearMove>(10, 10, z));
        records.emplace_back(to<LinearMove>(0, 10, z));
        records.emplace_back(to<LinearMove>(0, 0, z));
        records.emplace_back(to<RapidMove>(0, 0, 10));
    }
    return toolpath;
}

TEST(ToolpathModel, AddsUpLengthsAndTimes)
{
    const ToolpathStatistics statistics = ToolpathModel(twoSquares(), 1000).statistics();
    EXPECT_EQ(statistics.records, 19u);
    EXPECT_EQ(statistics.rapidMoves, 4u);
    EXPECT_EQ(statistics.cutMoves, 10u);
    // Plunges of 12 and 14, squares of 40; the way to the first point is not known.
    EXPECT_DOUBLE_EQ(statistics.cutLength, 12 + 14 + 80);
    EXPECT_DOUBLE_EQ(statistics.rapidLength, 12 + 14);
    EXPECT_DOUBLE_EQ(statistics.minutes, 26.0 / 100 + 80.0 / 400 + 26.0 / 1000);
}

TEST(ToolpathModel, TellsRapidsPlungesCutsAndLevelsApart)
{
    const ToolpathModel model(twoSquares(), 1000);
    ASSERT_EQ(model.levels(), (std::vector<double>{-2, -4}));
    std::vector<MoveKind> kinds;
    std::vector<std::size_t> levels;
    for (const host::Run& run : model.runs())
    {
        kinds.push_back(run.kind);
        if (run.kind != MoveKind::cut)
            continue;
        levels.push_back(run.level);
        EXPECT_EQ(run.count, 5u);
    }
    using K = MoveKind;
    EXPECT_EQ(kinds, (std::vector<K>{K::plunge, K::cut, K::rapid, K::plunge, K::cut, K::rapid}));
    EXPECT_EQ(levels, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(model.box().size(2), 14);
}

struct ArcCase
{
    bool counterClockwise;
    double radius;
    double length;
    double lowestX;
    double lowestY;
};

class ArcTest : public testing::TestWithParam<ArcCase>
{
};

// From (10, 0) to (0, 10): about the origin or about (10, 10), the short or the long way round.
TEST_P(ArcTest, IsFollowed)
{
    exchange::ToolpathRecords toolpath;
    toolpath.records.emplace_back(to<RapidMove>(10, 0, 0));
    const Point3 end(0.0, 10.0, 0.0);
    if (GetParam().counterClockwise)
        toolpath.records.emplace_back(exchange::Arc<1>{end, GetParam().radius});
    else
        toolpath.records.emplace_back(exchange::Arc<0>{end, GetParam().radius});
    const ToolpathModel model(toolpath, 1000);
    EXPECT_EQ(model.statistics().cutMoves, 1u);
    EXPECT_NEAR(model.statistics().cutLength, GetParam().length, GetParam().length * 0.001);
    EXPECT_NEAR(model.box().low[0], GetParam().lowestX, 0.02);
    EXPECT_NEAR(model.box().low[1], GetParam().lowestY, 0.02);
}

INSTANTIATE_TEST_SUITE_P(Senses, ArcTest,
                         testing::Values(ArcCase{true, 10, 5 * pi, 0, 0}, ArcCase{false, 10, 5 * pi, 0, 0},
                                         ArcCase{true, -10, 15 * pi, 0, 0}, ArcCase{false, -10, 15 * pi, -10, -10},
                                         // Too small a radius to reach the end: a straight line.
                                         ArcCase{true, 3, std::sqrt(200.0), 0, 0}));

TEST(ToolpathModel, AnEmptyToolpathIsEmpty)
{
    const ToolpathModel model(exchange::ToolpathRecords(), 1000);
    EXPECT_TRUE(model.runs().empty());
    EXPECT_TRUE(model.levels().empty());
    EXPECT_TRUE(model.box().empty());
    EXPECT_EQ(model.statistics().minutes, 0);
}

} // namespace

} // namespace host
