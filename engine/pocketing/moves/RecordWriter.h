#ifndef ENGINE_POCKETING_MOVES_RECORDWRITER_H
#define ENGINE_POCKETING_MOVES_RECORDWRITER_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/Grid.h"
#include "engine/pocketing/moves/MovePlan.h"
#include <tessaron/exchange/ToolpathRecords.h>

#include <array>
#include <functional>
#include <vector>

namespace exchange::pocketing
{

/// The feed rates of the purposes, in the order of the enumeration; that of rapids is not used.
using FeedRates = std::array<double, 8>;

/// How moves become records.
struct RecordSettings
{
    FeedRates feeds{};
    /// Straight pieces are no longer than this, in the host's unit; 0 for no limit.
    double greatestLength = 0;
};

/// Writes moves as records. Feed rates are written where they change.
/// \param feedrate the feed rate in force before; 0 for none. Becomes the one in force after.
std::vector<ToolpathRecord> writeRecords(const std::vector<Move>& moves, const RecordSettings& settings,
                                         const Grid& grid, double& feedrate, const jobs::CancelFlag& cancel);

} // namespace exchange::pocketing

#endif
