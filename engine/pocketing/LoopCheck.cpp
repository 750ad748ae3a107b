#include "engine/pocketing/LoopCheck.h"

#include "engine/jobs/JobError.h"
#include "engine/pocketing/Place.h"
#include <tessaron/exchange/StatusTable.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <utility>

namespace exchange::pocketing
{

namespace
{

[[noreturn]] void refuse(const std::string& complaint, const Grid& grid, const IntPoint& place)
{
    throw jobs::JobError(status::notASingleClosedRegion, complaint + " at " + placeText(grid.toPoint(place)) + ".");
}

/// How two segments meet.
enum class Contact
{
    none,
    touching,
    crossing,
    along,
};

/// Whether the collinear segments share more than a point.
bool runAlong(const Segment& s, const Segment& t)
{
    const bool byX = std::abs(s.end.X - s.start.X) >= std::abs(s.end.Y - s.start.Y);
    const auto range = [byX](const Segment& segment)
    { return byX ? std::minmax(segment.start.X, segment.end.X) : std::minmax(segment.start.Y, segment.end.Y); };
    const auto [sLow, sHigh] = range(s);
    const auto [tLow, tHigh] = range(t);
    return std::max(sLow, tLow) < std::min(sHigh, tHigh);
}

Contact contactOf(const Segment& s, const Segment& t)
{
    if (segmentsCross(s.start, s.end, t.start, t.end))
        return Contact::crossing;
    if (cross(s.start, s.end, t.start) == 0 && cross(s.start, s.end, t.end) == 0)
    {
        if (runAlong(s, t))
            return Contact::along;
    }
    const bool touching = segmentDistance(s.start, s.end, t.start, t.end) < 0.5;
    return touching ? Contact::touching : Contact::none;
}

bool areNeighbours(const Segment& s, const Segment& t, const Paths& loops)
{
    if (s.loop != t.loop)
        return false;
    const std::size_t count = loops[s.loop].size();
    return (s.position + 1) % count == t.position || (t.position + 1) % count == s.position;
}

/// Loops that touch in points may still cross there: then one has points on both sides of the other.
void checkSides(const Path& loop, const Path& other, const Grid& grid)
{
    bool inside = false;
    bool outside = false;
    for (const IntPoint& point : loop)
    {
        const int side = ClipperLib::PointInPolygon(point, other);
        inside = inside || side == 1;
        outside = outside || side == 0;
    }
    if (inside && outside)
        refuse("Two boundaries cross", grid, loop.front());
}

} // namespace

void checkLoops(const Paths& loops, const SegmentIndex& index, const Grid& grid, const jobs::CancelFlag& cancel)
{
    for (const Path& loop : loops)
        if (loop.size() < 3)
            refuse("A boundary encloses no area", grid, loop.front());

    std::set<std::pair<std::size_t, std::size_t>> touchingLoops;
    const std::vector<Segment>& segments = index.segments();
    for (std::size_t i = 0; i < segments.size(); ++i)
    {
        cancel.check();
        const Segment& segment = segments[i];
        index.visitOverlapping(
            boxOf(segment.start, segment.end),
            [&](std::size_t j)
            {
                const Segment& other = segments[j];
                if (j <= i || areNeighbours(segment, other, loops))
                    return true;
                const Contact contact = contactOf(segment, other);
                const bool same = segment.loop == other.loop;
                if (contact == Contact::crossing)
                    refuse(same ? "A boundary crosses itself" : "Two boundaries cross", grid, other.start);
                if (contact == Contact::along)
                    refuse(same ? "A boundary runs along itself" : "Two boundaries run along each other", grid,
                           other.start);
                if (contact == Contact::touching && !same)
                    touchingLoops.insert({segment.loop, other.loop});
                return true;
            });
    }
    for (const Path& loop : loops)
        if (std::fabs(ClipperLib::Area(loop)) < 1)
            refuse("A boundary encloses no area", grid, loop.front());
    for (const auto& [first, second] : touchingLoops)
    {
        cancel.check();
        checkSides(loops[first], loops[second], grid);
        checkSides(loops[second], loops[first], grid);
    }
}

} // namespace exchange::pocketing
