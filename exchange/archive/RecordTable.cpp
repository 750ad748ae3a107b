#include "exchange/archive/RecordTable.h"

#include "exchange/OrrimantInputSerialization.h"
#include "exchange/Tessaron3dInputSerialization.h"
#include "exchange/Tessaron5xInputSerialization.h"
#include "exchange/ToolpathRecordsSerialization.h"
#include "exchange/archive/BinaryReader.h"
#include "exchange/archive/BinaryWriter.h"
#include "exchange/archive/IArchive.h"
#include "exchange/archive/OArchive.h"
#include "exchange/archive/XmlReader.h"
#include "exchange/archive/XmlWriter.h"

#include <utility>

namespace exchange::archive
{

namespace
{

template <class Record, class Writer, const char* name>
void writeRecord(std::ostream& stream, const void* record)
{
    OArchive<Writer> archive(stream);
    archive << boost::serialization::make_nvp(name, *static_cast<const Record*>(record));
    archive.finish();
}

/// Reads into a fresh record, so that the caller's is untouched when reading fails.
template <class Record, class Reader>
void readRecord(std::istream& stream, void* record)
{
    Record fresh{};
    {
        IArchive<Reader> archive(stream);
        archive.readRoot(fresh);
    }
    *static_cast<Record*>(record) = std::move(fresh);
}

template <class Record, const char* name>
constexpr RecordEntry xmlEntry{name, &writeRecord<Record, XmlWriter, name>, &readRecord<Record, XmlReader>, nullptr,
                               nullptr};

template <class Record, const char* name>
constexpr RecordEntry fullEntry{name, &writeRecord<Record, XmlWriter, name>, &readRecord<Record, XmlReader>,
                                &writeRecord<Record, BinaryWriter, name>, &readRecord<Record, BinaryReader>};

// The names of the outermost elements.
constexpr char pointName[] = "PointNd";
constexpr char vecName[] = "VecNd";
constexpr char transformName[] = "Transform";
constexpr char parameterizedName[] = "Parameterized";
constexpr char parameterizedListName[] = "ParameterizedList";
constexpr char curveName[] = "curve";
constexpr char curvesName[] = "curves";
constexpr char facetName[] = "TriMeshFacet";
constexpr char meshName[] = "TriMeshFacets";
constexpr char drillHoleName[] = "TessaronDrillHole";
constexpr char drillHolesName[] = "TessaronDrillHoles";
constexpr char boundaries2dName[] = "Tessaron2dBoundaries";
constexpr char input2dName[] = "Tessaron2dInput";
constexpr char boundaries3dName[] = "Tessaron3dBoundaries";
constexpr char input3dName[] = "Tessaron3dInput";
constexpr char flankConstraint5xName[] = "Tessaron5xFlankConstraint";
constexpr char boundaries5xName[] = "Tessaron5xBoundaries";
constexpr char input5xName[] = "Tessaron5xInput";
constexpr char orrimantInputName[] = "OrrimantInput";
constexpr char toolpathRecordsName[] = "ToolpathRecords";
constexpr char rapidMoveName[] = "RapidMove";
constexpr char linearMoveName[] = "LinearMove";
constexpr char arcName[] = "Arc";
constexpr char feedRateName[] = "FeedRate";
constexpr char spindleSpeedName[] = "SpindleSpeed";
constexpr char customRecordName[] = "CustomRecord";
constexpr char toolAxisName[] = "ToolAxis";

} // namespace

const RecordEntry& recordEntry(RecordKind kind)
{
    // In the order of RecordKind.
    static constexpr RecordEntry entries[] = {
        fullEntry<geom::PointNd<2>, pointName>,
        fullEntry<geom::PointNd<3>, pointName>,
        fullEntry<geom::VecNd<3>, vecName>,
        fullEntry<geom::Transform, transformName>,
        fullEntry<util::Parameterized, parameterizedName>,
        fullEntry<ParameterizedList, parameterizedListName>,
        fullEntry<boost::shared_ptr<geom::ParametricCurve<2>>, curveName>,
        fullEntry<boost::shared_ptr<geom::ParametricCurve<3>>, curveName>,
        fullEntry<CurveList, curvesName>,
        fullEntry<topo::mesh::TriMeshFacet, facetName>,
        fullEntry<topo::mesh::TriMesh, meshName>,
        fullEntry<topo::mesh::TriMeshPtr, meshName>,
        fullEntry<TessaronDrillHole, drillHoleName>,
        fullEntry<TessaronDrillHoles, drillHolesName>,
        fullEntry<Tessaron2dBoundaries, boundaries2dName>,
        fullEntry<Tessaron2dInput, input2dName>,
        fullEntry<Tessaron3dBoundaries, boundaries3dName>,
        fullEntry<Tessaron3dInput, input3dName>,
        fullEntry<Tessaron5xFlankConstraint, flankConstraint5xName>,
        fullEntry<Tessaron5xBoundaries, boundaries5xName>,
        fullEntry<Tessaron5xInput, input5xName>,
        xmlEntry<OrrimantInput, orrimantInputName>,
        xmlEntry<ToolpathRecords, toolpathRecordsName>,
        xmlEntry<RapidMove, rapidMoveName>,
        xmlEntry<LinearMove, linearMoveName>,
        xmlEntry<Arc<1>, arcName>,
        xmlEntry<Arc<0>, arcName>,
        xmlEntry<FeedRate, feedRateName>,
        xmlEntry<SpindleSpeed, spindleSpeedName>,
        xmlEntry<CustomRecord, customRecordName>,
        xmlEntry<ToolAxis, toolAxisName>,
    };
    static_assert(std::size(entries) == static_cast<std::size_t>(RecordKind::toolAxis) + 1);
    return entries[static_cast<std::size_t>(kind)];
}

} // namespace exchange::archive
