#include "engine/pocketing/ContourClusters.h"

#include "engine/pocketing/SegmentIndex.h"

#include <boost/pending/disjoint_sets.hpp>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <numeric>

namespace exchange::pocketing
{

ContourClusters clusterContours(const Area& area, double distance)
{
    // Both move, and end up on the grid.
    const double reach = 2 * distance + 4;
    const SegmentIndex outer(Paths{area.front()});
    std::vector<Box> boxes;
    for (const Path& contour : area)
        boxes.push_back(boxOf(contour));

    boost::disjoint_sets_with_storage<> sets(area.size());
    for (std::size_t i = 1; i < area.size(); ++i)
        if (!outer.visitOverlapping(boxes[i].grown(reach), [](std::size_t) { return false; }))
            sets.union_set(std::size_t{0}, i);
    // From left to right each box meets those that begin before it ends.
    std::vector<std::size_t> fromLeft(area.size() - 1);
    std::iota(fromLeft.begin(), fromLeft.end(), std::size_t{1});
    std::sort(fromLeft.begin(), fromLeft.end(),
              [&boxes](std::size_t a, std::size_t b) { return boxes[a].left < boxes[b].left; });
    for (std::size_t i = 0; i < fromLeft.size(); ++i)
    {
        const Box near = boxes[fromLeft[i]].grown(reach);
        for (std::size_t j = i + 1; j < fromLeft.size() && boxes[fromLeft[j]].left <= near.right; ++j)
            if (near.overlaps(boxes[fromLeft[j]]))
                sets.union_set(fromLeft[i], fromLeft[j]);
    }

    ContourClusters clusters;
    // The clusters in the order of their first contours; that of the outer contour comes first.
    constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
    std::vector<std::size_t> clusterOf(area.size(), none);
    for (std::size_t i = 0; i < area.size(); ++i)
    {
        std::size_t& cluster = clusterOf[sets.find_set(i)];
        if (cluster == none)
        {
            cluster = i == 0 ? 0 : clusters.holes.size() + 1;
            if (i > 0)
                clusters.holes.emplace_back();
        }
        (cluster == 0 ? clusters.outer : clusters.holes[cluster - 1]).push_back(area[i]);
    }
    return clusters;
}

} // namespace exchange::pocketing
