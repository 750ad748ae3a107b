#ifndef TESSARON_EXCHANGE_GEOM_RATIONALBSPLINECURVE_H
#define TESSARON_EXCHANGE_GEOM_RATIONALBSPLINECURVE_H

// Stability: stable.

#include <tessaron/exchange/geom/BSplineCurve.h>

#include <vector>

namespace geom
{

/// A rational B-spline curve: a B-spline curve with a weight at each control point.
template <int N>
class TESSARON_EXCHANGE_API RationalBSplineCurve : public virtual BSplineCurve<N>
{
public:
    using typename ParametricCurve<N>::ReturnType;
    using ParametricCurve<N>::AcceptImpl;
    LOKI_DEFINE_CONST_VISITABLE()

    /// The weights, one for each control point.
    virtual const std::vector<double>& weights() const = 0;
};

} // namespace geom

#endif
