#include "tests/engine/PocketShapes.h"
#include "tests/engine/Simulated.h"
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

// Parts that geometry code gets wrong: what touches, what is nested, what nearly closes, what just fits, what is many,
// huge or tiny.

namespace keys = util::keys;
using exchange::Tessaron2dInput;

namespace
{

struct HardShape
{
    const char* name;
    std::function<Tessaron2dInput()> make;
    /// Places that are in the way of the tool's disc and nowhere clear of its axis by the tolerance.
    std::vector<shapes::Point> tight;
};

std::ostream& operator<<(std::ostream& stream, const HardShape& shape)
{
    return stream << shape.name;
}

class HardShapes : public testing::TestWithParam<HardShape>
{
};

/// A block of 120 x 80 with these loops in it.
Tessaron2dInput blockWith(const exchange::CurveList& loops)
{
    Tessaron2dInput input;
    input.boundaries.materialBoundaries = {shapes::rectangle(0, 0, 120, 80)};
    input.boundaries.partBoundaries = {shapes::rectangle(0, 0, 120, 80)};
    input.boundaries.partBoundaries.insert(input.boundaries.partBoundaries.end(), loops.begin(), loops.end());
    input.parameters = shapes::usualParameters();
    return input;
}

Tessaron2dInput touching()
{
    // Two islands that meet in a corner, and one that stands on the wall with a corner.
    return blockWith({shapes::rectangle(10, 10, 110, 70), shapes::rectangle(30, 30, 45, 40),
                      shapes::rectangle(45, 40, 60, 50),
                      shapes::polyline({{80, 10}, {90, 25}, {80, 40}, {70, 25}, {80, 10}})});
}

Tessaron2dInput touchesItself()
{
    // A figure of eight in one loop, round both rooms in the same sense.
    return blockWith({shapes::polyline({{60, 40}, {20, 65}, {20, 15}, {60, 40}, {100, 15}, {100, 65}, {60, 40}})});
}

Tessaron2dInput nested()
{
    exchange::CurveList loops;
    for (int i = 0; i < 5; ++i)
        loops.push_back(shapes::rectangle(2.0 + 7 * i, 2.0 + 7 * i, 118.0 - 7 * i, 78.0 - 7 * i));
    return blockWith(loops);
}

Tessaron2dInput nearlyClosed()
{
    constexpr double gap = 1e-9;
    return blockWith({shapes::line({10, 10}, {110 - gap, 10}), shapes::line({110, 10 + gap}, {110, 70}),
                      shapes::line({110 - gap, 70 + gap}, {10, 70}), shapes::line({10 - gap, 70}, {10, 10 + gap}),
                      shapes::arc({60, 40}, 12, 0, 3), shapes::arc({60, 40 + gap}, 12, 3, 6.283185307)});
}

Tessaron2dInput slotsOfOneDiameter()
{
    // Two rooms with a slot between, a blind slot, and a slot by itself. The rooms are cut; the slots, which leave no
    // room for the tolerances, are not.
    return blockWith({shapes::polyline({{10, 30},
                                        {40, 30},
                                        {40, 47},
                                        {60, 47},
                                        {60, 30},
                                        {90, 30},
                                        {90, 60},
                                        {78, 60},
                                        {78, 72},
                                        {72, 72},
                                        {72, 60},
                                        {60, 60},
                                        {60, 53},
                                        {40, 53},
                                        {40, 70},
                                        {10, 70},
                                        {10, 30}}),
                      shapes::rectangle(10, 10, 110, 16)});
}

Tessaron2dInput thousandHoles()
{
    Tessaron2dInput input;
    input.boundaries.materialBoundaries = {shapes::rectangle(0, 0, 480, 300)};
    input.boundaries.partBoundaries = {shapes::rectangle(0, 0, 480, 300)};
    for (int row = 0; row < 25; ++row)
        for (int column = 0; column < 40; ++column)
            input.boundaries.partBoundaries.push_back(shapes::circle({6.0 + 12 * column, 6.0 + 12 * row}, 5));
    input.parameters = shapes::usualParameters();
    return input;
}

Tessaron2dInput thousandIslands()
{
    Tessaron2dInput input = thousandHoles();
    input.boundaries.partBoundaries.erase(input.boundaries.partBoundaries.begin());
    input.parameters.set(keys::toolDiameter, 1.8);
    input.parameters.set(keys::stepover, 0.8);
    return input;
}

/// A pocket with islands in another unit of length.
Tessaron2dInput scaled(double factor)
{
    const auto box = [factor](double left, double bottom, double right, double top)
    { return shapes::rectangle(left * factor, bottom * factor, right * factor, top * factor); };
    Tessaron2dInput input;
    input.boundaries.materialBoundaries = {box(0, 0, 100, 80)};
    input.boundaries.partBoundaries = {box(0, 0, 100, 80), box(20, 20, 80, 60), box(56, 34, 66, 46),
                                       shapes::circle({38 * factor, 40 * factor}, 6 * factor)};
    input.parameters = shapes::usualParameters();
    for (const util::Key& key : {keys::toolDiameter, keys::stepover, keys::depthOfCut, keys::zDepth, keys::rapidPlaneZ,
                                 keys::feedrate, keys::cutTolerance})
        input.parameters.set(key, input.parameters.numberOr(key, 0) * factor);
    return input;
}

} // namespace

TEST_P(HardShapes, AreCutAsAsked)
{
    simulator::Options options;
    options.places = GetParam().tight;
    const testing_support::Simulated part = testing_support::simulated(GetParam().make(), options);
    EXPECT_EQ(part.problems(), "");
    EXPECT_EQ(part.info.status, exchange::status::ok);
    EXPECT_GT(part.report.reachableCells, 100U);
}

INSTANTIATE_TEST_SUITE_P(All, HardShapes,
                         testing::Values(HardShape{"touching", touching, {}},
                                         HardShape{"touchesItself", touchesItself, {}}, HardShape{"nested", nested, {}},
                                         HardShape{"nearlyClosed", nearlyClosed, {}},
                                         HardShape{"slotsOfOneDiameter", slotsOfOneDiameter, {}},
                                         HardShape{"thousandHoles", thousandHoles, {}},
                                         HardShape{"thousandIslands", thousandIslands, {}},
                                         HardShape{"huge", [] { return scaled(1e4); }, {}},
                                         HardShape{"tiny", [] { return scaled(1e-4); }, {}},
                                         HardShape{"inch", [] { return scaled(1 / 25.4); }, {}}),
                         [](const auto& shape) { return std::string(shape.param.name); });
