#ifndef EXCHANGE_GEOM_HOMOGENEOUS_H
#define EXCHANGE_GEOM_HOMOGENEOUS_H

#include "exchange/geom/CurveAssertion.h"
#include <tessaron/exchange/geom/PointNd.h>
#include <tessaron/exchange/geom/VecNd.h>

#include <array>

namespace geom
{

/// Turns homogeneous values (w * point, w) and their derivatives into the point and its derivatives by the quotient
/// rule. `values` holds nderivs + 1 of them. Source: Piegl and Tiller, The NURBS Book, algorithm A4.2.
/// \throws util::AssertionError when w is 0.
template <int N>
void fromHomogeneous(const std::array<double, N + 1>* values, PointNd<N>& point, VecNd<N>* derivs, int nderivs)
{
    const double w = values[0][N];
    GEOM_CURVE_ASSERT(w != 0);
    for (int i = 0; i < N; ++i)
        point[i] = values[0][i] / w;
    if (nderivs >= 1)
        for (int i = 0; i < N; ++i)
            derivs[0][i] = (values[1][i] - values[1][N] * point[i]) / w;
    if (nderivs >= 2)
        for (int i = 0; i < N; ++i)
            derivs[1][i] = (values[2][i] - 2 * values[1][N] * derivs[0][i] - values[2][N] * point[i]) / w;
}

} // namespace geom

#endif
