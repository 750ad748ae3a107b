#ifndef ENGINE_POCKETING_LOOPCHECK_H
#define ENGINE_POCKETING_LOOPCHECK_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/SegmentIndex.h"

namespace exchange::pocketing
{

/// Checks closed loops that together bound an area, whatever their directions: each encloses an area, none crosses or
/// runs along itself or another one. Loops may lie within each other, and may touch in points.
/// \param index the segments of the loops
/// \throws jobs::JobError (status::notASingleClosedRegion) naming the place
void checkLoops(const Paths& loops, const SegmentIndex& index, const Grid& grid, const jobs::CancelFlag& cancel);

} // namespace exchange::pocketing

#endif
