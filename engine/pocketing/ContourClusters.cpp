#include "engine/pocketing/ContourClusters.h"

#include "engine/pocketing/SegmentIndex.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <numeric>
#include <utility>

namespace exchange::pocketing
{

namespace
{

/// Sets that can be joined; each is known by its smallest member.
class JoinedSets
{
public:
    explicit JoinedSets(std::size_t count) : m_parent(count) { std::iota(m_parent.begin(), m_parent.end(), 0); }

    std::size_t find(std::size_t member)
    {
        while (m_parent[member] != member)
            member = m_parent[member] = m_parent[m_parent[member]];
        return member;
    }
    void join(std::size_t a, std::size_t b)
    {
        a = find(a);
        b = find(b);
        m_parent[std::max(a, b)] = std::min(a, b);
    }

private:
    std::vector<std::size_t> m_parent;
};

} // namespace

ContourClusters clusterContours(const Area& area, double distance)
{
    // Both move, and end up on the grid.
    const double reach = 2 * distance + 4;
    const SegmentIndex outer(Paths{area.front()});
    std::vector<Box> boxes;
    for (const Path& contour : area)
        boxes.push_back(boxOf(contour));

    JoinedSets sets(area.size());
    for (std::size_t i = 1; i < area.size(); ++i)
    {
        const Box near = boxes[i].grown(reach);
        if (!outer.visitOverlapping(near, [](std::size_t) { return false; }))
            sets.join(0, i);
        for (std::size_t j = 1; j < i; ++j)
            if (near.overlaps(boxes[j]))
                sets.join(i, j);
    }

    ContourClusters clusters;
    std::map<std::size_t, Paths> bySet;
    for (std::size_t i = 0; i < area.size(); ++i)
        bySet[sets.find(i)].push_back(area[i]);
    for (auto& [set, contours] : bySet)
    {
        if (set == 0)
            clusters.outer = std::move(contours);
        else
            clusters.holes.push_back(std::move(contours));
    }
    return clusters;
}

} // namespace exchange::pocketing
