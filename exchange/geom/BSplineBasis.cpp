#include "exchange/geom/BSplineBasis.h"

#include "exchange/geom/CurveAssertion.h"
#include <tessaron/exchange/geom/BSplineCurve.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace geom
{

namespace
{

/// The span i with knots[i] <= t < knots[i + 1]; the first or last one that is not empty for t outside the range.
std::size_t findSpan(const std::vector<double>& knots, std::size_t controlPointCount, std::size_t degree, double t)
{
    const auto first = knots.begin() + static_cast<std::ptrdiff_t>(degree) + 1;
    const auto last = knots.begin() + static_cast<std::ptrdiff_t>(controlPointCount);
    const double end = knots[controlPointCount];
    const auto next =
        t >= end ? std::lower_bound(first, last, end) : std::upper_bound(first, last, std::max(t, knots[degree]));
    return static_cast<std::size_t>(next - knots.begin()) - 1;
}

} // namespace

int impliedDegree(std::size_t controlPointCount, std::size_t knotCount)
{
    GEOM_CURVE_ASSERT(knotCount > controlPointCount);
    const std::size_t degree = knotCount - controlPointCount - 1;
    GEOM_CURVE_ASSERT(degree < controlPointCount);
    GEOM_CURVE_ASSERT(degree < static_cast<std::size_t>(std::numeric_limits<int>::max()));
    return static_cast<int>(degree);
}

void checkKnots(const std::vector<double>& knots, std::size_t controlPointCount)
{
    const int degree = impliedDegree(controlPointCount, knots.size());
    GEOM_CURVE_ASSERT(std::all_of(knots.begin(), knots.end(), [](double knot) { return std::isfinite(knot); }));
    GEOM_CURVE_ASSERT(std::is_sorted(knots.begin(), knots.end()));
    GEOM_CURVE_ASSERT(knots[static_cast<std::size_t>(degree)] < knots[controlPointCount]);
}

BSplineBasis::BSplineBasis(const std::vector<double>& knots, std::size_t controlPointCount, double t, int nderivs)
    : m_knots(knots), m_degree(impliedDegree(controlPointCount, knots.size())), m_nderivs(nderivs)
{
    GEOM_CURVE_ASSERT(m_degree <= maxEvaluatedDegree);
    const std::size_t p = static_cast<std::size_t>(m_degree);
    m_span = findSpan(knots, controlPointCount, p, t);

    // An archive may hold any numbers; only those that this evaluation uses are checked, as it is called often.
    GEOM_CURVE_ASSERT(knots[m_span] < knots[m_span + 1]);
    GEOM_CURVE_ASSERT(std::isfinite(knots[m_span - p]) && std::isfinite(knots[m_span + p + 1]));
    for (std::size_t i = m_span - p; i <= m_span + p; ++i)
        GEOM_CURVE_ASSERT(knots[i] <= knots[i + 1]);

    // Degree by degree from 0 upwards; the last three are kept for the derivatives.
    Values basis(p + 1);
    Values left(p + 1);
    Values right(p + 1);
    basis[0] = 1;
    for (std::size_t degree = 0;; ++degree)
    {
        const std::size_t below = p - degree;
        if (below <= static_cast<std::size_t>(nderivs))
            m_basis[below].assign(basis.begin(), basis.begin() + static_cast<std::ptrdiff_t>(degree) + 1);
        if (degree == p)
            break;
        const std::size_t j = degree + 1;
        left[j] = t - knots[m_span + 1 - j];
        right[j] = knots[m_span + j] - t;
        double saved = 0;
        for (std::size_t r = 0; r < j; ++r)
        {
            const double term = basis[r] / (right[r + 1] + left[j - r]);
            basis[r] = saved + right[r + 1] * term;
            saved = left[j - r] * term;
        }
        basis[j] = saved;
    }
}

} // namespace geom
