#ifndef ENGINE_POCKETING_CONTOURCLUSTERS_H
#define ENGINE_POCKETING_CONTOURCLUSTERS_H

#include "engine/pocketing/Polygons.h"

#include <vector>

namespace exchange::pocketing
{

/// The contours of an area that can come into each other's way when each moves by a distance into the area. Polygon
/// operations cost more than in proportion to their size, and contours that stay apart can be dealt with one by one.
struct ContourClusters
{
    /// The outer contour and the holes near it.
    Paths outer;
    /// Holes near each other and far from the outer contour; in the order of the area.
    std::vector<Paths> holes;
};

/// May put contours together that do not meet; never separates any that do.
ContourClusters clusterContours(const Area& area, double distance);

} // namespace exchange::pocketing

#endif
