#include "tests/engine/PocketShapes.h"
#include "tests/engine/Simulated.h"
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>

// Toolpaths of parts that nobody drew. TESSARON_RANDOM_PARTS tells how many parts are tried.

namespace keys = util::keys;
using exchange::Tessaron2dInput;

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

unsigned partsToTry()
{
    const char* const asked = std::getenv("TESSARON_RANDOM_PARTS");
    return asked ? static_cast<unsigned>(std::strtoul(asked, nullptr, 10)) : 30U;
}

class RandomParts : public testing::TestWithParam<unsigned>
{
};

} // namespace

TEST_P(RandomParts, AreCutAsAsked)
{
    const testing_support::Simulated part = testing_support::simulated(randomPart(GetParam()));
    RecordProperty("jobStatus", part.info.status);
    // The tool may be too large for all of a part, or for a way into it.
    if (part.info.state == exchange::JobState::failed)
        EXPECT_EQ(part.info.status, exchange::status::noToolpath) << part.info.text;
    else
        EXPECT_EQ(part.problems(), "");
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomParts, testing::Range(0U, partsToTry()));
