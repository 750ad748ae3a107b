#ifndef EXCHANGE_ARCHIVE_RECORDTYPES_H
#define EXCHANGE_ARCHIVE_RECORDTYPES_H

#include "exchange/OrrimantInputSerialization.h"
#include "exchange/Tessaron3dInputSerialization.h"
#include "exchange/Tessaron5xInputSerialization.h"
#include "exchange/ToolpathRecordsSerialization.h"
#include "exchange/archive/RecordTable.h"
#include "exchange/archive/TypeList.h"

#include <array>
#include <cstddef>

namespace exchange::archive
{

// The records, in the order of RecordKind.
using BinaryRecordTypes =
    TypeList<geom::PointNd<2>, geom::PointNd<3>, geom::VecNd<3>, geom::Transform, util::Parameterized,
             ParameterizedList, boost::shared_ptr<geom::ParametricCurve<2>>,
             boost::shared_ptr<geom::ParametricCurve<3>>, CurveList, topo::mesh::TriMeshFacet, topo::mesh::TriMesh,
             topo::mesh::TriMeshPtr, TessaronDrillHole, TessaronDrillHoles, Tessaron2dBoundaries, Tessaron2dInput,
             Tessaron3dBoundaries, Tessaron3dInput, Tessaron5xFlankConstraint, Tessaron5xBoundaries, Tessaron5xInput>;
using XmlOnlyRecordTypes = TypeList<OrrimantInput, ToolpathRecords, RapidMove, LinearMove, Arc<1>, Arc<0>, FeedRate,
                                    SpindleSpeed, CustomRecord, ToolAxis>;

template <class... Binary, class... XmlOnly>
TypeList<Binary..., XmlOnly...> joined(TypeList<Binary...>, TypeList<XmlOnly...>);
using XmlRecordTypes = decltype(joined(BinaryRecordTypes(), XmlOnlyRecordTypes()));

template <class... Records>
constexpr bool isComplete(TypeList<Records...>, RecordKind last)
{
    std::size_t place = 0;
    return sizeof...(Records) == static_cast<std::size_t>(last) + 1 &&
           ((static_cast<std::size_t>(RecordKindOf<Records>::value) == place++) && ...);
}
static_assert(isComplete(BinaryRecordTypes(), RecordKind::input5x));
static_assert(isComplete(XmlRecordTypes(), RecordKind::toolAxis));

/// The entry of a table by kind; null behind its end.
template <class Function, std::size_t size>
constexpr Function entryOf(const std::array<Function, size>& table, RecordKind kind)
{
    const auto place = static_cast<std::size_t>(kind);
    return place < size ? table[place] : nullptr;
}

} // namespace exchange::archive

#endif
