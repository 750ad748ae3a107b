#include "engine/jobs/JobError.h"
#include "engine/pocketing/CurveFlattener.h"
#include "engine/pocketing/LoopChaining.h"
#include "engine/pocketing/LoopCheck.h"
#include "engine/pocketing/RegionBuilder.h"
#include "tests/engine/PocketShapes.h"
#include <tessaron/util/Constants.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

// From curves to checked loops.

using namespace exchange::pocketing;
using exchange::jobs::CancelFlag;
using exchange::jobs::JobError;

namespace
{

double distanceTo(const Polyline& polyline, const Point& point)
{
    double nearest = 1e300;
    for (std::size_t i = 0; i + 1 < polyline.size(); ++i)
    {
        const Point& a = polyline[i];
        const Point& b = polyline[i + 1];
        const double dx = b[0] - a[0];
        const double dy = b[1] - a[1];
        const double length2 = dx * dx + dy * dy;
        double t = length2 > 0 ? ((point[0] - a[0]) * dx + (point[1] - a[1]) * dy) / length2 : 0;
        t = std::fmin(1, std::fmax(0, t));
        nearest = std::fmin(nearest, std::hypot(point[0] - a[0] - t * dx, point[1] - a[1] - t * dy));
    }
    return nearest;
}

std::vector<Polyline> loopsOf(const std::vector<Polyline>& pieces, double tolerance)
{
    const CancelFlag cancel;
    std::vector<Polyline> loops;
    for (const Chain& chain : chainLoops(pieces, tolerance, cancel))
        loops.push_back(loopOf(chain, pieces));
    return loops;
}

struct CurveCase
{
    const char* name;
    shapes::CurvePtr curve;
};

std::vector<CurveCase> curveCases()
{
    return {
        {"line", shapes::line({0, 0}, {10, 3})},
        {"polyline", shapes::polyline({{0, 0}, {10, 3}, {4, 8}})},
        {"arc", shapes::arc({3, 4}, 25, 0.3, 4)},
        {"clockwiseArc", shapes::arc({3, 4}, 25, 4, 0.3)},
        {"circle", shapes::circle({3, 4}, 25)},
        {"specksOfArc", shapes::circle({0, 0}, 0.0001)},
        {"spline", shapes::closedSpline({{0, 0}, {30, -10}, {40, 30}, {20, 50}, {-20, 45}, {-5, 20}})},
        // The middle of this S lies on its chord, where a single sample would see a straight line.
        {"inflection", shapes::closedSpline({{0, 0}, {10, 40}, {20, -40}, {30, 0}})},
        {"rational", shapes::rationalQuarter({1, 2}, 30, 1)},
    };
}

} // namespace

TEST(CurveFlattener, StaysWithinTheToleranceWithoutWastingPoints)
{
    const CancelFlag cancel;
    for (const double tolerance : {0.1, 0.001})
        for (const CurveCase& test : curveCases())
        {
            CurveFlattener flattener(tolerance, 100000, cancel);
            const Polyline polyline = flattener.flatten(*test.curve);
            const double from = test.curve->startParam();
            const double to = test.curve->endParam();
            EXPECT_EQ(polyline.front(), test.curve->pointAt(from)) << test.name;
            EXPECT_NEAR(distanceTo(polyline, test.curve->pointAt(to)), 0, 1e-12) << test.name;
            double worst = 0;
            for (int i = 0; i <= 2000; ++i)
                worst = std::fmax(worst, distanceTo(polyline, test.curve->pointAt(from + (to - from) * i / 2000)));
            EXPECT_LE(worst, tolerance) << test.name;
            // The curves here turn by less than two turns over radii of less than 40.
            EXPECT_LE(polyline.size(), 30 + 40 / std::sqrt(tolerance / 40)) << test.name;
        }
}

TEST(CurveFlattener, RefusesToFillTheMemory)
{
    const CancelFlag cancel;
    CurveFlattener flattener(1e-9, 1000, cancel);
    EXPECT_THROW(flattener.flatten(*shapes::circle({0, 0}, 100)), std::runtime_error);
    EXPECT_THROW(flattener.flatten(*curveCases()[6].curve), std::runtime_error);
}

TEST(CurveFlattener, StopsOnACancel)
{
    CancelFlag cancel;
    cancel.set();
    CurveFlattener flattener(1e-9, 1000000, cancel);
    EXPECT_THROW(flattener.flatten(*curveCases()[6].curve), exchange::jobs::Cancelled);
}

TEST(LoopChaining, JoinsPiecesInAnyOrderAndDirection)
{
    const std::vector<Polyline> pieces = {{{0, 0}, {10, 0}},
                                          {{0, 10}, {10, 10}},
                                          {{10, 0}, {10.05, 5}, {10, 10}},
                                          {{30, 0}, {40, 0}, {35, 8}, {30, 0}},
                                          {{0, 0.02}, {0, 9.97}}};
    const std::vector<Polyline> loops = loopsOf(pieces, 0.05);
    ASSERT_EQ(loops.size(), 2U);
    // The gaps at the left stay in the loop as pieces of their own: four corners, the bend and two ends.
    EXPECT_EQ(loops[0].size(), 7U);
    EXPECT_EQ(loops[1].size(), 3U);
    EXPECT_THROW(loopsOf(pieces, 0.01), JobError);
}

TEST(LoopChaining, PiecesShorterThanTheToleranceAreNotLost)
{
    // A circle of 400 pieces, each much shorter than the tolerance.
    std::vector<Polyline> pieces;
    for (int i = 0; i < 400; ++i)
    {
        const auto at = [](int k)
        { return Point(std::cos(2 * util::pi * (k % 400) / 400), std::sin(2 * util::pi * (k % 400) / 400)); };
        pieces.push_back({at(i), at(i + 1)});
    }
    const std::vector<Polyline> loops = loopsOf(pieces, 0.1);
    ASSERT_EQ(loops.size(), 1U);
    EXPECT_EQ(loops[0].size(), 400U);
}

TEST(LoopCheck, LoopsMayTouchAndLieWithinEachOther)
{
    const Path outer = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    const Path within = {{20, 20}, {60, 20}, {60, 60}, {20, 60}};
    const Path touchingAtVertex = {{60, 60}, {80, 70}, {70, 80}};
    const Path touchingAnEdge = {{100, 50}, {90, 60}, {90, 40}};
    const Paths loops = {outer, within, touchingAtVertex, touchingAnEdge};
    const CancelFlag cancel;
    EXPECT_NO_THROW(checkLoops(loops, SegmentIndex(loops), Grid(), cancel));
}

TEST(SegmentIndex, AgreesWithLookingAtEverySegment)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> coordinate(-1000, 1000);
    const auto point = [&] { return IntPoint(coordinate(random), coordinate(random)); };
    Paths loops;
    for (int loop = 0; loop < 12; ++loop)
    {
        loops.emplace_back();
        const IntPoint centre = point();
        for (int i = 0; i < 17; ++i)
            loops.back().emplace_back(centre.X + coordinate(random) / 10, centre.Y + coordinate(random) / 10);
    }
    const SegmentIndex index(loops);
    int closer = 0;
    for (int i = 0; i < 300; ++i)
    {
        const IntPoint start = point();
        const IntPoint end(start.X + coordinate(random) / 20, start.Y + coordinate(random) / 20);
        const double limit = 150;
        bool expected = false;
        for (const Segment& segment : index.segments())
            expected = expected || segmentDistance(start, end, segment.start, segment.end) < limit;
        EXPECT_EQ(index.isCloser(start, end, limit), expected);
        closer += expected ? 1 : 0;
    }
    EXPECT_GT(closer, 50);
    EXPECT_LT(closer, 300);
    EXPECT_FALSE(SegmentIndex().isCloser({0, 0}, {1, 1}, 100));
}

TEST(SegmentIndex, EnclosesWhatLiesBetweenTheLoops)
{
    const Paths loops = {{{0, 0}, {100, 0}, {100, 100}, {0, 100}}, {{40, 40}, {40, 60}, {60, 60}, {60, 40}}};
    const SegmentIndex index(loops);
    const struct
    {
        IntPoint point;
        bool inside;
    } cases[] = {
        {{20, 50}, true},  {{50, 50}, false},  {{50, 20}, true},  {{50, 80}, true},   {{-1, 50}, false},
        {{50, -1}, false}, {{101, 50}, false}, {{0, 50}, false},  {{40, 50}, false},  {{100, 100}, false},
        {{40, 20}, true},  {{60, 99}, true},   {{50, 60}, false}, {{100, 50}, false}, {{40, 101}, false},
    };
    for (const auto& test : cases)
        EXPECT_EQ(index.encloses(test.point), test.inside) << test.point.X << ", " << test.point.Y;
}

TEST(RegionBuilder, ABoundaryOfManyPointsIsThinnedBeforeItIsOffset)
{
    // A wall of steps far smaller than the tolerance, as one polyline and as many lines with an arc among them.
    exchange::Tessaron2dInput input = shapes::squarePocket();
    std::vector<shapes::Point> steps;
    for (int i = 0; i <= 4000; ++i)
        steps.emplace_back(80 - 0.015 * i, 60 + (i % 2) * 1e-6);
    exchange::CurveList lines = {shapes::line({80, 20}, {80, 60}), shapes::line({20, 20}, {75, 20}),
                                 shapes::arc({77.5, 20}, 2.5, util::pi, 2 * util::pi),
                                 shapes::line(steps.back(), {20, 20})};
    for (std::size_t i = 0; i + 1 < steps.size(); ++i)
        lines.push_back(shapes::line(steps[i], steps[i + 1]));
    const CancelFlag cancel;
    const auto pointsOf = [&](const exchange::CurveList& wall)
    {
        input.boundaries.partBoundaries.resize(1);
        input.boundaries.partBoundaries.insert(input.boundaries.partBoundaries.end(), wall.begin(), wall.end());
        const RegionPlan plan = buildRegions(input, readParameters(input), cancel, [](double) {});
        EXPECT_GT(plan.part[1].size(), 4000U) << "the boundary that cuts are checked against keeps all points";
        return plan.regions.at(0).at(0).size();
    };
    EXPECT_LT(pointsOf(lines), 60U);
    steps.insert(steps.end(), {{20, 20}, {80, 20}, {80, 60}});
    EXPECT_EQ(pointsOf({shapes::polyline(steps)}), 4U);
}

TEST(RegionBuilder, BoundariesInPiecesGiveTheRegionsOfWholeOnes)
{
    const CancelFlag cancel;
    const auto regionsOf = [&cancel](const exchange::Tessaron2dInput& input)
    { return buildRegions(input, readParameters(input), cancel, [](double) {}); };
    exchange::Tessaron2dInput pieces = shapes::squarePocket();
    pieces.boundaries.partBoundaries = {
        shapes::rectangle(0, 0, 100, 80),
        shapes::line({80, 20}, {20, 20}),
        shapes::line({80, 60}, {80, 20}),
        shapes::polyline({{20, 20}, {20, 60}, {80, 60}}),
    };
    const RegionPlan plan = regionsOf(pieces);
    const RegionPlan expected = regionsOf(shapes::squarePocket());
    ASSERT_EQ(plan.regions.size(), 1U);
    EXPECT_EQ(sizeOf(plan.regions[0]), sizeOf(expected.regions[0]));
    // 60 x 40 less 3 and a little on every side.
    const double area = sizeOf(expected.regions[0]) * std::pow(expected.grid.resolution(), 2);
    EXPECT_LT(area, 54 * 34);
    EXPECT_GT(area, 53.96 * 33.96);
    EXPECT_EQ(regionsOf(shapes::dumbbell()).regions.size(), 2U);
}
