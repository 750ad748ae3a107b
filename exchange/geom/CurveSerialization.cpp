#include <tessaron/exchange/archive/PolymorphicPointer.h>
#include <tessaron/exchange/archive/PolymorphicVector.h>

#include <boost/archive/polymorphic_oarchive.hpp>

#include <tessaron/exchange/geom/CurveSerialization.h>

// The implementations of the export keys: the pointer serializers of the polymorphic archives, which are the only
// archive classes that are known where this file has included its headers.
BOOST_CLASS_EXPORT_IMPLEMENT(geom::LineImpl<2>)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::LineImpl<3>)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::PolylineImpl<2>)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::PolylineImpl<3>)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::BSplineCurveImpl<2>)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::BSplineCurveImpl<3>)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::RationalBSplineCurveImpl<2>)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::RationalBSplineCurveImpl<3>)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::Arc2Impl)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::PlaneCurve3dImpl)
