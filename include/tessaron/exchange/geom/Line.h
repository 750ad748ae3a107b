#ifndef TESSARON_EXCHANGE_GEOM_LINE_H
#define TESSARON_EXCHANGE_GEOM_LINE_H

// Stability: stable.

#include <tessaron/exchange/geom/ControlPointCurveBase.h>

namespace geom
{

/// A straight line between its two control points.
template <int N>
class TESSARON_EXCHANGE_API Line : public virtual ControlPointCurveBase<N>
{
public:
    using typename ParametricCurve<N>::ReturnType;
    using ParametricCurve<N>::AcceptImpl;
    LOKI_DEFINE_CONST_VISITABLE()

    virtual const PointNd<N>& startPoint() const = 0;
    virtual const PointNd<N>& endPoint() const = 0;
};

} // namespace geom

#endif
