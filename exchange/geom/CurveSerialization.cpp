#include "exchange/geom/CurveSerialization.h"

// The implementations of the export keys. They create the pointer serializers for every archive class that is
// registered where this file includes it.
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
