#ifndef EXCHANGE_GEOM_SEGMENT_H
#define EXCHANGE_GEOM_SEGMENT_H

#include <tessaron/exchange/geom/PointNd.h>
#include <tessaron/exchange/geom/VecNd.h>

namespace geom
{

/// The point at t between a (t = 0) and b (t = 1), exact at both, and its derivatives.
template <int N>
void evaluateSegment(const PointNd<N>& a, const PointNd<N>& b, double t, PointNd<N>& point, VecNd<N>* derivs,
                     int nderivs)
{
    for (int i = 0; i < N; ++i)
        point[i] = (1 - t) * a[i] + t * b[i];
    if (nderivs >= 1)
        for (int i = 0; i < N; ++i)
            derivs[0][i] = b[i] - a[i];
    if (nderivs >= 2)
        derivs[1] = VecNd<N>();
}

} // namespace geom

#endif
