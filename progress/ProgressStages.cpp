#include "progress/ProgressStages.h"

#include "resources/TextIds.h"
#include <tessaron/util/Keys.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <vector>

namespace TessaronResources
{

namespace
{

/// How a stage of a job is shown.
struct Stage
{
    util::Key name;
    int textId;
    double scale;   ///< what the stage's value is multiplied by before it is shown
    bool ofWorkers; ///< whether a worker's line tells about it, too
};

constexpr double fraction = 100.0;
constexpr double asIs = 1.0;

// In order of precedence. The boundary stage counts the cutter location checks that are left, which its text says and
// its name does not; the import reports percent.
constexpr Stage stageTable[] = {
    {util::keys::stageCreatingToolpath, texts::creatingToolpath, fraction, true},
    {util::keys::stageCreatingOffsetSurfaces, texts::creatingOffsetSurfaces, fraction, true},
    {util::keys::stageComputingRemainingStock, texts::computingRemainingStock, fraction, true},
    {util::keys::stageComputingToolAxisVectors, texts::computingToolAxisVectors, fraction, true},
    {util::keys::stageGeneratingBoundaries, texts::computingCutterLocations, asIs, true},
    {util::keys::stageImportingFile, texts::importingFile, asIs, false},
};

} // namespace

int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

std::string stageText(const util::Parameterized& stages, StageScope scope, const StringSource& strings)
{
    for (const Stage& stage : stageTable)
        if ((stage.ofWorkers || scope == StageScope::job) && stages.has(stage.name))
            return formatCount(strings(stage.textId), truncated(stages.numberOr(stage.name, 0.0) * stage.scale));
    return {};
}

std::string formatCount(const std::string& format, int count)
{
    const int length = std::snprintf(nullptr, 0, format.c_str(), count);
    if (length < 0)
        return {};
    std::vector<char> text(static_cast<std::size_t>(length) + 1);
    std::snprintf(text.data(), text.size(), format.c_str(), count);
    return std::string(text.data(), static_cast<std::size_t>(length));
}

} // namespace TessaronResources
