#include <tessaron/exchange/geom/LineImpl.h>

#include "exchange/geom/Segment.h"

namespace geom
{

template <int N>
LineImpl<N>::LineImpl(const PointNd<N>& startPoint, const PointNd<N>& endPoint) : m_pts{startPoint, endPoint}
{
}

template <int N>
void LineImpl<N>::doEvaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const
{
    evaluateSegment(m_pts[0], m_pts[1], t, point, derivs, nderivs);
}

template class LineImpl<2>;
template class LineImpl<3>;

} // namespace geom
