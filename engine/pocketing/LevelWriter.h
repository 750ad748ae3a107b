#ifndef ENGINE_POCKETING_LEVELWRITER_H
#define ENGINE_POCKETING_LEVELWRITER_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/PocketingParameters.h"
#include "engine/pocketing/RingOrder.h"
#include <tessaron/exchange/ToolpathRecords.h>

#include <functional>
#include <vector>

namespace exchange::pocketing
{

/// Receives the part of a piece of work that is done, 0 to 1.
using FractionSink = std::function<void(double)>;

/// The records that cut passes at one depth: each pass is reached at rapid over the rapid plane, plunged to at the ramp
/// feed rate, cut round at the feed rate, and left straight up at rapid.
/// \param z the depth to cut at
/// \param above the height to which material has been removed before, at these passes
std::vector<ToolpathRecord> writeLevel(const std::vector<Pass>& passes, double z, double above,
                                       const PocketingParameters& parameters, const Grid& grid,
                                       const jobs::CancelFlag& cancel, const FractionSink& done);

} // namespace exchange::pocketing

#endif
