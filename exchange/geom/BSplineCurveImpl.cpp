#include <tessaron/exchange/geom/BSplineCurveImpl.h>

#include "exchange/geom/BSplineBasis.h"

#include <utility>

namespace geom
{

template <int N>
BSplineCurveImpl<N>::BSplineCurveImpl(std::vector<PointNd<N>> controlPoints, std::vector<double> knots)
    : m_cpts(std::move(controlPoints)), m_knots(std::move(knots))
{
    checkKnots(m_knots, m_cpts.size());
}

template <int N>
int BSplineCurveImpl<N>::degree() const
{
    return impliedDegree(m_cpts.size(), m_knots.size());
}

template <int N>
double BSplineCurveImpl<N>::startParam() const
{
    return m_knots[static_cast<std::size_t>(degree())];
}

template <int N>
double BSplineCurveImpl<N>::endParam() const
{
    degree();
    return m_knots[m_cpts.size()];
}

template <int N>
void BSplineCurveImpl<N>::doEvaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const
{
    const BSplineBasis basis(m_knots, m_cpts.size(), t, nderivs);
    std::array<double, N> sums[3];
    basis.template sum<N>(
        [this](std::size_t i)
        {
            std::array<double, N> value;
            for (int d = 0; d < N; ++d)
                value[d] = m_cpts[i][d];
            return value;
        },
        sums);
    for (int d = 0; d < N; ++d)
        point[d] = sums[0][d];
    for (int k = 0; k < nderivs; ++k)
        for (int d = 0; d < N; ++d)
            derivs[k][d] = sums[k + 1][d];
}

template class BSplineCurveImpl<2>;
template class BSplineCurveImpl<3>;

} // namespace geom
