#include "tests/engine/CutChecker.h"

#include <tessaron/exchange/geom/Line.h>
#include <tessaron/util/Constants.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace cuts
{

namespace keys = util::keys;

namespace
{

/// Failures beyond this many say nothing new.
constexpr int enoughFailures = 5;

struct Limits
{
    double radius;
    double clearance;
    double tolerance;
};

Limits limitsOf(const exchange::Tessaron2dInput& input)
{
    const double diameter = input.parameters.numberOr(keys::toolDiameter, 0);
    return {diameter / 2, diameter / 2 + input.parameters.numberOr(keys::xyStockToLeave, 0),
            input.parameters.numberOr(keys::cutTolerance, diameter / 1000)};
}

/// Where vertical lines cross closed boundaries. The segments are kept in columns of unit width.
class Inside
{
public:
    explicit Inside(const std::vector<Segment>& segments)
    {
        for (const Segment& s : segments)
        {
            const auto [left, right] = std::minmax({column(s.start[0]), column(s.end[0])});
            for (long long x = left; x <= right; ++x)
                m_columns[x].push_back(s);
        }
    }
    /// The heights at which the boundary is crossed at x, in order.
    std::vector<double> crossings(double x) const
    {
        std::vector<double> heights;
        const auto found = m_columns.find(column(x));
        if (found == m_columns.end())
            return heights;
        for (const Segment& s : found->second)
            if ((s.start[0] <= x) != (s.end[0] <= x))
                heights.push_back(s.start[1] + (x - s.start[0]) / (s.end[0] - s.start[0]) * (s.end[1] - s.start[1]));
        std::sort(heights.begin(), heights.end());
        return heights;
    }

private:
    static long long column(double x) { return static_cast<long long>(std::floor(x)); }

    std::unordered_map<long long, std::vector<Segment>> m_columns;
};

bool isInside(const std::vector<double>& crossings, double y)
{
    return (crossings.end() - std::upper_bound(crossings.begin(), crossings.end(), y)) % 2 == 1;
}

} // namespace

double distance(const Point& point, const Segment& segment)
{
    const double dx = segment.end[0] - segment.start[0];
    const double dy = segment.end[1] - segment.start[1];
    const double px = point[0] - segment.start[0];
    const double py = point[1] - segment.start[1];
    const double length2 = dx * dx + dy * dy;
    const double t = length2 > 0 ? std::clamp((px * dx + py * dy) / length2, 0.0, 1.0) : 0.0;
    return std::hypot(px - t * dx, py - t * dy);
}

long long SegmentCells::index(double coordinate) const
{
    return static_cast<long long>(std::floor(coordinate / m_cellSize));
}

void SegmentCells::add(const Segment& segment)
{
    // A long segment goes into the cells along it piece by piece.
    const double length = std::hypot(segment.end[0] - segment.start[0], segment.end[1] - segment.start[1]);
    const int pieces = std::max(1, static_cast<int>(std::ceil(length / m_cellSize)));
    const auto at = [&](int i)
    {
        const double t = static_cast<double>(i) / pieces;
        return Point(segment.start[0] + t * (segment.end[0] - segment.start[0]),
                     segment.start[1] + t * (segment.end[1] - segment.start[1]));
    };
    for (int i = 0; i < pieces; ++i)
    {
        const Segment piece{at(i), at(i + 1)};
        const auto [left, right] = std::minmax({index(piece.start[0]), index(piece.end[0])});
        const auto [bottom, top] = std::minmax({index(piece.start[1]), index(piece.end[1])});
        for (long long x = left; x <= right; ++x)
            for (long long y = bottom; y <= top; ++y)
                m_cells[cell(x, y)].push_back(piece);
    }
}

double SegmentCells::distanceTo(const Point& point) const
{
    double nearest = 2 * m_cellSize;
    const long long x = index(point[0]);
    const long long y = index(point[1]);
    for (long long dx = -1; dx <= 1; ++dx)
        for (long long dy = -1; dy <= 1; ++dy)
        {
            const auto found = m_cells.find(cell(x + dx, y + dy));
            if (found == m_cells.end())
                continue;
            for (const Segment& segment : found->second)
                nearest = std::min(nearest, distance(point, segment));
        }
    return nearest;
}

namespace
{

constexpr double sameHeight = 1e-9;

class RecordWalker : public boost::static_visitor<void>
{
public:
    RecordWalker(Cuts& cuts, const exchange::Tessaron2dInput& input)
        : RecordWalker(cuts, input.parameters, samples(input.boundaries.materialBoundaries))
    {
    }
    RecordWalker(Cuts& cuts, const util::Parameterized& parameters, const std::vector<Segment>& stock)
        : m_cuts(cuts), m_stock(stock), m_stockEdge(parameters.numberOr(keys::toolDiameter, 0) / 2),
          m_rapidZ(parameters.numberOr(keys::rapidPlaneZ, 0)), m_top(parameters.numberOr(keys::topMaterialZ, 0)),
          m_radius(parameters.numberOr(keys::toolDiameter, 0) / 2),
          m_slope(std::tan(parameters.numberOr(keys::rampAngle, 3) * util::pi / 180)),
          m_tolerance(parameters.numberOr(keys::cutTolerance, 2 * m_radius / 1000)),
          m_mayPlunge(parameters.intOr(keys::plungeType, -1) == 1)
    {
        for (const Segment& segment : stock)
            m_stockEdge.add(segment);
    }

    void operator()(const exchange::RapidMove& move)
    {
        const geom::PointNd<3>& to = move.endPt;
        const bool across = m_started && !sameXY(to);
        if (across && (m_at[2] < m_rapidZ || to[2] < m_rapidZ))
            fail("a rapid runs across the part below the rapid plane");
        if (m_started && !across && to[2] >= m_rapidZ && m_at[2] < m_top)
            ++m_cuts.retracts;
        m_at = to;
        m_started = true;
    }
    void operator()(const exchange::LinearMove& move) { cutTo(move.endPt, distanceXY(m_at, move.endPt)); }
    void operator()(const exchange::Arc<1>& arc) { turnTo(arc.endPt, arc.radius, 1); }
    void operator()(const exchange::Arc<0>& arc) { turnTo(arc.endPt, arc.radius, -1); }
    void operator()(const exchange::FeedRate& feed) { m_feed = feed.feedrate; }
    void operator()(const exchange::SpindleSpeed& spindle) { m_speed = spindle.speed; }
    template <class Other>
    void operator()(const Other&)
    {
        fail("a record of a kind that pocketing does not make");
    }

private:
    static double distanceXY(const geom::PointNd<3>& a, const geom::PointNd<3>& b)
    {
        return std::hypot(b[0] - a[0], b[1] - a[1]);
    }

    void turnTo(const geom::PointNd<3>& end, double radius, double sense)
    {
        // The centre lies on the left of the chord when a short arc turns left.
        const double chord = distanceXY(m_at, end);
        if (radius <= 0 || chord > 2 * radius * (1 + 1e-9))
            return fail("an arc that its radius cannot reach, or that is longer than half a turn");
        const double height = std::sqrt(std::max(0.0, radius * radius - chord * chord / 4));
        const Point centre((m_at[0] + end[0]) / 2 - sense * height * (end[1] - m_at[1]) / chord,
                           (m_at[1] + end[1]) / 2 + sense * height * (end[0] - m_at[0]) / chord);
        const double from = std::atan2(m_at[1] - centre[1], m_at[0] - centre[0]);
        const double sweep = 2 * std::asin(std::min(1.0, chord / (2 * radius)));
        const double chordAngle = 2 * std::acos(std::max(0.0, 1 - m_tolerance / 20 / radius));
        const int chords = std::clamp(static_cast<int>(std::ceil(sweep / chordAngle)), 1, 2000);
        const geom::PointNd<3> start = m_at;
        for (int i = 1; i <= chords; ++i)
        {
            const double angle = from + sense * sweep * i / chords;
            const geom::PointNd<3> to(centre[0] + radius * std::cos(angle), centre[1] + radius * std::sin(angle),
                                      start[2] + (end[2] - start[2]) * i / chords);
            cutTo(i == chords ? end : to, radius * sweep / chords);
        }
    }

    void cutTo(const geom::PointNd<3>& to, double length)
    {
        if (m_feed <= 0 || m_speed <= 0)
            fail("a cut comes before feed rate and spindle speed");
        const Segment segment{Point(m_at[0], m_at[1]), Point(to[0], to[1])};
        if (std::fabs(m_at[2] - to[2]) < sameHeight)
        {
            m_cuts.levels[to[2]].push_back(segment);
            m_swept.try_emplace(to[2], 2 * m_radius).first->second.add(segment);
        }
        else
        {
            if (std::min(m_at[2], to[2]) < m_top)
                m_cuts.others.push_back(segment);
            if (!sameXY(to))
            {
                if (std::fabs(to[2] - m_at[2]) > length * m_slope * (1 + 1e-6))
                    fail("an entry is steeper than the ramp angle");
            }
            else if (!m_mayPlunge && !isCut(segment.start, to[2]) && !isBesideStock(segment.start))
                fail("a plunge where nothing was cut before");
        }
        m_at = to;
    }

    bool isCut(const Point& place, double z) const
    {
        const auto found = m_swept.find(z);
        return found != m_swept.end() && found->second.distanceTo(place) < 3 * m_tolerance;
    }
    bool isBesideStock(const Point& place) const
    {
        return !isInside(m_stock.crossings(place[0]), place[1]) && m_stockEdge.distanceTo(place) >= m_radius;
    }
    bool sameXY(const geom::PointNd<3>& to) const { return m_at[0] == to[0] && m_at[1] == to[1]; }
    void fail(const char* what)
    {
        if (++m_failures <= enoughFailures)
            ADD_FAILURE() << what << " at (" << m_at[0] << ", " << m_at[1] << ", " << m_at[2] << ")";
    }

    Cuts& m_cuts;
    const Inside m_stock;
    SegmentCells m_stockEdge;
    std::map<double, SegmentCells> m_swept;
    const double m_rapidZ;
    const double m_top;
    const double m_radius;
    const double m_slope;
    const double m_tolerance;
    const bool m_mayPlunge;
    geom::PointNd<3> m_at;
    bool m_started = false;
    double m_feed = 0;
    double m_speed = 0;
    int m_failures = 0;
};

double lengthOf(const std::vector<Segment>& segments)
{
    double length = 0;
    for (const Segment& segment : segments)
        length += std::hypot(segment.end[0] - segment.start[0], segment.end[1] - segment.start[1]);
    return length;
}

} // namespace

Cuts cutsOf(const exchange::ToolpathRecords& toolpath, const exchange::Tessaron2dInput& input)
{
    Cuts cuts;
    RecordWalker walker(cuts, input);
    for (const exchange::ToolpathRecord& record : toolpath.records)
        boost::apply_visitor(walker, record);
    double longest = 0;
    for (const auto& [z, segments] : cuts.levels)
        longest = std::max(longest, lengthOf(segments));
    const double top = input.parameters.numberOr(keys::topMaterialZ, 0);
    for (auto level = cuts.levels.begin(); level != cuts.levels.end();)
    {
        const auto& [z, segments] = *level;
        if (z < top && lengthOf(segments) > longest / 10)
        {
            ++level;
            continue;
        }
        if (z < top)
            cuts.others.insert(cuts.others.end(), segments.begin(), segments.end());
        level = cuts.levels.erase(level);
    }
    return cuts;
}

namespace
{

/// How many pieces of a curve are about a tenth of a millimetre long.
int piecesFor(const geom::ParametricCurve<2>& curve)
{
    constexpr int probes = 32;
    const double from = curve.startParam();
    const double step = (curve.endParam() - from) / probes;
    double length = 0;
    for (int i = 0; i < probes; ++i)
    {
        const Point a = curve.pointAt(from + step * i);
        const Point b = curve.pointAt(from + step * (i + 1));
        length += std::hypot(b[0] - a[0], b[1] - a[1]);
    }
    return std::clamp(static_cast<int>(length * 10), 40, 2000);
}

} // namespace

std::vector<Segment> samples(const exchange::CurveList& curves)
{
    std::vector<Segment> segments;
    for (const auto& curve : curves)
    {
        // Vertices of polylines lie at whole parameter values, so a multiple of the range meets them all.
        const double from = curve->startParam();
        const double range = curve->endParam() - from;
        const bool straight = dynamic_cast<const geom::Line<2>*>(curve.get()) || range > 20;
        const int pieces = static_cast<int>(std::ceil(range)) * (straight ? 1 : piecesFor(*curve));
        Point last = curve->pointAt(from);
        for (int i = 1; i <= pieces; ++i)
        {
            const Point next = curve->pointAt(from + range * i / pieces);
            segments.push_back({last, next});
            last = next;
        }
    }
    return segments;
}

void checkNoGouge(const exchange::Tessaron2dInput& input, const Cuts& cuts)
{
    const Limits limits = limitsOf(input);
    SegmentCells walls(limits.clearance + 1);
    const std::vector<Segment> all = samples(input.boundaries.partBoundaries);
    const Inside part(all);
    for (const Segment& segment : all)
        walls.add(segment);

    int failures = 0;
    const auto check = [&](const std::vector<Segment>& segments)
    {
        for (std::size_t i = 0; i < segments.size(); ++i)
        {
            const Segment& s = segments[i];
            const double length = std::hypot(s.end[0] - s.start[0], s.end[1] - s.start[1]);
            const int pieces = std::max(1, static_cast<int>(std::ceil(length / (limits.radius / 4))));
            for (int step = 0; step <= pieces && failures < enoughFailures; ++step)
            {
                const double t = static_cast<double>(step) / pieces;
                const Point point(s.start[0] + t * (s.end[0] - s.start[0]), s.start[1] + t * (s.end[1] - s.start[1]));
                const double clearance = walls.distanceTo(point);
                if (clearance < limits.clearance - limits.tolerance)
                {
                    ++failures;
                    ADD_FAILURE() << "gouge: only " << clearance << " from the part at (" << point[0] << ", "
                                  << point[1] << ")";
                }
            }
            // No wall lies near a cut, so all of a cut is on one side of them: one point in a few tells which.
            if (i % 16 == 0 && failures < enoughFailures && isInside(part.crossings(s.start[0]), s.start[1]))
            {
                ++failures;
                ADD_FAILURE() << "a cut inside the part at (" << s.start[0] << ", " << s.start[1] << ")";
            }
        }
    };
    for (const auto& [z, segments] : cuts.levels)
        check(segments);
    check(cuts.others);
}

void checkCoverage(const exchange::Tessaron2dInput& input, const Levels& levels, double pitch)
{
    const Limits limits = limitsOf(input);
    const std::vector<Segment> partWalls = samples(input.boundaries.partBoundaries);
    const std::vector<Segment> stockWalls = samples(input.boundaries.materialBoundaries);
    const Inside part(partWalls);
    const Inside stock(stockWalls);
    SegmentCells walls(limits.clearance + limits.tolerance);
    Point low(1e300, 1e300);
    Point high(-1e300, -1e300);
    for (const Segment& segment : partWalls)
        walls.add(segment);
    for (const Segment& segment : stockWalls)
        for (int i = 0; i < 2; ++i)
        {
            low[i] = std::min(low[i], segment.start[i]);
            high[i] = std::max(high[i], segment.start[i]);
        }

    std::vector<std::pair<double, SegmentCells>> swept;
    for (const auto& [z, segments] : levels)
    {
        swept.emplace_back(z, SegmentCells(limits.radius));
        for (const Segment& segment : segments)
            swept.back().second.add(segment);
    }
    ASSERT_FALSE(swept.empty());

    // Wherever the tool may stand with its axis, all of its disc must have been cleared.
    int reachable = 0;
    int failures = 0;
    // An odd start keeps the places off the vertices, where curves of a chain meet only nearly.
    const double offset = pitch * 0.3719;
    const auto places = [&](int axis)
    { return static_cast<int>(std::ceil((high[axis] - low[axis] - offset) / pitch)); };
    for (int column = 0; column < places(0); ++column)
    {
        const double x = low[0] + offset + column * pitch;
        const std::vector<double> partCrossings = part.crossings(x);
        const std::vector<double> stockCrossings = stock.crossings(x);
        for (int row = 0; row < places(1); ++row)
        {
            const double y = low[1] + offset + row * pitch;
            if (!isInside(stockCrossings, y) || isInside(partCrossings, y) ||
                walls.distanceTo(Point(x, y)) < limits.clearance + limits.tolerance)
                continue;
            ++reachable;
            for (int direction = 0; direction <= 12; ++direction)
            {
                const double angle = direction * util::pi / 6;
                const double r = direction == 12 ? 0 : limits.radius - 2 * limits.tolerance;
                const Point point(x + r * std::cos(angle), y + r * std::sin(angle));
                for (const auto& [z, cells] : swept)
                    if (failures < enoughFailures && cells.distanceTo(point) > limits.radius)
                    {
                        ++failures;
                        ADD_FAILURE() << "not cleared: (" << point[0] << ", " << point[1] << ") at level " << z
                                      << ", which the tool reaches from (" << x << ", " << y << ")";
                    }
            }
        }
    }
    EXPECT_GT(reachable, 0);
}

} // namespace cuts
