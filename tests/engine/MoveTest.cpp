#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/moves/ArcFitter.h"
#include "engine/pocketing/moves/ClearedRoom.h"
#include "engine/pocketing/moves/LoopTree.h"
#include "engine/pocketing/moves/PlaneMove.h"
#include "engine/pocketing/moves/RecordWriter.h"
#include "engine/pocketing/moves/Tour.h"

#include "engine/jobs/JobError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <random>
#include <string>

// Moves as geometry: tracks, arcs in place of points, their check against the boundaries, tours, records.

using namespace exchange::pocketing;
using exchange::jobs::CancelFlag;
using exchange::jobs::JobError;

namespace
{

const double pi = std::acos(-1.0);

Path square(ClipperLib::cInt left, ClipperLib::cInt bottom, ClipperLib::cInt size)
{
    return {{left, bottom}, {left + size, bottom}, {left + size, bottom + size}, {left, bottom + size}};
}

Path polygon(double radius, int corners, double from, double to)
{
    Path path;
    for (int i = 0; i < corners; ++i)
    {
        const double angle = from + (to - from) * i / corners;
        path.emplace_back(std::llround(radius * std::cos(angle)), std::llround(radius * std::sin(angle)));
    }
    return path;
}

Track trackOf(const Path& path)
{
    return fitArcs(path, 0, [](const PlaneMove&) { return true; });
}

PlaneMove arcOf(const Vec& centre, double radius, double from, double to)
{
    const auto at = [&](double angle) { return centre + Vec{radius * std::cos(angle), radius * std::sin(angle)}; };
    return {at(from), at(to), centre, to > from ? Turn::left : Turn::right};
}

} // namespace

TEST(PlaneMove, DistancesAgreeWithSamples)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> coordinate(-1000, 1000);
    std::uniform_real_distribution<double> angle(0.1, 6.0);
    const auto place = [&] { return Vec{coordinate(random), coordinate(random)}; };
    for (int i = 0; i < 400; ++i)
    {
        const double from = angle(random);
        const double sweep = angle(random) * (i % 4 < 2 ? 1 : -1);
        const PlaneMove move = i % 5 == 0 ? lineTo(place(), place())
                                          : arcOf(place(), std::fabs(coordinate(random)) + 1, from, from + sweep);
        EXPECT_NEAR(move.length(), i % 5 == 0 ? norm(move.end - move.start) : std::fabs(sweep) * move.radius(), 1e-6);
        const Vec a = place();
        const Vec b = place();
        double nearest = 1e300;
        const Box box = move.box();
        for (int k = 0; k <= 400; ++k)
        {
            const Vec at = move.at(k / 400.0);
            EXPECT_TRUE(at.x > box.left - 1e-6 && at.x < box.right + 1e-6 && at.y > box.bottom - 1e-6 &&
                        at.y < box.top + 1e-6);
            nearest = std::min(nearest, lineTo(a, b).distanceTo(at, at));
            EXPECT_LE(norm(move.nearestPlace(a) - a), norm(at - a) + 1e-6);
        }
        const double distance = move.distanceTo(a, b);
        EXPECT_LE(distance, nearest + 1e-6);
        EXPECT_GE(distance, nearest - move.length() / 400);
        EXPECT_NEAR(norm(move.at(move.nearestPart(a)) - move.nearestPlace(a)), 0, 1e-6);
    }
}

TEST(PlaneMove, ASpeckOfAnArcIsNoWholeTurn)
{
    const PlaneMove arc = arcOf({1.5e7, 9e5}, 1.5e7, 1.2, 2.9);
    for (const double part : {0.0, 0.25, 0.5, 1 - 1e-16, 1.0})
        for (const double width : {0.0, 1e-17, 1e-16, 1e-12, 1e-9})
        {
            const PlaneMove speck = arc.piece(std::max(0.0, part - width), part);
            EXPECT_LT(speck.length(), 1) << part << " " << width;
        }
}

TEST(Track, StartsAnywhereAndRunsUpAsLongAsAsked)
{
    const Track loop = trackOf(square(0, 0, 100));
    const TrackPlace start = nearestOn(loop, {30, -20});
    EXPECT_EQ(start.place, (Vec{30, 0}));
    EXPECT_EQ(start.distance, 20);
    const Track round = startingAt(loop, start);
    EXPECT_EQ(round.front().start, (Vec{30, 0}));
    EXPECT_EQ(round.back().end, (Vec{30, 0}));
    EXPECT_NEAR(lengthOf(round), 400, 1e-9);
    for (const double distance : {10.0, 250.0, 400.0, 1250.0})
    {
        const Track run = runUp(round, distance);
        EXPECT_NEAR(lengthOf(run), distance, 1e-9);
        EXPECT_EQ(run.back().end, (Vec{30, 0}));
        for (std::size_t i = 1; i < run.size(); ++i)
            EXPECT_EQ(run[i].start, run[i - 1].end);
    }
}

TEST(ArcFitter, ArcsTakeThePlaceOfPointsWithinTheTolerance)
{
    const auto anything = [](const PlaneMove&) { return true; };
    // A half disc: one bow and one chord.
    Path half = polygon(100000, 90, 0, pi);
    half.emplace_back(-100000, 0);
    const struct
    {
        const char* name;
        Path path;
        double tolerance;
        std::size_t mostMoves;
        std::size_t arcs;
    } cases[] = {
        {"circle", polygon(100000, 180, 0, 2 * pi), 20, 4, 3},
        {"half disc", half, 20, 4, 2},
        {"square", square(0, 0, 100000), 20, 4, 0},
        {"no tolerance", polygon(100000, 180, 0, 2 * pi), 0, 180, 0},
        {"octagon", polygon(100000, 8, 0, 2 * pi), 20, 8, 0},
    };
    for (const auto& test : cases)
    {
        const Track track = fitArcs(test.path, test.tolerance, anything);
        EXPECT_LE(track.size(), test.mostMoves) << test.name;
        EXPECT_EQ(static_cast<std::size_t>(std::count_if(
                      track.begin(), track.end(), [](const PlaneMove& move) { return move.turn != Turn::none; })),
                  test.arcs)
            << test.name;
        for (std::size_t i = 0; i < track.size(); ++i)
            EXPECT_EQ(track[i].end, track[(i + 1) % track.size()].start) << test.name;
        for (const IntPoint& point : test.path)
            EXPECT_LE(nearestOn(track, toVec(point)).distance, test.tolerance + 1e-6) << test.name;
        for (const PlaneMove& move : track)
            EXPECT_LT(move.sweep(), 3.0) << "a control may take an arc of more for its other half";
    }
    // What an arc would gouge stays as lines.
    const Track kept =
        fitArcs(polygon(100000, 180, 0, 2 * pi), 20, [](const PlaneMove& move) { return move.turn == Turn::none; });
    EXPECT_EQ(kept.size(), 180U);
}

TEST(GougeCheck, FindsEveryKindOfGouge)
{
    const GougeCheck check({square(40000, 40000, 20000)}, {square(0, 0, 100000)}, 1000);
    EXPECT_NO_THROW(check.check(trackOf(square(10000, 10000, 20000))));
    // The edge of the stock is no wall.
    EXPECT_NO_THROW(check.check(trackOf(square(-500, -500, 101000))));
    const std::map<const char*, Track> gouging = {
        {"too near to the part", trackOf(square(10000, 10000, 29300))},
        {"through a corner of the part", trackOf({{39000, 50000}, {50000, 39000}, {30000, 30000}})},
        {"inside the part", trackOf(square(45000, 45000, 5000))},
        {"a bow into the part", {arcOf({50000, 30000}, 10000, 0.5, 2.5), lineTo({0, 0}, {0, 0})}},
    };
    for (const auto& [name, track] : gouging)
        EXPECT_THROW(check.check(track), JobError) << name;
    EXPECT_TRUE(check.isAir({-1500, 5000}, 1000));
    EXPECT_FALSE(check.isAir({-500, 5000}, 1000));
    EXPECT_FALSE(check.isAir({5000, 5000}, 1000));
    EXPECT_EQ(check.distanceToPart({38500, 50000}, 5000), 1500);
    EXPECT_EQ(check.distanceToPart({10000, 50000}, 5000), 5000);
}

TEST(ClearedRoom, IsWhereTheWholeDiscHasBeenOrThereIsNoStock)
{
    const GougeCheck walls({square(-90000, -90000, 1000)}, {square(0, 0, 100000)}, 1000);
    ClearedRoom room(walls, 1000);
    room.add({lineTo({5000, 5000}, {60000, 5000})});
    room.add({lineTo({5000, 6500}, {60000, 6500}), arcOf({60000, 16500}, 10000, -pi / 2, 0)});
    const struct
    {
        Vec place;
        bool clear;
    } places[] = {
        {{30000, 5000}, true},
        {{30000, 4800}, false},
        {{30000, 5750}, true},
        {{70000, 16500}, true},
        {{80000, 50000}, false},
        {{50000, 101200}, true},
        {{50000, 100500}, false},
        // Half of the disc is in the air, the other half in a strip along the edge that nothing has cut.
        {{50000, 100000}, false},
    };
    for (const auto& test : places)
        EXPECT_EQ(room.isClear(test.place), test.clear) << test.place.x << ", " << test.place.y;
    const auto pieces = room.split(lineTo({30000, 5000}, {30000, 40000}));
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_TRUE(pieces[0].first);
    EXPECT_NEAR(pieces[0].second.end.y, 6500, 300);
    EXPECT_EQ(pieces[1].second.start, pieces[0].second.end);
    room.clear();
    EXPECT_FALSE(room.isClear({30000, 5000}));
}

TEST(Tour, IsNoLongerThanNearestNeighbourAndFarShorterThanTheGivenOrder)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> coordinate(0, 1000);
    const CancelFlag cancel;
    for (const int count : {1, 2, 7, 400})
    {
        std::vector<Vec> places;
        places.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            places.push_back({coordinate(random), coordinate(random)});
        const std::vector<std::size_t> tour = shortTour(places, {0, 0}, cancel);
        std::vector<std::size_t> all = tour;
        std::sort(all.begin(), all.end());
        std::vector<std::size_t> expected(places.size());
        std::iota(expected.begin(), expected.end(), 0U);
        ASSERT_EQ(all, expected);
        double length = 0;
        Vec at{0, 0};
        for (const std::size_t i : tour)
        {
            length += norm(places[i] - at);
            at = places[i];
        }
        // The best tour through n random places of a square of the side a is about 0.7124 a sqrt(n) long (Beardwood,
        // Halton and Hammersley 1959); nearest neighbour alone takes a quarter more.
        if (count == 400)
        {
            EXPECT_LT(length, 1.12 * 0.7124 * 1000 * std::sqrt(400.0));
        }
    }
    // Two rows: the way along one and back along the other has no link longer than the gap.
    std::vector<Vec> rows;
    rows.reserve(20);
    for (int i = 0; i < 20; ++i)
        rows.push_back({10.0 * (i % 10), i < 10 ? 0.0 : 10.0});
    Vec at{0, 0};
    for (const std::size_t i : shortTour(rows, at, cancel))
    {
        EXPECT_LE(norm(rows[i] - at), 10.01);
        at = rows[i];
    }
}

TEST(LoopTree, CutsEveryLoopOnceAndComesBack)
{
    // Three rows of squares a gap apart, one far away, and one behind a wall.
    std::vector<Track> squares;
    for (const int y : {0, 1200, 2400})
        for (const int x : {0, 1200, 2400, 3600, 4800})
            squares.push_back(trackOf(square(x, y, 1000)));
    squares.push_back(trackOf(square(20000, 0, 1000)));
    squares.push_back(trackOf(square(0, 3600, 1000)));
    std::vector<const Track*> loops;
    loops.reserve(squares.size());
    for (const Track& loop : squares)
        loops.push_back(&loop);
    const GougeCheck walls({{{-5000, 3450}, {9000, 3450}, {9000, 3550}, {-5000, 3550}}},
                           {square(-50000, -50000, 100000)}, 40);
    const CancelFlag cancel;
    const LoopTree tree(loops, walls, 300, cancel);
    ASSERT_EQ(tree.groups().size(), 3U);
    for (const std::vector<std::size_t>& group : tree.groups())
    {
        const TrackPlace start = nearestOn(*loops[group.front()], {300, -50});
        double cut = 0;
        int ways = 0;
        Vec at = start.place;
        const auto follow = [&at](const PlaneMove& move)
        {
            EXPECT_NEAR(norm(move.start - at), 0, 1e-6);
            at = move.end;
        };
        tree.goRound(
            group.front(), start,
            [&](const Track& piece)
            {
                cut += lengthOf(piece);
                for (const PlaneMove& move : piece)
                    follow(move);
            },
            [&](const PlaneMove& way, bool outward)
            {
                ways += outward ? 1 : -1;
                EXPECT_LE(way.length(), 300);
                follow(way);
            });
        EXPECT_NEAR(cut, 4000.0 * static_cast<double>(group.size()), 1e-6);
        EXPECT_EQ(ways, 0);
        EXPECT_NEAR(norm(at - start.place), 0, 1e-6);
    }
}

TEST(RecordWriter, WritesEveryKindOfMove)
{
    const std::vector<Move> moves = {
        {Purpose::rapid, lineTo({0, 0}, {10, 0}), 5, 0},
        {Purpose::helix, {{10, 0}, {-10, 0}, {0, 0}, Turn::left}, 2, 0},
        {Purpose::helix, {{-10, 0}, {10, 0}, {0, 0}, Turn::left}, -1, 0.5},
        {Purpose::cut, lineTo({10, 0}, {40, 0}), -1, 0},
        {Purpose::cut, {{40, 0}, {30, -10}, {30, 0}, Turn::right}, -1, 0},
    };
    RecordSettings settings;
    settings.feeds = {0, 1, 2, 800, 4, 5, 300, 7};
    settings.greatestLength = 12;
    double feedrate = 0;
    const CancelFlag cancel;
    std::string text;
    for (const exchange::ToolpathRecord& record : writeRecords(moves, settings, Grid(), feedrate, cancel))
    {
        const auto add = [&text](const char* kind, const geom::PointNd<3>& p, double radius)
        {
            text += kind;
            for (const double value : {p[0], p[1], p[2], radius})
                text += ' ' + std::to_string(static_cast<int>(value));
            text += '\n';
        };
        if (const auto* rapid = boost::get<exchange::RapidMove>(&record))
            add("rapid", rapid->endPt, 0);
        else if (const auto* linear = boost::get<exchange::LinearMove>(&record))
            add("line", linear->endPt, 0);
        else if (const auto* left = boost::get<exchange::Arc<1>>(&record))
            add("left", left->endPt, left->radius);
        else if (const auto* right = boost::get<exchange::Arc<0>>(&record))
            add("right", right->endPt, right->radius);
        else if (const auto* feed = boost::get<exchange::FeedRate>(&record))
            text += "feed " + std::to_string(static_cast<int>(feed->feedrate)) + '\n';
        else if (const auto* custom = boost::get<exchange::CustomRecord>(&record))
            text += custom->string + '\n';
    }
    EXPECT_EQ(text, "rapid 10 0 5 0\n"
                    "feed 300\nleft -10 0 2 10\nleft 10 0 -1 10\nDwell 0.5\n"
                    "feed 800\nline 20 0 -1 0\nline 30 0 -1 0\nline 40 0 -1 0\nright 30 -10 -1 10\n");
    EXPECT_EQ(feedrate, 800);
}
