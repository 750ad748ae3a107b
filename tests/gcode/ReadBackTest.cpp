// What was written is read back by an interpreter and compared with the records.
#include "tests/gcode/Interpreter.h"
#include "tests/gcode/Programs.h"
#include "tests/gcode/SampleToolpaths.h"
#include "tests/gcode/ToolpathCheck.h"

#include <clocale>
#include <cmath>
#include <locale>
#include <numbers>
#include <random>

namespace testing_support
{
namespace
{

using exchange::GcodeSettings;
using exchange::ToolpathRecords;
typedef geom::PointNd<3> Point;

constexpr double tolerance = 1e-4;

rs274::Program readBack(const ToolpathRecords& toolpath, const GcodeSettings& settings = GcodeSettings())
{
    return rs274::interpret(written(toolpath, settings), settings.arcCentres == GcodeSettings::ArcCentres::absolute);
}

GcodeSettings inches()
{
    GcodeSettings settings;
    settings.units = GcodeSettings::Units::inches;
    return settings;
}

/// All kinds of moves in any order: long, short and shorter than what the program resolves, near and far from zero.
ToolpathRecords randomToolpath(unsigned seed)
{
    std::mt19937 random(seed);
    const auto number = [&random](double low, double high)
    { return std::uniform_real_distribution<double>(low, high)(random); };
    const double far = seed % 3 == 0 ? 50000 : 0;
    Point at(number(-100, 100) + far, number(-100, 100) - far, 10);
    ToolpathRecords toolpath;
    toolpath.records = {exchange::SpindleSpeed{number(1, 30000)}, exchange::FeedRate{number(1, 9000)},
                        exchange::RapidMove{at}};
    for (int i = 0; i < 300; ++i)
    {
        const double reach = std::pow(10, number(-6, 2));
        const Point end(at[0] + number(-reach, reach), at[1] + number(-reach, reach),
                        i % 3 == 0 ? at[2] : at[2] + number(-reach, reach));
        const double chord = std::hypot(end[0] - at[0], end[1] - at[1]);
        const double half = chord / 2 * (i % 5 == 0 ? 1 : std::pow(10, number(0, 3)));
        // Circles that can be told from a point only: which block belongs to which record is open with smaller ones.
        switch (static_cast<int>(number(0, half > 0.01 ? 8 : 4)))
        {
        case 0:
            toolpath.records.emplace_back(exchange::FeedRate{number(0.01, 9000)});
            continue;
        case 1:
            toolpath.records.emplace_back(exchange::SpindleSpeed{number(1, 30000)});
            continue;
        case 2:
            toolpath.records.emplace_back(exchange::CustomRecord{"Dwell " + std::to_string(number(0.1, 3))});
            continue;
        case 3:
            toolpath.records.emplace_back(i % 2 == 0 ? exchange::ToolpathRecord(exchange::RapidMove{end})
                                                     : exchange::ToolpathRecord(exchange::LinearMove{end}));
            break;
        case 4:
            toolpath.records.emplace_back(exchange::Arc<1>{end, half});
            break;
        case 5:
            toolpath.records.emplace_back(exchange::Arc<0>{end, half});
            break;
        case 6:
            // The longer way round, up to a circle that closes but for a hair.
            toolpath.records.emplace_back(exchange::Arc<1>{end, -half});
            break;
        default:
            toolpath.records.emplace_back(exchange::Arc<0>{end, -half});
        }
        at = end;
    }
    return toolpath;
}

TEST(Gcode, ReadsBackAsTheToolpathsOfAllSamples)
{
    for (const char* const name : samples)
    {
        SCOPED_TRACE(name);
        const ToolpathRecords toolpath = sampleToolpath(name);
        ASSERT_GT(toolpath.records.size(), 100u);
        for (const GcodeSettings& settings : {GcodeSettings(), inches()})
            expectSameToolpath(toolpath, readBack(toolpath, settings), tolerance);
    }
}

TEST(Gcode, ReadsBackAsAnyToolpathInAnyDialect)
{
    GcodeSettings quarters = inches();
    quarters.arcAngle = 90;
    quarters.lineNumbers = 5;
    quarters.splitRapids = false;
    GcodeSettings absolute;
    absolute.arcCentres = GcodeSettings::ArcCentres::absolute;
    absolute.decimals = 6;
    absolute.percent = false;
    const GcodeSettings all[] = {GcodeSettings(), inches(), quarters, absolute};
    for (unsigned seed = 1; seed <= 100; ++seed)
    {
        SCOPED_TRACE(seed);
        const ToolpathRecords toolpath = randomToolpath(seed);
        for (const GcodeSettings& settings : all)
            expectSameToolpath(toolpath, readBack(toolpath, settings), tolerance);
    }
}

TEST(Gcode, IsTheSameInALocaleWithCommas)
{
    struct German : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const ToolpathRecords toolpath = randomToolpath(7);
    GcodeSettings settings;
    settings.lineNumbers = 500;
    settings.dwell = GcodeSettings::DwellUnit::milliseconds;
    const std::string expected = written(toolpath, settings);
    const std::string processBefore = std::setlocale(LC_ALL, nullptr);
    const std::locale streamsBefore = std::locale::global(std::locale(std::locale(), new German));
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // where the system has it
    const std::string inGerman = written(toolpath, settings);
    std::locale::global(streamsBefore);
    std::setlocale(LC_ALL, processBefore.c_str());
    EXPECT_EQ(inGerman, expected);
}

// Ends that are the same after rounding make a full turn of an arc with I and J.
TEST(Gcode, HasNoFullTurnForAnArcThatRoundingCloses)
{
    for (const double length : {1e-7, 1e-5, 4e-5, 6e-5, 1e-4})
        for (const double radius : {6e-5, 1e-3, 5.0, 1e4})
        {
            const auto toolpath = behindGoodOnes(
                {exchange::Arc<1>{Point(length, 0, 0), radius}, exchange::Arc<0>{Point(length, length, 0), radius}});
            for (const rs274::Motion& motion : readBack(toolpath).motions)
                EXPECT_TRUE(!motion.isArc() || motion.turn() < 4) << length << " " << radius;
        }
}

TEST(Gcode, SplitsArcsAtTheGreatestTurn)
{
    const Point end(0, 0.01, -2);
    for (const int angle : {180, 90, 45})
    {
        GcodeSettings settings;
        settings.arcAngle = angle;
        const rs274::Program program = readBack(behindGoodOnes({exchange::Arc<0>{end, -8}}), settings);
        // All but a hair of a full turn.
        ASSERT_EQ(program.motions.size(), 2 + 360u / static_cast<unsigned>(angle));
        for (std::size_t i = 2; i < program.motions.size(); ++i)
            EXPECT_LE(program.motions[i].turn(), angle * std::numbers::pi / 180 + 1e-4);
    }
    // A half turn of a helix is one block, and its radius may be short by what a control does not see.
    for (const double radius : {5.0, 4.9995})
        EXPECT_EQ(readBack(behindGoodOnes({exchange::Arc<1>{Point(10, 0, -1), radius}})).motions.size(), 3u);
}

TEST(Gcode, GoesUpBeforeItGoesAcrossAndDownAfterwards)
{
    const auto toolpath = behindGoodOnes({exchange::RapidMove{Point(5, 5, 20)}, exchange::RapidMove{Point(9, 9, 3)}});
    const rs274::Program program = readBack(toolpath);
    // The way in: across at the height of the retract block, which is not known, and down.
    ASSERT_EQ(program.motions.size(), 6u);
    EXPECT_TRUE(std::isnan(program.motions[0].end[2]));
    EXPECT_EQ(program.motions[1].end, (rs274::Place{0, 0, 0}));
    EXPECT_EQ(program.motions[2].end, (rs274::Place{0, 0, 20}));
    EXPECT_EQ(program.motions[3].end, (rs274::Place{5, 5, 20}));
    EXPECT_EQ(program.motions[4].end, (rs274::Place{9, 9, 20}));
    EXPECT_EQ(program.motions[5].end, (rs274::Place{9, 9, 3}));
}

TEST(Gcode, StartsAndStopsWhatTurnsAndFlows)
{
    GcodeSettings settings;
    settings.tool = 4;
    settings.coolant = GcodeSettings::Coolant::flood;
    settings.spindle = GcodeSettings::Spindle::counterClockwise;
    const auto toolpath = behindGoodOnes({exchange::LinearMove{Point(1, 0, 0)}, exchange::CustomRecord{"Coolant mist"},
                                          exchange::LinearMove{Point(2, 0, 0)}, exchange::CustomRecord{"Tool 4"},
                                          exchange::LinearMove{Point(3, 0, 0)}, exchange::CustomRecord{"Tool 7"},
                                          exchange::RapidMove{Point(3, 0, 5)}, exchange::LinearMove{Point(3, 0, 0)},
                                          exchange::CustomRecord{"Coolant off"}, exchange::LinearMove{Point(4, 0, 0)}});
    const rs274::Program program = readBack(toolpath, settings);
    EXPECT_EQ(program.tools, (std::vector<int>{4, 7}));
    std::vector<int> coolant;
    std::vector<int> tools;
    for (const rs274::Motion& motion : program.motions)
        if (motion.kind == rs274::Motion::Kind::line)
        {
            coolant.push_back(motion.coolant);
            tools.push_back(motion.tool);
            EXPECT_EQ(motion.spindle, -5000);
        }
    EXPECT_EQ(coolant, (std::vector<int>{8, 7, 7, 7, 9}));
    EXPECT_EQ(tools, (std::vector<int>{4, 4, 4, 7, 7}));
    EXPECT_EQ(program.spindleAtEnd, 0);
    EXPECT_EQ(program.coolantAtEnd, 9);
    expectSameToolpath(toolpath, program, tolerance, -1);
}

TEST(Gcode, OfAnEmptyToolpathMovesNothing)
{
    EXPECT_TRUE(readBack(ToolpathRecords()).motions.empty());
}

} // namespace
} // namespace testing_support
