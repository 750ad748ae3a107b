#ifndef TESSARON_EXCHANGE_GEOM_RATIONALBSPLINECURVEIMPL_H
#define TESSARON_EXCHANGE_GEOM_RATIONALBSPLINECURVEIMPL_H

// Stability: stable.

#include <tessaron/exchange/geom/RationalBSplineCurve.h>

namespace geom
{

/// A rational B-spline curve that holds its control points, knots and weights. The parameter range is that of
/// BSplineCurveImpl.
template <int N>
class TESSARON_EXCHANGE_API RationalBSplineCurveImpl : public RationalBSplineCurve<N>
{
public:
    /// A curve without data, for an archive to read into. It cannot be evaluated.
    RationalBSplineCurveImpl() = default;
    /// \param controlPoints at least degree + 1 points
    /// \param knots ascending, finite, with knot p less than knot n
    /// \param weights one for each control point
    /// \throws util::AssertionError unless the data are so.
    RationalBSplineCurveImpl(std::vector<PointNd<N>> controlPoints, std::vector<double> knots,
                             std::vector<double> weights);

    double startParam() const override;
    double endParam() const override;
    const PointNd<N>* controlPoints() const override { return m_cpts.data(); }
    std::size_t controlPointCount() const override { return m_cpts.size(); }
    int degree() const override;
    const std::vector<double>& knots() const override { return m_knots; }
    const std::vector<double>& weights() const override { return m_weights; }

    /// Reads or writes the curve; defined in <tessaron/exchange/geom/CurveSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

private:
    void doEvaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const override;

    std::vector<PointNd<N>> m_cpts;
    std::vector<double> m_knots;
    std::vector<double> m_weights;
};

extern template class RationalBSplineCurveImpl<2>;
extern template class RationalBSplineCurveImpl<3>;

} // namespace geom

#endif
