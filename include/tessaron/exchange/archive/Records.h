#ifndef TESSARON_EXCHANGE_ARCHIVE_RECORDS_H
#define TESSARON_EXCHANGE_ARCHIVE_RECORDS_H

// Stability: internal.

#include <tessaron/exchange/OrrimantInput.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/Tessaron3dInput.h>
#include <tessaron/exchange/Tessaron5xInput.h>
#include <tessaron/exchange/TessaronDrillHoles.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/exchange/geom/Transform.h>

#include <cstddef>
#include <tuple>
#include <type_traits>
#include <vector>

namespace exchange
{

/// Several parameter sets in one archive.
typedef std::vector<util::Parameterized> ParameterizedList;

namespace archive
{

// The formats of archives, as flags.
inline constexpr unsigned inXml = 1;
inline constexpr unsigned inBinary = 2;
inline constexpr unsigned inPolymorphic =
    4; ///< through the serialization library's polymorphic archives, XML and binary

/// One kind of record: a class that archives hold as their outermost object.
template <class Record>
struct RecordEntry
{
    const char* name; ///< of the outermost element
    unsigned formats; ///< of the archives that hold it
};

/// All kinds of records. A kind is its place in this list, which hosts have compiled in: new ones go to the end.
inline constexpr auto records = std::make_tuple(
    RecordEntry<geom::PointNd<2>>{"PointNd", inXml | inBinary | inPolymorphic},
    RecordEntry<geom::PointNd<3>>{"PointNd", inXml | inBinary | inPolymorphic},
    RecordEntry<geom::VecNd<3>>{"VecNd", inXml | inBinary},
    RecordEntry<geom::Transform>{"Transform", inXml | inBinary | inPolymorphic},
    RecordEntry<util::Parameterized>{"Parameterized", inXml | inBinary | inPolymorphic},
    RecordEntry<ParameterizedList>{"ParameterizedList", inXml | inBinary},
    RecordEntry<boost::shared_ptr<geom::ParametricCurve<2>>>{"curve", inXml | inBinary | inPolymorphic},
    RecordEntry<boost::shared_ptr<geom::ParametricCurve<3>>>{"curve", inXml | inBinary | inPolymorphic},
    RecordEntry<CurveList>{"curves", inXml | inBinary},
    RecordEntry<topo::mesh::TriMeshFacet>{"TriMeshFacet", inXml | inBinary},
    RecordEntry<topo::mesh::TriMesh>{"TriMeshFacets", inXml | inBinary},
    RecordEntry<topo::mesh::TriMeshPtr>{"TriMeshFacets", inXml | inBinary},
    RecordEntry<TessaronDrillHole>{"TessaronDrillHole", inXml | inBinary},
    RecordEntry<TessaronDrillHoles>{"TessaronDrillHoles", inXml | inBinary},
    RecordEntry<Tessaron2dBoundaries>{"Tessaron2dBoundaries", inXml | inBinary},
    RecordEntry<Tessaron2dInput>{"Tessaron2dInput", inXml | inBinary},
    RecordEntry<Tessaron3dBoundaries>{"Tessaron3dBoundaries", inXml | inBinary},
    RecordEntry<Tessaron3dInput>{"Tessaron3dInput", inXml | inBinary},
    RecordEntry<Tessaron5xFlankConstraint>{"Tessaron5xFlankConstraint", inXml | inBinary},
    RecordEntry<Tessaron5xBoundaries>{"Tessaron5xBoundaries", inXml | inBinary},
    RecordEntry<Tessaron5xInput>{"Tessaron5xInput", inXml | inBinary},
    RecordEntry<OrrimantInput>{"OrrimantInput", inXml}, RecordEntry<ToolpathRecords>{"ToolpathRecords", inXml},
    RecordEntry<RapidMove>{"RapidMove", inXml}, RecordEntry<LinearMove>{"LinearMove", inXml},
    RecordEntry<Arc<1>>{"Arc", inXml}, RecordEntry<Arc<0>>{"Arc", inXml}, RecordEntry<FeedRate>{"FeedRate", inXml},
    RecordEntry<SpindleSpeed>{"SpindleSpeed", inXml}, RecordEntry<CustomRecord>{"CustomRecord", inXml},
    RecordEntry<ToolAxis>{"ToolAxis", inXml});

/// A kind of record: its place in `records`.
enum class RecordKind : int
{
};

/// The place of a class in the list; as large as the list when it is not there.
template <class Record, class... Listed>
constexpr std::size_t recordPlace(const std::tuple<RecordEntry<Listed>...>&)
{
    std::size_t place = 0;
    static_cast<void>(((std::is_same_v<Record, Listed> || (++place, false)) || ...));
    return place;
}

/// The kind of a record; undefined for anything else, which therefore cannot be archived.
template <class Record, class = void>
struct RecordKindOf;
template <class Record>
struct RecordKindOf<Record, std::enable_if_t<(recordPlace<Record>(records) < std::tuple_size_v<decltype(records)>)>>
{
    static constexpr RecordKind value = static_cast<RecordKind>(recordPlace<Record>(records));
};

/// Whether archives of a format hold a kind of record.
constexpr bool isRecordIn(unsigned format, RecordKind kind)
{
    return std::apply(
        [format, kind](const auto&... entries)
        {
            const unsigned formats[] = {entries.formats...};
            return (formats[static_cast<std::size_t>(kind)] & format) != 0;
        },
        records);
}

/// Whether a record has binary archives, as most have. For records only.
template <class Record>
inline constexpr bool hasBinary = isRecordIn(inBinary, RecordKindOf<Record>::value);

} // namespace archive

} // namespace exchange

#endif
