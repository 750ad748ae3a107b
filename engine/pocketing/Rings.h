#ifndef ENGINE_POCKETING_RINGS_H
#define ENGINE_POCKETING_RINGS_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/Polygons.h"
#include "engine/pocketing/moves/PlaneMove.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <vector>

namespace exchange::pocketing
{

/// A set of closed cuts at one distance from the walls: the contours of one connected area. The rings of a region form
/// a tree that follows how the area falls apart as it shrinks.
struct Ring
{
    Area contours;
    /// Closed cuts for what neither this ring nor the ones inside it would remove.
    Paths leftovers;
    /// The contours and leftovers as lines and arcs, once the rings are finished; then the points are let go.
    std::vector<Track> loops;
    std::vector<Track> leftoverLoops;
    /// The rings inside this one, one stepover away, in a fixed order.
    std::vector<Ring*> children;
};

/// Owns the rings of a job and keeps count of what their cuts come to.
class RingStore
{
public:
    /// \param maxPoints how many points all rings may have
    explicit RingStore(double maxPoints) : m_maxPoints(maxPoints) {}

    /// Adds a ring; it never moves. May be called from any thread.
    /// \throws jobs::JobError when the rings come to too many points
    Ring* add(Area contours);
    void addLeftover(Ring& ring, Area area);

private:
    void count(const Area& area);

    const double m_maxPoints;
    std::mutex m_mutex;
    std::deque<Ring> m_rings;
    double m_points = 0;
};

/// Steps of the grid that rings are made with.
struct RingSteps
{
    double stepover = 0;
    double toolRadius = 0;
    double cutTolerance = 0;
    OffsetTolerance offset;
};

/// Fills an area with rings. The work is cut in blocks of a few rings that can be done at the same time: a block
/// computes the areas that the blocks after it start from before it fills in its own rings. The result does not depend
/// on the order in which blocks are done.
class RingBuilder
{
public:
    /// Receives the ring that a further block starts from; called from buildBlock.
    using BlockSink = std::function<void(Ring&)>;
    /// Receives the size of the area, in square steps, that has been dealt with since the last call.
    using AreaSink = std::function<void(double)>;

    /// \param forEach see shrink
    RingBuilder(RingStore& store, const RingSteps& steps, const jobs::CancelFlag& cancel, ForEach forEach = inTurn);

    /// Adds the rings at a distance inside a ring, as its children.
    std::vector<Ring*> addInside(Ring& ring, double distance) const;
    /// Builds the rings inside `start`, as many as make a block.
    void buildBlock(Ring& start, const BlockSink& nextBlock, const AreaSink& areaDone) const;

private:
    /// How many stepovers a block spans.
    static constexpr int blockRings = 8;

    /// Whether most of an area is narrower than a block: then the areas of the next blocks are a costly way to nearly
    /// nothing, and a block is one ring.
    bool isNarrow(const Area& area) const;
    /// What the next ring goes round: an area less what the ring before clears, where that saves some way.
    std::vector<Area> trimmed(Area area) const;
    std::vector<Ring*> shrunk(const Ring& ring, double distance) const;
    void addLeftovers(Ring& ring) const;
    static std::vector<Ring*> takeInside(const Ring& ring, std::vector<Ring*>& candidates);

    RingStore& m_store;
    const RingSteps m_steps;
    /// Where areas are narrower than twice this they need no ring: the one before clears them.
    const double m_cleared;
    const jobs::CancelFlag& m_cancel;
    const ForEach m_forEach;
};

} // namespace exchange::pocketing

#endif
