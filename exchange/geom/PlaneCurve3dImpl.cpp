#include <tessaron/exchange/geom/PlaneCurve3dImpl.h>

#include "exchange/geom/CurveAssertion.h"
#include "exchange/geom/Homogeneous.h"

#include <utility>

namespace geom
{

PlaneCurve3dImpl::PlaneCurve3dImpl(boost::shared_ptr<ParametricCurve<2>> planeCurve, const Transform& transform)
    : m_pPlaneCurve(std::move(planeCurve)), m_trf(transform)
{
}

PlaneCurve3dImpl::~PlaneCurve3dImpl() = default;

double PlaneCurve3dImpl::startParam() const
{
    GEOM_CURVE_ASSERT(m_pPlaneCurve);
    return m_pPlaneCurve->startParam();
}

double PlaneCurve3dImpl::endParam() const
{
    GEOM_CURVE_ASSERT(m_pPlaneCurve);
    return m_pPlaneCurve->endParam();
}

void PlaneCurve3dImpl::doEvaluate(double t, PointNd<3>& point, VecNd<3>* derivs, int nderivs) const
{
    GEOM_CURVE_ASSERT(m_pPlaneCurve);
    PointNd<2> planePoint;
    VecNd<2> planeDerivs[2];
    m_pPlaneCurve->evaluate(t, planePoint, planeDerivs, nderivs);

    // The derivatives are directions: the translation does not apply to them.
    std::array<double, 4> values[3];
    for (int row = 0; row < 4; ++row)
    {
        values[0][row] = m_trf(row, 0) * planePoint[0] + m_trf(row, 1) * planePoint[1] + m_trf(row, 3);
        for (int k = 0; k < nderivs; ++k)
            values[k + 1][row] = m_trf(row, 0) * planeDerivs[k][0] + m_trf(row, 1) * planeDerivs[k][1];
    }
    fromHomogeneous<3>(values, point, derivs, nderivs);
}

} // namespace geom
