#ifndef ENGINE_POCKETING_REGIONBUILDER_H
#define ENGINE_POCKETING_REGIONBUILDER_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/PocketingParameters.h"
#include "engine/pocketing/Polygons.h"
#include <tessaron/exchange/Tessaron2dInput.h>

#include <functional>
#include <vector>

namespace exchange::pocketing
{

/// Where the tool may go.
struct RegionPlan
{
    Grid grid;
    /// The loops of the boundaries, in steps of the grid.
    Paths part;
    Paths stock;
    /// How accurately areas are offset, in steps.
    OffsetTolerance tolerance;
    /// The connected areas that the tool's axis may be in.
    std::vector<Area> regions;
    /// The middles of areas of material that the tool does not get into, in the host's unit.
    std::vector<Point> unreached;
};

/// How many points the boundaries of an input may come to.
constexpr std::size_t maxBoundaryPoints = 2000000;
/// The least "Cut Tolerance", as a fraction of the greater side of the input.
constexpr double leastToleranceFactor = 1e-6;

/// Flattens, chains and checks the boundaries of an input and finds where the tool may go: the stock less the part,
/// made smaller by the tool radius and "XY Stock to Leave" where the part is. Never nearer to the part than that;
/// farther by at most the cut tolerance. Edges of the stock that are no edges of the part are open: the axis may go up
/// to them.
/// \param done receives the part that is done, 0 to 1
/// \param forEach see shrink
/// \throws jobs::JobError, jobs::Cancelled
RegionPlan buildRegions(const Tessaron2dInput& input, const PocketingParameters& parameters,
                        const jobs::CancelFlag& cancel, const std::function<void(double)>& done,
                        const ForEach& forEach = inTurn);

} // namespace exchange::pocketing

#endif
