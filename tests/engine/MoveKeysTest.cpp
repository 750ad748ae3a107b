#include "tests/engine/PocketShapes.h"
#include "tests/engine/Simulated.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

// What the keys of entries, links, leads and arcs do to a toolpath, and what a job says of those it does not use.

namespace keys = util::keys;
using exchange::JobFinding;
using exchange::JobState;
using exchange::Tessaron2dInput;

namespace
{

struct Outcome : testing_support::Simulated
{
    bool has(int code, const std::string& text) const
    {
        return std::any_of(info.findings.begin(), info.findings.end(),
                           [&](const JobFinding& finding)
                           { return finding.code == code && finding.text.find(text) != std::string::npos; });
    }
};

Outcome run(const Tessaron2dInput& input)
{
    return {testing_support::simulated(input)};
}

/// What the moves of a toolpath are like.
struct Moves
{
    int lines = 0;
    int arcs = 0;
    /// Arcs and slanting lines that go down.
    int helixArcs = 0;
    int ramps = 0;
    /// Straight down at feed.
    int plunges = 0;
    int dwells = 0;
    double longestLine = 0;
    /// Heights at which rapids run across.
    std::set<double> rapidHeights;
    std::set<double> feeds;
    geom::PointNd<3> first;
    geom::PointNd<3> last;
};

class Counter : public boost::static_visitor<void>
{
public:
    explicit Counter(Moves& moves) : m_moves(moves) {}

    void operator()(const exchange::RapidMove& move)
    {
        if (m_started && across(move.endPt) > 0)
            m_moves.rapidHeights.insert(move.endPt[2]);
        moveTo(move.endPt);
    }
    void operator()(const exchange::LinearMove& move)
    {
        const double way = across(move.endPt);
        const bool down = move.endPt[2] < m_moves.last[2] - 1e-9;
        ++m_moves.lines;
        if (down)
            ++(way > 0 ? m_moves.ramps : m_moves.plunges);
        m_moves.longestLine = std::max(m_moves.longestLine, way);
        moveTo(move.endPt);
    }
    void operator()(const exchange::Arc<1>& arc) { turnTo(arc.endPt); }
    void operator()(const exchange::Arc<0>& arc) { turnTo(arc.endPt); }
    void operator()(const exchange::FeedRate& feed) { m_moves.feeds.insert(feed.feedrate); }
    void operator()(const exchange::CustomRecord&) { ++m_moves.dwells; }
    template <class Other>
    void operator()(const Other&)
    {
    }

private:
    double across(const geom::PointNd<3>& to) const
    {
        return std::hypot(to[0] - m_moves.last[0], to[1] - m_moves.last[1]);
    }
    void turnTo(const geom::PointNd<3>& to)
    {
        ++m_moves.arcs;
        if (to[2] < m_moves.last[2] - 1e-9)
            ++m_moves.helixArcs;
        moveTo(to);
    }
    void moveTo(const geom::PointNd<3>& to)
    {
        if (!m_started)
            m_moves.first = to;
        m_started = true;
        m_moves.last = to;
    }

    Moves& m_moves;
    bool m_started = false;
};

Moves movesOf(const Outcome& outcome)
{
    Moves moves;
    Counter counter(moves);
    if (outcome.toolpath)
        for (const exchange::ToolpathRecord& record : outcome.toolpath->records)
            boost::apply_visitor(counter, record);
    return moves;
}

using Values = std::vector<std::pair<util::Key, util::Parameterized::Value>>;

Tessaron2dInput with(Tessaron2dInput input, const Values& values)
{
    for (const auto& [key, value] : values)
        input.parameters.set(key, value);
    return input;
}

/// The moves of a job that succeeds and is safe.
Moves safeMoves(const Tessaron2dInput& input)
{
    const Outcome outcome = run(input);
    EXPECT_EQ(outcome.info.state, JobState::finished) << outcome.info.text;
    if (!outcome.toolpath)
        return {};
    EXPECT_EQ(outcome.problems(), "");
    return movesOf(outcome);
}

Tessaron2dInput boss()
{
    Tessaron2dInput input;
    input.boundaries.materialBoundaries = {shapes::rectangle(0, 0, 60, 40)};
    input.boundaries.partBoundaries = {shapes::circle({30, 20}, 9)};
    input.parameters = shapes::usualParameters();
    return input;
}

Tessaron2dInput withHole(Tessaron2dInput input, const shapes::Point& centre, double depth, bool through)
{
    exchange::TessaronDrillHole hole;
    hole.center = centre;
    hole.usableDepth = depth;
    hole.through = through;
    input.preDrilledHoles.holes.push_back(hole);
    return input;
}

} // namespace

TEST(Entries, GoDownAsAsked)
{
    enum class Way
    {
        helix,
        ramp,
        plunge,
        side,
    };
    const Tessaron2dInput pocket = shapes::squarePocket();
    const struct
    {
        const char* name;
        Tessaron2dInput input;
        Way way;
    } cases[] = {
        {"helix where one fits", pocket, Way::helix},
        {"no helix wanted", with(pocket, {{keys::plungeHelix, 0}}), Way::ramp},
        {"a helix that does not fit", with(pocket, {{keys::plungeRadius, 40.0}}), Way::ramp},
        {"ramp", with(pocket, {{keys::plungeType, 2}}), Way::ramp},
        {"ramp the other way round", with(pocket, {{keys::plungeType, 2}, {keys::toolpathCcw, 0}}), Way::ramp},
        {"steep ramp", with(pocket, {{keys::plungeType, 2}, {keys::rampAngle, 30.0}}), Way::ramp},
        {"helix asked for", with(pocket, {{keys::plungeType, 3}, {keys::plungeRadius, 1.5}}), Way::helix},
        {"straight down", with(pocket, {{keys::plungeType, 1}}), Way::plunge},
        {"a hole", with(withHole(pocket, {50, 40}, 5, false), {{keys::drillDiameter, 6.5}}), Way::plunge},
        {"from beside the stock", with(boss(), {{keys::plungeType, 0}}), Way::side},
        {"from an open side", with(shapes::openSided(), {{keys::plungeType, 0}}), Way::side},
        {"level by level", with(pocket, {{keys::depthFirst, 0}}), Way::helix},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(test.name);
        if (test.way == Way::plunge)
        {
            const Outcome outcome = run(test.input);
            ASSERT_TRUE(outcome.toolpath) << outcome.info.text;
            const Moves moves = movesOf(outcome);
            EXPECT_EQ(moves.ramps + moves.helixArcs, 0);
            EXPECT_EQ(moves.plunges, 2) << "one for each level";
            EXPECT_EQ(outcome.report.plunges, test.input.preDrilledHoles.holes.empty() ? 2U : 0U);
            EXPECT_EQ(outcome.report.gouges + outcome.report.uncutCells, 0U) << outcome.problems();
            continue;
        }
        const Moves moves = safeMoves(test.input);
        EXPECT_EQ(moves.helixArcs > 0, test.way == Way::helix);
        EXPECT_EQ(moves.ramps > 0, test.way == Way::ramp);
    }
}

TEST(Entries, WhatCannotBeEnteredIsLeftOutAndTold)
{
    const Outcome nothing = run(with(shapes::squarePocket(), {{keys::plungeType, 0}}));
    EXPECT_EQ(nothing.info.status, exchange::status::noToolpath);
    // A closed pocket beside an open one.
    Tessaron2dInput input = shapes::openSided();
    input.boundaries.materialBoundaries.push_back(shapes::rectangle(100, 0, 160, 40));
    input.boundaries.partBoundaries.push_back(shapes::rectangle(100, 0, 160, 40));
    input.boundaries.partBoundaries.push_back(shapes::rectangle(110, 10, 150, 30));
    const Outcome some = run(with(input, {{keys::plungeType, 0}}));
    EXPECT_EQ(some.info.state, JobState::finished);
    EXPECT_EQ(some.info.status, exchange::status::toolpathDiscarded);
    EXPECT_TRUE(some.has(exchange::status::toolpathDiscarded, "Plunge Type = None"));
    EXPECT_EQ(run(input).info.status, exchange::status::ok);
}

TEST(Entries, PreDrilledHolesMustBeOfUse)
{
    const Tessaron2dInput pocket = with(shapes::squarePocket(), {{keys::plungeType, 4}});
    const Values drill = {{keys::drillDiameter, 6.5}};
    const Tessaron2dInput middle = withHole(pocket, {50, 40}, 5, false);
    const struct
    {
        const char* name;
        Tessaron2dInput input;
        int status;
    } cases[] = {
        {"not a number", withHole(pocket, {std::nan(""), 40}, 5, false), -1025},
        {"negative depth", withHole(pocket, {50, 40}, -1, false), -1025},
        {"no diameter", middle, -1026},
        {"too far from the cut", with(middle, {{keys::drillDiameter, 6.5}, {keys::drillPointRange, 0.0}}), -1027},
        {"too close to the wall", with(withHole(pocket, {24.5, 40}, 5, false), drill), -1028},
        {"in the part", with(withHole(pocket, {5, 5}, 5, false), drill), -1028},
        {"gouges the wall", with(middle, {{keys::drillDiameter, 41.0}}), -1029},
        {"nothing to cut", with(middle, {{keys::drillDiameter, 6.5}, {keys::zDepth, 0.0}}), -1030},
        {"usable", with(middle, drill), 0},
    };
    for (const auto& test : cases)
    {
        const Outcome outcome = run(test.input);
        EXPECT_EQ(outcome.info.status, test.status) << test.name << ": " << outcome.info.text;
    }
    // Where holes were not asked for, useless ones are named and left alone.
    const Outcome left = run(with(withHole(shapes::squarePocket(), {50, 40}, 2, false), drill));
    EXPECT_EQ(left.info.status, 0);
    EXPECT_TRUE(left.has(exchange::finding::notUsed, "(50, 40) does not reach the floor"));
    const Outcome proposed = run(with(shapes::squarePocket(), {{keys::detectOptimalPreDrillPoints, 1}}));
    ASSERT_TRUE(proposed.has(exchange::finding::preDrillPlace, "drilled at"));
    EXPECT_NEAR(proposed.info.findings.front().x, 50, 15);
    EXPECT_NEAR(proposed.info.findings.front().y, 40, 15);
}

TEST(Links, AreRapidsOrHighFeedMovesAsPreferred)
{
    const Tessaron2dInput input = with(shapes::manyIslands(3), {{keys::highFeedrate, 4000.0}});
    const auto retracts = [](const Tessaron2dInput& job)
    {
        const Outcome outcome = run(job);
        EXPECT_EQ(outcome.problems(), "");
        return outcome.report.retracts;
    };
    const std::size_t rapids = retracts(with(input, {{keys::rapidVsHighFeed, 0.0}}));
    const std::size_t weighed = retracts(with(input, {{keys::rapidVsHighFeed, 0.5}}));
    const std::size_t highFeed = retracts(with(input, {{keys::rapidVsHighFeed, 1.0}}));
    EXPECT_GT(rapids, highFeed);
    EXPECT_LE(highFeed, weighed);
    EXPECT_LE(weighed, rapids);
    EXPECT_EQ(safeMoves(input).feeds.count(4000.0), 1U);
}

TEST(Links, RunAtTheHeightsAskedFor)
{
    const Tessaron2dInput input = shapes::twoPockets();
    const auto heights = [&](const Values& values) { return movesOf(run(with(input, values))).rapidHeights; };
    EXPECT_EQ(heights({}), (std::set<double>{10}));
    EXPECT_EQ(heights({{keys::materialClearance, 2.0}}), (std::set<double>{2}));
    EXPECT_EQ(heights({{keys::materialClearance, 2.0}, {keys::minimumClearance, 3.0}}), (std::set<double>{3}));
    EXPECT_EQ(heights({{keys::materialClearance, 2.0}, {keys::rapidAtRapidPlane, 1}}), (std::set<double>{10}));
    const Moves moves = movesOf(run(with(input, {{keys::initialRapidPlaneZ, 30.0},
                                                 {keys::finalRapidPlaneZ, 40.0},
                                                 {keys::fromPointSelected, 1.0},
                                                 {keys::fromPointX, -7.0},
                                                 {keys::fromPointY, 5.0},
                                                 {keys::goHomePointSelected, 1},
                                                 {keys::goHomePointX, 100.0},
                                                 {keys::goHomePointY, -50.0}})));
    EXPECT_NEAR(moves.first[0], -7, 1e-6);
    EXPECT_NEAR(moves.first[1], 5, 1e-6);
    EXPECT_EQ(moves.first[2], 30);
    EXPECT_EQ(moves.last, geom::PointNd<3>(100, -50, 40));
    EXPECT_EQ(moves.rapidHeights, (std::set<double>{10, 30, 40}));
}

TEST(Feeds, AreThoseOfTheMoves)
{
    const Moves moves = safeMoves(with(shapes::islandPocket(), {{keys::rampFeedrate, 300.0},
                                                                {keys::adjustFeedRateForHelixPlungeType, 1.5},
                                                                {keys::feedrateEntryFactor, 0.5},
                                                                {keys::slotFeedrate, 333.0}}));
    const std::set<double> known = {300, 333, 400, 450, 800, 4000};
    EXPECT_TRUE(std::includes(known.begin(), known.end(), moves.feeds.begin(), moves.feeds.end()));
    EXPECT_EQ(moves.feeds.count(450), 1U) << "helix";
    EXPECT_EQ(moves.feeds.count(400), 1U) << "lead";
    EXPECT_EQ(movesOf(run(with(shapes::squarePocket(), {{keys::dwellAfterPlunge, 0.5}}))).dwells, 2);
}

TEST(Leads, AreArcsUnlessTurnedOff)
{
    const int both = safeMoves(shapes::squarePocket()).arcs;
    const int none = safeMoves(with(shapes::squarePocket(), {{keys::motionStartCutting, 0}})).arcs;
    const int in = safeMoves(with(shapes::squarePocket(), {{keys::motionEndCutting, 0}})).arcs;
    // A square has no other arcs than those of the two helices and the leads, one pair for each level.
    EXPECT_EQ(both, none + 4);
    EXPECT_EQ(in, none + 2);
    EXPECT_EQ(run(with(shapes::squarePocket(), {{keys::motionStartCutting, 5}})).info.status, -1035);
    EXPECT_EQ(run(with(shapes::squarePocket(), {{keys::motionEndCutting, 5}})).info.status, -1036);
}

TEST(Arcs, BecomeLinesWhenAsked)
{
    const Moves arcs = safeMoves(shapes::islandPocket());
    const Values lines = {{keys::linearizationMode, 1}, {keys::plungeType, 2}, {keys::motionStartCutting, 0}};
    const Moves linear = safeMoves(with(shapes::islandPocket(), lines));
    EXPECT_EQ(linear.arcs, 0);
    EXPECT_GT(linear.lines, 2 * (arcs.arcs + arcs.lines));
    Values shortLines = lines;
    shortLines.emplace_back(keys::maximumSegmentLength, 2.0);
    EXPECT_LE(safeMoves(with(shapes::islandPocket(), shortLines)).longestLine, 2.0 + 1e-9);
}

TEST(FinishPass, TakesTheStockLeftForIt)
{
    const Tessaron2dInput pocket = with(shapes::squarePocket(), {{keys::motionStartCutting, 0}});
    const Outcome plain = run(pocket);
    const Outcome radial = run(with(pocket, {{keys::partRadialStock, 0.3}}));
    const Outcome axial = run(with(pocket, {{keys::partAxialStock, 0.2}}));
    for (const Outcome* const outcome : {&plain, &radial, &axial})
        ASSERT_EQ(outcome->problems(), "");
    // How far the last two passes along the left wall are apart where they cross the middle.
    const auto last = [](const Outcome& outcome)
    {
        std::set<double> crossings;
        for (const simulator::Motion& motion : simulator::motionsOf(*outcome.toolpath).all)
            if (motion.start[2] == -5 && motion.end[2] == -5 && (motion.start[1] < 47.7) != (motion.end[1] < 47.7))
                crossings.insert(motion.start[0]);
        return *std::next(crossings.begin()) - *crossings.begin();
    };
    EXPECT_NEAR(last(plain), 2.4, 0.03);
    EXPECT_NEAR(last(radial), 0.3, 0.03);
    EXPECT_EQ(radial.report.levels().size(), 2U);
    ASSERT_EQ(axial.report.levels().size(), 3U);
    EXPECT_NEAR(axial.report.levels()[1], -4.8, 1e-9);
}

TEST(Findings, NameWhatIsSetAndNotUsed)
{
    Tessaron2dInput input = shapes::squarePocket();
    input.parameters.set("Feed rate", 500.0);
    input.parameters.set("Shoe Size", 43);
    input.parameters.set(keys::holderClearance, 2.0);
    input.parameters.set(keys::templateName, std::string("Roughing"));
    input.parameters.set(keys::depthFirst, 1.0);
    const struct
    {
        int code;
        const char* text;
    } expected[] = {
        {exchange::finding::unknownKey, "did you mean \"Feedrate\"?"},
        {exchange::finding::unknownKey, "\"Shoe Size\" is not a parameter that this job knows."},
        {exchange::finding::notUsed, "\"Holder Clearance\" is set and not used"},
    };
    const exchange::JobInputProblem check = exchange::checkJobInput(input);
    EXPECT_EQ(check.status, 0) << check.text;
    EXPECT_EQ(check.findings.size(), std::size(expected));
    const Outcome outcome = run(input);
    EXPECT_EQ(outcome.info.findings.size(), std::size(expected));
    EXPECT_EQ(outcome.info.status, 0) << "the toolpath itself needs no review";
    for (const auto& finding : expected)
        EXPECT_TRUE(outcome.has(finding.code, finding.text)) << finding.text;
    EXPECT_TRUE(exchange::checkJobInput(shapes::squarePocket()).findings.empty());
}

TEST(Findings, TellWhereTheToolDoesNotGetAndWhatItsShapeLeaves)
{
    Tessaron2dInput input = shapes::twoPockets();
    input.boundaries.partBoundaries.push_back(shapes::circle({105, 30}, 2));
    const Outcome outcome = run(input);
    EXPECT_EQ(outcome.info.state, JobState::finished);
    ASSERT_EQ(outcome.info.findings.size(), 1U);
    const JobFinding& finding = outcome.info.findings.front();
    EXPECT_EQ(finding.code, exchange::finding::notReached);
    EXPECT_TRUE(finding.hasPlace);
    EXPECT_NEAR(finding.x, 105, 0.1);
    EXPECT_NEAR(finding.y, 30, 0.1);
    EXPECT_EQ(run(with(shapes::squarePocket(), {{keys::toolCornerRadius, 2.0}})).info.status,
              exchange::status::scallopsLeft);
    EXPECT_EQ(run(with(shapes::squarePocket(), {{keys::toolCornerRadius, 1.5}})).info.status, 0);
}
