#include "engine/pocketing/RegionBuilder.h"

#include "engine/jobs/JobError.h"
#include "engine/pocketing/CurveFlattener.h"
#include "engine/pocketing/LoopChaining.h"
#include "engine/pocketing/LoopCheck.h"
#include "engine/pocketing/Thinning.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

namespace exchange::pocketing
{

namespace
{

using jobs::CancelFlag;
using jobs::JobError;

/// Flattening or thinning boundaries, rounding corners and leaving out points of offsets may each take this part of the
/// cut tolerance.
constexpr double toleranceShare = 1.0 / 8;
/// What rounding to the grid may add up to, in steps.
constexpr double roundingSteps = 4;

/// What curves come to as polylines.
struct Pieces
{
    std::vector<Polyline> polylines;
    /// Whether a polyline is the curve itself.
    std::vector<char> exact;
};

Pieces flattenAll(const CurveList& curves, const char* name, CurveFlattener& flattener)
{
    Pieces pieces;
    for (std::size_t i = 0; i < curves.size(); ++i)
    {
        const std::string which = std::string(name) + " " + std::to_string(i + 1);
        if (!curves[i])
            throw JobError(status::notASingleClosedRegion, which + " is empty.");
        try
        {
            pieces.polylines.push_back(flattener.flatten(*curves[i]));
            pieces.exact.push_back(CurveFlattener::isExact(*curves[i]) ? 1 : 0);
        }
        catch (const jobs::Cancelled&)
        {
            throw;
        }
        catch (const std::exception& error)
        {
            throw JobError(status::notASingleClosedRegion, which + " cannot be used: " + error.what() + ".");
        }
    }
    return pieces;
}

/// The loop of a chain with fewer points. Only pieces that are exact may err now: the others do so already.
Polyline thinnedLoop(const Chain& chain, const Pieces& pieces, double tolerance)
{
    const auto isExact = [&pieces](const Link& link) { return pieces.exact[link.piece] != 0; };
    if (std::all_of(chain.begin(), chain.end(), isExact))
        return simplified(loopOf(chain, pieces.polylines), tolerance);
    Polyline loop;
    for (std::size_t i = 0; i < chain.size();)
    {
        // Exact pieces in a row are one run.
        std::size_t end = i + 1;
        while (isExact(chain[i]) && end < chain.size() && isExact(chain[end]))
            ++end;
        Polyline run;
        for (std::size_t k = i; k < end; ++k)
            appendPiece(run, pieces.polylines[chain[k].piece], chain[k].reversed);
        appendPiece(loop, isExact(chain[i]) ? simplifiedRun(run, tolerance) : run, false);
        i = end;
    }
    if (loop.size() > 1 && loop.front() == loop.back())
        loop.pop_back();
    return loop;
}

/// The loops of a list of curves.
struct Loops
{
    std::vector<Polyline> all;
    /// The same loops with no more points than needed.
    std::vector<Polyline> thinned;
};

Loops loopsOf(const CurveList& curves, const char* name, CurveFlattener& flattener, double chainingTolerance,
              double thinning, const CancelFlag& cancel)
{
    const Pieces pieces = flattenAll(curves, name, flattener);
    Loops loops;
    for (const Chain& chain : chainLoops(pieces.polylines, chainingTolerance, cancel))
    {
        cancel.check();
        loops.all.push_back(loopOf(chain, pieces.polylines));
        Polyline thinned = thinnedLoop(chain, pieces, thinning);
        if (thinned.size() >= 3)
            loops.thinned.push_back(std::move(thinned));
    }
    return loops;
}

/// The grid for the given loops.
Grid gridOver(const std::vector<Polyline>& stock, const std::vector<Polyline>& part)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    Point low(infinity, infinity);
    Point high(-infinity, -infinity);
    for (const auto* loops : {&stock, &part})
        for (const Polyline& loop : *loops)
            for (const Point& point : loop)
                for (int i = 0; i < 2; ++i)
                {
                    low[i] = std::min(low[i], point[i]);
                    high[i] = std::max(high[i], point[i]);
                }
    const double extent = std::max(high[0] - low[0], high[1] - low[1]);
    // Below, steps could not be told apart in a double; above, lengths would overflow.
    const double farthest = std::max({std::fabs(low[0]), std::fabs(low[1]), std::fabs(high[0]), std::fabs(high[1])});
    if (!(extent > farthest * 1e-6 && extent > 1e-100 && extent < 1e100))
        throw JobError(status::notASingleClosedRegion, "The boundaries have no usable size.");
    return Grid(Point(low[0] + (high[0] - low[0]) / 2, low[1] + (high[1] - low[1]) / 2), extent);
}

Paths toGrid(const std::vector<Polyline>& loops, const Grid& grid)
{
    Paths paths;
    for (const Polyline& loop : loops)
    {
        Path path;
        for (const Point& point : loop)
        {
            const IntPoint step = grid.toGrid(point);
            if (path.empty() || path.back() != step)
                path.push_back(step);
        }
        while (path.size() > 1 && path.front() == path.back())
            path.pop_back();
        paths.push_back(std::move(path));
    }
    return paths;
}

double extentOf(const Paths& paths)
{
    Box box;
    for (const Path& path : paths)
        box.include(boxOf(path));
    return static_cast<double>(std::max(box.right - box.left, box.top - box.bottom));
}

void checkTolerance(const PocketingParameters& parameters, const Grid& grid, double extent)
{
    const double least = leastToleranceFactor * grid.toLength(extent);
    if (parameters.cutTolerance >= least)
        return;
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << "\"Cut Tolerance\" is " << parameters.cutTolerance << "; for a part of this size it must be at least "
         << least << ".";
    throw JobError(status::internalError, text.str(), util::keys::cutTolerance);
}

/// Where areas of material lie that no region is in. Specks of the size of the tolerances do not count.
std::vector<Point> unreachedPlaces(const std::vector<Area>& material, const RegionPlan& plan)
{
    std::vector<Box> regionBoxes;
    for (const Area& region : plan.regions)
        regionBoxes.push_back(boxOf(region.front()));
    std::vector<Point> places;
    for (const Area& area : material)
    {
        const Box box = boxOf(area.front());
        std::optional<SegmentIndex> index;
        bool reached = false;
        for (std::size_t i = 0; i < plan.regions.size() && !reached; ++i)
        {
            if (!box.overlaps(regionBoxes[i]))
                continue;
            if (!index)
                index.emplace(area);
            const Path& outer = plan.regions[i].front();
            reached = std::any_of(outer.begin(), outer.end(), [&](const IntPoint& p) { return index->encloses(p); });
        }
        const double speck = 16 * plan.tolerance.simplify;
        const double width = static_cast<double>(std::min(box.right - box.left, box.top - box.bottom));
        if (!reached && width > speck && sizeOf(area) > speck * speck * 4)
            places.push_back(plan.grid.toPoint(static_cast<double>(box.left + box.right) / 2,
                                               static_cast<double>(box.bottom + box.top) / 2));
    }
    return places;
}

} // namespace

RegionPlan buildRegions(const Tessaron2dInput& input, const PocketingParameters& parameters, const CancelFlag& cancel,
                        const std::function<void(double)>& done, const ForEach& forEach)
{
    const double share = parameters.cutTolerance * toleranceShare;
    CurveFlattener flattener(share, maxBoundaryPoints, cancel);
    const auto read = [&](const CurveList& curves, const char* name)
    { return loopsOf(curves, name, flattener, parameters.chainingTolerance, share, cancel); };
    const Loops stock = read(input.boundaries.materialBoundaries, "Material boundary");
    done(0.2);
    const Loops part = read(input.boundaries.partBoundaries, "Part boundary");
    done(0.4);

    RegionPlan plan;
    plan.grid = gridOver(stock.all, part.all);
    plan.stock = toGrid(stock.all, plan.grid);
    plan.part = toGrid(part.all, plan.grid);
    const double extent = std::max(extentOf(plan.stock), extentOf(plan.part));
    checkTolerance(parameters, plan.grid, extent);
    checkLoops(plan.stock, SegmentIndex(plan.stock), plan.grid, cancel);
    checkLoops(plan.part, SegmentIndex(plan.part), plan.grid, cancel);
    done(0.6);

    const Paths stockLoops = toGrid(stock.thinned, plan.grid);
    const Paths partLoops = toGrid(part.thinned, plan.grid);
    const std::vector<Area> material = subtract(stockLoops, partLoops);
    if (material.empty())
        throw JobError(status::notASingleClosedRegion, statusText(status::notASingleClosedRegion));
    cancel.check();
    done(0.8);

    plan.tolerance = {plan.grid.toSteps(share), plan.grid.toSteps(share)};
    // Each approximation errs by its share at most: with all three added the tool stays clear in any case.
    const double distance = plan.grid.toSteps(parameters.clearance() + 3 * share) + roundingSteps;
    if (distance < extent)
    {
        // An edge of the stock that is no wall is no limit: with room beyond it, the axis may go up to the edge.
        const OffsetTolerance exact{plan.tolerance.arc, 0};
        for (const Area& area : subtract(grown(stockLoops, distance, exact), partLoops))
        {
            cancel.check();
            for (Area& region : shrink(area, distance, plan.tolerance, cancel, forEach))
                plan.regions.push_back(std::move(region));
        }
    }
    plan.unreached = unreachedPlaces(material, plan);
    if (plan.regions.empty())
        throw JobError(status::noToolpath, statusText(status::noToolpath));
    done(1.0);
    return plan;
}

} // namespace exchange::pocketing
