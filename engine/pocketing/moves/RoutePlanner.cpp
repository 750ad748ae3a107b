#include "engine/pocketing/moves/RoutePlanner.h"

#include "engine/pocketing/moves/LoopTree.h"
#include "engine/pocketing/moves/Tour.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace exchange::pocketing
{

namespace
{

/// What leaving the cut and coming back costs beside the way, in minutes: stopping and starting again, and a mark on
/// the wall and a blow to the tool each time, which a short way round is worth.
constexpr double liftOverhead = 1.0 / 60;
/// How many of the passes that follow a ramp may use.
constexpr std::size_t rampChoices = 12;

/// Along a closed pass from its end to a place of it, the shorter way round.
Track alongTo(const Track& pass, const TrackPlace& place)
{
    Track forward(pass.begin(), pass.begin() + static_cast<std::ptrdiff_t>(place.move));
    if (place.part > 0)
        forward.push_back(pass[place.move].piece(0, place.part));
    Track onward;
    if (place.part < 1)
        onward.push_back(pass[place.move].piece(place.part, 1));
    onward.insert(onward.end(), pass.begin() + static_cast<std::ptrdiff_t>(place.move) + 1, pass.end());
    return lengthOf(forward) <= lengthOf(onward) ? forward : reversed(onward);
}

/// A closed track at a distance to the left of one that is smooth; empty for others.
Track beside(const Track& loop, double distance)
{
    Track result;
    for (const PlaneMove& move : loop)
    {
        const auto moved = [&](double part)
        {
            const Vec along = move.direction(part);
            return move.at(part) + Vec{-along.y, along.x} * distance;
        };
        PlaneMove next{moved(0), moved(1), move.centre, move.turn};
        // An arc must not turn inside out.
        if (move.turn != Turn::none && (move.turn == Turn::left ? -distance : distance) + move.radius() < 1)
            return {};
        result.push_back(next);
    }
    constexpr double smooth = 0.02;
    for (std::size_t i = 0; i < result.size(); ++i)
    {
        PlaneMove& next = result[(i + 1) % result.size()];
        if (norm(next.start - result[i].end) > smooth * std::fabs(distance))
            return {};
        next.start = result[i].end;
    }
    return result;
}

/// A ring whose children are being cut.
struct Visit
{
    const Ring* ring;
    int depth;
    /// The children in reverse order of cutting.
    std::vector<const Ring*> children;
};

} // namespace

Route RoutePlanner::plan(const Ring& root, const Vec& from)
{
    m_groups = 0;
    order(root, from);
    Route route;
    m_cut.clear();
    m_room.clear();
    Vec at = from;
    for (std::size_t i = 0; i < m_passes.size();)
    {
        m_cancel.check();
        std::size_t last = i + 1;
        while (m_passes[i].group != 0 && last < m_passes.size() && m_passes[last].group == m_passes[i].group)
            ++last;
        if (last > i + 1)
            planGroup(i, last, route, at);
        else
        {
            const Pass& pass = m_passes[i];
            if (reach(i, route, at,
                      [&](const TrackPlace& start, const Vec& comingFrom, Step& step)
                      { setPass(pass, start, comingFrom, step, route); }))
                noteCut(pass);
        }
        i = last;
    }
    return route;
}

bool RoutePlanner::reach(std::size_t position, Route& route, Vec& at, const PassSetter& set)
{
    const Pass& pass = m_passes[position];
    Step step;
    bool reached = false;
    if (!route.steps.empty())
    {
        Step& last = route.steps.back();
        const std::optional<DownLink> down = downLink(last, pass);
        reached = fly(last, pass, down, step);
        if (reached)
            set(nearestOn(*pass.loop, step.drop), step.drop, step);
        else if (down)
        {
            if (!down->afterLead)
                last.leave.clear();
            if (down->walk)
                step.approach.push_back(*down->walk);
            set(down->start, down->leaving, step);
            reached = true;
        }
    }
    if (!reached && !route.steps.empty())
        if (const std::optional<TrackPlace> start = dropBeside(pass, step))
        {
            set(*start, step.drop, step);
            reached = true;
        }
    if (!reached)
    {
        if (!enter(position, at, step))
        {
            route.dropped.push_back(pass.loop->front().start);
            return false;
        }
        const TrackPlace start = nearestOn(*pass.loop, step.entry.place);
        set(start, EntryFinder::endOf(step.entry, start.place), step);
    }
    at = step.end();
    route.steps.push_back(std::move(step));
    return true;
}

void RoutePlanner::noteCut(const Pass& pass)
{
    m_cut.push_back({pass.loop, boxOf(*pass.loop)});
    m_room.add(*pass.loop);
}

void RoutePlanner::planGroup(std::size_t first, std::size_t last, Route& route, Vec& at)
{
    std::vector<const Track*> loops;
    for (std::size_t i = first; i < last; ++i)
        loops.push_back(m_passes[i].loop);
    const LoopTree tree(loops, m_walls, 2 * m_walls.clearance(), m_cancel);
    for (const std::vector<std::size_t>& group : tree.groups())
    {
        m_cancel.check();
        // From the loop of the group that is nearest.
        std::size_t root = group.front();
        double least = std::numeric_limits<double>::infinity();
        for (const std::size_t i : group)
        {
            const double distance = nearestOn(*loops[i], at).distance;
            if (distance < least)
            {
                least = distance;
                root = i;
            }
        }
        const Pass& pass = m_passes[first + root];
        const auto set = [&](const TrackPlace& start, const Vec& comingFrom, Step& step)
        {
            approach(comingFrom, start.place, step);
            step.round = startingAt(*pass.loop, start);
            tree.goRound(
                root, start,
                [&step](const Track& piece) {
                    step.approach.push_back({Purpose::cut, piece});
                },
                [&](const PlaneMove& way, bool outward)
                {
                    if (way.start == way.end)
                        return;
                    if (outward)
                        approach(way.start, way.end, step);
                    else
                        step.approach.push_back({isWorthLinking(way.length()) ? Purpose::link : Purpose::cut, {way}});
                });
            step.pass = std::move(step.approach.back().track);
            step.approach.pop_back();
        };
        if (reach(first + root, route, at, set))
            for (const std::size_t i : group)
                noteCut(m_passes[first + i]);
    }
}

void RoutePlanner::order(const Ring& root, const Vec& from)
{
    m_passes.clear();
    Vec at = from;
    std::vector<Visit> open;
    const auto visit = [&](const Ring& ring, int depth)
    {
        // Children with nothing inside go together.
        std::vector<const Track*> single;
        std::vector<const Ring*> children;
        std::vector<Vec> places;
        for (const Ring* const child : ring.children)
        {
            if (child->children.empty() && child->leftoverLoops.empty() && child->loops.size() == 1)
                single.push_back(&child->loops.front());
            else
            {
                children.push_back(child);
                places.push_back(middleOf(child->loops.front()));
            }
        }
        addOrdered(single, false, at);
        Visit next{&ring, depth, {}};
        const std::vector<std::size_t> tour =
            places.size() > 1 ? shortTour(places, at, m_cancel) : std::vector<std::size_t>(places.size(), 0);
        for (auto i = tour.rbegin(); i != tour.rend(); ++i)
            next.children.push_back(children[*i]);
        open.push_back(std::move(next));
    };
    visit(root, 0);
    while (!open.empty())
    {
        m_cancel.check();
        if (!open.back().children.empty())
        {
            const Ring* const child = open.back().children.back();
            open.back().children.pop_back();
            visit(*child, open.back().depth + 1);
            continue;
        }
        const Ring& ring = *open.back().ring;
        const int depth = open.back().depth;
        const auto beginningAt = [](const std::vector<Track>& all, std::size_t first)
        {
            std::vector<const Track*> loops;
            for (std::size_t i = first; i < all.size(); ++i)
                loops.push_back(&all[i]);
            return loops;
        };
        const bool wall = depth == 0;
        addOrdered(beginningAt(ring.leftoverLoops, 0), false, at);
        addOrdered(beginningAt(ring.loops, 1), wall, at);
        m_passes.push_back({&ring.loops.front(), wall, 0});
        open.pop_back();
    }
}

void RoutePlanner::addOrdered(const std::vector<const Track*>& loops, bool wall, Vec& from)
{
    // Along walls each pass is cut in one go: turning off would leave marks.
    if (loops.size() > 1 && !wall)
        ++m_groups;
    std::vector<Vec> places;
    places.reserve(loops.size());
    for (const Track* const loop : loops)
        places.push_back(middleOf(*loop));
    for (const std::size_t i : shortTour(places, from, m_cancel))
    {
        m_passes.push_back({loops[i], wall, loops.size() > 1 && !wall ? m_groups : 0});
        from = places[i];
    }
}

bool RoutePlanner::isWorthLinking(double length) const
{
    // For a short way two changes of the feed rate are not.
    return length > 4 * m_settings.toolRadius;
}

std::vector<Leg> RoutePlanner::straight(const Vec& from, const Vec& to) const
{
    const PlaneMove move = lineTo(from, to);
    if (move.length() <= 1.5 * m_settings.stepover)
        return {{Purpose::cut, {move}}};
    std::vector<Leg> legs;
    const auto pieces = m_room.split(move);
    if (pieces.size() == 1 && pieces.front().first)
        return {{isWorthLinking(move.length()) ? Purpose::link : Purpose::cut, {move}}};
    for (const auto& [clear, piece] : pieces)
    {
        const Purpose purpose = clear && isWorthLinking(piece.length()) ? Purpose::link : Purpose::slot;
        if (!legs.empty() && legs.back().purpose == purpose)
            legs.back().track.front().end = piece.end;
        else
            legs.push_back({purpose, {piece}});
    }
    // The last bit is no slot: there the tool comes upon the pass.
    Leg& last = legs.back();
    if (legs.size() > 1 && lengthOf(last.track) <= 2 * m_settings.stepover + m_settings.toolRadius / 2)
        last.purpose = Purpose::cut;
    return legs;
}

void RoutePlanner::approach(const Vec& from, const Vec& to, Step& step) const
{
    if (from == to)
        return;
    for (Leg& leg : straight(from, to))
        step.approach.push_back(std::move(leg));
}

double RoutePlanner::minutesFor(const Leg& leg) const
{
    const double rate = leg.purpose == Purpose::link   ? m_settings.highFeed
                        : leg.purpose == Purpose::slot ? m_settings.slotFeed
                                                       : m_settings.feed;
    return lengthOf(leg.track) / rate;
}

void RoutePlanner::consider(const Step& last, const Track& walk, const Vec& leaving, bool afterLead,
                            const TrackPlace& start, std::optional<DownLink>& best) const
{
    const PlaneMove way = lineTo(leaving, start.place);
    DownLink link;
    link.start = start;
    link.leaving = leaving;
    link.afterLead = afterLead;
    if (!walk.empty())
        link.walk =
            Leg{(last.wall && !afterLead) || !isWorthLinking(lengthOf(walk)) ? Purpose::cut : Purpose::link, walk};
    if (link.walk)
        link.minutes += minutesFor(*link.walk);
    if (afterLead)
        link.minutes += lengthOf(last.leave) / m_settings.feed;
    const double least = link.minutes + way.length() / std::max(m_settings.highFeed, m_settings.feed);
    if ((best && least >= best->minutes) || !m_walls.keepsClear(way))
        return;
    const std::vector<Leg> legs = straight(leaving, start.place);
    for (const Leg& leg : legs)
        link.minutes += minutesFor(leg);
    link.isCut = walk.empty() && way.length() <= 1.5 * m_settings.stepover;
    link.cleared = std::none_of(legs.begin(), legs.end(), [](const Leg& leg) { return leg.purpose == Purpose::slot; });
    if (!best || link.minutes < best->minutes)
        best = std::move(link);
}

std::optional<RoutePlanner::DownLink> RoutePlanner::downLink(const Step& last, const Pass& pass) const
{
    std::optional<DownLink> best;
    const Vec from = last.end();
    const TrackPlace direct = nearestOn(*pass.loop, from);
    consider(last, {}, from, true, direct, best);
    if (best && direct.distance <= 1.5 * m_settings.stepover)
        return best;
    // Along the pass just cut to where the next one is nearest.
    for (const Vec& seed : {direct.place, middleOf(*pass.loop)})
    {
        TrackPlace leaving = nearestOn(last.loop(), seed);
        TrackPlace start = nearestOn(*pass.loop, leaving.place);
        for (int i = 0; i < 3; ++i)
        {
            leaving = nearestOn(last.loop(), start.place);
            start = nearestOn(*pass.loop, leaving.place);
        }
        consider(last, alongTo(last.loop(), leaving), leaving.place, false, start, best);
    }
    if (last.wall && !last.leave.empty())
        considerBeside(last, pass, best);
    return best;
}

void RoutePlanner::considerBeside(const Step& last, const Pass& pass, std::optional<DownLink>& best) const
{
    const Vec from = last.end();
    const Track track = beside(last.loop(), m_settings.leadRadius * (m_settings.materialOnRight ? 1 : -1));
    if (track.empty())
        return;
    const TrackPlace first = nearestOn(track, from);
    const Track round = startingAt(track, first);
    TrackPlace leaving = nearestOn(round, middleOf(*pass.loop));
    TrackPlace start = nearestOn(*pass.loop, leaving.place);
    for (int i = 0; i < 3; ++i)
    {
        leaving = nearestOn(round, start.place);
        start = nearestOn(*pass.loop, leaving.place);
    }
    Track walk = alongTo(round, leaving);
    if (from != first.place)
        walk.insert(walk.begin(), lineTo(from, first.place));
    const auto isFree = [this](const PlaneMove& move)
    {
        const auto pieces = m_room.split(move);
        return m_walls.keepsClear(move) && pieces.size() == 1 && pieces.front().first;
    };
    if (std::all_of(walk.begin(), walk.end(), isFree))
        consider(last, walk, leaving.place, true, start, best);
}

std::optional<Vec> RoutePlanner::clearedPlaceNear(const Vec& place) const
{
    const double limit = 2.5 * m_settings.stepover;
    const IntPoint centre(std::llround(place.x), std::llround(place.y));
    const Box around = boxOf(centre, centre).grown(limit);
    std::optional<Vec> best;
    double least = limit;
    for (const CutLoop& cut : m_cut)
    {
        if (!cut.box.overlaps(around))
            continue;
        const TrackPlace near = nearestOn(*cut.loop, place);
        if (near.distance < least && m_walls.keepsClear(lineTo(near.place, place)))
        {
            least = near.distance;
            best = near.place;
        }
    }
    return best;
}

std::optional<TrackPlace> RoutePlanner::dropBeside(const Pass& pass, Step& step) const
{
    // As far as takes less time than another entry.
    double limit = m_settings.slotFeed * (m_settings.entryMinutes - liftOverhead);
    const Box around = boxOf(*pass.loop).grown(std::max(0.0, limit));
    std::optional<TrackPlace> best;
    for (const CutLoop& cut : m_cut)
    {
        m_cancel.check();
        if (!cut.box.overlaps(around))
            continue;
        TrackPlace start = nearestOn(*pass.loop, nearestOn(*cut.loop, middleOf(*pass.loop)).place);
        TrackPlace drop = nearestOn(*cut.loop, start.place);
        for (int i = 0; i < 3; ++i)
        {
            start = nearestOn(*pass.loop, drop.place);
            drop = nearestOn(*cut.loop, start.place);
        }
        if (drop.distance >= limit || !m_walls.keepsClear(lineTo(drop.place, start.place)))
            continue;
        limit = drop.distance;
        step.reach = Reach::lift;
        step.drop = drop.place;
        best = start;
    }
    return best;
}

bool RoutePlanner::fly(const Step& last, const Pass& pass, const std::optional<DownLink>& down, Step& step) const
{
    if (down && down->isCut)
        return false;
    const Vec from = last.end();
    const double rise = m_settings.liftHeight / m_settings.verticalRapid;
    const double hopRise = m_settings.hopHeight / m_settings.verticalRapid;
    const double w = m_settings.highFeedPreference;
    // No flight takes less than this; most links are shorter, and the search for a place to come down is saved.
    const double least = liftOverhead + 2 * std::min(rise, hopRise);
    if (down && (down->cleared ? w > 0 && down->minutes * (1 - w) <= least * w : down->minutes <= least))
        return false;

    const TrackPlace start = nearestOn(*pass.loop, from);
    const std::optional<Vec> drop = clearedPlaceNear(start.place);
    if (!drop)
        return false;
    const double way = norm(*drop - from);
    const double onward =
        norm(start.place - *drop) / m_settings.feed + m_settings.plungeClearance / m_settings.rampFeed;
    const double liftMinutes = 2 * rise + way / m_settings.rapid + onward + liftOverhead;
    double hopMinutes = std::numeric_limits<double>::infinity();
    if (m_walls.keepsClear(lineTo(from, *drop)))
        hopMinutes = 2 * hopRise + way / m_settings.highFeed + onward + liftOverhead;

    // A hop and a way through cleared room are links at the high feed rate; a way through material is a cut.
    const bool downIsHighFeed = down && down->cleared;
    const double highFeedMinutes =
        std::min(hopMinutes, downIsHighFeed ? down->minutes : std::numeric_limits<double>::infinity());
    const bool preferHighFeed =
        highFeedMinutes < std::numeric_limits<double>::infinity() && highFeedMinutes * (1 - w) <= liftMinutes * w;
    const double flightMinutes = preferHighFeed ? highFeedMinutes : liftMinutes;
    if (down && !down->cleared && down->minutes <= flightMinutes)
        return false;
    if (preferHighFeed && downIsHighFeed && down->minutes <= hopMinutes)
        return false;
    step.reach = preferHighFeed ? Reach::hop : Reach::lift;
    step.drop = *drop;
    return true;
}

bool RoutePlanner::enter(std::size_t position, const Vec& from, Step& step) const
{
    std::vector<const Track*> passes;
    for (std::size_t i = position; i < std::min(m_passes.size(), position + rampChoices); ++i)
        passes.push_back(m_passes[i].loop);
    const std::optional<Entry> entry = m_entries.find(passes, from);
    if (!entry)
        return false;
    step.reach = Reach::entry;
    step.entry = *entry;
    return true;
}

void RoutePlanner::setPass(const Pass& pass, const TrackPlace& start, const Vec& comingFrom, Step& step,
                           Route& route) const
{
    step.wall = pass.wall;
    const bool wantsLeads = pass.wall && m_settings.leadRadius > 0;
    if (!wantsLeads || !setLeads(pass, start, comingFrom, step))
    {
        if (wantsLeads)
            ++route.wallsWithoutLead;
        step.pass = startingAt(*pass.loop, start);
        approach(comingFrom, start.place, step);
    }
    if (pass.wall)
        hurryThroughAir(step);
}

void RoutePlanner::hurryThroughAir(Step& step) const
{
    const double away = m_walls.clearance() + m_settings.stepover / 2;
    const auto isOpen = [&](const PlaneMove& move)
    { return m_walls.keepsDistance(lineTo(move.at(0.5), move.at(0.5)), away); };
    if (std::none_of(step.pass.begin(), step.pass.end(), isOpen))
        return;
    std::vector<Leg> legs;
    for (const PlaneMove& move : step.pass)
        for (const auto& [clear, piece] : m_room.split(move))
        {
            const Purpose purpose = clear && isWorthLinking(piece.length()) ? Purpose::link : Purpose::cut;
            if (legs.empty() || legs.back().purpose != purpose)
                legs.push_back({purpose, {}});
            legs.back().track.push_back(piece);
        }
    step.round = std::move(step.pass);
    step.pass = std::move(legs.back().track);
    legs.pop_back();
    std::move(legs.begin(), legs.end(), std::back_inserter(step.approach));
}

bool RoutePlanner::setLeads(const Pass& pass, const TrackPlace& start, const Vec& comingFrom, Step& step) const
{
    const Track& loop = *pass.loop;
    const auto middle = [&loop](std::size_t move) {
        return TrackPlace{move % loop.size(), 0.5, loop[move % loop.size()].at(0.5), 0};
    };
    std::size_t longest = 0;
    for (std::size_t i = 1; i < loop.size(); ++i)
        if (loop[i].length() > loop[longest].length())
            longest = i;
    std::vector<TrackPlace> places = {middle(start.move), middle(start.move + 1), middle(start.move + loop.size() - 1),
                                      middle(longest)};
    if (start.part > 0.05 && start.part < 0.95)
        places.insert(places.begin(), start);
    const Turn turn = m_settings.materialOnRight ? Turn::left : Turn::right;
    for (const double factor : {1.0, 0.5, 0.25})
        for (const TrackPlace& place : places)
        {
            const double radius = m_settings.leadRadius * factor;
            const Vec along = loop[place.move].direction(place.part);
            const Vec inward = turn == Turn::left ? Vec{-along.y, along.x} : Vec{along.y, -along.x};
            const Vec centre = place.place + inward * radius;
            const PlaneMove in{centre - along * radius, place.place, centre, turn};
            const PlaneMove out{place.place, centre + along * radius, centre, turn};
            const PlaneMove link = lineTo(comingFrom, in.start);
            if (!m_walls.keepsClear(in) || !m_walls.keepsClear(link) || !m_walls.keepsClear(out))
                continue;
            approach(comingFrom, in.start, step);
            step.approach.push_back({Purpose::lead, {in}});
            step.pass = startingAt(loop, place);
            if (m_settings.leadsOut)
                step.leave = {out};
            return true;
        }
    return false;
}

} // namespace exchange::pocketing
