#include "tests/engine/simulator/Workpiece.h"

#include <tessaron/util/Constants.h>
#include <tessaron/util/Keys.h>

#include <limits>

namespace simulator
{

namespace keys = util::keys;

Operation::Operation(const util::Parameterized& parameters)
{
    const double diameter = parameters.numberOr(keys::toolDiameter, 0);
    radius = diameter / 2;
    clearance = radius + parameters.numberOr(keys::xyStockToLeave, 0);
    tolerance = parameters.numberOr(keys::cutTolerance, diameter / 1000);
    top = parameters.numberOr(keys::topMaterialZ, 0);
    floor = parameters.numberOr(keys::zDepth, 0) + parameters.numberOr(keys::zStockToLeave, 0);
    depthOfCut = parameters.numberOr(keys::depthOfCut, 0);
    feed = parameters.numberOr(keys::feedrate, 0) * std::max(1.0, parameters.numberOr(keys::feedrateEntryFactor, 1));
    slope = std::tan(parameters.numberOr(keys::rampAngle, 3) * util::pi / 180);
}

namespace
{

/// Adds chords from one parameter to another; halves what strays.
void addChords(const geom::ParametricCurve<2>& curve, double from, double to, double deviation, int depth,
               std::vector<Chord>& chords)
{
    const Chord chord{curve.pointAt(from), curve.pointAt(to)};
    constexpr int deepest = 14;
    bool strays = false;
    for (const double part : {0.25, 0.5, 0.75})
        strays = strays || distance(curve.pointAt(from + (to - from) * part), chord) > deviation;
    if (!strays || depth >= deepest)
    {
        chords.push_back(chord);
        return;
    }
    const double middle = (from + to) / 2;
    addChords(curve, from, middle, deviation, depth + 1, chords);
    addChords(curve, middle, to, deviation, depth + 1, chords);
}

} // namespace

std::vector<Chord> chordsOf(const exchange::CurveList& curves, double deviation)
{
    std::vector<Chord> chords;
    for (const auto& curve : curves)
    {
        // Vertices of polylines and joints of splines lie at whole values.
        const double last = curve->endParam();
        for (double from = curve->startParam(); from < last;)
        {
            const double to = std::min(last, std::floor(from) + 1);
            addChords(*curve, from, to, deviation, 0, chords);
            from = to;
        }
    }
    return chords;
}

Walls::Walls(const std::vector<Chord>& chords, double reach) : m_reach(reach)
{
    for (const Chord& chord : chords)
        for (const Chord& piece : piecesOf(chord, reach))
        {
            const auto [left, right] = std::minmax({square(piece.start[0]), square(piece.end[0])});
            const auto [bottom, top] = std::minmax({square(piece.start[1]), square(piece.end[1])});
            for (std::int64_t x = left; x <= right; ++x)
                for (std::int64_t y = bottom; y <= top; ++y)
                    m_squares[key(x, y)].push_back(piece);
        }
}

std::uint64_t Walls::key(std::int64_t x, std::int64_t y)
{
    return static_cast<std::uint64_t>(x) * 0x9E3779B97F4A7C15U + static_cast<std::uint64_t>(y);
}

double Walls::distanceTo(const Chord& chord) const
{
    double nearest = m_reach;
    const auto [left, right] = std::minmax({square(chord.start[0]), square(chord.end[0])});
    const auto [bottom, top] = std::minmax({square(chord.start[1]), square(chord.end[1])});
    for (std::int64_t x = left - 1; x <= right + 1; ++x)
        for (std::int64_t y = bottom - 1; y <= top + 1; ++y)
        {
            const auto found = m_squares.find(key(x, y));
            if (found == m_squares.end())
                continue;
            for (const Chord& wall : found->second)
                nearest = std::min(nearest, distance(wall, chord));
        }
    return nearest;
}

Workpiece::Workpiece(const exchange::Tessaron2dInput& input, const Operation& operation, double cell)
{
    const double deviation = operation.tolerance / 20;
    wallChords = chordsOf(input.boundaries.partBoundaries, deviation);
    const std::vector<Chord> stockChords = chordsOf(input.boundaries.materialBoundaries, deviation);
    Point2 low(1e300, 1e300);
    Point2 high(-1e300, -1e300);
    for (const auto& chords : {stockChords, wallChords})
        for (const Chord& chord : chords)
            for (int i = 0; i < 2; ++i)
            {
                low[i] = std::min(low[i], chord.start[i]);
                high[i] = std::max(high[i], chord.start[i]);
            }
    if (cell <= 0)
    {
        constexpr double mostCells = 4e6;
        cell = std::max(operation.radius / 8, std::sqrt((high[0] - low[0]) * (high[1] - low[1]) / mostCells));
    }
    // An odd start keeps the middles off the vertices.
    for (int i = 0; i < 2; ++i)
        low[i] += 0.3719 * cell;
    raster = Raster(low, high, cell);
    inPart = raster.inside(wallChords);
    inStock = raster.inside(stockChords);
    wallDistance = raster.distances(wallChords, operation.clearance + 2 * operation.tolerance + 2 * cell);
    height.assign(raster.size(), std::numeric_limits<double>::lowest());
    for (std::size_t i = 0; i < raster.size(); ++i)
        if (inStock[i] != 0 || inPart[i] != 0)
            height[i] = operation.top;
    const double drill = input.parameters.numberOr(keys::drillDiameter, 0) / 2;
    for (const exchange::TessaronDrillHole& hole : input.preDrilledHoles.holes)
        raster.visitNear({hole.center, hole.center}, drill,
                         [&](std::size_t i, double)
                         { height[i] = hole.through ? operation.floor : operation.top - hole.usableDepth; });
}

} // namespace simulator
