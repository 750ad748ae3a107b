#include <tessaron/c/CuttingData.h>

#include "c/Failure.h"
#include <tessaron/engine/Calculator.h>
#include <tessaron/engine/TechnologyExpertData.h>
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace
{

using c_interface::Failure;
using c_interface::guarded;
using c_interface::needed;
using util::ExpertOption;
using util::TechnologyExpertData;

struct ExpertList
{
    util::Key key;
    TechnologyExpertData::List TechnologyExpertData::*list;
};

constexpr ExpertList expertLists[] = {
    {util::keys::partMaterialType, &TechnologyExpertData::partMaterials},
    {util::keys::partMaterialHardnessType, &TechnologyExpertData::hardnessScales},
    {util::keys::partHoldingType, &TechnologyExpertData::partHoldings},
    {util::keys::toolCoatingType, &TechnologyExpertData::toolCoatings},
    {util::keys::machineTaperType, &TechnologyExpertData::machineTapers},
    {util::keys::toolHolderType, &TechnologyExpertData::toolHolders},
    {util::keys::aggressivenessType, &TechnologyExpertData::aggressivenesses},
};

TechnologyExpertData::List expertList(const char* name)
{
    needed(name, "list");
    for (const ExpertList& entry : expertLists)
    {
        if (name != std::string_view(entry.key))
            continue;
        TechnologyExpertData data;
        const int status = util::getTechnologyExpertData(&data);
        if (status != exchange::status::ok)
            throw Failure(status, exchange::statusText(status));
        return data.*entry.list;
    }
    throw Failure(TESSARON_NOT_FOUND, std::string("There is no list '") + name + "'.", name);
}

} // namespace

int tessaronCutCalculate(TessaronCut* cut)
{
    return guarded(
        [&]
        {
            TessaronCut& values = c_interface::sized(cut, "cut");
            if (!(std::abs(values.spindleSpeed) <= std::numeric_limits<int>::max()) ||
                values.spindleSpeed != std::trunc(values.spindleSpeed))
                throw Failure(TESSARON_INVALID_ARGUMENT, "The spindle speed is a whole number.", "spindleSpeed");
            int spindleSpeed = static_cast<int>(values.spindleSpeed);
            exchange::calculateMachiningParameters(values.toolDiameter, values.depthOfCut, values.fluteCount,
                                                   values.metric != 0, &values.surfaceSpeed, &spindleSpeed,
                                                   &values.feedPerTooth, &values.feedrate, &values.stepover,
                                                   &values.chipThickness, &values.materialRemovalRate);
            values.spindleSpeed = spindleSpeed;
        });
}

int tessaronExpertOptionCount(const char* list, size_t* count)
{
    return guarded([&] { *needed(count, "count") = expertList(list).size(); });
}

int tessaronExpertOption(const char* list, size_t index, TessaronExpertOption* option)
{
    return guarded(
        [&]
        {
            TessaronExpertOption& target = c_interface::sized(option, "option");
            thread_local ExpertOption kept;
            TechnologyExpertData::List options = expertList(list);
            kept = std::move(options[c_interface::indexBelow(index, options.size())]);
            target.code = kept.code;
            target.factor = kept.factor;
            target.text = kept.text.c_str();
        });
}
