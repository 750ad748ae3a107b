#ifndef ENGINE_POCKETING_MOVES_ENTRYFINDER_H
#define ENGINE_POCKETING_MOVES_ENTRYFINDER_H

#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/moves/Route.h"

#include <limits>
#include <optional>
#include <vector>

namespace exchange::pocketing
{

/// A hole that the tool can go down in.
struct EntryHole
{
    Vec place;
    /// The height down to which it can be used.
    double bottom = 0;
};

/// Which entries are allowed. Lengths are in steps.
struct EntrySettings
{
    bool helix = true;
    bool ramp = true;
    /// Straight down into material.
    bool straight = false;
    bool side = true;
    double toolRadius = 0;
    /// The radius of a helix at best, and the least that will do.
    double helixRadius = 0;
    double leastHelixRadius = 0;
    /// How long a ramp is that comes down one level.
    double rampLength = 0;
    std::vector<EntryHole> holes;
    /// How far a hole may be from the pass it is for.
    double holeRange = std::numeric_limits<double>::infinity();
};

/// Finds a way into material for a pass: from the open side of the stock, into a hole, by a helix, by a ramp along a
/// pass.
class EntryFinder
{
public:
    EntryFinder(const GougeCheck& walls, EntrySettings settings);

    /// An entry from which a straight cut leads to the first of the passes, if there is one.
    /// \param passes the pass to begin with and some of those that follow; a ramp may run along any of them
    /// \param near where the first pass would best begin
    std::optional<Entry> find(const std::vector<const Track*>& passes, const Vec& near) const;

    /// Where a helix ends when it leads on to a place.
    static Vec endOf(const Entry& entry, const Vec& towards);

private:
    std::optional<Entry> hole(const Track& pass) const;
    std::optional<Entry> side(const Track& pass) const;
    std::optional<Entry> helix(const Track& pass, const Vec& near) const;
    std::optional<Entry> ramp(const std::vector<const Track*>& passes, const Vec& near) const;

    const GougeCheck& m_walls;
    const EntrySettings m_settings;
    /// Places beside the stock where the tool may come down.
    std::vector<Vec> m_sidePlaces;
};

} // namespace exchange::pocketing

#endif
