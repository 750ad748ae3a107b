#include "tests/engine/PocketShapes.h"
#include "tests/engine/simulator/Simulation.h"
#include <tessaron/util/Constants.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <vector>

// The simulator finds what is wrong with a toolpath: a path that is right, and the same with one fault each.

namespace keys = util::keys;
using exchange::Arc;
using exchange::FeedRate;
using exchange::LinearMove;
using exchange::RapidMove;
using exchange::SpindleSpeed;
using exchange::ToolpathRecord;

namespace
{

using Records = std::vector<ToolpathRecord>;

geom::PointNd<3> at(double x, double y, double z)
{
    return geom::PointNd<3>(x, y, z);
}

/// A pocket of 16 x 12 in a block, one level of 2 for a tool of 8.
exchange::Tessaron2dInput pocket()
{
    exchange::Tessaron2dInput input;
    input.boundaries.materialBoundaries = {shapes::rectangle(0, 0, 36, 32)};
    input.boundaries.partBoundaries = {shapes::rectangle(0, 0, 36, 32), shapes::rectangle(10, 10, 26, 22)};
    input.parameters = shapes::usualParameters();
    input.parameters.set(keys::toolDiameter, 8.0);
    input.parameters.set(keys::depthOfCut, 2.0);
    input.parameters.set(keys::zDepth, -2.0);
    input.parameters.set(keys::rampAngle, 15.0);
    return input;
}

/// Down a ramp of two lengths in the middle, then round the walls.
Records soundPath()
{
    return {SpindleSpeed{9000},         FeedRate{600},
            RapidMove{at(14, 16, 10)},  RapidMove{at(14, 16, 0.1)},
            LinearMove{at(22, 16, -1)}, LinearMove{at(14, 16, -2)},
            LinearMove{at(14, 14, -2)}, LinearMove{at(22, 14, -2)},
            LinearMove{at(22, 18, -2)}, LinearMove{at(14, 18, -2)},
            LinearMove{at(14, 14, -2)}, RapidMove{at(14, 14, 10)}};
}

simulator::Report reportOf(const Records& records)
{
    exchange::ToolpathRecords toolpath;
    toolpath.records.assign(records.begin(), records.end());
    return simulator::simulate(pocket(), toolpath);
}

struct Faulty
{
    const char* name;
    std::size_t record;
    /// What takes the place of the record; nothing leaves it out.
    Records instead;
    std::size_t simulator::Report::*count;
};

std::ostream& operator<<(std::ostream& stream, const Faulty& faulty)
{
    return stream << faulty.name;
}

class FaultyPaths : public testing::TestWithParam<Faulty>
{
};

} // namespace

TEST(Simulator, FindsNothingWrongWithASoundPath)
{
    const simulator::Report report = reportOf(soundPath());
    EXPECT_EQ(report.problems(), "");
    EXPECT_EQ(report.retracts, 1U);
    EXPECT_GT(report.reachableCells, 300U);
    EXPECT_EQ(report.levels(), std::vector<double>{-2});
    // The first way along the wall is cut wide, the way back to its start is air.
    EXPECT_GT(report.engagement[1] + report.engagement[2], 5);
    EXPECT_GT(report.seconds.ramp, 0);
}

TEST_P(FaultyPaths, AreFound)
{
    Records records = soundPath();
    const auto place = records.erase(records.begin() + static_cast<std::ptrdiff_t>(GetParam().record));
    records.insert(place, GetParam().instead.begin(), GetParam().instead.end());
    const simulator::Report report = reportOf(records);
    EXPECT_GT(report.*GetParam().count, 0U) << report.problems();
}

INSTANTIATE_TEST_SUITE_P(
    All, FaultyPaths,
    testing::Values(
        Faulty{"gougeOfTheWall", 8, {LinearMove{at(22, 18.1, -2)}}, &simulator::Report::gouges},
        Faulty{"gougeByAnArc", 7, {Arc<1>{at(22, 14, -2), 20}}, &simulator::Report::gouges},
        Faulty{"belowTheFloor", 6, {LinearMove{at(14, 14, -2.1)}}, &simulator::Report::gouges},
        Faulty{"insideThePart", 6, {LinearMove{at(4, 4, -2)}}, &simulator::Report::gouges},
        Faulty{"cornerLeft", 8, {LinearMove{at(22, 16, -2)}}, &simulator::Report::uncutCells},
        Faulty{"rapidDownIntoMaterial", 3, {RapidMove{at(14, 16, -1)}}, &simulator::Report::rapidsThroughMaterial},
        Faulty{"rapidAcrossInAir", 10, {RapidMove{at(14, 14, -2)}}, &simulator::Report::lowRapids},
        Faulty{"plunge", 4, {LinearMove{at(14, 16, -1)}}, &simulator::Report::plunges},
        Faulty{"steepRamp", 4, {LinearMove{at(16, 16, -1)}}, &simulator::Report::plunges},
        Faulty{
            "highFeedThroughMaterial", 6, {FeedRate{5000}, LinearMove{at(14, 14, -2)}}, &simulator::Report::fastCuts},
        Faulty{"noFeed", 1, {}, &simulator::Report::unsoundRecords},
        Faulty{"arcTooSmall", 7, {Arc<0>{at(22, 14, -2), 3}}, &simulator::Report::unsoundRecords},
        Faulty{"noNumber", 7, {LinearMove{at(22, std::nan(""), -2)}}, &simulator::Report::unsoundRecords}),
    [](const auto& faulty) { return std::string(faulty.param.name); });

TEST(Simulator, FindsCutsThatAreTooDeep)
{
    exchange::Tessaron2dInput input = pocket();
    input.parameters.set(keys::depthOfCut, 1.5);
    exchange::ToolpathRecords toolpath;
    const Records records = soundPath();
    toolpath.records.assign(records.begin(), records.end());
    EXPECT_GT(simulator::simulate(input, toolpath).deepCuts, 0U);
}

TEST(MachineTime, CountsAccelerationAndCorners)
{
    const simulator::Machine machine{2000, 0.01, 60000};
    const auto seconds = [&](const Records& records)
    {
        exchange::ToolpathRecords toolpath;
        toolpath.records = {SpindleSpeed{1}, FeedRate{6000}, RapidMove{at(0, 0, 0)}};
        toolpath.records.insert(toolpath.records.end(), records.begin(), records.end());
        double sum = 0;
        for (const double part : simulator::secondsOf(simulator::motionsOf(toolpath).all, machine))
            sum += part;
        return sum;
    };
    // 100 mm/s take 50 ms to reach and to leave; half the speed is lost on both ways.
    EXPECT_NEAR(seconds({LinearMove{at(100, 0, 0)}}), 1.05, 1e-9);
    EXPECT_NEAR(seconds({LinearMove{at(60, 0, 0)}, LinearMove{at(100, 0, 0)}}), 1.05, 1e-9);
    // Too short for the speed: up and down in two equal parts.
    EXPECT_NEAR(seconds({LinearMove{at(1, 0, 0)}}), 2 * std::sqrt(1.0 / 2000), 1e-9);
    EXPECT_NEAR(seconds({RapidMove{at(0, 0, 1000)}}), 1.5, 1e-9);
    // There and back stops in between; a right angle slows down to what an arc within the deviation allows.
    EXPECT_NEAR(seconds({LinearMove{at(100, 0, 0)}, LinearMove{at(0, 0, 0)}}), 2.1, 1e-9);
    const double corner = std::sqrt(2000 * 0.01 * std::sqrt(0.5) / (1 - std::sqrt(0.5)));
    EXPECT_NEAR(seconds({LinearMove{at(100, 0, 0)}, LinearMove{at(100, 100, 0)}}),
                2.05 + std::pow(100 - corner, 2) / 2000 / 100, 1e-9);
    // A half circle of 1 mm: no faster than the acceleration across allows.
    const double speed = std::sqrt(2000.0);
    EXPECT_NEAR(seconds({Arc<1>{at(-2, 0, 0), 1}}), util::pi / speed + speed / 2000, 1e-6);
}
