#ifndef TESSARON_EXCHANGE_GEOM_BSPLINECURVE_H
#define TESSARON_EXCHANGE_GEOM_BSPLINECURVE_H

// Stability: stable.

#include <tessaron/exchange/geom/ControlPointCurveBase.h>

#include <vector>

namespace geom
{

/// The highest degree that is evaluated: an evaluation costs the square of the degree, and at this one still takes
/// tens of microseconds. Curves of higher degrees can be stored and passed on.
inline constexpr int maxEvaluatedDegree = 100;

/// A B-spline curve. Evaluating one of a degree above maxEvaluatedDegree throws util::AssertionError. Its degree
/// follows from its data: number of knots - number of control points - 1.
template <int N>
class TESSARON_EXCHANGE_API BSplineCurve : public virtual ControlPointCurveBase<N>
{
public:
    using typename ParametricCurve<N>::ReturnType;
    using ParametricCurve<N>::AcceptImpl;
    LOKI_DEFINE_CONST_VISITABLE()

    /// The degree.
    /// \throws util::AssertionError when the numbers of knots and control points define none.
    virtual int degree() const = 0;
    /// The knots, in ascending order.
    virtual const std::vector<double>& knots() const = 0;
};

} // namespace geom

#endif
