#ifndef TESTS_ENGINE_CUTCHECKER_H
#define TESTS_ENGINE_CUTCHECKER_H

#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/ToolpathRecords.h>

#include <array>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

/// Checks a toolpath against the curves it was made from, with means of its own: dense samples of the curves and a grid
/// of cells.
namespace cuts
{

using Point = geom::PointNd<2>;

struct Segment
{
    Point start;
    Point end;
};

double distance(const Point& point, const Segment& segment);

/// Segments in square cells, to be asked for distances up to the size of a cell.
class SegmentCells
{
public:
    explicit SegmentCells(double cellSize) : m_cellSize(cellSize) {}
    void add(const Segment& segment);
    /// The distance to the nearest segment; anything above the cell size when there is none so near.
    double distanceTo(const Point& point) const;

private:
    long long cell(long long x, long long y) const { return x * 1000003LL + y; }
    long long index(double coordinate) const;

    double m_cellSize;
    std::unordered_map<long long, std::vector<Segment>> m_cells;
};

/// The cuts of a toolpath, depth by depth.
using Levels = std::map<double, std::vector<Segment>>;

/// What a toolpath cuts.
struct Cuts
{
    /// The horizontal cutting moves, arcs as chords. Heights at which little is cut are links and no levels: those are
    /// among the others.
    Levels levels;
    /// All other cutting moves below the top of the material, seen from above.
    std::vector<Segment> others;
    int retracts = 0;
};

/// The cuts of a toolpath. Adds a failure to the running test for rapids that run across below the rapid plane, for
/// moves that go down more steeply than the ramp angle, for plunges where nothing has been cut before at that depth
/// (beside the stock, and where plunging was asked for, aside), and for cuts before a feed rate or a spindle speed was set.
Cuts cutsOf(const exchange::ToolpathRecords& toolpath, const exchange::Tessaron2dInput& input);

/// The curves of a boundary as many short segments.
std::vector<Segment> samples(const exchange::CurveList& curves);

/// Adds a failure for every cut that comes nearer to the part than the tool radius and the stock to leave allow.
void checkNoGouge(const exchange::Tessaron2dInput& input, const Cuts& cuts);

/// Adds a failure for every place that the tool can reach and a level does not clear. Places are tried on a grid.
/// \param pitch the width of the grid
void checkCoverage(const exchange::Tessaron2dInput& input, const Levels& levels, double pitch);

} // namespace cuts

#endif
