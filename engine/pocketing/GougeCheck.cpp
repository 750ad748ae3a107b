#include "engine/pocketing/GougeCheck.h"

#include "engine/jobs/JobError.h"
#include <tessaron/exchange/StatusTable.h>

#include <algorithm>
#include <utility>

namespace exchange::pocketing
{

namespace
{

IntPoint rounded(const Vec& place)
{
    return {std::llround(place.x), std::llround(place.y)};
}

} // namespace

GougeCheck::GougeCheck(Paths part, Paths stock, double clearance)
    : m_part(std::move(part)), m_stock(std::move(stock)), m_partIndex(m_part), m_stockIndex(m_stock),
      m_clearance(clearance)
{
}

bool GougeCheck::isCloser(const SegmentIndex& index, const PlaneMove& move, double distance)
{
    const std::vector<Segment>& segments = index.segments();
    return !index.visitOverlapping(
        move.box().grown(distance),
        [&](std::size_t i) { return move.distanceTo(toVec(segments[i].start), toVec(segments[i].end)) >= distance; });
}

bool GougeCheck::mayStand(const Vec& place) const
{
    return !m_partIndex.encloses(rounded(place)) && keepsClear(lineTo(place, place));
}

double GougeCheck::distanceToPart(const Vec& place, double limit) const
{
    const PlaneMove here = lineTo(place, place);
    const std::vector<Segment>& segments = m_partIndex.segments();
    double nearest = limit;
    m_partIndex.visitOverlapping(here.box().grown(limit),
                                 [&](std::size_t i)
                                 {
                                     nearest = std::min(
                                         nearest, here.distanceTo(toVec(segments[i].start), toVec(segments[i].end)));
                                     return true;
                                 });
    return nearest;
}

bool GougeCheck::isAir(const Vec& place, double radius) const
{
    return !m_stockIndex.encloses(rounded(place)) && !isCloser(m_stockIndex, lineTo(place, place), radius);
}

void GougeCheck::check(const Track& loop) const
{
    if (!mayStand(loop.front().start) ||
        !std::all_of(loop.begin(), loop.end(), [this](const PlaneMove& move) { return keepsClear(move); }))
        throw jobs::JobError(status::internalError, "The computed path would cut into the part; no toolpath was made.");
}

} // namespace exchange::pocketing
