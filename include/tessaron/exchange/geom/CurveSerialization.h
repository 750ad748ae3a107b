#ifndef TESSARON_EXCHANGE_GEOM_CURVESERIALIZATION_H
#define TESSARON_EXCHANGE_GEOM_CURVESERIALIZATION_H

// Stability: stable.

#include <tessaron/exchange/geom/Curves.h>
#include <tessaron/exchange/geom/GeomSerialization.h>
#include <tessaron/util/ParameterizedSerialization.h>

#include <boost/serialization/assume_abstract.hpp>
#include <boost/serialization/base_object.hpp>
#include <boost/serialization/export.hpp>
#include <boost/serialization/shared_ptr.hpp>
#include <boost/serialization/utility.hpp>
#include <boost/serialization/vector.hpp>

BOOST_SERIALIZATION_ASSUME_ABSTRACT(geom::ParametricCurve<2>)
BOOST_SERIALIZATION_ASSUME_ABSTRACT(geom::ParametricCurve<3>)
BOOST_CLASS_VERSION(geom::ParametricCurve<2>, 1)
BOOST_CLASS_VERSION(geom::ParametricCurve<3>, 1)

// The names under which archives know the classes.
BOOST_CLASS_EXPORT_KEY2(geom::LineImpl<2>, "GeomLineImpl2")
BOOST_CLASS_EXPORT_KEY2(geom::LineImpl<3>, "GeomLineImpl3")
BOOST_CLASS_EXPORT_KEY2(geom::PolylineImpl<2>, "GeomPolylineImpl2")
BOOST_CLASS_EXPORT_KEY2(geom::PolylineImpl<3>, "GeomPolylineImpl3")
BOOST_CLASS_EXPORT_KEY2(geom::BSplineCurveImpl<2>, "GeomBSplineCurve2dImpl")
BOOST_CLASS_EXPORT_KEY2(geom::BSplineCurveImpl<3>, "GeomBSplineCurve3dImpl")
BOOST_CLASS_EXPORT_KEY2(geom::RationalBSplineCurveImpl<2>, "GeomRationalBSplineCurve2dImpl")
BOOST_CLASS_EXPORT_KEY2(geom::RationalBSplineCurveImpl<3>, "GeomRationalBSplineCurve3dImpl")
BOOST_CLASS_EXPORT_KEY2(geom::Arc2Impl, "GeomArc2Impl")
BOOST_CLASS_EXPORT_KEY2(geom::PlaneCurve3dImpl, "GeomPlaneCurve3dImpl")

namespace geom
{

namespace detail
{

/// What every curve starts with: the check of its own class version, then its ParametricCurve base.
template <int N, class Curve, class Archive>
void serializeCurveBase(Archive& archive, Curve& curve, unsigned int version, const char* name)
{
    util::checkClassVersion<Curve>(version, name);
    archive& boost::serialization::make_nvp("ParametricCurveN",
                                            boost::serialization::base_object<ParametricCurve<N>>(curve));
}

} // namespace detail

template <int N>
template <class Archive>
void ParametricCurve<N>::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<ParametricCurve>(version, N == 2 ? "geom::ParametricCurve<2>" : "geom::ParametricCurve<3>");
    if (version >= 1)
        archive& boost::serialization::make_nvp("utilParameterized",
                                                boost::serialization::base_object<util::Parameterized>(*this));
}

template <int N>
template <class Archive>
void LineImpl<N>::serialize(Archive& archive, unsigned int version)
{
    detail::serializeCurveBase<N>(archive, *this, version, N == 2 ? "geom::LineImpl<2>" : "geom::LineImpl<3>");
    archive& boost::serialization::make_nvp("pts", m_pts);
}

template <int N>
template <class Archive>
void PolylineImpl<N>::serialize(Archive& archive, unsigned int version)
{
    detail::serializeCurveBase<N>(archive, *this, version, N == 2 ? "geom::PolylineImpl<2>" : "geom::PolylineImpl<3>");
    archive& boost::serialization::make_nvp("pts", m_pts);
}

template <int N>
template <class Archive>
void BSplineCurveImpl<N>::serialize(Archive& archive, unsigned int version)
{
    detail::serializeCurveBase<N>(archive, *this, version,
                                  N == 2 ? "geom::BSplineCurveImpl<2>" : "geom::BSplineCurveImpl<3>");
    archive& BOOST_SERIALIZATION_NVP(m_cpts);
    archive& BOOST_SERIALIZATION_NVP(m_knots);
}

template <int N>
template <class Archive>
void RationalBSplineCurveImpl<N>::serialize(Archive& archive, unsigned int version)
{
    detail::serializeCurveBase<N>(archive, *this, version,
                                  N == 2 ? "geom::RationalBSplineCurveImpl<2>" : "geom::RationalBSplineCurveImpl<3>");
    archive& BOOST_SERIALIZATION_NVP(m_cpts);
    archive& BOOST_SERIALIZATION_NVP(m_knots);
    archive& BOOST_SERIALIZATION_NVP(m_weights);
}

template <class Archive>
void Arc2Impl::serialize(Archive& archive, unsigned int version)
{
    detail::serializeCurveBase<2>(archive, *this, version, "geom::Arc2Impl");
    archive& boost::serialization::make_nvp("center", m_center);
    archive& boost::serialization::make_nvp("radius", m_radius);
    archive& boost::serialization::make_nvp("angleRange", m_angleRange);
}

template <class Archive>
void PlaneCurve3dImpl::serialize(Archive& archive, unsigned int version)
{
    detail::serializeCurveBase<3>(archive, *this, version, "geom::PlaneCurve3dImpl");
    archive& boost::serialization::make_nvp("pPlaneCurve", m_pPlaneCurve);
    archive& boost::serialization::make_nvp("trf", m_trf);
}

} // namespace geom

#endif
