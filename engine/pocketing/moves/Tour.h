#ifndef ENGINE_POCKETING_MOVES_TOUR_H
#define ENGINE_POCKETING_MOVES_TOUR_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/moves/PlaneMove.h"

#include <cstddef>
#include <vector>

namespace exchange::pocketing
{

/// A short way through all places: the nearest neighbour first, then improved by exchanging two links (2-opt, Croes
/// 1958) and by moving runs of up to three places (Or-opt, Or 1976) between places near each other. The work is bounded
/// by a count of tries and not by a clock, so that the same places always give the same way.
/// \param from where the way begins; it ends anywhere
/// \returns the positions of the places, in the order of the way
std::vector<std::size_t> shortTour(const std::vector<Vec>& places, const Vec& from, const jobs::CancelFlag& cancel);

/// The places near each place, the nearest first.
std::vector<std::vector<std::size_t>> nearNeighbours(const std::vector<Vec>& places, const jobs::CancelFlag& cancel);

} // namespace exchange::pocketing

#endif
