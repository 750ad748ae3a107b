#ifndef ENGINE_POCKETING_CURVEFLATTENER_H
#define ENGINE_POCKETING_CURVEFLATTENER_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/Grid.h"
#include <tessaron/exchange/geom/Arc.h>
#include <tessaron/exchange/geom/BSplineCurve.h>
#include <tessaron/exchange/geom/Line.h>
#include <tessaron/exchange/geom/Polyline.h>
#include <tessaron/exchange/geom/RationalBSplineCurve.h>

#include <loki/Visitor.h>

#include <cstddef>
#include <vector>

namespace exchange::pocketing
{

/// Turns curves into polylines that stay within a tolerance of them. The vertices lie on the curves.
class CurveFlattener : public Loki::BaseVisitor,
                       public Loki::Visitor<geom::Line<2>, void, true>,
                       public Loki::Visitor<geom::Polyline<2>, void, true>,
                       public Loki::Visitor<geom::Arc<2>, void, true>,
                       public Loki::Visitor<geom::BSplineCurve<2>, void, true>,
                       public Loki::Visitor<geom::RationalBSplineCurve<2>, void, true>
{
public:
    /// \param tolerance the greatest distance between curve and polyline, greater than 0
    /// \param maxPoints how many points all curves together may come to
    CurveFlattener(double tolerance, std::size_t maxPoints, const jobs::CancelFlag& cancel);

    /// \throws std::exception saying what is wrong with the curve: unsound data, a coordinate that is not finite, too
    ///     many points. Cancelled after a cancel.
    Polyline flatten(const geom::ParametricCurve<2>& curve);

    /// Whether a curve is itself a polyline, so that flattening does not change it.
    static bool isExact(const geom::ParametricCurve<2>& curve);

    void Visit(const geom::Line<2>& line) override;
    void Visit(const geom::Polyline<2>& polyline) override;
    void Visit(const geom::Arc<2>& arc) override;
    void Visit(const geom::BSplineCurve<2>& curve) override;
    void Visit(const geom::RationalBSplineCurve<2>& curve) override;

private:
    void add(const Point& point);
    void addControlPoints(const geom::ControlPointCurveBase<2>& curve);
    void addSpline(const geom::BSplineCurve<2>& curve);
    /// Adds what follows the point at `from`, up to the point at `to`.
    void addPiece(const geom::ParametricCurve<2>& curve, double from, double to, int pieces);
    void addHalves(const geom::ParametricCurve<2>& curve, double from, const Point& start, double to, const Point& end,
                   int depth);

    const double m_tolerance;
    const std::size_t m_maxPoints;
    const jobs::CancelFlag& m_cancel;
    std::size_t m_pointCount = 0;
    Polyline m_points;
};

} // namespace exchange::pocketing

#endif
