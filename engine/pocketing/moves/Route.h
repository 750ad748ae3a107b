#ifndef ENGINE_POCKETING_MOVES_ROUTE_H
#define ENGINE_POCKETING_MOVES_ROUTE_H

#include "engine/pocketing/moves/PlaneMove.h"

#include <vector>

namespace exchange::pocketing
{

/// What a move is for. It decides the feed rate.
enum class Purpose
{
    rapid,
    link,   ///< through cleared room
    slot,   ///< through material on both sides
    cut,    ///< along a pass
    lead,   ///< on to a wall, or off it
    ramp,   ///< downwards along a pass
    helix,  ///< downwards in circles
    plunge, ///< straight down
};

/// How the tool gets down to a level where the next pass begins in material.
struct Entry
{
    enum class Kind
    {
        helix,
        ramp,
        straight,
        hole, ///< into a hole that is there already
        side, ///< down beside the stock, and in from there
    };

    Kind kind = Kind::straight;
    /// The centre of a helix; where the others come down. A ramp ends there.
    Vec place;
    /// Of a helix.
    double radius = 0;
    /// The closed track that a ramp follows; begins and ends at the place.
    Track ramp;
    /// How deep a hole is usable, as a height.
    double holeBottom = 0;
};

/// How a pass is reached.
enum class Reach
{
    down,  ///< from the pass before, at the depth of the cut
    hop,   ///< just above what the level before left, at the high feed rate
    lift,  ///< over everything, at rapid
    entry, ///< over everything, and down into material
};

struct Leg
{
    Purpose purpose = Purpose::cut;
    Track track;
};

/// A closed cut, or several that hang together, and the way to it.
struct Step
{
    Reach reach = Reach::down;
    /// Where the tool comes down after a hop or a lift: in room that this level has cleared.
    Vec drop;
    /// For Reach::entry.
    Entry entry;
    /// At the depth of the cut: from the end of the step before, the drop or the end of the entry to the pass, with
    /// whatever is cut on the way.
    std::vector<Leg> approach;
    Track pass;
    /// The closed cut that the pass is the last piece of; empty when the pass is all of it.
    Track round;
    /// Off the pass; may be empty.
    Track leave;
    /// Whether the pass runs along a wall.
    bool wall = false;

    /// The closed cut at the end, which the tool may follow once more.
    const Track& loop() const { return round.empty() ? pass : round; }
    Vec end() const { return leave.empty() ? pass.back().end : leave.back().end; }
};

/// All cuts of a region in their order; the same at every level.
struct Route
{
    std::vector<Step> steps;
    /// Where passes begin that could not be entered and were left out.
    std::vector<Vec> dropped;
    /// How many walls no lead in fitted to.
    int wallsWithoutLead = 0;
};

} // namespace exchange::pocketing

#endif
