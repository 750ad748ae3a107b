#include "tests/engine/CutChecker.h"
#include "tests/engine/PocketShapes.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
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

INSTANTIATE_TEST_SUITE_P(Shapes, PocketingShapes, testing::ValuesIn(allShapes),
                         [](const auto& shape) { return std::string(shape.param.name); });
