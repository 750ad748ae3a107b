#ifndef TESTS_ENGINE_POCKETSHAPES_H
#define TESTS_ENGINE_POCKETSHAPES_H

#include <tessaron/exchange/Tessaron2dInput.h>

#include <vector>

/// Inputs of pocketing jobs for tests. Lengths are in millimetres.
namespace shapes
{

using Point = geom::PointNd<2>;
using CurvePtr = boost::shared_ptr<geom::ParametricCurve<2>>;

CurvePtr line(const Point& start, const Point& end);
CurvePtr polyline(std::vector<Point> points);
/// A whole circle from one arc.
CurvePtr circle(const Point& centre, double radius);
CurvePtr arc(const Point& centre, double radius, double startAngle, double endAngle);
/// A closed curve through nothing but its control points' hull: a periodic-looking clamped cubic B-spline whose ends
/// meet.
CurvePtr closedSpline(const std::vector<Point>& corners);
/// A quarter circle as a rational quadratic B-spline.
CurvePtr rationalQuarter(const Point& centre, double radius, double startAngle);
CurvePtr rectangle(double left, double bottom, double right, double top);
/// A gear-like loop with many short edges.
CurvePtr wavyLoop(const Point& centre, double radius, double amplitude, int waves, int points);

/// Parameters that every shape here can be cut with: a 6 mm tool, 2.4 mm stepover, two levels.
util::Parameterized usualParameters();

/// A pocket of 60 x 40 in a block of 100 x 80.
exchange::Tessaron2dInput squarePocket();
/// The pocket with a round and a square island.
exchange::Tessaron2dInput islandPocket();
/// A shape that is open on one side, of lines, arcs and splines in pieces.
exchange::Tessaron2dInput openSided();
/// Two pockets far apart.
exchange::Tessaron2dInput twoPockets();
/// A pocket whose middle part is too narrow for the tool.
exchange::Tessaron2dInput dumbbell();
/// A pocket with many small islands and a wavy wall: `size` islands in a row and as many rows.
exchange::Tessaron2dInput manyIslands(int size);

} // namespace shapes

#endif
