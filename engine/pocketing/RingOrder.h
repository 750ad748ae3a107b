#ifndef ENGINE_POCKETING_RINGORDER_H
#define ENGINE_POCKETING_RINGORDER_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/Rings.h"

#include <cstddef>
#include <vector>

namespace exchange::pocketing
{

/// A closed cut and where it begins.
struct Pass
{
    const Path* path = nullptr;
    std::size_t start = 0;
};

/// Puts the cuts of a tree of rings in order: from the inside out, so that no cut has uncut material on both sides
/// longer than needed, each beginning where it is nearest to the end of the one before, and what lies near first.
/// \param from where the tool comes from; becomes where it ends up
std::vector<Pass> orderRings(const Ring& root, IntPoint& from, const jobs::CancelFlag& cancel);

} // namespace exchange::pocketing

#endif
