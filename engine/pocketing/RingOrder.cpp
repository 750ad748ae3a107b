#include "engine/pocketing/RingOrder.h"

#include "engine/pocketing/SegmentIndex.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace exchange::pocketing
{

namespace
{

double squaredDistance(const IntPoint& a, const IntPoint& b)
{
    const auto dx = static_cast<double>(a.X - b.X);
    const auto dy = static_cast<double>(a.Y - b.Y);
    return dx * dx + dy * dy;
}

std::size_t nearestPoint(const Path& path, const IntPoint& from)
{
    std::size_t nearest = 0;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < path.size(); ++i)
    {
        const double d = squaredDistance(path[i], from);
        if (d < least)
        {
            least = d;
            nearest = i;
        }
    }
    return nearest;
}

/// A path not yet cut.
struct OpenPath
{
    const Path* path;
    Box box;
};

/// Cuts the given paths, the nearest first.
void addPasses(const Paths& paths, IntPoint& from, std::vector<Pass>& passes, const jobs::CancelFlag& cancel)
{
    std::vector<OpenPath> open;
    for (const Path& path : paths)
        open.push_back({&path, boxOf(path)});
    while (!open.empty())
    {
        cancel.check();
        Pass next;
        double least = std::numeric_limits<double>::infinity();
        for (const OpenPath& candidate : open)
        {
            // Most paths are farther away as a whole than the best one found.
            const IntPoint nearestInBox(std::clamp(from.X, candidate.box.left, candidate.box.right),
                                        std::clamp(from.Y, candidate.box.bottom, candidate.box.top));
            if (squaredDistance(nearestInBox, from) >= least)
                continue;
            const std::size_t start = nearestPoint(*candidate.path, from);
            const double d = squaredDistance((*candidate.path)[start], from);
            if (d < least)
            {
                least = d;
                next = {candidate.path, start};
            }
        }
        std::erase_if(open, [&next](const OpenPath& candidate) { return candidate.path == next.path; });
        passes.push_back(next);
        from = (*next.path)[next.start];
    }
}

/// Roughly where a ring and all inside it lies.
const IntPoint& placeOf(const Ring& ring)
{
    return ring.contours.front().front();
}

/// A ring whose children are being cut.
struct Visit
{
    const Ring* ring;
    std::vector<const Ring*> children;

    explicit Visit(const Ring& r) : ring(&r), children(r.children.begin(), r.children.end()) {}
};

} // namespace

std::vector<Pass> orderRings(const Ring& root, IntPoint& from, const jobs::CancelFlag& cancel)
{
    std::vector<Pass> passes;
    std::vector<Visit> open{Visit(root)};
    while (!open.empty())
    {
        cancel.check();
        Visit& visit = open.back();
        if (!visit.children.empty())
        {
            const auto nearest =
                std::min_element(visit.children.begin(), visit.children.end(),
                                 [&from](const Ring* a, const Ring* b)
                                 { return squaredDistance(placeOf(*a), from) < squaredDistance(placeOf(*b), from); });
            const Ring* const child = *nearest;
            visit.children.erase(nearest);
            open.emplace_back(*child);
            continue;
        }
        addPasses(visit.ring->leftovers, from, passes, cancel);
        addPasses(visit.ring->contours, from, passes, cancel);
        open.pop_back();
    }
    return passes;
}

} // namespace exchange::pocketing
