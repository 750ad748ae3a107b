#include "engine/pocketing/moves/LoopTree.h"

#include "engine/pocketing/moves/Tour.h"

#include <boost/pending/disjoint_sets.hpp>

#include <algorithm>
#include <limits>
#include <utility>

namespace exchange::pocketing
{

namespace
{

/// A way between two loops.
struct Gap
{
    double length;
    std::size_t a;
    std::size_t b;
    Vec onA;
    Vec onB;
};

/// Two near places of two loops: from a seed to and fro until they hardly move.
Gap gapBetween(const Track& a, const Track& b, const Vec& seed)
{
    TrackPlace onA = nearestOn(a, seed);
    TrackPlace onB = nearestOn(b, onA.place);
    for (int i = 0; i < 4; ++i)
    {
        onA = nearestOn(a, onB.place);
        onB = nearestOn(b, onA.place);
    }
    return {onB.distance, 0, 0, onA.place, onB.place};
}

/// The part of a track between two lengths of way.
Track between(const Track& track, double from, double to)
{
    Track result;
    double done = 0;
    for (const PlaneMove& move : track)
    {
        const double length = move.length();
        const double first = std::max(0.0, from - done);
        const double last = std::min(length, to - done);
        if (length > 0 && last > first)
            result.push_back(first <= 0 && last >= length ? move : move.piece(first / length, last / length));
        done += length;
    }
    return result;
}

double wayTo(const Track& track, const Vec& place)
{
    const TrackPlace found = nearestOn(track, place);
    double way = track[found.move].length() * found.part;
    for (std::size_t i = 0; i < found.move; ++i)
        way += track[i].length();
    return way;
}

} // namespace

LoopTree::LoopTree(std::vector<const Track*> loops, const GougeCheck& walls, double greatestGap,
                   const jobs::CancelFlag& cancel)
    : m_loops(std::move(loops)), m_joints(m_loops.size())
{
    std::vector<Vec> middles;
    for (const Track* const loop : m_loops)
        middles.push_back(middleOf(*loop));
    const std::vector<std::vector<std::size_t>> neighbours = nearNeighbours(middles, cancel);
    std::vector<Gap> gaps;
    for (std::size_t a = 0; a < m_loops.size(); ++a)
    {
        cancel.check();
        for (const std::size_t b : neighbours[a])
        {
            Gap gap = gapBetween(*m_loops[a], *m_loops[b], middles[b]);
            const Gap other = gapBetween(*m_loops[a], *m_loops[b], (middles[a] + middles[b]) * 0.5);
            if (other.length < gap.length)
                gap = other;
            gap.a = a;
            gap.b = b;
            if (gap.length <= greatestGap && walls.keepsClear(lineTo(gap.onA, gap.onB)))
                gaps.push_back(gap);
        }
    }
    // The least spanning tree (Kruskal 1956).
    std::stable_sort(gaps.begin(), gaps.end(), [](const Gap& x, const Gap& y) { return x.length < y.length; });
    boost::disjoint_sets_with_storage<> sets(m_loops.size());
    for (const Gap& gap : gaps)
    {
        if (sets.find_set(gap.a) == sets.find_set(gap.b))
            continue;
        sets.union_set(gap.a, gap.b);
        m_joints[gap.a].push_back({gap.b, gap.onA, gap.onB});
        m_joints[gap.b].push_back({gap.a, gap.onB, gap.onA});
    }
    constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
    std::vector<std::size_t> groupOf(m_loops.size(), none);
    for (std::size_t i = 0; i < m_loops.size(); ++i)
    {
        std::size_t& group = groupOf[sets.find_set(i)];
        if (group == none)
        {
            group = m_groups.size();
            m_groups.emplace_back();
        }
        m_groups[group].push_back(i);
    }
}

void LoopTree::goRound(std::size_t root, const TrackPlace& start, const PieceSink& piece, const WaySink& way) const
{
    /// A loop on which the tool is on its way.
    struct Round
    {
        Track track;
        std::vector<std::pair<double, Joint>> joints;
        std::size_t next = 0;
        double done = 0;
        /// The way back to where it came from.
        PlaneMove back;
    };
    const auto begin = [this](std::size_t loop, const TrackPlace& from, std::size_t cameFrom)
    {
        Round round;
        round.track = startingAt(*m_loops[loop], from);
        for (const Joint& joint : m_joints[loop])
            if (joint.other != cameFrom)
                round.joints.emplace_back(wayTo(round.track, joint.here), joint);
        std::stable_sort(round.joints.begin(), round.joints.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        return round;
    };
    std::vector<std::pair<std::size_t, Round>> open;
    open.emplace_back(root, begin(root, start, root));
    while (!open.empty())
    {
        auto& [loop, round] = open.back();
        const bool turnsOff = round.next < round.joints.size();
        const double to = turnsOff ? round.joints[round.next].first : std::numeric_limits<double>::infinity();
        const Track part = between(round.track, round.done, to);
        if (!part.empty())
            piece(part);
        round.done = to;
        if (!turnsOff)
        {
            const PlaneMove back = round.back;
            open.pop_back();
            if (!open.empty())
                way(back, false);
            continue;
        }
        const Joint joint = round.joints[round.next++].second;
        // Just where the piece ended, and where the next one begins.
        const Vec here = part.empty() ? (round.done <= 0 ? round.track.front().start : joint.here) : part.back().end;
        const TrackPlace there = nearestOn(*m_loops[joint.other], joint.there);
        Round next = begin(joint.other, there, loop);
        const Vec first = next.track.front().start;
        next.back = lineTo(first, here);
        way(lineTo(here, first), true);
        open.emplace_back(joint.other, std::move(next));
    }
}

} // namespace exchange::pocketing
