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

#include <vector>

namespace exchange
{

/// Several parameter sets in one archive.
typedef std::vector<util::Parameterized> ParameterizedList;

namespace archive
{

/// What an archive can hold as its outermost object.
enum class RecordKind
{
    pointNd2,
    pointNd3,
    vecNd3,
    transform,
    parameterized,
    parameterizedList,
    planeCurve,
    spaceCurve,
    curveList,
    triMeshFacet,
    triMesh,
    triMeshPtr,
    drillHole,
    drillHoles,
    boundaries2d,
    input2d,
    boundaries3d,
    input3d,
    flankConstraint5x,
    boundaries5x,
    input5x,
    // From here on: in XML archives only.
    orrimantInput,
    toolpathRecords,
    rapidMove,
    linearMove,
    arc1,
    arc0,
    feedRate,
    spindleSpeed,
    customRecord,
    toolAxis
};

template <RecordKind kind>
struct RecordOf
{
    static constexpr RecordKind value = kind;
};

/// The kind of a record; undefined for anything else, which therefore cannot be archived.
template <class Record>
struct RecordKindOf;

// clang-format off
template <> struct RecordKindOf<geom::PointNd<2>> : RecordOf<RecordKind::pointNd2> {};
template <> struct RecordKindOf<geom::PointNd<3>> : RecordOf<RecordKind::pointNd3> {};
template <> struct RecordKindOf<geom::VecNd<3>> : RecordOf<RecordKind::vecNd3> {};
template <> struct RecordKindOf<geom::Transform> : RecordOf<RecordKind::transform> {};
template <> struct RecordKindOf<util::Parameterized> : RecordOf<RecordKind::parameterized> {};
template <> struct RecordKindOf<ParameterizedList> : RecordOf<RecordKind::parameterizedList> {};
template <> struct RecordKindOf<boost::shared_ptr<geom::ParametricCurve<2>>> : RecordOf<RecordKind::planeCurve> {};
template <> struct RecordKindOf<boost::shared_ptr<geom::ParametricCurve<3>>> : RecordOf<RecordKind::spaceCurve> {};
template <> struct RecordKindOf<CurveList> : RecordOf<RecordKind::curveList> {};
template <> struct RecordKindOf<topo::mesh::TriMeshFacet> : RecordOf<RecordKind::triMeshFacet> {};
template <> struct RecordKindOf<topo::mesh::TriMesh> : RecordOf<RecordKind::triMesh> {};
template <> struct RecordKindOf<topo::mesh::TriMeshPtr> : RecordOf<RecordKind::triMeshPtr> {};
template <> struct RecordKindOf<TessaronDrillHole> : RecordOf<RecordKind::drillHole> {};
template <> struct RecordKindOf<TessaronDrillHoles> : RecordOf<RecordKind::drillHoles> {};
template <> struct RecordKindOf<Tessaron2dBoundaries> : RecordOf<RecordKind::boundaries2d> {};
template <> struct RecordKindOf<Tessaron2dInput> : RecordOf<RecordKind::input2d> {};
template <> struct RecordKindOf<Tessaron3dBoundaries> : RecordOf<RecordKind::boundaries3d> {};
template <> struct RecordKindOf<Tessaron3dInput> : RecordOf<RecordKind::input3d> {};
template <> struct RecordKindOf<Tessaron5xFlankConstraint> : RecordOf<RecordKind::flankConstraint5x> {};
template <> struct RecordKindOf<Tessaron5xBoundaries> : RecordOf<RecordKind::boundaries5x> {};
template <> struct RecordKindOf<Tessaron5xInput> : RecordOf<RecordKind::input5x> {};
template <> struct RecordKindOf<OrrimantInput> : RecordOf<RecordKind::orrimantInput> {};
template <> struct RecordKindOf<ToolpathRecords> : RecordOf<RecordKind::toolpathRecords> {};
template <> struct RecordKindOf<RapidMove> : RecordOf<RecordKind::rapidMove> {};
template <> struct RecordKindOf<LinearMove> : RecordOf<RecordKind::linearMove> {};
template <> struct RecordKindOf<Arc<1>> : RecordOf<RecordKind::arc1> {};
template <> struct RecordKindOf<Arc<0>> : RecordOf<RecordKind::arc0> {};
template <> struct RecordKindOf<FeedRate> : RecordOf<RecordKind::feedRate> {};
template <> struct RecordKindOf<SpindleSpeed> : RecordOf<RecordKind::spindleSpeed> {};
template <> struct RecordKindOf<CustomRecord> : RecordOf<RecordKind::customRecord> {};
template <> struct RecordKindOf<ToolAxis> : RecordOf<RecordKind::toolAxis> {};
// clang-format on

constexpr bool isXmlOnly(RecordKind kind)
{
    return kind >= RecordKind::orrimantInput;
}

} // namespace archive

} // namespace exchange

#endif
