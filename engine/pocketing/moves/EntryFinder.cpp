#include "engine/pocketing/moves/EntryFinder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace exchange::pocketing
{

namespace
{

/// How often a ramp may go round a pass before a longer one is looked for.
constexpr double greatestTurns = 6;
/// More often than this it may not go round any.
constexpr double mostTurns = 200;
/// More places than this beside the stock are no use.
constexpr std::size_t mostSidePlaces = 2000;

} // namespace

EntryFinder::EntryFinder(const GougeCheck& walls, EntrySettings settings)
    : m_walls(walls), m_settings(std::move(settings))
{
    if (!m_settings.side)
        return;
    // The whole tool is beside the stock there, and a little more.
    const double offset = m_settings.toolRadius * 1.05;
    for (const Path& loop : walls.stock())
        for (std::size_t i = 0; i < loop.size(); ++i)
        {
            const Vec start = toVec(loop[i]);
            const Vec way = toVec(loop[(i + 1) % loop.size()]) - start;
            const double length = norm(way);
            const Vec normal = Vec{-way.y, way.x} * (1 / std::max(length, 1.0));
            const int pieces = std::max(1, static_cast<int>(std::min(64.0, length / (2 * m_settings.toolRadius))));
            for (int k = 0; k < pieces; ++k)
                for (const double sense : {-1.0, 1.0})
                {
                    const Vec place = start + way * ((k + 0.5) / pieces) + normal * (offset * sense);
                    if (m_sidePlaces.size() < mostSidePlaces && walls.isAir(place, m_settings.toolRadius * 1.02) &&
                        walls.mayStand(place))
                        m_sidePlaces.push_back(place);
                }
        }
}

std::optional<Entry> EntryFinder::find(const std::vector<const Track*>& passes, const Vec& near) const
{
    const Track& pass = *passes.front();
    if (auto entry = side(pass))
        return entry;
    if (auto entry = hole(pass))
        return entry;
    if (m_settings.helix)
        if (auto entry = helix(pass, near))
            return entry;
    if (m_settings.ramp)
        if (auto entry = ramp(passes, near))
            return entry;
    if (!m_settings.straight)
        return std::nullopt;
    Entry entry;
    entry.kind = Entry::Kind::straight;
    entry.place = nearestOn(pass, near).place;
    return entry;
}

Vec EntryFinder::endOf(const Entry& entry, const Vec& towards)
{
    if (entry.kind != Entry::Kind::helix)
        return entry.place;
    const Vec way = towards - entry.place;
    const double length = norm(way);
    return entry.place + (length > 0 ? way * (entry.radius / length) : Vec{entry.radius, 0});
}

std::optional<Entry> EntryFinder::hole(const Track& pass) const
{
    std::optional<Entry> best;
    double least = m_settings.holeRange;
    for (const EntryHole& candidate : m_settings.holes)
    {
        const TrackPlace start = nearestOn(pass, candidate.place);
        if (start.distance > least || !m_walls.keepsClear(lineTo(candidate.place, start.place)))
            continue;
        least = start.distance;
        best.emplace();
        best->kind = Entry::Kind::hole;
        best->place = candidate.place;
        best->holeBottom = candidate.bottom;
    }
    return best;
}

std::optional<Entry> EntryFinder::side(const Track& pass) const
{
    std::vector<std::pair<double, const Vec*>> places;
    for (const Vec& place : m_sidePlaces)
        places.emplace_back(nearestOn(pass, place).distance, &place);
    std::sort(places.begin(), places.end());
    for (const auto& [distance, place] : places)
    {
        if (!m_walls.keepsClear(lineTo(*place, nearestOn(pass, *place).place)))
            continue;
        Entry entry;
        entry.kind = Entry::Kind::side;
        entry.place = *place;
        return entry;
    }
    return std::nullopt;
}

std::optional<Entry> EntryFinder::helix(const Track& pass, const Vec& near) const
{
    std::optional<Entry> best;
    for (const Vec& centre :
         {middleOf(pass), nearestOn(pass, near).place, pass.front().start, pass[pass.size() / 2].start})
    {
        if (!m_walls.mayStand(centre))
            continue;
        const double reach = m_walls.clearance() + m_settings.helixRadius;
        const double radius = m_walls.distanceToPart(centre, reach) - m_walls.clearance();
        if (radius < m_settings.leastHelixRadius || (best && radius <= best->radius))
            continue;
        Entry entry;
        entry.kind = Entry::Kind::helix;
        entry.place = centre;
        // A little less, so that the check of the finished move agrees in spite of rounding.
        entry.radius = std::min(m_settings.helixRadius, radius) - 1;
        const Vec start = nearestOn(pass, centre).place;
        if (entry.radius > 0 && m_walls.keepsClear(lineTo(endOf(entry, start), start)))
            best = entry;
    }
    return best;
}

std::optional<Entry> EntryFinder::ramp(const std::vector<const Track*>& passes, const Vec& near) const
{
    std::optional<Entry> best;
    double longest = 0;
    for (const Track* const pass : passes)
    {
        const double length = lengthOf(*pass);
        if (length <= longest)
            continue;
        const TrackPlace first = nearestOn(*passes.front(), near);
        const TrackPlace end = nearestOn(*pass, first.place);
        const Vec start = nearestOn(*passes.front(), end.place).place;
        if (!m_walls.keepsClear(lineTo(end.place, start)))
            continue;
        longest = length;
        best.emplace();
        best->kind = Entry::Kind::ramp;
        best->place = end.place;
        best->ramp = startingAt(*pass, end);
        if (length * greatestTurns >= m_settings.rampLength)
            break;
    }
    // A pass so small that the tool would go round and round in one place is no ramp.
    if (longest * mostTurns < m_settings.rampLength)
        return std::nullopt;
    return best;
}

} // namespace exchange::pocketing
