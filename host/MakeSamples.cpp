// Writes the sample parts of the demonstration host: make-samples FOLDER

#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/geom/Curves.h>
#include <tessaron/util/Keys.h>

#include <boost/make_shared.hpp>

#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>
#include <vector>

namespace
{

namespace keys = util::keys;
using exchange::CurveList;
using Point = geom::PointNd<2>;
using Points = std::vector<Point>;

constexpr double turn = 2 * std::numbers::pi;

void addPolygon(CurveList& curves, Points points)
{
    points.push_back(points.front());
    curves.push_back(boost::make_shared<geom::PolylineImpl<2>>(std::move(points)));
}

void addRectangle(CurveList& curves, double left, double bottom, double right, double top)
{
    addPolygon(curves, {{left, bottom}, {right, bottom}, {right, top}, {left, top}});
}

void addLine(CurveList& curves, const Point& from, const Point& to)
{
    curves.push_back(boost::make_shared<geom::LineImpl<2>>(from, to));
}

void addArc(CurveList& curves, const Point& center, double radius, double from, double to)
{
    curves.push_back(boost::make_shared<geom::Arc2Impl>(center, radius, from, to));
}

void addCircle(CurveList& curves, const Point& center, double radius)
{
    addArc(curves, center, radius, 0, turn);
}

// Lines and quarter turns.
void addRoundedRectangle(CurveList& curves, double left, double bottom, double right, double top, double radius)
{
    const double quarter = turn / 4;
    addLine(curves, {left + radius, bottom}, {right - radius, bottom});
    addArc(curves, {right - radius, bottom + radius}, radius, 3 * quarter, 4 * quarter);
    addLine(curves, {right, bottom + radius}, {right, top - radius});
    addArc(curves, {right - radius, top - radius}, radius, 0, quarter);
    addLine(curves, {right - radius, top}, {left + radius, top});
    addArc(curves, {left + radius, top - radius}, radius, quarter, 2 * quarter);
    addLine(curves, {left, top - radius}, {left, bottom + radius});
    addArc(curves, {left + radius, bottom + radius}, radius, 2 * quarter, 3 * quarter);
}

void addHexagon(CurveList& curves, const Point& center, double radius)
{
    Points points;
    for (int corner = 0; corner < 6; ++corner)
        points.emplace_back(center[0] + radius * std::cos(turn * corner / 6),
                            center[1] + radius * std::sin(turn * corner / 6));
    addPolygon(curves, std::move(points));
}

// A cubic with its ends in the first and last control point.
void addSpline(CurveList& curves, const Points& controlPoints)
{
    std::vector<double> knots(4, 0.0);
    const auto spans = controlPoints.size() - 3;
    for (std::size_t i = 1; i < spans; ++i)
        knots.push_back(static_cast<double>(i));
    knots.insert(knots.end(), 4, static_cast<double>(spans));
    curves.push_back(boost::make_shared<geom::BSplineCurveImpl<2>>(controlPoints, knots));
}

// A whole ellipse as a rational quadratic of four quarters (Piegl and Tiller, The NURBS Book, 7.5).
void addEllipse(CurveList& curves, const Point& center, double width, double height)
{
    const double corner = std::sqrt(0.5);
    Points points;
    std::vector<double> weights;
    const int sides[][2] = {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}, {1, 0}};
    for (const auto& side : sides)
    {
        points.emplace_back(center[0] + side[0] * width / 2, center[1] + side[1] * height / 2);
        weights.push_back(side[0] != 0 && side[1] != 0 ? corner : 1.0);
    }
    const std::vector<double> knots{0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4};
    curves.push_back(boost::make_shared<geom::RationalBSplineCurveImpl<2>>(points, knots, weights));
}

struct Cutting
{
    double diameter;
    int flutes;
    double stepover;
    double depthOfCut;
    double depth;
    double stockToLeave;
    double feedrate;
    int spindleSpeed;
};

util::Parameterized parametersOf(const Cutting& cutting)
{
    util::Parameterized parameters;
    parameters.set(keys::toolNumber, 1);
    parameters.set(keys::toolDiameter, cutting.diameter);
    parameters.set(keys::toolNumFlutes, cutting.flutes);
    parameters.set(keys::stepover, cutting.stepover);
    parameters.set(keys::depthOfCut, cutting.depthOfCut);
    parameters.set(keys::topMaterialZ, 0.0);
    parameters.set(keys::zDepth, -cutting.depth);
    parameters.set(keys::rapidPlaneZ, 10.0);
    parameters.set(keys::plungeClearance, 1.0);
    parameters.set(keys::cutTolerance, 0.01);
    parameters.set(keys::xyStockToLeave, cutting.stockToLeave);
    parameters.set(keys::feedrate, cutting.feedrate);
    parameters.set(keys::rampFeedrate, cutting.feedrate / 3);
    parameters.set(keys::spindleSpeed, cutting.spindleSpeed);
    parameters.set(keys::xyRapidFeedRate, 15000.0);
    return parameters;
}

exchange::Tessaron2dInput squarePocket()
{
    exchange::Tessaron2dInput input;
    addRectangle(input.boundaries.materialBoundaries, 0, 0, 120, 120);
    addRectangle(input.boundaries.partBoundaries, 0, 0, 120, 120);
    CurveList& pocket = input.boundaries.partBoundaries;
    addLine(pocket, {20, 20}, {100, 20});
    addLine(pocket, {100, 20}, {100, 100});
    addLine(pocket, {100, 100}, {20, 100});
    addLine(pocket, {20, 100}, {20, 20});
    input.parameters = parametersOf({10, 3, 4, 3, 12, 0.2, 1800, 9000});
    return input;
}

exchange::Tessaron2dInput pocketWithIslands()
{
    exchange::Tessaron2dInput input;
    addRectangle(input.boundaries.materialBoundaries, 0, 0, 180, 120);
    addRectangle(input.boundaries.partBoundaries, 0, 0, 180, 120);
    addRoundedRectangle(input.boundaries.partBoundaries, 14, 14, 166, 106, 18);
    addCircle(input.boundaries.partBoundaries, {58, 62}, 17);
    addHexagon(input.boundaries.partBoundaries, {118, 56}, 19);
    input.parameters = parametersOf({8, 3, 3, 2.5, 15, 0.15, 1650, 11000});
    return input;
}

// The upper and the right side are open: there the stock reaches beyond the block, so that the tool can leave it.
exchange::Tessaron2dInput openShape()
{
    exchange::Tessaron2dInput input;
    addPolygon(input.boundaries.materialBoundaries,
               {{0, 0}, {180, 0}, {180, 26}, {196, 26}, {196, 136}, {44, 136}, {44, 120}, {0, 120}});
    CurveList& part = input.boundaries.partBoundaries;
    addLine(part, {0, 120}, {0, 0});
    addLine(part, {0, 0}, {180, 0});
    addLine(part, {180, 0}, {180, 26});
    addSpline(part, {{180, 26}, {158, 26}, {146, 58}, {122, 50}, {112, 20}, {92, 30}, {76, 36}});
    addArc(part, {76, 60}, 24, turn * 3 / 4, turn / 2);
    addSpline(part, {{52, 60}, {52, 76}, {70, 84}, {64, 100}, {44, 104}, {44, 120}});
    addLine(part, {44, 120}, {0, 120});
    addEllipse(part, {128, 92}, 46, 28);
    input.parameters = parametersOf({12, 4, 4.5, 4, 20, 0.2, 1500, 6500});
    return input;
}

// A cooling plate with three thousand pins: it keeps one core busy for about twenty seconds.
exchange::Tessaron2dInput largePlate()
{
    exchange::Tessaron2dInput input;
    const double width = 640;
    const double height = 400;
    const double wall = 16;
    addRectangle(input.boundaries.materialBoundaries, 0, 0, width, height);
    CurveList& part = input.boundaries.partBoundaries;
    addRectangle(part, 0, 0, width, height);
    addRoundedRectangle(part, wall, wall, width - wall, height - wall, 24);
    const int columns = 72;
    const int rows = 42;
    const double edge = 30;
    const double across = (width - 2 * edge) / columns;
    const double along = (height - 2 * edge) / rows;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            addCircle(part, {edge + across * (column + (row % 2 == 0 ? 0.25 : 0.75)), edge + along * (row + 0.5)}, 2.5);
    input.parameters = parametersOf({2, 2, 0.4, 1.5, 1.5, 0.05, 1200, 24000});
    return input;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "Usage: make-samples FOLDER\n");
        return 2;
    }
    const struct
    {
        const char* file;
        exchange::Tessaron2dInput (*make)();
    } samples[] = {{"square-pocket.xml", squarePocket},
                   {"pocket-with-islands.xml", pocketWithIslands},
                   {"open-shape.xml", openShape},
                   {"large-plate.xml", largePlate}};
    try
    {
        for (const auto& sample : samples)
            exchange::writeArchiveFile(std::string(argv[1]) + "/" + sample.file, sample.make());
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "make-samples: %s\n", error.what());
        return 1;
    }
    return 0;
}
