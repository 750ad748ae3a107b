#ifndef ENGINE_POCKETING_LOOPCHAINING_H
#define ENGINE_POCKETING_LOOPCHAINING_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/Grid.h"

#include <cstddef>
#include <vector>

namespace exchange::pocketing
{

/// A piece of a loop.
struct Link
{
    std::size_t piece = 0;
    /// Whether the loop runs through the piece from its last point to its first.
    bool reversed = false;
};

/// The pieces of a closed loop, in its order.
using Chain = std::vector<Link>;

/// Joins polylines end to end, in either direction, to closed loops. The nearest ends within the tolerance belong
/// together; a gap is closed by a straight piece.
/// \throws jobs::JobError (status::notASingleClosedRegion) naming the place when a chain cannot be closed
std::vector<Chain> chainLoops(const std::vector<Polyline>& pieces, double tolerance, const jobs::CancelFlag& cancel);

/// Adds the points of a piece to a loop; where the ends coincide exactly, one of the two points is enough.
void appendPiece(Polyline& loop, const Polyline& piece, bool reversed);

/// The points of a loop; the last is not a repetition of the first.
Polyline loopOf(const Chain& chain, const std::vector<Polyline>& pieces);

} // namespace exchange::pocketing

#endif
