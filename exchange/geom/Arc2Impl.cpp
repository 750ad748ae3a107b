#include <tessaron/exchange/geom/Arc2Impl.h>

#include "exchange/geom/CurveAssertion.h"
#include <tessaron/util/Constants.h>

#include <cmath>

namespace geom
{

Arc2Impl::Arc2Impl(const PointNd<2>& center, double radius, double startAngle, double endAngle)
    : m_center(center), m_radius(radius), m_angleRange(startAngle, endAngle)
{
    constexpr double lengthTolerance = 1e-6;
    constexpr double turn = 2 * util::pi;
    auto& [start, end] = m_angleRange;
    const double startLength = radius * start;
    const double turnLength = radius * turn;
    if (startLength >= turnLength + lengthTolerance)
    {
        start -= turn;
        end -= turn;
    }
    else if (startLength >= turnLength - lengthTolerance)
    {
        start = 0;
        end -= turn;
    }
    else if (startLength < -lengthTolerance)
    {
        start += turn;
        end += turn;
    }
    else if (startLength < lengthTolerance)
    {
        start = 0;
    }

    // The text of this failure is published; the layout of the expression is part of it.
    // clang-format off
    using std::fabs;
    GEOM_CURVE_ASSERT(fabs (endAngle - startAngle) < 2*util::pi + util::doubleEps);
    // clang-format on
}

Arc2Impl::~Arc2Impl() = default;

void Arc2Impl::doEvaluate(double t, PointNd<2>& point, VecNd<2>* derivs, int nderivs) const
{
    const double sweep = endAngle() - startAngle();
    const double angle = (1 - t) * startAngle() + t * endAngle();
    const double x = m_radius * std::cos(angle);
    const double y = m_radius * std::sin(angle);
    point = PointNd<2>(m_center[0] + x, m_center[1] + y);
    if (nderivs >= 1)
        derivs[0] = VecNd<2>(-y * sweep, x * sweep);
    if (nderivs >= 2)
        derivs[1] = VecNd<2>(-x * sweep * sweep, -y * sweep * sweep);
}

} // namespace geom
