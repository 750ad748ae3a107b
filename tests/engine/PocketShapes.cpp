#include "tests/engine/PocketShapes.h"

#include <tessaron/exchange/geom/Arc2Impl.h>
#include <tessaron/exchange/geom/BSplineCurveImpl.h>
#include <tessaron/exchange/geom/LineImpl.h>
#include <tessaron/exchange/geom/PolylineImpl.h>
#include <tessaron/exchange/geom/RationalBSplineCurveImpl.h>
#include <tessaron/util/Constants.h>
#include <tessaron/util/Keys.h>

#include <boost/make_shared.hpp>

#include <cmath>

namespace shapes
{

namespace keys = util::keys;

CurvePtr line(const Point& start, const Point& end)
{
    return boost::make_shared<geom::LineImpl<2>>(start, end);
}

CurvePtr polyline(std::vector<Point> points)
{
    return boost::make_shared<geom::PolylineImpl<2>>(std::move(points));
}

CurvePtr circle(const Point& centre, double radius)
{
    return arc(centre, radius, 0, 2 * util::pi);
}

CurvePtr arc(const Point& centre, double radius, double startAngle, double endAngle)
{
    return boost::make_shared<geom::Arc2Impl>(centre, radius, startAngle, endAngle);
}

CurvePtr closedSpline(const std::vector<Point>& corners)
{
    std::vector<Point> points = corners;
    points.push_back(corners.front());
    std::vector<double> knots(4, 0.0);
    const int spans = static_cast<int>(points.size()) - 3;
    for (int i = 1; i < spans; ++i)
        knots.push_back(i);
    knots.insert(knots.end(), 4, spans);
    return boost::make_shared<geom::BSplineCurveImpl<2>>(points, knots);
}

CurvePtr rationalQuarter(const Point& centre, double radius, double startAngle)
{
    const auto at = [&](double angle, double r)
    { return Point(centre[0] + r * std::cos(angle), centre[1] + r * std::sin(angle)); };
    const std::vector<Point> points = {at(startAngle, radius), at(startAngle + util::pi / 4, radius * std::sqrt(2.0)),
                                       at(startAngle + util::pi / 2, radius)};
    return boost::make_shared<geom::RationalBSplineCurveImpl<2>>(points, std::vector<double>{0, 0, 0, 1, 1, 1},
                                                                 std::vector<double>{1, std::sqrt(0.5), 1});
}

CurvePtr rectangle(double left, double bottom, double right, double top)
{
    return polyline({{left, bottom}, {right, bottom}, {right, top}, {left, top}, {left, bottom}});
}

CurvePtr wavyLoop(const Point& centre, double radius, double amplitude, int waves, int points)
{
    std::vector<Point> vertices;
    for (int i = 0; i < points; ++i)
    {
        const double angle = 2 * util::pi * i / points;
        const double r = radius + amplitude * std::sin(waves * angle);
        vertices.emplace_back(centre[0] + r * std::cos(angle), centre[1] + r * std::sin(angle));
    }
    vertices.push_back(vertices.front());
    return polyline(vertices);
}

util::Parameterized usualParameters()
{
    util::Parameterized parameters;
    parameters.set(keys::toolDiameter, 6.0);
    parameters.set(keys::stepover, 2.4);
    parameters.set(keys::depthOfCut, 3.0);
    parameters.set(keys::topMaterialZ, 0.0);
    parameters.set(keys::zDepth, -5.0);
    parameters.set(keys::rapidPlaneZ, 10.0);
    parameters.set(keys::feedrate, 800.0);
    parameters.set(keys::spindleSpeed, 9000.0);
    parameters.set(keys::cutTolerance, 0.02);
    return parameters;
}

exchange::Tessaron2dInput squarePocket()
{
    exchange::Tessaron2dInput input;
    input.boundaries.materialBoundaries = {rectangle(0, 0, 100, 80)};
    input.boundaries.partBoundaries = {rectangle(0, 0, 100, 80), rectangle(20, 20, 80, 60)};
    input.parameters = usualParameters();
    return input;
}

exchange::Tessaron2dInput islandPocket()
{
    exchange::Tessaron2dInput input = squarePocket();
    input.boundaries.partBoundaries.push_back(circle({38, 40}, 6));
    input.boundaries.partBoundaries.push_back(rectangle(56, 34, 66, 46));
    return input;
}

exchange::Tessaron2dInput openSided()
{
    exchange::Tessaron2dInput input;
    // The wall runs along the left, the bottom and the right; the stock reaches over it and past the open top.
    input.boundaries.materialBoundaries = {rectangle(-5, -5, 85, 75)};
    input.boundaries.partBoundaries = {
        line({-5, -5}, {-5, 50}),
        rationalQuarter({0, 50}, 5, util::pi / 2),
        line({0, 55}, {10, 55}),
        line({10, 55}, {10, 20}),
        arc({20, 20}, 10, util::pi, 1.5 * util::pi),
        line({20, 10}, {60, 10}),
        arc({60, 20}, 10, 1.5 * util::pi, 2 * util::pi),
        line({70, 20}, {70, 55}),
        line({70, 55}, {85, 55}),
        line({85, 55}, {85, -5}),
        line({85, -5}, {-5, -5}),
        closedSpline({{30, 40}, {40, 28}, {52, 34}, {58, 46}, {44, 58}, {32, 54}}),
    };
    // The first corner as a whole: a quarter circle from (0, 55) to (-5, 50), given backwards to the chain.
    input.parameters = usualParameters();
    return input;
}

exchange::Tessaron2dInput twoPockets()
{
    exchange::Tessaron2dInput input;
    input.boundaries.materialBoundaries = {rectangle(0, 0, 200, 60)};
    input.boundaries.partBoundaries = {rectangle(0, 0, 200, 60), rectangle(10, 10, 80, 50), circle({150, 30}, 22)};
    input.parameters = usualParameters();
    return input;
}

exchange::Tessaron2dInput dumbbell()
{
    exchange::Tessaron2dInput input;
    input.boundaries.materialBoundaries = {rectangle(0, 0, 120, 60)};
    input.boundaries.partBoundaries = {
        rectangle(0, 0, 120, 60),
        polyline({{10, 10},
                  {50, 10},
                  {50, 28},
                  {70, 28},
                  {70, 10},
                  {110, 10},
                  {110, 50},
                  {70, 50},
                  {70, 32},
                  {50, 32},
                  {50, 50},
                  {10, 50},
                  {10, 10}}),
    };
    input.parameters = usualParameters();
    return input;
}

exchange::Tessaron2dInput manyIslands(int size)
{
    exchange::Tessaron2dInput input;
    const double side = 30.0 * size;
    const Point centre(side / 2, side / 2);
    input.boundaries.materialBoundaries = {rectangle(-side, -side, 2 * side, 2 * side)};
    input.boundaries.partBoundaries = {rectangle(-side, -side, 2 * side, 2 * side),
                                       wavyLoop(centre, side, side / 40, 24, 400 * size)};
    for (int row = 0; row < size; ++row)
        for (int column = 0; column < size; ++column)
            input.boundaries.partBoundaries.push_back(
                wavyLoop({15 + 30.0 * column, 15 + 30.0 * row}, 7, 1, 5 + (row + column) % 4, 200));
    input.parameters = usualParameters();
    return input;
}

} // namespace shapes
