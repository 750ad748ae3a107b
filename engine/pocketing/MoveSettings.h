#ifndef ENGINE_POCKETING_MOVESETTINGS_H
#define ENGINE_POCKETING_MOVESETTINGS_H

#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/Grid.h"
#include "engine/pocketing/PocketingParameters.h"
#include "engine/pocketing/moves/EntryFinder.h"
#include "engine/pocketing/moves/MovePlan.h"
#include "engine/pocketing/moves/RecordWriter.h"
#include "engine/pocketing/moves/RoutePlanner.h"
#include <tessaron/engine/JobService.h>

#include <optional>
#include <vector>

namespace exchange
{
struct Tessaron2dInput;
}

namespace exchange::pocketing
{

/// What the parameters of a job mean to those who plan and write its moves.
struct MoveSettings
{
    LinkSettings links;
    EntrySettings entries;
    HeightSettings heights;
    RecordSettings records;
    /// How far an arc may lie from the points it takes the place of, in steps.
    double arcTolerance = 0;
    /// How far lines may lie from points that they leave out, in steps.
    double lineTolerance = 0;
    /// Where the tool starts, in steps.
    std::optional<Vec> from;
    double initialZ = 0;
    double finalZ = 0;
    /// Pre-drilled holes that are no use, and why.
    std::vector<JobFinding> holeFindings;
};

/// \throws jobs::JobError when the pre-drilled holes cannot be used as they are
MoveSettings moveSettings(const Tessaron2dInput& input, const PocketingParameters& parameters, const Grid& grid,
                          const GougeCheck& walls);

} // namespace exchange::pocketing

#endif
