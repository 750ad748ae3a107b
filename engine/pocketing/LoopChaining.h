#ifndef ENGINE_POCKETING_LOOPCHAINING_H
#define ENGINE_POCKETING_LOOPCHAINING_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/Grid.h"

#include <vector>

namespace exchange::pocketing
{

/// Joins polylines end to end, in either direction, to closed loops. The nearest ends within the tolerance belong
/// together; a gap is closed by a straight piece. The last point of a loop is not a repetition of its first.
/// \throws jobs::JobError (status::notASingleClosedRegion) naming the place when a chain cannot be closed
std::vector<Polyline> chainLoops(const std::vector<Polyline>& pieces, double tolerance, const jobs::CancelFlag& cancel);

} // namespace exchange::pocketing

#endif
