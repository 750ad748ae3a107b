#include "engine/pocketing/Rings.h"

#include "engine/jobs/JobError.h"
#include "engine/pocketing/SegmentIndex.h"
#include <tessaron/exchange/StatusTable.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace exchange::pocketing
{

Ring* RingStore::add(Area contours)
{
    const std::lock_guard lock(m_mutex);
    count(contours);
    m_rings.emplace_back();
    m_rings.back().contours = std::move(contours);
    return &m_rings.back();
}

void RingStore::addLeftover(Ring& ring, Area area)
{
    const std::lock_guard lock(m_mutex);
    count(area);
    for (Path& path : area)
        ring.leftovers.push_back(std::move(path));
}

void RingStore::count(const Area& area)
{
    for (const Path& path : area)
        m_points += static_cast<double>(path.size() + 4);
    if (m_points > m_maxPoints)
        throw jobs::JobError(status::internalError, "The toolpath would have too many records; a greater \"Stepover\", "
                                                    "\"Depth of Cut\" or \"Cut Tolerance\" makes it shorter.");
}

namespace
{

/// How far into the next ring's area a ring clears by itself, less the tolerances. No more than keeps the cuts beside
/// what gets no ring narrower than three stepovers or three quarters of the tool.
double clearedFor(const RingSteps& steps)
{
    const double cleared = steps.toolRadius - steps.stepover - 2 * steps.cutTolerance;
    return std::max(0.0, std::min(cleared, std::max(steps.stepover / 2, 0.75 * steps.toolRadius - steps.stepover)));
}

} // namespace

RingBuilder::RingBuilder(RingStore& store, const RingSteps& steps, const jobs::CancelFlag& cancel, ForEach forEach)
    : m_store(store), m_steps(steps), m_cleared(clearedFor(steps)), m_cancel(cancel), m_forEach(std::move(forEach))
{
}

bool RingBuilder::isNarrow(const Area& area) const
{
    // Area over perimeter is half the width of a channel.
    return sizeOf(area) < perimeterOf(area) * blockRings * m_steps.stepover / 1.5;
}

std::vector<Area> RingBuilder::trimmed(Area area) const
{
    const double before = perimeterOf(area);
    // Hardly anything of a wide area is narrow, and a net round many islands has no arms.
    constexpr std::size_t mostContours = 8;
    if (m_cleared <= 0 || area.size() > mostContours || sizeOf(area) > before * 2 * m_steps.stepover)
        return {std::move(area)};
    std::vector<Area> parts = opened(area, m_cleared, m_steps.offset, m_cancel);
    double saved = before;
    std::size_t contours = 0;
    for (const Area& part : parts)
    {
        saved -= perimeterOf(part);
        contours += part.size();
    }
    // Corners get round, which takes more records than it is worth for less.
    if (saved < 4 * m_steps.toolRadius * static_cast<double>(contours))
        return {std::move(area)};
    return parts;
}

std::vector<Ring*> RingBuilder::addInside(Ring& ring, double distance) const
{
    ring.children = shrunk(ring, distance);
    return ring.children;
}

void RingBuilder::buildBlock(Ring& start, const BlockSink& nextBlock, const AreaSink& areaDone) const
{
    if (isNarrow(start.contours))
    {
        for (Ring* const ring : addInside(start, m_steps.stepover))
            nextBlock(*ring);
        addLeftovers(start);
        double done = sizeOf(start.contours);
        for (const Ring* const child : start.children)
            done -= sizeOf(child->contours);
        areaDone(std::max(0.0, done));
        return;
    }
    std::vector<Ring*> next = shrunk(start, blockRings * m_steps.stepover);
    for (Ring* const ring : next)
        nextBlock(*ring);

    std::vector<Ring*> current{&start};
    for (int step = 1; step <= blockRings && !current.empty(); ++step)
    {
        std::vector<Ring*> inside;
        for (Ring* const ring : current)
        {
            ring->children = step < blockRings ? shrunk(*ring, m_steps.stepover) : takeInside(*ring, next);
            // The areas of the next blocks follow from the start in one step: one that no ring is found around hangs
            // on the last ring.
            if (step == blockRings && ring == current.back())
                ring->children.insert(ring->children.end(), next.begin(), next.end());
            addLeftovers(*ring);
            double done = sizeOf(ring->contours);
            for (const Ring* const child : ring->children)
                done -= sizeOf(child->contours);
            areaDone(std::max(0.0, done));
            inside.insert(inside.end(), ring->children.begin(), ring->children.end());
        }
        current = std::move(inside);
    }
}

std::vector<Ring*> RingBuilder::shrunk(const Ring& ring, double distance) const
{
    m_cancel.check();
    std::vector<Ring*> rings;
    // All of the stock left on walls is for the last pass.
    const bool nextRing = distance >= m_steps.stepover;
    for (Area& area : shrink(ring.contours, distance, m_steps.offset, m_cancel, m_forEach))
    {
        if (!nextRing)
            rings.push_back(m_store.add(std::move(area)));
        else
            for (Area& part : trimmed(std::move(area)))
                rings.push_back(m_store.add(std::move(part)));
    }
    return rings;
}

void RingBuilder::addLeftovers(Ring& ring) const
{
    // A ring clears one tool radius to its inside. When the next one is nearer than that, nothing can be left.
    const double margin = m_steps.cutTolerance / 2;
    const double reach = m_steps.toolRadius - margin;
    if (m_steps.stepover + 2 * m_steps.cutTolerance <= reach)
        return;
    m_cancel.check();
    std::vector<const Area*> children;
    for (const Ring* const child : ring.children)
        children.push_back(&child->contours);
    for (Area& area : uncovered(ring.contours, children, reach, m_steps.offset, m_cancel))
    {
        m_cancel.check();
        // What is thinner than the two margins is covered.
        if (!shrink(area, margin, m_steps.offset, m_cancel).empty())
            m_store.addLeftover(ring, std::move(area));
    }
}

std::vector<Ring*> RingBuilder::takeInside(const Ring& ring, std::vector<Ring*>& candidates)
{
    std::vector<Ring*> inside;
    if (candidates.empty())
        return inside;
    const SegmentIndex index(ring.contours);
    const auto isInside = [&index](const Ring* candidate)
    { return index.encloses(candidate->contours.front().front()); };
    std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(inside), isInside);
    std::erase_if(candidates, isInside);
    return inside;
}

} // namespace exchange::pocketing
