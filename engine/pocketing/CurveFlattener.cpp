#include "engine/pocketing/CurveFlattener.h"

#include <tessaron/util/Constants.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

namespace exchange::pocketing
{

namespace
{

/// More halvings than a sound curve needs: 2^24 pieces.
constexpr int maxHalvings = 24;
/// A curve of an unknown kind is cut into this many pieces before the pieces are judged by samples.
constexpr int piecesOfUnknownCurve = 16;

double distanceToSegment(const Point& point, const Point& start, const Point& end)
{
    const double dx = end[0] - start[0];
    const double dy = end[1] - start[1];
    const double length2 = dx * dx + dy * dy;
    double t = 0;
    if (length2 > 0)
        t = std::clamp(((point[0] - start[0]) * dx + (point[1] - start[1]) * dy) / length2, 0.0, 1.0);
    return std::hypot(point[0] - (start[0] + t * dx), point[1] - (start[1] + t * dy));
}

} // namespace

CurveFlattener::CurveFlattener(double tolerance, std::size_t maxPoints, const jobs::CancelFlag& cancel)
    : m_tolerance(tolerance), m_maxPoints(maxPoints), m_cancel(cancel)
{
}

Polyline CurveFlattener::flatten(const geom::ParametricCurve<2>& curve)
{
    m_points.clear();
    curve.Accept(*this);
    if (m_points.empty())
    {
        const double start = curve.startParam();
        add(curve.pointAt(start));
        addPiece(curve, start, curve.endParam(), piecesOfUnknownCurve);
    }
    return std::exchange(m_points, {});
}

bool CurveFlattener::isExact(const geom::ParametricCurve<2>& curve)
{
    return dynamic_cast<const geom::Line<2>*>(&curve) || dynamic_cast<const geom::Polyline<2>*>(&curve);
}

void CurveFlattener::Visit(const geom::Line<2>& line)
{
    addControlPoints(line);
}

void CurveFlattener::Visit(const geom::Polyline<2>& polyline)
{
    if (polyline.controlPointCount() < 2)
        throw std::runtime_error("the polyline has fewer than two points");
    addControlPoints(polyline);
}

void CurveFlattener::Visit(const geom::Arc<2>& arc)
{
    const double radius = arc.radius();
    const double sweep = arc.endAngle() - arc.startAngle();
    if (!std::isfinite(radius) || radius <= 0)
        throw std::runtime_error("the radius of the arc is not a positive number");
    if (!(std::fabs(sweep) <= 2 * util::pi + util::doubleEps))
        throw std::runtime_error("the arc spans more than one turn");

    // The sagitta of a chord over the angle a is r (1 - cos (a / 2)).
    const double step = m_tolerance < radius ? 2 * std::acos(1 - m_tolerance / radius) : util::pi;
    const double count = std::ceil(std::fabs(sweep) / std::min(step, util::pi / 4));
    if (!(count <= static_cast<double>(m_maxPoints)))
        throw std::runtime_error("the arc comes to too many points at this cut tolerance");
    const int pieces = std::max(1, static_cast<int>(count));
    for (int i = 0; i <= pieces; ++i)
    {
        const double angle = arc.startAngle() + sweep * i / pieces;
        add(Point(arc.center()[0] + radius * std::cos(angle), arc.center()[1] + radius * std::sin(angle)));
    }
}

void CurveFlattener::Visit(const geom::BSplineCurve<2>& curve)
{
    addSpline(curve);
}

void CurveFlattener::Visit(const geom::RationalBSplineCurve<2>& curve)
{
    addSpline(curve);
}

void CurveFlattener::add(const Point& point)
{
    if (!std::isfinite(point[0]) || !std::isfinite(point[1]))
        throw std::runtime_error("a coordinate is not a finite number");
    if (++m_pointCount > m_maxPoints)
        throw std::runtime_error("the curves come to more than " + std::to_string(m_maxPoints) +
                                 " points at this cut tolerance");
    if (m_pointCount % 256 == 0)
        m_cancel.check();
    m_points.push_back(point);
}

void CurveFlattener::addControlPoints(const geom::ControlPointCurveBase<2>& curve)
{
    for (std::size_t i = 0; i < curve.controlPointCount(); ++i)
        add(curve.controlPoints()[i]);
}

void CurveFlattener::addSpline(const geom::BSplineCurve<2>& curve)
{
    // Between two knots the curve is one smooth piece, so samples tell how far it strays from its chords.
    const double start = curve.startParam();
    const double end = curve.endParam();
    const int pieces = std::max(1, curve.degree());
    add(curve.pointAt(start));
    double from = start;
    for (const double knot : curve.knots())
    {
        if (!(knot > from))
            continue;
        addPiece(curve, from, std::min(knot, end), pieces);
        from = std::min(knot, end);
        if (from == end)
            break;
    }
}

void CurveFlattener::addPiece(const geom::ParametricCurve<2>& curve, double from, double to, int pieces)
{
    double start = from;
    Point startPoint = curve.pointAt(start);
    for (int i = 1; i <= pieces; ++i)
    {
        const double end = i == pieces ? to : from + (to - from) * i / pieces;
        const Point endPoint = curve.pointAt(end);
        addHalves(curve, start, startPoint, end, endPoint, 0);
        start = end;
        startPoint = endPoint;
    }
}

void CurveFlattener::addHalves(const geom::ParametricCurve<2>& curve, double from, const Point& start, double to,
                               const Point& end, int depth)
{
    const double middle = from + (to - from) / 2;
    const Point middlePoint = curve.pointAt(middle);
    bool straight = distanceToSegment(middlePoint, start, end) <= m_tolerance;
    for (const double t : {0.25, 0.75})
        straight = straight && distanceToSegment(curve.pointAt(from + t * (to - from)), start, end) <= m_tolerance;
    if (straight || depth == maxHalvings)
        return add(end);
    addHalves(curve, from, start, middle, middlePoint, depth + 1);
    addHalves(curve, middle, middlePoint, to, end, depth + 1);
}

} // namespace exchange::pocketing
