#ifndef TESSARON_EXCHANGE_GEOM_LINEIMPL_H
#define TESSARON_EXCHANGE_GEOM_LINEIMPL_H

// Stability: stable.

#include <tessaron/exchange/geom/Line.h>

namespace geom
{

/// A line that holds its two points. Parameter range 0 (start point) to 1 (end point).
template <int N>
class TESSARON_EXCHANGE_API LineImpl : public Line<N>
{
public:
    /// A line from the origin to itself, for an archive to read into.
    LineImpl() = default;
    LineImpl(const PointNd<N>& startPoint, const PointNd<N>& endPoint);

    double startParam() const override { return 0; }
    double endParam() const override { return 1; }
    const PointNd<N>* controlPoints() const override { return m_pts; }
    std::size_t controlPointCount() const override { return 2; }
    const PointNd<N>& startPoint() const override { return m_pts[0]; }
    const PointNd<N>& endPoint() const override { return m_pts[1]; }

    /// Reads or writes the curve; defined in <tessaron/exchange/geom/CurveSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

private:
    void doEvaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const override;

    PointNd<N> m_pts[2];
};

extern template class LineImpl<2>;
extern template class LineImpl<3>;

} // namespace geom

#endif
