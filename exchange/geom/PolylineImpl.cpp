#include <tessaron/exchange/geom/PolylineImpl.h>

#include "exchange/geom/CurveAssertion.h"
#include "exchange/geom/Segment.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace geom
{

template <int N>
PolylineImpl<N>::PolylineImpl(std::vector<PointNd<N>> points) : m_pts(std::move(points))
{
    GEOM_CURVE_ASSERT(m_pts.size() >= 2);
}

template <int N>
double PolylineImpl<N>::startParam() const
{
    GEOM_CURVE_ASSERT(m_pts.size() >= 2);
    return 0;
}

template <int N>
double PolylineImpl<N>::endParam() const
{
    GEOM_CURVE_ASSERT(m_pts.size() >= 2);
    return static_cast<double>(m_pts.size() - 1);
}

template <int N>
void PolylineImpl<N>::doEvaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const
{
    GEOM_CURVE_ASSERT(m_pts.size() >= 2);
    const double lastSegment = static_cast<double>(m_pts.size() - 2);
    const double segment = std::clamp(std::floor(t), 0.0, lastSegment);
    const PointNd<N>* const start = &m_pts[static_cast<std::size_t>(segment)];
    evaluateSegment(start[0], start[1], t - segment, point, derivs, nderivs);
}

template class PolylineImpl<2>;
template class PolylineImpl<3>;

} // namespace geom
