#ifndef BENCH_TEMPLATES_SAMPLETEMPLATES_H
#define BENCH_TEMPLATES_SAMPLETEMPLATES_H

#include <tessaron/util/Keys.h>
#include <tessaron/util/Parameterized.h>

#include <random>
#include <string>
#include <vector>

/// A milling template as the manager shows them: every default column has a value.
inline util::Parameterized sampleTemplate(int number, std::mt19937& random)
{
    namespace keys = util::keys;
    const auto pick = [&random](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    util::Parameterized set;
    set.set(keys::templateName, "TESSARON" + std::to_string(number));
    set.set(keys::templateDescription, "Adaptive roughing of pocket " + std::to_string(pick(50)));
    set.set(keys::templateComments, "Checked on machine " + std::to_string(pick(9)) + ", spindle warm, flood coolant");
    set.set(keys::templateCam, std::string("KORVEN"));
    set.set(keys::templateRating, pick(6) * 1.0);
    set.set(keys::templateDateCreated, std::to_string(1600000000 + pick(100000000)));
    set.set(keys::templateDateModified, std::to_string(1700000000 + pick(10000000)));
    set.set(keys::templateVersion, std::string("1"));
    set.set(keys::templateGuid, "00000000-0000-4000-8000-" + std::to_string(100000000000LL + number));
    set.set(keys::material, std::string("6061-T6"));
    set.set(keys::machineTool, "Mill " + std::to_string(pick(5)));
    for (const util::Key& key : {keys::partMaterialType, keys::toolHolderType, keys::machineTaperType,
                                 keys::partMaterialHardnessType, keys::partHoldingType, keys::toolCoatingType,
                                 keys::aggressivenessType, keys::toolNumFlutes, keys::toolNumber, keys::coolant})
        set.set(key, 1 + pick(6));
    set.set(keys::maximumSpindleSpeed, 500 * pick(40));
    for (const util::Key& key : {keys::partMaterialHardness,
                                 keys::toolDiameter,
                                 keys::toolCornerRadius,
                                 keys::toolLengthOfCut,
                                 keys::toolFlutLength,
                                 keys::highFeedrate,
                                 keys::toolStickOutLength,
                                 keys::xyRapidFeedRate,
                                 keys::zRapidFeedRate,
                                 keys::maximumFeedrate,
                                 keys::feedrate,
                                 keys::spindleSpeed,
                                 keys::stepover,
                                 keys::depthOfCut,
                                 keys::toolLength,
                                 keys::toolOverallLength,
                                 keys::cutTolerance,
                                 keys::smoothingRadius,
                                 keys::rampAngle,
                                 keys::holderClearance})
        set.set(key, pick(1000) / 8.0);
    return set;
}

inline std::vector<util::Parameterized> sampleTemplates(int count)
{
    std::mt19937 random(5);
    std::vector<util::Parameterized> templates;
    templates.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        templates.push_back(sampleTemplate(i, random));
    return templates;
}

#endif
