#include "tests/engine/PocketShapes.h"
#include "tests/engine/Simulated.h"
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

// Toolpaths of whole jobs, run through a block of material.

namespace keys = util::keys;
using exchange::Tessaron2dInput;

namespace
{

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

TEST_P(PocketingShapes, areCutAsAsked)
{
    const Tessaron2dInput input = GetParam().make();
    const testing_support::Simulated part = testing_support::simulated(input);
    EXPECT_EQ(part.problems(), "");
    const std::vector<double> levels = part.report.levels();
    ASSERT_EQ(levels.size(), static_cast<std::size_t>(GetParam().levels));
    EXPECT_EQ(levels.front(), input.parameters.numberOr(keys::zDepth, 0));
}

INSTANTIATE_TEST_SUITE_P(Shapes, PocketingShapes, testing::ValuesIn(allShapes),
                         [](const auto& shape) { return std::string(shape.param.name); });
