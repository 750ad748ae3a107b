#include <tessaron/exchange/archive/PolymorphicPointer.h>
#include <tessaron/exchange/archive/PolymorphicVector.h>

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/archive/polymorphic_oarchive.hpp>
#include <boost/archive/xml_iarchive.hpp>
#include <boost/archive/xml_oarchive.hpp>

#include <tessaron/exchange/geom/CurveSerialization.h>

// The implementations of the export keys: the pointer serializers for the archive classes whose headers are included
// above. A host that writes a curve to an archive of one of these classes finds them without registering anything.
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
