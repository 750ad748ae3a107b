#include "exchange/archive/RecordTable.h"

#include <iterator>

namespace exchange::archive
{

const char* recordName(RecordKind kind)
{
    // In the order of RecordKind.
    static constexpr const char* names[] = {
        "PointNd",
        "PointNd",
        "VecNd",
        "Transform",
        "Parameterized",
        "ParameterizedList",
        "curve",
        "curve",
        "curves",
        "TriMeshFacet",
        "TriMeshFacets",
        "TriMeshFacets",
        "TessaronDrillHole",
        "TessaronDrillHoles",
        "Tessaron2dBoundaries",
        "Tessaron2dInput",
        "Tessaron3dBoundaries",
        "Tessaron3dInput",
        "Tessaron5xFlankConstraint",
        "Tessaron5xBoundaries",
        "Tessaron5xInput",
        "OrrimantInput",
        "ToolpathRecords",
        "RapidMove",
        "LinearMove",
        "Arc",
        "Arc",
        "FeedRate",
        "SpindleSpeed",
        "CustomRecord",
        "ToolAxis",
    };
    static_assert(std::size(names) == static_cast<std::size_t>(RecordKind::toolAxis) + 1);
    return names[static_cast<std::size_t>(kind)];
}

} // namespace exchange::archive
