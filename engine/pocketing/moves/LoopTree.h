#ifndef ENGINE_POCKETING_MOVES_LOOPTREE_H
#define ENGINE_POCKETING_MOVES_LOOPTREE_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/moves/PlaneMove.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace exchange::pocketing
{

/// Closed cuts beside each other, joined where they come near: going round one, the tool turns off to the next where
/// that is near, cuts it with all behind it, comes back and goes on. So each is cut once, and no way is made twice but
/// the short ones between.
class LoopTree
{
public:
    /// \param greatestGap how long a way between two loops may be, in steps
    LoopTree(std::vector<const Track*> loops, const GougeCheck& walls, double greatestGap,
             const jobs::CancelFlag& cancel);

    /// The loops in groups that hang together, each in the order of the loops.
    const std::vector<std::vector<std::size_t>>& groups() const { return m_groups; }

    /// Receives a piece of a loop, or a way between loops (then `outward` tells whether for the first time).
    using PieceSink = std::function<void(const Track& piece)>;
    using WaySink = std::function<void(const PlaneMove& way, bool outward)>;

    /// Goes once round all loops of a group, from a place of one of them back to it.
    void goRound(std::size_t root, const TrackPlace& start, const PieceSink& piece, const WaySink& way) const;

private:
    /// Where a loop leads to another one.
    struct Joint
    {
        std::size_t other;
        Vec here;
        Vec there;
    };

    const std::vector<const Track*> m_loops;
    std::vector<std::vector<Joint>> m_joints;
    std::vector<std::vector<std::size_t>> m_groups;
};

} // namespace exchange::pocketing

#endif
