#include "engine/pocketing/moves/RoutePlanner.h"

#include "engine/pocketing/moves/LoopTree.h"
#include "engine/pocketing/moves/Tour.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace exchange::pocketing
{

namespace
{

/// What leaving the cut and coming back costs beside the way, in minutes: stopping and starting again, and a mark on the
/// wall and a blow to the tool each time, which a short way round is worth.
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
            step.approach = down->legs;
            const Vec leaving = step.approach.back().track.front().start;
            step.approach.pop_back();
            set(down->start, leaving, step);
            reached = true;
        }
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
            if (comingFrom != start.place)
                step.approach.push_back(straight(comingFrom, start.place, pass));
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
                    step.approach.push_back(outward ? straight(way.start, way.end, pass) : Leg{Purpose::link, {way}});
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
        addOrdered(single, depth + 1, at);
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
        // What is left over begins at the distance of the ring; no link near it is known to be clear.
        addOrdered(beginningAt(ring.leftoverLoops, 0), std::numeric_limits<int>::max(), at);
        addOrdered(beginningAt(ring.loops, 1), depth, at);
        m_passes.push_back({&ring.loops.front(), depth, depth == 0, 0});
        open.pop_back();
    }
}

void RoutePlanner::addOrdered(const std::vector<const Track*>& loops, int depth, Vec& from)
{
    // Along walls each pass is cut in one go: turning off would leave marks.
    const bool wall = depth == 0;
    if (loops.size() > 1 && !wall)
        ++m_groups;
    std::vector<Vec> places;
    places.reserve(loops.size());
    for (const Track* const loop : loops)
        places.push_back(middleOf(*loop));
    for (const std::size_t i : shortTour(places, from, m_cancel))
    {
        m_passes.push_back({loops[i], depth, wall, loops.size() > 1 && !wall ? m_groups : 0});
        from = places[i];
    }
}

bool RoutePlanner::isCleared(const PlaneMove& move, int depth) const
{
    // A ring lies a whole number of stepovers inside the room of the tool; all that lies deeper is cut by now.
    return depth != std::numeric_limits<int>::max() &&
           m_walls.keepsDistance(move, m_walls.clearance() + (depth + 0.01) * m_settings.stepover);
}

Leg RoutePlanner::straight(const Vec& from, const Vec& to, const Pass& pass) const
{
    const PlaneMove move = lineTo(from, to);
    if (move.length() <= 1.5 * m_settings.stepover)
        return {Purpose::cut, {move}};
    return {isCleared(move, pass.depth) ? Purpose::link : Purpose::slot, {move}};
}

double RoutePlanner::minutesFor(const Leg& leg) const
{
    const double rate = leg.purpose == Purpose::link   ? m_settings.highFeed
                        : leg.purpose == Purpose::slot ? m_settings.slotFeed
                                                       : m_settings.feed;
    return lengthOf(leg.track) / rate;
}

void RoutePlanner::consider(const Step& last, const Track& walk, const Vec& leaving, bool afterLead, const Pass& pass,
                            const TrackPlace& start, std::optional<DownLink>& best) const
{
    DownLink link;
    link.start = start;
    link.afterLead = afterLead;
    if (!walk.empty())
        link.legs.push_back({Purpose::link, walk});
    link.legs.push_back(straight(leaving, start.place, pass));
    for (const Leg& leg : link.legs)
        link.minutes += minutesFor(leg);
    if (afterLead)
        link.minutes += lengthOf(last.leave) / m_settings.feed;
    link.cleared = link.legs.back().purpose != Purpose::slot;
    if ((!best || link.minutes < best->minutes) && m_walls.keepsClear(link.legs.back().track.front()))
        best = std::move(link);
}

std::optional<RoutePlanner::DownLink> RoutePlanner::downLink(const Step& last, const Pass& pass) const
{
    std::optional<DownLink> best;
    const Vec from = last.end();
    const TrackPlace direct = nearestOn(*pass.loop, from);
    consider(last, {}, from, true, pass, direct, best);
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
        consider(last, alongTo(last.loop(), leaving), leaving.place, false, pass, start, best);
    }
    return best;
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

bool RoutePlanner::fly(const Step& last, const Pass& pass, const std::optional<DownLink>& down, Step& step) const
{
    // From one ring to the next is part of the cut and no link.
    if (down && down->legs.size() == 1 && down->legs.front().purpose == Purpose::cut)
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
    if (pass.wall && m_settings.leadRadius > 0)
    {
        if (setLeads(pass, start, comingFrom, step))
            return;
        ++route.wallsWithoutLead;
    }
    step.pass = startingAt(*pass.loop, start);
    if (comingFrom != start.place)
        step.approach.push_back(straight(comingFrom, start.place, pass));
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
            if (comingFrom != in.start)
                step.approach.push_back(straight(comingFrom, in.start, pass));
            step.approach.push_back({Purpose::lead, {in}});
            step.pass = startingAt(loop, place);
            if (m_settings.leadsOut)
                step.leave = {out};
            return true;
        }
    return false;
}

} // namespace exchange::pocketing
