#ifndef TESSARON_EXCHANGE_GEOM_ARC2IMPL_H
#define TESSARON_EXCHANGE_GEOM_ARC2IMPL_H

// Stability: stable.

#include <tessaron/exchange/geom/Arc.h>

#include <utility>

namespace geom
{

/// A circular arc that holds its center, radius and angles. Parameter range 0 (start angle) to 1 (end angle), in
/// proportion to the angle; the direction of travel is from the start to the end angle.
class TESSARON_EXCHANGE_API Arc2Impl : public Arc<2>
{
public:
    /// An arc of radius 0, for an archive to read into.
    Arc2Impl() = default;
    /// Angles in radians. They are kept as given, except that a start angle below 0 has a full turn added to both, one
    /// beyond a full turn has a full turn taken off both, and one that lies on 0 or on a full turn (within 1e-6,
    /// measured along the arc) becomes exactly 0. A start angle further away is not folded more than once.
    /// \throws util::AssertionError when the given angles are more than a full turn (plus util::doubleEps) apart.
    Arc2Impl(const PointNd<2>& center, double radius, double startAngle, double endAngle);
    ~Arc2Impl() override;

    double startParam() const override { return 0; }
    double endParam() const override { return 1; }
    const PointNd<2>& center() const override { return m_center; }
    double radius() const override { return m_radius; }
    double startAngle() const override { return m_angleRange.first; }
    double endAngle() const override { return m_angleRange.second; }

    /// Reads or writes the curve; defined in <tessaron/exchange/geom/CurveSerialization.h>. Angles are read as stored.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

private:
    void doEvaluate(double t, PointNd<2>& point, VecNd<2>* derivs, int nderivs) const override;

    PointNd<2> m_center;
    double m_radius = 0;
    std::pair<double, double> m_angleRange{0, 0};
};

} // namespace geom

#endif
