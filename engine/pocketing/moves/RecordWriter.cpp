#include "engine/pocketing/moves/RecordWriter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <locale>
#include <sstream>

namespace exchange::pocketing
{

namespace
{

geom::PointNd<3> at(const Vec& place, double z, const Grid& grid)
{
    const Point point = grid.toPoint(place.x, place.y);
    return geom::PointNd<3>(point[0], point[1], z);
}

std::string dwellText(double seconds)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << "Dwell " << seconds;
    return text.str();
}

} // namespace

std::vector<ToolpathRecord> writeRecords(const std::vector<Move>& moves, const RecordSettings& settings,
                                         const Grid& grid, double& feedrate, const jobs::CancelFlag& cancel)
{
    std::vector<ToolpathRecord> records;
    records.reserve(moves.size() + moves.size() / 8);
    double z = moves.empty() ? 0 : moves.front().z;
    for (const Move& move : moves)
    {
        cancel.check();
        const geom::PointNd<3> end = at(move.track.end, move.z, grid);
        if (move.purpose == Purpose::rapid)
        {
            records.emplace_back(RapidMove{end});
            z = move.z;
            continue;
        }
        const double feed = settings.feeds[static_cast<std::size_t>(move.purpose)];
        if (feed != feedrate)
            records.emplace_back(FeedRate{feed});
        feedrate = feed;
        if (move.track.turn == Turn::none)
        {
            const double length = std::hypot(grid.toLength(move.track.length()), move.z - z);
            const double pieces = settings.greatestLength > 0 ? std::ceil(length / settings.greatestLength) : 1;
            for (std::size_t k = 1; k < static_cast<std::size_t>(pieces); ++k)
            {
                const auto i = static_cast<double>(k);
                records.emplace_back(LinearMove{at(move.track.at(i / pieces), z + (move.z - z) * i / pieces, grid)});
            }
            records.emplace_back(LinearMove{end});
        }
        else if (move.track.turn == Turn::left)
            records.emplace_back(Arc<1>{end, grid.toLength(move.track.radius())});
        else
            records.emplace_back(Arc<0>{end, grid.toLength(move.track.radius())});
        if (move.dwell > 0)
            records.emplace_back(CustomRecord{dwellText(move.dwell)});
        z = move.z;
    }
    return records;
}

} // namespace exchange::pocketing
