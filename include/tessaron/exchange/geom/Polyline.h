#ifndef TESSARON_EXCHANGE_GEOM_POLYLINE_H
#define TESSARON_EXCHANGE_GEOM_POLYLINE_H

// Stability: stable.

#include <tessaron/exchange/geom/ControlPointCurveBase.h>

#include <vector>

namespace geom
{

/// Straight segments through the control points in order.
template <int N>
class TESSARON_EXCHANGE_API Polyline : public virtual ControlPointCurveBase<N>
{
public:
    using typename ParametricCurve<N>::ReturnType;
    using ParametricCurve<N>::AcceptImpl;
    LOKI_DEFINE_CONST_VISITABLE()

    /// The vertices in order; at least two, unless the curve was read from an archive that holds fewer.
    virtual const std::vector<PointNd<N>>& points() const = 0;
};

} // namespace geom

#endif
