#include <tessaron/exchange/geom/RationalBSplineCurveImpl.h>

#include "exchange/geom/BSplineBasis.h"
#include "exchange/geom/Homogeneous.h"

#include <utility>

namespace geom
{

template <int N>
RationalBSplineCurveImpl<N>::RationalBSplineCurveImpl(std::vector<PointNd<N>> controlPoints, std::vector<double> knots,
                                                      std::vector<double> weights)
    : m_cpts(std::move(controlPoints)), m_knots(std::move(knots)), m_weights(std::move(weights))
{
    checkKnots(m_knots, m_cpts.size());
    GEOM_CURVE_ASSERT(m_weights.size() == m_cpts.size());
}

template <int N>
int RationalBSplineCurveImpl<N>::degree() const
{
    return impliedDegree(m_cpts.size(), m_knots.size());
}

template <int N>
double RationalBSplineCurveImpl<N>::startParam() const
{
    return m_knots[static_cast<std::size_t>(degree())];
}

template <int N>
double RationalBSplineCurveImpl<N>::endParam() const
{
    degree();
    return m_knots[m_cpts.size()];
}

template <int N>
void RationalBSplineCurveImpl<N>::doEvaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const
{
    GEOM_CURVE_ASSERT(m_weights.size() == m_cpts.size());
    const BSplineBasis basis(m_knots, m_cpts.size(), t, nderivs);
    std::array<double, N + 1> sums[3];
    basis.template sum<N + 1>(
        [this](std::size_t i)
        {
            std::array<double, N + 1> value;
            for (int d = 0; d < N; ++d)
                value[d] = m_weights[i] * m_cpts[i][d];
            value[N] = m_weights[i];
            return value;
        },
        sums);
    fromHomogeneous<N>(sums, point, derivs, nderivs);
}

template class RationalBSplineCurveImpl<2>;
template class RationalBSplineCurveImpl<3>;

} // namespace geom
