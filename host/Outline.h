#ifndef HOST_OUTLINE_H
#define HOST_OUTLINE_H

#include "host/Geometry.h"
#include <tessaron/exchange/Tessaron2dInput.h>

#include <vector>

namespace host
{

/// A boundary as it is drawn: the points of a polyline that follows its curves.
struct Contour
{
    std::vector<Point2> points; ///< a closed contour does not repeat its first point
    bool closed = false;
    /// How many closed contours of the same set lie around this one. Inside an even one is material, inside an odd one
    /// is none.
    int depth = 0;
};

/// Twice the area within a closed contour; positive when it runs counter-clockwise.
double doubleArea(const std::vector<Point2>& points);

/// Whether a point lies within a closed contour.
bool encloses(const std::vector<Point2>& contour, const Point2& point);

/// Joins curves end to end to contours that stay within the tolerance of the curves. What does not close stays open.
/// Contours with material inside run counter-clockwise, the others clockwise: material is always on the left.
/// \throws util::AssertionError when a curve's data are unsound, std::runtime_error for a missing curve
std::vector<Contour> outline(const exchange::CurveList& curves, double tolerance);

} // namespace host

#endif
