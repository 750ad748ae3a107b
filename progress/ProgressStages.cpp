#include "progress/ProgressStages.h"

#include <cmath>
#include <cstdio>
#include <iterator>
#include <limits>
#include <vector>

namespace TessaronResources
{

namespace
{

constexpr double fraction = 100.0;
constexpr double asIs = 1.0;

// In order of precedence. The boundary stage counts the cutter location checks that are left, which its text says and
// its name does not; the import reports percent.
constexpr ProgressStage stageTable[] = {
    {util::keys::stageCreatingToolpath, 1006, fraction},
    {util::keys::stageCreatingOffsetSurfaces, 1005, fraction},
    {util::keys::stageComputingRemainingStock, 1008, fraction},
    {util::keys::stageComputingToolAxisVectors, 1040, fraction},
    {util::keys::stageGeneratingBoundaries, 1039, asIs},
    {util::keys::stageImportingFile, 1042, asIs},
};

constexpr std::size_t workerStages = 5;

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
    const ProgressStage* const end =
        std::begin(stageTable) + (scope == StageScope::worker ? workerStages : std::size(stageTable));
    for (const ProgressStage* stage = std::begin(stageTable); stage != end; ++stage)
        if (stages.has(stage->name))
            return formatCount(strings(stage->textId), truncated(stages.numberOr(stage->name, 0.0) * stage->scale));
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
