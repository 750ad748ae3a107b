#ifndef TESSARON_EXCHANGE_GEOM_CONTROLPOINTCURVEBASE_H
#define TESSARON_EXCHANGE_GEOM_CONTROLPOINTCURVEBASE_H

// Stability: stable.

#include <tessaron/exchange/geom/ParametricCurve.h>

#include <cstddef>

namespace geom
{

/// A curve that is defined by a list of control points.
template <int N>
class TESSARON_EXCHANGE_API ControlPointCurveBase : public virtual ParametricCurve<N>
{
public:
    /// The control points in order, as one block of controlPointCount() points; owned by the curve.
    virtual const PointNd<N>* controlPoints() const = 0;
    virtual std::size_t controlPointCount() const = 0;
};

} // namespace geom

#endif
