#include "engine/jobs/JobError.h"
#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/PocketingParameters.h"
#include "engine/pocketing/Rings.h"
#include "engine/pocketing/Thinning.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

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

TEST(Rings, SquareHasOneRingForEachStepover)
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

TEST(Rings, AreLeftOutWhereTheOneBeforeClears)
{
    const auto rings = [](ClipperLib::cInt width, double radius)
    {
        RingStore store(1e6);
        double done = 0;
        const Area strip{{{0, 0}, {60000, 0}, {60000, width}, {0, width}}};
        return build(store, strip, {2000, radius, 10, {2, 0}}, false, done).size();
    };
    // What is left inside the second ring is 500 to either side of its middle; the first one reaches 980 far into it.
    EXPECT_EQ(rings(5000, 3000), 1U);
    EXPECT_EQ(rings(5000, 2400), 2U) << "the first ring reaches 380 far";
    EXPECT_EQ(rings(7000, 3000), 2U) << "1500 to either side";
}

TEST(Rings, ArmsThatTheOneBeforeClearsAreCutOff)
{
    // A square with a long arm: the second ring goes round the square only.
    RingStore store(1e6);
    double done = 0;
    const Area area{{{0, 0},
                     {30000, 0},
                     {30000, 12000},
                     {90000, 12000},
                     {90000, 17000},
                     {30000, 17000},
                     {30000, 30000},
                     {0, 30000}}};
    const auto rings = build(store, area, {2000, 3000, 10, {2, 0}}, false, done);
    ASSERT_GT(rings.size(), 1U);
    for (const IntPoint& point : rings[1]->contours.front())
        EXPECT_LT(point.X, 32000);
}

TEST(Rings, WideStepoverLeavesLeftovers)
{
    RingStore store(1e6);
    double done = 0;
    const auto rings = build(store, {square(0, 0, 100000)}, {9000, 5000, 10, {2, 0}}, false, done);
    // Beyond the radius of the tool the corners between square rings are too far from both.
    EXPECT_EQ(rings.front()->leftovers.size(), 4U);
}

TEST(Rings, OrderOfBlocksDoesNotMatter)
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

TEST(Rings, StoreRefusesToFillTheMemory)
{
    RingStore store(20);
    store.add({square(0, 0, 100)});
    store.add({square(0, 0, 100)});
    EXPECT_THROW(store.add({square(0, 0, 100)}), JobError);
}

TEST(Shrink, ContoursTakenApartGiveTheResultOfAllTogether)
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
        // As much as goes into one operation, and hardly more than a contour each.
        for (const std::size_t largest : {20000U, 5U})
        {
            ClipperLib::Clipper difference;
            for (const Area& part : shrink(area, distance, {2, 0, largest}, cancel))
                difference.AddPaths(part, ClipperLib::ptSubject, true);
            difference.AddPaths(together, ClipperLib::ptClip, true);
            Paths apart;
            difference.Execute(ClipperLib::ctXor, apart, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
            EXPECT_LT(std::fabs(sizeOf(apart)), 1e-4 * sizeOf(together)) << distance << ", " << largest;
        }
        EXPECT_GT(sizeOf(together), 0) << distance;
    }
}

TEST(Shrink, ManyIslandsThatMeetGiveTheSameInParts)
{
    // Rings of islands about each other: grown, they close in areas within areas.
    Area area = {square(0, 0, 400000)};
    for (const int radius : {20000, 60000, 110000, 165000})
        for (int i = 0; i < 40; ++i)
        {
            const double angle = 2 * std::acos(-1.0) * i / 40;
            const auto at = [&](double part) { return 200000 + std::llround(radius * part); };
            area.push_back(hole(square(at(std::cos(angle)) - 1000, at(std::sin(angle)) - 1000, 2000 + radius / 40)));
        }
    const CancelFlag cancel;
    for (const double distance : {3000.0, 9000.0, 12000.0})
    {
        Paths sides[2];
        std::size_t areas[2];
        const std::size_t largest[] = {20000, 16};
        for (int i = 0; i < 2; ++i)
        {
            const std::vector<Area> parts = shrink(area, distance, {2, 0, largest[i]}, cancel);
            areas[i] = parts.size();
            for (const Area& part : parts)
                sides[i].insert(sides[i].end(), part.begin(), part.end());
        }
        EXPECT_EQ(areas[0], areas[1]) << distance;
        ClipperLib::Clipper difference;
        difference.AddPaths(sides[0], ClipperLib::ptSubject, true);
        difference.AddPaths(sides[1], ClipperLib::ptClip, true);
        Paths apart;
        difference.Execute(ClipperLib::ctXor, apart, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
        EXPECT_LT(std::fabs(sizeOf(apart)), 1e-6 * sizeOf(sides[0])) << distance;
    }
}

TEST(Shrink, FarPastTheMiddleNothingRemains)
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

TEST(Simplified, DropsOnlyWhatLiesWithinTheTolerance)
{
    const Path path = {{0, 0}, {500, 3}, {1000, 0}, {1000, 1000}, {500, 1020}, {0, 1000}};
    EXPECT_EQ(simplified(path, 5).size(), 5U);
    EXPECT_EQ(simplified(path, 2).size(), 6U);
    EXPECT_EQ(simplified(path, 30).size(), 4U);
    EXPECT_TRUE(simplified(Path{{0, 0}, {3, 0}, {3, 3}, {0, 3}}, 10).empty());
}

TEST(PocketingParameters, Levels)
{
    struct Case
    {
        double top;
        double bottom;
        double step;
        double stock;
        double axialStock;
        double finalStep;
        std::vector<double> additional;
        std::vector<double> levels;
    };
    const double none = PocketingParameters::notGiven;
    const Case cases[] = {
        {0, -5, 3, 0, 0, none, {}, {-2.5, -5}},
        {0, -6, 3, 0, 0, none, {}, {-3, -6}},
        {0, -5, 50, 0, 0, none, {}, {-5}},
        {2, -1, 1, 0.75, 0, none, {}, {1.25, 0.5, -0.25}},
        // Ten steps of a tenth come to a little more or less than one.
        {1, 0, 0.1, 0, 0, none, {}, {0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3, 0.2, 0.1, 0}},
        {0, -5, 3, 0, 0.2, none, {}, {-2.4, -4.8, -5}},
        {0, -5, 3, 0, 0, 0.5, {}, {-2.25, -4.5, -5}},
        {0, -5, 3, 0, 0, none, {-1, -1, 7, -9, -5}, {-1, -3, -5}},
        {0, -6, 3, 0, 0.5, 1, {-4}, {-2, -4, -5, -5.5, -6}},
    };
    for (const Case& test : cases)
    {
        PocketingParameters parameters;
        parameters.topMaterialZ = test.top;
        parameters.zDepth = test.bottom;
        parameters.depthOfCut = test.step;
        parameters.zStockToLeave = test.stock;
        parameters.partAxialStock = test.axialStock;
        parameters.finalStepHeight = test.finalStep;
        parameters.additionalCutDepths = test.additional;
        const std::vector<double> levels = parameters.levels();
        ASSERT_EQ(levels.size(), test.levels.size());
        for (std::size_t i = 0; i < levels.size(); ++i)
            EXPECT_NEAR(levels[i], test.levels[i], 1e-12);
        EXPECT_EQ(levels.back(), test.bottom + test.stock);
    }
}

TEST(PocketingParameters, AreThoseOfTheDocumentation)
{
    std::ifstream file(TESSARON_SAMPLES "/../docs/engine-jobs.md");
    ASSERT_TRUE(file);
    // Rows of the table: | "key" | kind | unit | default | ...
    std::vector<std::string> documented;
    for (std::string line; std::getline(file, line);)
    {
        std::vector<std::string> cells;
        std::istringstream stream(line);
        for (std::string cell; std::getline(stream, cell, '|');)
        {
            const std::size_t first = cell.find_first_not_of(' ');
            const std::size_t last = cell.find_last_not_of(' ');
            cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
        }
        if (cells.size() == 7 && cells[1].front() == '"')
            documented.push_back(cells[1] + " " + cells[2] + (cells[4] == "required" ? " required" : ""));
    }
    std::vector<std::string> read;
    for (const ParameterRow& row : parameterTable())
        read.push_back('"' + row.key + "\" " + row.kind + (row.required ? " required" : ""));
    std::sort(documented.begin(), documented.end());
    std::sort(read.begin(), read.end());
    EXPECT_EQ(documented, read);
}
