#include <tessaron/exchange/geom/ParametricCurve.h>

#include "exchange/geom/CurveAssertion.h"

#include <cmath>

namespace geom
{

template <int N>
ParametricCurve<N>::ParametricCurve() = default;

template <int N>
ParametricCurve<N>::ParametricCurve(const ParametricCurve& other) = default;

template <int N>
ParametricCurve<N>::~ParametricCurve() = default;

template <int N>
void ParametricCurve<N>::evaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const
{
    GEOM_CURVE_ASSERT(nderivs >= 0 && nderivs <= 2);
    GEOM_CURVE_ASSERT(nderivs == 0 || derivs);
    GEOM_CURVE_ASSERT(std::isfinite(t));
    doEvaluate(t, point, derivs, nderivs);
}

template <int N>
PointNd<N> ParametricCurve<N>::pointAt(double t) const
{
    PointNd<N> point;
    evaluate(t, point);
    return point;
}

template class ParametricCurve<2>;
template class ParametricCurve<3>;

} // namespace geom
