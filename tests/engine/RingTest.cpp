#include "engine/jobs/JobError.h"
#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/LevelWriter.h"
#include "engine/pocketing/RingOrder.h"
#include "engine/pocketing/Rings.h"
#include "engine/pocketing/Thinning.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <map>

// Rings, their check, their order and the records made of them.

using namespace exchange::pocketing;
using exchange::jobs::CancelFlag;
using exchange::jobs::JobError;

namespace
{

Path square(ClipperLib::cInt left, ClipperLib::cInt bottom, ClipperLib::cInt size)
{
    return {{left, bottom}, {left + size, bottom}, {left + size, bottom + size}, {left, bottom + size}};
}

Path hole(Path path)
{
    ClipperLib::ReversePath(path);
    return path;
}

/// Builds all blocks, one after another, in the order given by `takeLast`.
std::vector<const Ring*> build(RingStore& store, const Area& area, const RingSteps& steps, bool takeLast, double& done)
{
    const CancelFlag cancel;
    const RingBuilder builder(store, steps, cancel);
    std::deque<Ring*> blocks{store.add(area)};
    Ring* const root = blocks.front();
    while (!blocks.empty())
    {
        Ring* const block = takeLast ? blocks.back() : blocks.front();
        takeLast ? blocks.pop_back() : blocks.pop_front();
        builder.buildBlock(
            *block, [&](Ring& next) { blocks.push_back(&next); }, [&](double part) { done += part; });
    }
    std::vector<const Ring*> rings{root};
    for (std::size_t i = 0; i < rings.size(); ++i)
        rings.insert(rings.end(), rings[i]->children.begin(), rings[i]->children.end());
    return rings;
}

} // namespace

TEST(Rings, squareHasOneRingForEachStepover)
{
    RingStore store(1e6);
    double done = 0;
    const auto rings = build(store, {square(0, 0, 100000)}, {2000, 3000, 10, {2, 0}}, false, done);
    ASSERT_EQ(rings.size(), 25U);
    for (std::size_t i = 0; i < rings.size(); ++i)
    {
        EXPECT_NEAR(sizeOf(rings[i]->contours), std::pow(100000.0 - 4000.0 * static_cast<double>(i), 2), 1e6);
        EXPECT_TRUE(rings[i]->leftovers.empty());
    }
    EXPECT_NEAR(done, 1e10, 1e5);
}

TEST(Rings, wideStepoverLeavesLeftovers)
{
    RingStore store(1e6);
    double done = 0;
    const auto rings = build(store, {square(0, 0, 100000)}, {9000, 5000, 10, {2, 0}}, false, done);
    // Beyond the radius of the tool the corners between square rings are too far from both.
    EXPECT_EQ(rings.front()->leftovers.size(), 4U);
}

TEST(Rings, orderOfBlocksDoesNotMatter)
{
    const Area area = {square(0, 0, 100000), hole(square(20000, 20000, 9000)), hole(square(60000, 50000, 20000))};
    const auto contours = [&area](bool takeLast)
    {
        RingStore store(1e6);
        double done = 0;
        std::vector<Area> all;
        for (const Ring* ring : build(store, area, {700, 1000, 10, {2, 2}}, takeLast, done))
            all.push_back(ring->contours);
        return all;
    };
    const std::vector<Area> first = contours(false);
    EXPECT_GT(first.size(), 30U);
    EXPECT_EQ(first, contours(true));
}

TEST(Rings, storeRefusesToFillTheMemory)
{
    RingStore store(20);
    store.add({square(0, 0, 100)});
    store.add({square(0, 0, 100)});
    EXPECT_THROW(store.add({square(0, 0, 100)}), JobError);
}

TEST(Shrink, contoursTakenApartGiveTheResultOfAllTogether)
{
    // A C that closes as it grows, with an island in the room it closes in; islands that merge with each other, with
    // the wall, and with nothing.
    const Path c = {{30000, 30000}, {60000, 30000}, {60000, 43000}, {57000, 43000}, {57000, 33000}, {33000, 33000},
                    {33000, 57000}, {57000, 57000}, {57000, 47000}, {60000, 47000}, {60000, 60000}, {30000, 60000}};
    const Area area = {square(0, 0, 100000),
                       hole(c),
                       hole(square(44000, 44000, 1000)),
                       hole(square(80000, 80000, 2000)),
                       hole(square(85000, 80000, 2000)),
                       hole(square(3000, 3000, 2000)),
                       hole(square(15000, 80000, 2000))};
    const CancelFlag cancel;
    for (const double distance : {500.0, 2500.0, 4000.0, 9000.0})
    {
        ClipperLib::ClipperOffset offsetter(2, 2);
        offsetter.AddPaths(area, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
        Paths together;
        offsetter.Execute(together, -distance);
        ClipperLib::Clipper difference;
        for (const Area& part : shrink(area, distance, {2, 0}, cancel))
            difference.AddPaths(part, ClipperLib::ptSubject, true);
        difference.AddPaths(together, ClipperLib::ptClip, true);
        Paths apart;
        difference.Execute(ClipperLib::ctXor, apart, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
        EXPECT_LT(std::fabs(sizeOf(apart)), 1e-4 * sizeOf(together)) << distance;
        EXPECT_GT(sizeOf(together), 0) << distance;
    }
}

TEST(Shrink, farPastTheMiddleNothingRemains)
{
    const CancelFlag cancel;
    const Path sliver = {{0, 0}, {100000, 99000}, {100000, 100000}, {0, 1000}};
    const Path l = {{0, 0}, {100000, 0}, {100000, 20000}, {20000, 20000}, {20000, 100000}, {0, 100000}};
    const struct
    {
        Path outer;
        double distance;
        bool remains;
    } cases[] = {
        {square(0, 0, 100000), 49990, true},
        {square(0, 0, 100000), 50010, false},
        {square(0, 0, 100000), 1e9, false},
        {sliver, 340, true},
        {sliver, 370, false},
        {l, 10500, true},
        {l, 14000, false},
    };
    for (const auto& test : cases)
        EXPECT_EQ(shrink({test.outer}, test.distance, {2, 0}, cancel).empty(), !test.remains) << test.distance;
}

TEST(Simplified, dropsOnlyWhatLiesWithinTheTolerance)
{
    const Path path = {{0, 0}, {500, 3}, {1000, 0}, {1000, 1000}, {500, 1020}, {0, 1000}};
    EXPECT_EQ(simplified(path, 5).size(), 5U);
    EXPECT_EQ(simplified(path, 2).size(), 6U);
    EXPECT_EQ(simplified(path, 30).size(), 4U);
    EXPECT_TRUE(simplified(Path{{0, 0}, {3, 0}, {3, 3}, {0, 3}}, 10).empty());
}

TEST(GougeCheck, findsEveryKindOfGouge)
{
    const GougeCheck check({square(40000, 40000, 20000)}, {square(0, 0, 100000)}, 1000);
    const CancelFlag cancel;
    const auto ring = [](const Path& path)
    {
        Ring made;
        made.contours = {path};
        return made;
    };
    EXPECT_NO_THROW(check.check(ring(square(10000, 10000, 20000)), cancel));
    EXPECT_NO_THROW(check.check(ring(square(1000, 1000, 98000)), cancel));
    const std::map<const char*, Path> gouging = {
        {"too near to the part", square(10000, 10000, 29300)},
        {"through a corner of the part", {{39000, 50000}, {50000, 39000}, {30000, 30000}}},
        {"too near to the edge of the stock", square(999, 1000, 20000)},
        {"inside the part", square(45000, 45000, 5000)},
        {"outside the stock", square(200000, 200000, 5000)},
    };
    for (const auto& [name, path] : gouging)
        EXPECT_THROW(check.check(ring(path), cancel), JobError) << name;
    Ring leftover = ring(square(10000, 10000, 20000));
    leftover.leftovers = {square(45000, 45000, 5000)};
    EXPECT_THROW(check.check(leftover, cancel), JobError);
}

TEST(RingOrder, insideFirstAndNearestFirst)
{
    Ring outer;
    Ring left;
    Ring right;
    Ring inRight;
    outer.contours = {square(0, 0, 1000)};
    left.contours = {square(10, 10, 300)};
    right.contours = {square(600, 10, 300)};
    inRight.contours = {square(700, 110, 100)};
    right.leftovers = {square(610, 20, 10)};
    right.children = {&inRight};
    outer.children = {&left, &right};

    const CancelFlag cancel;
    IntPoint from(900, 0);
    const std::vector<Pass> passes = orderRings(outer, from, cancel);
    std::vector<const Path*> order;
    order.reserve(passes.size());
    for (const Pass& pass : passes)
        order.push_back(pass.path);
    EXPECT_EQ(order, (std::vector<const Path*>{&inRight.contours[0], &right.leftovers[0], &right.contours[0],
                                               &left.contours[0], &outer.contours[0]}));
    // From (600, 10) or so the nearest corner of the left square is its lower right one.
    EXPECT_EQ((*passes[3].path)[passes[3].start], IntPoint(310, 10));
}

namespace
{

struct Written
{
    PocketingParameters parameters;
    Path path = square(0, 0, 10);

    Written()
    {
        parameters.rapidPlaneZ = 20;
        parameters.feedrate = 800;
        parameters.rampFeedrate = 300;
    }
    /// "R x y z", "L x y z" or "F feed", for short.
    std::vector<std::string> records() const
    {
        const CancelFlag cancel;
        std::vector<std::string> texts;
        for (const exchange::ToolpathRecord& record :
             writeLevel({{&path, 1}}, -4, -2, parameters, Grid(), cancel, [](double) {}))
        {
            const auto point = [](const geom::PointNd<3>& p)
            {
                return std::to_string(static_cast<int>(p[0])) + " " + std::to_string(static_cast<int>(p[1])) + " " +
                       std::to_string(static_cast<int>(p[2]));
            };
            if (const auto* rapid = boost::get<exchange::RapidMove>(&record))
                texts.push_back("R " + point(rapid->endPt));
            else if (const auto* linear = boost::get<exchange::LinearMove>(&record))
                texts.push_back("L " + point(linear->endPt));
            else if (const auto* feed = boost::get<exchange::FeedRate>(&record))
                texts.push_back("F " + std::to_string(static_cast<int>(feed->feedrate)));
        }
        return texts;
    }
};

} // namespace

TEST(LevelWriter, onePass)
{
    Written written;
    EXPECT_EQ(written.records(), (std::vector<std::string>{"R 10 0 20", "F 300", "L 10 0 -4", "F 800", "L 10 10 -4",
                                                           "L 0 10 -4", "L 0 0 -4", "L 10 0 -4", "R 10 0 20"}));
    written.parameters.counterClockwise = false;
    written.parameters.plungeClearance = 1;
    EXPECT_EQ(written.records(),
              (std::vector<std::string>{"R 10 0 20", "R 10 0 -1", "F 300", "L 10 0 -4", "F 800", "L 0 0 -4",
                                        "L 0 10 -4", "L 10 10 -4", "L 10 0 -4", "R 10 0 20"}));
    // A clearance above the rapid plane is no reason to climb.
    written.parameters.plungeClearance = 100;
    EXPECT_EQ(written.records()[1], "F 300");
}

TEST(PocketingParameters, levels)
{
    struct Case
    {
        double top;
        double bottom;
        double step;
        double stock;
        std::vector<double> levels;
    };
    const Case cases[] = {
        {0, -5, 3, 0, {-3, -5}},
        {0, -6, 3, 0, {-3, -6}},
        {0, -5, 50, 0, {-5}},
        {2, -1, 1, 0.5, {1, 0, -0.5}},
        // Ten steps of a tenth come to a little more or less than one.
        {1, 0, 0.1, 0, {0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3, 0.2, 0.1, 0}},
    };
    for (const Case& test : cases)
    {
        PocketingParameters parameters;
        parameters.topMaterialZ = test.top;
        parameters.zDepth = test.bottom;
        parameters.depthOfCut = test.step;
        parameters.zStockToLeave = test.stock;
        const std::vector<double> levels = parameters.levels();
        ASSERT_EQ(levels.size(), test.levels.size());
        for (std::size_t i = 0; i < levels.size(); ++i)
            EXPECT_NEAR(levels[i], test.levels[i], 1e-12);
        EXPECT_EQ(levels.back(), test.bottom + test.stock);
    }
}
