#include "tests/engine/CutChecker.h"
#include "tests/engine/PocketShapes.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <string>

// Toolpaths of whole jobs, checked against the curves they were made from.

namespace keys = util::keys;
using exchange::JobState;
using exchange::Tessaron2dInput;

namespace
{

constexpr int longEnough = 120000;

boost::shared_ptr<const exchange::ToolpathRecords> toolpathOf(const Tessaron2dInput& input)
{
    const exchange::JobStart start = exchange::startJob(input);
    EXPECT_GT(start.jobId, 0) << start.text;
    exchange::waitForJob(start.jobId, longEnough);
    const exchange::JobInfo info = exchange::jobInfo(start.jobId);
    EXPECT_EQ(info.state, JobState::finished) << info.status << " " << info.text;
    auto toolpath = exchange::jobToolpath(start.jobId);
    EXPECT_EQ(exchange::releaseJob(start.jobId), 0);
    return toolpath;
}

struct Shape
{
    const char* name;
    std::function<Tessaron2dInput()> make;
    int levels;
};

std::ostream& operator<<(std::ostream& stream, const Shape& shape)
{
    return stream << shape.name;
}

Tessaron2dInput with(Tessaron2dInput input, const util::Key& key, double value)
{
    input.parameters.set(key, value);
    return input;
}

const Shape allShapes[] = {
    {"square", shapes::squarePocket, 2},
    {"islands", shapes::islandPocket, 2},
    {"openSided", shapes::openSided, 2},
    {"twoPockets", shapes::twoPockets, 2},
    {"dumbbell", shapes::dumbbell, 2},
    {"manyIslands", [] { return shapes::manyIslands(2); }, 2},
    {"stockToLeave", [] { return with(shapes::islandPocket(), keys::xyStockToLeave, 0.7); }, 2},
    {"oneLevel", [] { return with(shapes::squarePocket(), keys::depthOfCut, 50); }, 1},
    // Rings as far apart as the tool is wide leave the most between them.
    {"stepoverRadius", [] { return with(shapes::islandPocket(), keys::stepover, 3.0); }, 2},
    {"stepoverWide", [] { return with(shapes::islandPocket(), keys::stepover, 4.7); }, 2},
    {"stepoverDiameter", [] { return with(shapes::islandPocket(), keys::stepover, 6.0); }, 2},
    {"openSidedWide", [] { return with(shapes::openSided(), keys::stepover, 5.5); }, 2},
    {"dumbbellWide", [] { return with(shapes::dumbbell(), keys::stepover, 6.0); }, 2},
    {"fineStepover", [] { return with(shapes::openSided(), keys::stepover, 0.15); }, 2},
    {"coarseTolerance", [] { return with(shapes::openSided(), keys::cutTolerance, 0.3); }, 2},
};

class PocketingShapes : public testing::TestWithParam<Shape>
{
};

} // namespace

TEST_P(PocketingShapes, neverGougesAndClearsAllReachable)
{
    const Tessaron2dInput input = GetParam().make();
    const auto toolpath = toolpathOf(input);
    ASSERT_TRUE(toolpath);
    const cuts::Cuts cuts = cuts::cutsOf(*toolpath, input);
    ASSERT_EQ(cuts.levels.size(), static_cast<std::size_t>(GetParam().levels));
    EXPECT_EQ(cuts.levels.begin()->first, input.parameters.numberOr(keys::zDepth, 0));
    cuts::checkNoGouge(input, cuts);
    cuts::checkCoverage(input, cuts.levels, 0.8);
}

namespace
{

/// A pocket, a block with open sides or bosses on a plate, with islands anywhere, and any tool and way of cutting.
Tessaron2dInput randomPart(unsigned seed)
{
    std::mt19937 random(seed);
    const auto real = [&random](double from, double to)
    { return from + (to - from) * (static_cast<double>(random()) / 4294967296.0); };
    const auto whole = [&random](int from, int to)
    { return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1)); };

    const double width = real(30, 90);
    const double height = real(25, 60);
    Tessaron2dInput input;
    exchange::CurveList& part = input.boundaries.partBoundaries;
    const double margin = real(0, 12);
    input.boundaries.materialBoundaries = {shapes::rectangle(-margin, -margin, width + margin, height + margin)};
    const int kind = whole(0, 3);
    if (kind <= 1)
    {
        part.push_back(shapes::rectangle(-20, -20, width + 20, height + 20));
        part.push_back(kind == 0 ? shapes::rectangle(0, 0, width, height)
                                 : shapes::wavyLoop({width / 2, height / 2}, std::min(width, height) / 2.2, 1.5,
                                                    whole(3, 9), 240));
        input.boundaries.materialBoundaries = {shapes::rectangle(-20, -20, width + 20, height + 20)};
    }
    else if (kind == 2)
        part.push_back(shapes::polyline(
            {{-20, -20}, {width + 20, -20}, {width + 20, 4}, {3, 4}, {3, height}, {-20, height}, {-20, -20}}));
    const int columns = whole(1, 4);
    const int rows = whole(1, 3);
    for (int column = 0; column < columns; ++column)
        for (int row = 0; row < rows; ++row)
        {
            const double cell = std::min(width / columns, height / rows);
            const double radius = real(0.08, 0.3) * cell;
            const shapes::Point centre((column + 0.5) * width / columns + real(-0.15, 0.15) * cell,
                                       (row + 0.5) * height / rows + real(-0.15, 0.15) * cell);
            if (kind == 1 &&
                std::hypot(centre[0] - width / 2, centre[1] - height / 2) + radius > std::min(width, height) / 2.2 - 2)
                continue;
            switch (kind == 2 && (centre[0] - radius < 4 || centre[1] - radius < 5) ? 3 : whole(0, 3))
            {
            case 0:
                part.push_back(shapes::circle(centre, radius));
                break;
            case 1:
                part.push_back(shapes::wavyLoop(centre, radius * 0.8, radius * 0.15, whole(3, 7), 90));
                break;
            case 2:
                part.push_back(shapes::rectangle(centre[0] - radius * 0.9, centre[1] - radius * 0.6,
                                                 centre[0] + radius * 0.9, centre[1] + radius * 0.6));
                break;
            default:
                break;
            }
        }
    if (part.empty())
        part.push_back(shapes::circle({width / 2, height / 2}, height / 8));

    input.parameters = shapes::usualParameters();
    const double diameter = real(2, 8);
    input.parameters.set(keys::toolDiameter, diameter);
    input.parameters.set(keys::stepover, diameter * real(0.15, 0.95));
    input.parameters.set(keys::toolpathCcw, whole(0, 1));
    input.parameters.set(keys::depthFirst, whole(0, 1));
    input.parameters.set(keys::rapidVsHighFeed, real(0, 1));
    input.parameters.set(keys::rampAngle, real(2, 20));
    input.parameters.set(keys::cutTolerance, diameter * real(0.001, 0.01));
    if (whole(0, 2) == 0)
        input.parameters.set(keys::plungeType, whole(2, 3));
    if (whole(0, 3) == 0)
        input.parameters.set(keys::xyStockToLeave, real(0, 0.5));
    if (whole(0, 3) == 0)
        input.parameters.set(keys::partRadialStock, real(0, 0.15) * diameter);
    return input;
}

class RandomParts : public testing::TestWithParam<unsigned>
{
};

} // namespace

TEST_P(RandomParts, NeverGougeAndClearAllReachable)
{
    const Tessaron2dInput input = randomPart(GetParam());
    const exchange::JobStart start = exchange::startJob(input);
    exchange::waitForJob(start.jobId, longEnough);
    const exchange::JobInfo info = exchange::jobInfo(start.jobId);
    const auto toolpath = exchange::jobToolpath(start.jobId);
    exchange::releaseJob(start.jobId);
    RecordProperty("jobStatus", info.status);
    // The tool may be too large for all of a part, or for a way into it.
    if (info.state == JobState::failed)
    {
        EXPECT_EQ(info.status, exchange::status::noToolpath) << info.text;
        return;
    }
    ASSERT_TRUE(toolpath);
    const cuts::Cuts cuts = cuts::cutsOf(*toolpath, input);
    cuts::checkNoGouge(input, cuts);
    if (info.status == exchange::status::ok)
        cuts::checkCoverage(input, cuts.levels, 1.3);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomParts, testing::Range(0U, 60U));

INSTANTIATE_TEST_SUITE_P(Shapes, PocketingShapes, testing::ValuesIn(allShapes),
                         [](const auto& shape) { return std::string(shape.param.name); });
