#include "engine/pocketing/LevelWriter.h"

#include <algorithm>

namespace exchange::pocketing
{

namespace
{

geom::PointNd<3> at(const Point& point, double z)
{
    return geom::PointNd<3>(point[0], point[1], z);
}

} // namespace

std::vector<ToolpathRecord> writeLevel(const std::vector<Pass>& passes, double z, double above,
                                       const PocketingParameters& parameters, const Grid& grid,
                                       const jobs::CancelFlag& cancel, const FractionSink& done)
{
    std::vector<ToolpathRecord> records;
    const double rapidZ = parameters.rapidPlaneZ;
    const double approachZ =
        parameters.plungeClearance < 0 ? rapidZ : std::min(rapidZ, above + parameters.plungeClearance);
    const bool feedsDiffer = parameters.rampFeedrate != parameters.feedrate;
    for (std::size_t i = 0; i < passes.size(); ++i)
    {
        cancel.check();
        const Path& path = *passes[i].path;
        const Point start = grid.toPoint(path[passes[i].start]);
        records.emplace_back(RapidMove{at(start, rapidZ)});
        if (approachZ < rapidZ)
            records.emplace_back(RapidMove{at(start, approachZ)});
        if (i == 0 || feedsDiffer)
            records.emplace_back(FeedRate{parameters.rampFeedrate});
        records.emplace_back(LinearMove{at(start, z)});
        if (feedsDiffer)
            records.emplace_back(FeedRate{parameters.feedrate});
        const std::size_t count = path.size();
        for (std::size_t step = 1; step <= count; ++step)
        {
            const std::size_t forward = (passes[i].start + step) % count;
            const std::size_t backward = (passes[i].start + count - step) % count;
            records.emplace_back(
                LinearMove{at(grid.toPoint(path[parameters.counterClockwise ? forward : backward]), z)});
        }
        records.emplace_back(RapidMove{at(start, rapidZ)});
        done(static_cast<double>(i + 1) / static_cast<double>(passes.size()));
    }
    return records;
}

} // namespace exchange::pocketing
