#ifndef EXCHANGE_ARCHIVE_POINTERCLASSES_H
#define EXCHANGE_ARCHIVE_POINTERCLASSES_H

#include "exchange/archive/TypeList.h"
#include <tessaron/exchange/archive/CountedReference.h>
#include <tessaron/exchange/geom/CurveSerialization.h>
#include <tessaron/exchange/mesh/TriMeshFacets.h>

// base_object() in the serialize() routines of curves only declares what these headers define.
#include <boost/serialization/extended_type_info_typeid.hpp>
#include <boost/serialization/void_cast.hpp>

#include <type_traits>

namespace exchange::archive
{

using PlaneCurveClasses = TypeList<geom::LineImpl<2>, geom::PolylineImpl<2>, geom::BSplineCurveImpl<2>,
                                   geom::RationalBSplineCurveImpl<2>, geom::Arc2Impl>;
using SpaceCurveClasses = TypeList<geom::LineImpl<3>, geom::PolylineImpl<3>, geom::BSplineCurveImpl<3>,
                                   geom::RationalBSplineCurveImpl<3>, geom::PlaneCurve3dImpl>;

/// The classes that an archive may hold behind a pointer to Base.
template <class Base>
struct PointerClassesOf
{
    using type = TypeList<>;
};
template <>
struct PointerClassesOf<geom::ParametricCurve<2>>
{
    using type = PlaneCurveClasses;
};
template <>
struct PointerClassesOf<geom::ParametricCurve<3>>
{
    using type = SpaceCurveClasses;
};
template <>
struct PointerClassesOf<topo::mesh::TriMesh>
{
    using type = TypeList<topo::mesh::TriMesh>;
};
template <class T>
struct PointerClassesOf<CountedReference<T>>
{
    using type = TypeList<CountedReference<T>>;
};
template <class Base>
using PointerClasses = typename PointerClassesOf<Base>::type;

/// Whether archives track objects of a class: those that pointers can lead to.
template <class T>
inline constexpr bool isHeldByPointer =
    isOneOf<T, PlaneCurveClasses> || isOneOf<T, SpaceCurveClasses> || std::is_same_v<T, topo::mesh::TriMesh>;

/// Whether the class behind a pointer to Base is known only by its export key in the archive.
template <class Base>
inline constexpr bool isReadByName = std::is_abstract_v<Base>;

/// The export key that goes into the archive for a T behind a pointer to Base, or null where the pointer's own type
/// says it all.
template <class T, class Base>
const char* classKey()
{
    if constexpr (isReadByName<Base>)
        return boost::serialization::guid<T>();
    else
        return nullptr;
}

} // namespace exchange::archive

#endif
