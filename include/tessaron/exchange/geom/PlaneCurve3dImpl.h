#ifndef TESSARON_EXCHANGE_GEOM_PLANECURVE3DIMPL_H
#define TESSARON_EXCHANGE_GEOM_PLANECURVE3DIMPL_H

// Stability: stable.

#include <tessaron/exchange/geom/PlaneCurve3d.h>

namespace geom
{

/// A plane curve in space that shares its plane curve and holds the transform. The parameter range is that of the plane
/// curve.
class TESSARON_EXCHANGE_API PlaneCurve3dImpl : public PlaneCurve3d
{
public:
    /// A curve without a plane curve, for an archive to read into. It cannot be evaluated.
    PlaneCurve3dImpl() = default;
    /// Shares the plane curve and copies the transform.
    PlaneCurve3dImpl(boost::shared_ptr<ParametricCurve<2>> planeCurve, const Transform& transform);
    ~PlaneCurve3dImpl() override;

    double startParam() const override;
    double endParam() const override;
    const boost::shared_ptr<ParametricCurve<2>>& planeCurve() const override { return m_pPlaneCurve; }
    const Transform& transform() const override { return m_trf; }

    /// Reads or writes the curve; defined in <tessaron/exchange/geom/CurveSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

private:
    /// Fails when the plane curve's point goes to infinity (its homogeneous coordinate becomes 0).
    void doEvaluate(double t, PointNd<3>& point, VecNd<3>* derivs, int nderivs) const override;

    boost::shared_ptr<ParametricCurve<2>> m_pPlaneCurve;
    Transform m_trf;
};

} // namespace geom

#endif
