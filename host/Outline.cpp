#include "host/Outline.h"

#include <tessaron/exchange/geom/Line.h>
#include <tessaron/exchange/geom/Polyline.h>

#include <loki/Visitor.h>

#include <cmath>
#include <stdexcept>
#include <utility>

namespace host
{

namespace
{

using Points = std::vector<Point2>;
using Curve = geom::ParametricCurve<2>;

constexpr int firstPieces = 24;
constexpr int deepestSplit = 8;

double distance(const Point2& a, const Point2& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1]);
}

// Picks out the curves that are polylines already.
class StraightCurves : public Loki::BaseVisitor,
                       public Loki::Visitor<geom::Line<2>, void, true>,
                       public Loki::Visitor<geom::Polyline<2>, void, true>
{
public:
    void Visit(const geom::Line<2>& line) override { points = {line.startPoint(), line.endPoint()}; }
    void Visit(const geom::Polyline<2>& line) override { points = line.points(); }

    Points points;
};

// Adds what follows the point at `from`, up to and with the one at `to`.
void addPiece(const Curve& curve, double from, const Point2& start, double to, const Point2& end, double tolerance,
              int splits, Points& points)
{
    const double middle = 0.5 * (from + to);
    const Point2 half = curve.pointAt(middle);
    const Point2 chord(0.5 * (start[0] + end[0]), 0.5 * (start[1] + end[1]));
    if (splits > 0 && distance(half, chord) > tolerance)
    {
        addPiece(curve, from, start, middle, half, tolerance, splits - 1, points);
        addPiece(curve, middle, half, to, end, tolerance, splits - 1, points);
        return;
    }
    points.push_back(end);
}

Points flatten(const Curve& curve, double tolerance)
{
    StraightCurves straight;
    curve.Accept(straight);
    if (!straight.points.empty())
        return straight.points;
    const double from = curve.startParam();
    const double step = (curve.endParam() - from) / firstPieces;
    Points points{curve.pointAt(from)};
    for (int piece = 0; piece < firstPieces; ++piece)
    {
        const double start = from + piece * step;
        const double end = piece + 1 == firstPieces ? curve.endParam() : start + step;
        addPiece(curve, start, Point2(points.back()), end, curve.pointAt(end), tolerance, deepestSplit, points);
    }
    return points;
}

// Joins `piece` to the end of `chain` when one of its ends lies there.
bool join(Points& chain, Points& piece, double tolerance)
{
    if (distance(chain.back(), piece.back()) <= tolerance)
        std::reverse(piece.begin(), piece.end());
    if (distance(chain.back(), piece.front()) > tolerance)
        return false;
    chain.insert(chain.end(), piece.begin() + 1, piece.end());
    return true;
}

bool closes(const Points& chain, double tolerance)
{
    return chain.size() > 2 && distance(chain.front(), chain.back()) <= tolerance;
}

Contour takeContour(std::vector<Points>& pieces, double tolerance)
{
    Contour contour;
    contour.points = std::move(pieces.front());
    pieces.erase(pieces.begin());
    bool turned = false;
    while (!closes(contour.points, tolerance))
    {
        const auto next = std::find_if(pieces.begin(), pieces.end(),
                                       [&](Points& piece) { return join(contour.points, piece, tolerance); });
        if (next != pieces.end())
            pieces.erase(next);
        else if (std::exchange(turned, true))
            return contour;
        else
            std::reverse(contour.points.begin(), contour.points.end());
    }
    contour.closed = true;
    contour.points.pop_back();
    return contour;
}

} // namespace

double doubleArea(const std::vector<Point2>& points)
{
    double sum = 0;
    for (std::size_t i = 0, j = points.size() - 1; i < points.size(); j = i++)
        sum += points[j][0] * points[i][1] - points[i][0] * points[j][1];
    return sum;
}

bool encloses(const std::vector<Point2>& contour, const Point2& point)
{
    bool inside = false;
    for (std::size_t i = 0, j = contour.size() - 1; i < contour.size(); j = i++)
    {
        const Point2& a = contour[i];
        const Point2& b = contour[j];
        if ((a[1] > point[1]) != (b[1] > point[1]) &&
            point[0] < (b[0] - a[0]) * (point[1] - a[1]) / (b[1] - a[1]) + a[0])
            inside = !inside;
    }
    return inside;
}

std::vector<Contour> outline(const exchange::CurveList& curves, double tolerance)
{
    std::vector<Points> pieces;
    for (const auto& curve : curves)
    {
        if (!curve)
            throw std::runtime_error("a boundary curve is missing");
        pieces.push_back(flatten(*curve, tolerance));
    }
    std::vector<Contour> contours;
    while (!pieces.empty())
        contours.push_back(takeContour(pieces, 10 * tolerance));
    for (Contour& contour : contours)
    {
        if (!contour.closed)
            continue;
        for (const Contour& other : contours)
            if (&other != &contour && other.closed && encloses(other.points, contour.points.front()))
                ++contour.depth;
        if ((doubleArea(contour.points) > 0) == (contour.depth % 2 == 1))
            std::reverse(contour.points.begin(), contour.points.end());
    }
    return contours;
}

} // namespace host
