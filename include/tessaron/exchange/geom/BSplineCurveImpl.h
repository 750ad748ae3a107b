#ifndef TESSARON_EXCHANGE_GEOM_BSPLINECURVEIMPL_H
#define TESSARON_EXCHANGE_GEOM_BSPLINECURVEIMPL_H

// Stability: stable.

#include <tessaron/exchange/geom/BSplineCurve.h>

namespace geom
{

/// A B-spline curve that holds its control points and knots. With n control points and degree p the parameter range is
/// knot p to knot n (counted from 0).
template <int N>
class TESSARON_EXCHANGE_API BSplineCurveImpl : public BSplineCurve<N>
{
public:
    /// A curve without data, for an archive to read into. It cannot be evaluated.
    BSplineCurveImpl() = default;
    /// \param controlPoints at least degree + 1 points
    /// \param knots ascending, finite, with knot p less than knot n
    /// \throws util::AssertionError unless the data are so.
    BSplineCurveImpl(std::vector<PointNd<N>> controlPoints, std::vector<double> knots);

    double startParam() const override;
    double endParam() const override;
    const PointNd<N>* controlPoints() const override { return m_cpts.data(); }
    std::size_t controlPointCount() const override { return m_cpts.size(); }
    int degree() const override;
    const std::vector<double>& knots() const override { return m_knots; }

    /// Reads or writes the curve; defined in <tessaron/exchange/geom/CurveSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

private:
    void doEvaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const override;

    std::vector<PointNd<N>> m_cpts;
    std::vector<double> m_knots;
};

extern template class BSplineCurveImpl<2>;
extern template class BSplineCurveImpl<3>;

} // namespace geom

#endif
