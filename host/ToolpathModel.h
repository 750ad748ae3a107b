#ifndef HOST_TOOLPATHMODEL_H
#define HOST_TOOLPATHMODEL_H

#include "host/Geometry.h"
#include <tessaron/exchange/ToolpathRecords.h>

#include <cstddef>
#include <vector>

namespace host
{

enum class MoveKind
{
    rapid,
    plunge, ///< a straight cut on which the height changes
    cut,    ///< a cut at one height
};

/// Moves of one kind, one after the other: a polyline of points of the model.
struct Run
{
    MoveKind kind = MoveKind::rapid;
    std::size_t level = 0; ///< of a cut: which of the model's levels
    std::size_t first = 0; ///< the first point
    std::size_t count = 0;
};

/// What a toolpath amounts to; lengths in the host's unit.
struct ToolpathStatistics
{
    std::size_t records = 0;
    std::size_t rapidMoves = 0;
    std::size_t cutMoves = 0;
    double rapidLength = 0;
    double cutLength = 0;
    /// Minutes of machine time without accelerations; cuts before the first feed rate take none.
    double minutes = 0;
};

/// A toolpath as it is drawn: polylines, and the depth levels that they lie in.
class ToolpathModel
{
public:
    ToolpathModel() = default;
    /// \param rapidRate the machine's rapid traverse, length per minute, for the estimate of time
    ToolpathModel(const exchange::ToolpathRecords& records, double rapidRate);

    const std::vector<Point3>& points() const { return m_points; }
    const std::vector<Run>& runs() const { return m_runs; }
    /// The heights that cuts lie at, the topmost first.
    const std::vector<double>& levels() const { return m_levels; }
    const ToolpathStatistics& statistics() const { return m_statistics; }
    const Box3& box() const { return m_box; }

private:
    class Builder;
    void numberLevels();

    std::vector<Point3> m_points;
    std::vector<Run> m_runs;
    std::vector<double> m_levels;
    ToolpathStatistics m_statistics;
    Box3 m_box;
};

} // namespace host

#endif
