#ifndef EXCHANGE_GEOM_BSPLINEBASIS_H
#define EXCHANGE_GEOM_BSPLINEBASIS_H

#include <boost/container/small_vector.hpp>

#include <array>
#include <cstddef>
#include <vector>

namespace geom
{

/// The degree that numbers of control points and knots imply.
/// \throws util::AssertionError when they imply none, or there are fewer control points than the degree plus 1.
int impliedDegree(std::size_t controlPointCount, std::size_t knotCount);

/// Checks a whole knot vector.
/// \throws util::AssertionError unless the knots ascend, are finite and enclose a parameter range.
void checkKnots(const std::vector<double>& knots, std::size_t controlPointCount);

/// The non-zero B-spline basis functions at a parameter value and what derivatives need of them.
/// Source: Piegl and Tiller, The NURBS Book, algorithms A2.1 and A2.2; derivatives by differences of control points,
/// equations 3.8.
class BSplineBasis
{
public:
    /// Finds the knot span of t (the first or last one for t outside the range) and computes the basis functions there.
    /// \throws util::AssertionError when the numbers imply no degree or one above maxEvaluatedDegree, or the knots
    /// about t are unsound.
    BSplineBasis(const std::vector<double>& knots, std::size_t controlPointCount, double t, int nderivs);

    /// The sum of basis functions times control points and its first derivatives: `out` receives nderivs + 1 values.
    /// `controlPoint(i)` gives control point i as std::array<double, D>.
    template <int D, class ControlPoint>
    void sum(const ControlPoint& controlPoint, std::array<double, D>* out) const;

private:
    static constexpr int inlineOrder = 10;
    using Values = boost::container::small_vector<double, inlineOrder>;

    const std::vector<double>& m_knots;
    int m_degree;
    int m_nderivs;
    std::size_t m_span;
    /// m_basis[k]: the basis functions of degree m_degree - k, the first of them belonging to control point
    /// m_span - m_degree + k of the k-th differences.
    std::array<Values, 3> m_basis;
};

template <int D, class ControlPoint>
void BSplineBasis::sum(const ControlPoint& controlPoint, std::array<double, D>* out) const
{
    const std::size_t first = m_span - static_cast<std::size_t>(m_degree);
    boost::container::small_vector<std::array<double, D>, inlineOrder> points;
    points.reserve(static_cast<std::size_t>(m_degree) + 1);
    for (std::size_t i = first; i <= m_span; ++i)
        points.push_back(controlPoint(i));

    for (int k = 0; k <= m_nderivs; ++k)
    {
        out[k] = {};
        if (k > m_degree)
            continue;
        if (k > 0)
        {
            // points[i] holds the (k-1)-th difference first + i; turn them into the k-th ones in place.
            const int degree = m_degree - k + 1;
            for (std::size_t i = 0; i + 1 < points.size(); ++i)
            {
                const std::size_t knot = first + i + static_cast<std::size_t>(k);
                const double factor = degree / (m_knots[knot + static_cast<std::size_t>(degree)] - m_knots[knot]);
                for (int d = 0; d < D; ++d)
                    points[i][d] = factor * (points[i + 1][d] - points[i][d]);
            }
            points.pop_back();
        }
        const Values& basis = m_basis[static_cast<std::size_t>(k)];
        for (std::size_t i = 0; i < points.size(); ++i)
            for (int d = 0; d < D; ++d)
                out[k][d] += basis[i] * points[i][d];
    }
}

} // namespace geom

#endif
