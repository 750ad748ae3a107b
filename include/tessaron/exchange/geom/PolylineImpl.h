#ifndef TESSARON_EXCHANGE_GEOM_POLYLINEIMPL_H
#define TESSARON_EXCHANGE_GEOM_POLYLINEIMPL_H

// Stability: stable.

#include <tessaron/exchange/geom/Polyline.h>

namespace geom
{

/// A polyline that holds its vertices. Parameter range 0 to the number of vertices less 1: vertex i lies at i.
template <int N>
class TESSARON_EXCHANGE_API PolylineImpl : public Polyline<N>
{
public:
    /// A polyline without vertices, for an archive to read into. It cannot be evaluated.
    PolylineImpl() = default;
    /// \throws util::AssertionError for fewer than two points.
    explicit PolylineImpl(std::vector<PointNd<N>> points);

    double startParam() const override;
    double endParam() const override;
    const PointNd<N>* controlPoints() const override { return m_pts.data(); }
    std::size_t controlPointCount() const override { return m_pts.size(); }
    const std::vector<PointNd<N>>& points() const override { return m_pts; }

    /// Reads or writes the curve; defined in <tessaron/exchange/geom/CurveSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

private:
    void doEvaluate(double t, PointNd<N>& point, VecNd<N>* derivs, int nderivs) const override;

    std::vector<PointNd<N>> m_pts;
};

extern template class PolylineImpl<2>;
extern template class PolylineImpl<3>;

} // namespace geom

#endif
