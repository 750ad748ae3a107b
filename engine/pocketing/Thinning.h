#ifndef ENGINE_POCKETING_THINNING_H
#define ENGINE_POCKETING_THINNING_H

#include "engine/pocketing/Grid.h"

namespace exchange::pocketing
{

// Paths without the points that lie within a tolerance of what then remains (Douglas and Peucker 1973).

/// A closed path; empty when nothing remains but a speck of the size of the tolerance.
Path simplified(const Path& path, double tolerance);
/// As for a path on the grid.
Polyline simplified(const Polyline& loop, double tolerance);
/// An open run, which keeps its ends.
Polyline simplifiedRun(const Polyline& run, double tolerance);

} // namespace exchange::pocketing

#endif
