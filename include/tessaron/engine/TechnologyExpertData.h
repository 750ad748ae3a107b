#ifndef TESSARON_ENGINE_TECHNOLOGYEXPERTDATA_H
#define TESSARON_ENGINE_TECHNOLOGYEXPERTDATA_H

// Stability: stable.

#include <tessaron/engine/TemplateInfo.h>

#include <string>
#include <vector>

namespace util
{

/// One choice out of a list of the technology expert data.
struct ExpertOption
{
    int code = 0;        ///< what parameter sets store, for example under "Part Material Type"; unique in its list
    std::string text;    ///< what the user reads
    double factor = 1.0; ///< what parameter sets store under the "... Factor" key that goes with the list: multiplies
                         ///< cutting conditions, 1 is neutral. 1 throughout in lists that have no such key.
};

/// The option lists of the technology expert, in the order in which they are offered.
struct TechnologyExpertData
{
    typedef std::vector<ExpertOption> List;

    List partMaterials;    ///< "Part Material Type"
    List hardnessScales;   ///< "Part Material Hardness Type"
    List partHoldings;     ///< "Part Holding Type", "Part Holding Factor"
    List toolCoatings;     ///< "Tool Coating Type", "Tool Coating Factor"
    List machineTapers;    ///< "Machine Taper Type", "Machine Taper Factor"
    List toolHolders;      ///< "Tool Holder Type", "Tool Holder Factor"
    List aggressivenesses; ///< "Aggressiveness Type", "Aggressiveness Factor"
};

/// The (code, text) pairs of a list, as a list column takes them.
inline TemplateOptions templateOptions(const TechnologyExpertData::List& list)
{
    TemplateOptions options;
    options.reserve(list.size());
    for (const ExpertOption& option : list)
        options.emplace_back(option.code, option.text);
    return options;
}

} // namespace util

#endif
