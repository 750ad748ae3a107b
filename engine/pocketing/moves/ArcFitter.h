#ifndef ENGINE_POCKETING_MOVES_ARCFITTER_H
#define ENGINE_POCKETING_MOVES_ARCFITTER_H

#include "engine/pocketing/moves/PlaneMove.h"

#include <functional>

namespace exchange::pocketing
{

/// Says whether the tool may make a move.
using MoveFilter = std::function<bool(const PlaneMove&)>;

/// A closed path as lines and arcs. Arcs take the place of runs of its points that lie within the tolerance of them,
/// the middles of the edges included; they start and end at points of the path, turn by less than half a turn each, and
/// pass the filter. What no arc takes stays as it is.
/// \param tolerance in steps of the grid; 0 makes no arcs
Track fitArcs(const Path& path, double tolerance, const MoveFilter& allows);

} // namespace exchange::pocketing

#endif
