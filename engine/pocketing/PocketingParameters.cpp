#include "engine/pocketing/PocketingParameters.h"

#include "engine/jobs/JobError.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <thread>
#include <utility>

namespace exchange::pocketing
{

namespace
{

namespace keys = util::keys;
using jobs::JobError;
using util::Key;
using util::Parameterized;

enum class Range
{
    any,
    notNegative,
    positive,
    angle,    ///< above 0 and below 90 degrees
    fraction, ///< 0 to 1
};

/// A number that the job reads. One without a default must be there.
struct NumberField
{
    Key key;
    double PocketingParameters::*member;
    Range range;
    bool required;
};

/// A code, a count or a flag, with the codes that it may have.
struct CodeField
{
    Key key;
    int PocketingParameters::*member;
    int least;
    int greatest;
};

constexpr int flag = -1;

const NumberField numberFields[] = {
    {keys::toolDiameter, &PocketingParameters::toolDiameter, Range::positive, true},
    {keys::stepover, &PocketingParameters::stepover, Range::positive, true},
    {keys::depthOfCut, &PocketingParameters::depthOfCut, Range::positive, true},
    {keys::topMaterialZ, &PocketingParameters::topMaterialZ, Range::any, true},
    {keys::zDepth, &PocketingParameters::zDepth, Range::any, true},
    {keys::rapidPlaneZ, &PocketingParameters::rapidPlaneZ, Range::any, true},
    {keys::feedrate, &PocketingParameters::feedrate, Range::positive, true},
    {keys::spindleSpeed, &PocketingParameters::spindleSpeed, Range::positive, true},
    {keys::toolCornerRadius, &PocketingParameters::toolCornerRadius, Range::notNegative, false},
    {keys::cutTolerance, &PocketingParameters::cutTolerance, Range::positive, false},
    {keys::chainingTolerance, &PocketingParameters::chainingTolerance, Range::positive, false},
    {keys::xyStockToLeave, &PocketingParameters::xyStockToLeave, Range::notNegative, false},
    {keys::zStockToLeave, &PocketingParameters::zStockToLeave, Range::notNegative, false},
    {keys::partRadialStock, &PocketingParameters::partRadialStock, Range::notNegative, false},
    {keys::partAxialStock, &PocketingParameters::partAxialStock, Range::notNegative, false},
    {keys::finalStepHeight, &PocketingParameters::finalStepHeight, Range::notNegative, false},
    {keys::rampFeedrate, &PocketingParameters::rampFeedrate, Range::positive, false},
    {keys::slotFeedrate, &PocketingParameters::slotFeedrate, Range::positive, false},
    {keys::highFeedrate, &PocketingParameters::highFeedrate, Range::positive, false},
    {keys::xyRapidFeedRate, &PocketingParameters::xyRapidFeedRate, Range::positive, false},
    {keys::zRapidFeedRate, &PocketingParameters::zRapidFeedRate, Range::positive, false},
    {keys::feedrateEntryFactor, &PocketingParameters::feedrateEntryFactor, Range::positive, false},
    {keys::rampFeedrateEntryFactor, &PocketingParameters::rampFeedrateEntryFactor, Range::positive, false},
    {keys::adjustFeedRateForHelixPlungeType, &PocketingParameters::helixFeedFactor, Range::positive, false},
    {keys::adjustFeedRateForRampPlungeType, &PocketingParameters::rampFeedFactor, Range::positive, false},
    {keys::rampAngle, &PocketingParameters::rampAngle, Range::angle, false},
    {keys::plungeRadius, &PocketingParameters::plungeRadius, Range::positive, false},
    {keys::plungeClearance, &PocketingParameters::plungeClearance, Range::notNegative, false},
    {keys::dwellAfterPlunge, &PocketingParameters::dwellAfterPlunge, Range::notNegative, false},
    {keys::drillDiameter, &PocketingParameters::drillDiameter, Range::positive, false},
    {keys::drillPointRange, &PocketingParameters::drillPointRange, Range::notNegative, false},
    {keys::rapidVsHighFeed, &PocketingParameters::rapidVsHighFeed, Range::fraction, false},
    {keys::highFeedClearance, &PocketingParameters::highFeedClearance, Range::notNegative, false},
    {keys::materialClearance, &PocketingParameters::materialClearance, Range::notNegative, false},
    {keys::minimumClearance, &PocketingParameters::minimumClearance, Range::notNegative, false},
    {keys::initialRapidPlaneZ, &PocketingParameters::initialRapidPlaneZ, Range::any, false},
    {keys::finalRapidPlaneZ, &PocketingParameters::finalRapidPlaneZ, Range::any, false},
    {keys::fromPointX, &PocketingParameters::fromPointX, Range::any, false},
    {keys::fromPointY, &PocketingParameters::fromPointY, Range::any, false},
    {keys::goHomePointX, &PocketingParameters::homePointX, Range::any, false},
    {keys::goHomePointY, &PocketingParameters::homePointY, Range::any, false},
    {keys::linearizationTolerance, &PocketingParameters::linearizationTolerance, Range::notNegative, false},
    {keys::maximumSegmentLength, &PocketingParameters::maximumSegmentLength, Range::notNegative, false},
};

const CodeField codeFields[] = {
    {keys::plungeType, &PocketingParameters::plungeType, 0, 4},
    {keys::plungeHelix, &PocketingParameters::plungeHelix, flag, flag},
    {keys::plungeCurve, &PocketingParameters::plungeCurve, flag, flag},
    {keys::detectOptimalPreDrillPoints, &PocketingParameters::detectPreDrillPoints, flag, flag},
    {keys::motionStartCutting, &PocketingParameters::motionStart, 0, 1},
    {keys::motionEndCutting, &PocketingParameters::motionEnd, 0, 1},
    {keys::rapidAtRapidPlane, &PocketingParameters::rapidAtRapidPlane, flag, flag},
    {keys::fromPointSelected, &PocketingParameters::fromPointSelected, flag, flag},
    {keys::goHomePointSelected, &PocketingParameters::homePointSelected, flag, flag},
    {keys::linearizationMode, &PocketingParameters::linearizationMode, 0, 1},
    {keys::overrideFinalStepHeight, &PocketingParameters::overrideFinalStepHeight, flag, flag},
    {keys::toolpathCcw, &PocketingParameters::counterClockwise, flag, flag},
    {keys::depthFirst, &PocketingParameters::depthFirst, flag, flag},
    {keys::numberOfConcurrentThreads, &PocketingParameters::threads, 1, std::numeric_limits<int>::max()},
};

/// A bad tool diameter and bad leads have status codes of their own; for anything else the text has to say what is
/// wrong.
int statusOf(const std::string& field)
{
    if (field == keys::motionStartCutting.c_str())
        return status::invalidApproach;
    if (field == keys::motionEndCutting.c_str())
        return status::invalidDeparture;
    return field == keys::toolDiameter.c_str() ? status::toolDiameterTooSmall : status::internalError;
}

[[noreturn]] void refuse(const std::string& field, const std::string& complaint)
{
    throw JobError(statusOf(field), "\"" + field + "\" " + complaint + ".", field);
}

std::string show(double value)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << value;
    return text.str();
}

/// The number under a key; false when it is absent and need not be there.
bool readNumber(const Parameterized& parameters, const NumberField& field, double& number)
{
    const std::string name = field.key;
    const Parameterized::Value* const value = parameters.find(field.key);
    if (!value)
    {
        if (field.required)
            refuse(name, "is missing");
        return false;
    }
    if (boost::get<std::string>(value))
        refuse(name, "is a text; a number is needed");
    number = parameters.numberOr(field.key, 0);
    if (!std::isfinite(number))
        refuse(name, "is not a finite number");
    if (field.range == Range::positive && number <= 0)
        refuse(name, "is " + show(number) + "; it must be greater than 0");
    if (field.range == Range::notNegative && number < 0)
        refuse(name, "is " + show(number) + "; it must not be negative");
    if (field.range == Range::angle && !(number > 0 && number < 90))
        refuse(name, "is " + show(number) + "; it must lie between 0 and 90 degrees");
    if (field.range == Range::fraction && !(number >= 0 && number <= 1))
        refuse(name, "is " + show(number) + "; it must lie between 0 and 1");
    return true;
}

/// The whole number under a key, if it is there; 1.0 is one, too.
void readCode(const Parameterized& parameters, const CodeField& field, int& code)
{
    const std::string name = field.key;
    const Parameterized::Value* const value = parameters.find(field.key);
    if (!value)
        return;
    if (boost::get<std::string>(value))
        refuse(name, "is a text; a whole number is needed");
    const double number = parameters.numberOr(field.key, 0);
    if (!(std::fabs(number) <= std::numeric_limits<int>::max()) || number != std::floor(number))
        refuse(name, "must be a whole number");
    code = static_cast<int>(number);
    if (field.least == flag)
        return;
    if (code < field.least)
        refuse(name, "is " + std::to_string(code) + "; it must be at least " + std::to_string(field.least));
    if (code > field.greatest)
        refuse(name, "is " + std::to_string(code) + "; it must be at most " + std::to_string(field.greatest));
}

/// Heights in a text, with blanks, commas or semicolons between them; or a single number.
std::vector<double> readHeights(const Parameterized& parameters, const Key& key)
{
    const Parameterized::Value* const value = parameters.find(key);
    if (!value)
        return {};
    std::string text = parameters.stringOr(key, show(parameters.numberOr(key, 0)));
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == ',' || c == ';'; }, ' ');
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    std::vector<double> heights;
    for (double height = 0; stream >> height;)
        heights.push_back(height);
    if (!stream.eof())
        refuse(key, "is \"" + text + "\"; heights with blanks between them are needed");
    return heights;
}

/// Fills in the defaults that depend on other parameters.
void fillIn(const Parameterized& given, PocketingParameters& parameters)
{
    if (!given.has(keys::cutTolerance))
        parameters.cutTolerance = parameters.toolDiameter * defaultToleranceFactor;
    if (!given.has(keys::chainingTolerance))
        parameters.chainingTolerance = 10 * parameters.cutTolerance;
    const auto setDefault = [&given](const Key& key, double& member, double value)
    {
        if (!given.has(key))
            member = value;
    };
    setDefault(keys::rampFeedrate, parameters.rampFeedrate, parameters.feedrate / 2);
    setDefault(keys::slotFeedrate, parameters.slotFeedrate, parameters.feedrate);
    setDefault(keys::xyRapidFeedRate, parameters.xyRapidFeedRate, 10 * parameters.feedrate);
    setDefault(keys::highFeedrate, parameters.highFeedrate,
               std::max(parameters.feedrate, parameters.xyRapidFeedRate / 2));
    setDefault(keys::zRapidFeedRate, parameters.zRapidFeedRate, parameters.xyRapidFeedRate);
    setDefault(keys::plungeClearance, parameters.plungeClearance, parameters.toolDiameter / 10);
    setDefault(keys::highFeedClearance, parameters.highFeedClearance, parameters.plungeClearance);
    parameters.highFeedClearance = std::max(parameters.highFeedClearance, parameters.minimumClearance);
    if (!given.has(keys::numberOfConcurrentThreads))
        parameters.threads = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    parameters.threads = std::min(parameters.threads, maxThreads);
}

/// Checks parameters against each other.
void checkTogether(const PocketingParameters& parameters)
{
    const double tolerance = parameters.cutTolerance;
    if (parameters.toolDiameter < 8 * tolerance)
        refuse(keys::toolDiameter, "is " + show(parameters.toolDiameter) +
                                       "; it must be at least 8 times the cut tolerance, which is " + show(tolerance));
    if (parameters.stepover < tolerance)
        refuse(keys::stepover,
               "is " + show(parameters.stepover) + "; it must not be less than the cut tolerance, " + show(tolerance));
    if (parameters.stepover > parameters.toolDiameter)
        refuse(keys::stepover, "is " + show(parameters.stepover) + "; it must not be greater than the tool diameter, " +
                                   show(parameters.toolDiameter));
    if (parameters.partRadialStock > parameters.stepover)
        refuse(keys::partRadialStock, "is " + show(parameters.partRadialStock) +
                                          "; it must not be greater than the stepover, " + show(parameters.stepover));
    const double depth = parameters.topMaterialZ - parameters.zDepth;
    if (depth == 0 && parameters.plungeType == static_cast<int>(PlungeType::preDrill))
        throw JobError(status::preDrillAtZeroCutDepth, statusText(status::preDrillAtZeroCutDepth), keys::zDepth);
    if (depth <= 0)
        refuse(keys::zDepth, "is " + show(parameters.zDepth) + "; it must lie below \"Top Material Z\", " +
                                 show(parameters.topMaterialZ));
    if (parameters.zStockToLeave >= depth)
        refuse(keys::zStockToLeave,
               "is " + show(parameters.zStockToLeave) + "; the pocket is only " + show(depth) + " deep");
    if (parameters.zStockToLeave + parameters.partAxialStock >= depth)
        refuse(keys::partAxialStock,
               "is " + show(parameters.partAxialStock) + "; the pocket is only " + show(depth) + " deep");
    if (parameters.finalStepHeight > parameters.depthOfCut)
        refuse(keys::finalStepHeight, "is " + show(parameters.finalStepHeight) +
                                          "; it must not be greater than the depth of cut, " +
                                          show(parameters.depthOfCut));
    if (!(depth / parameters.depthOfCut <= maxLevels))
        refuse(keys::depthOfCut, "is " + show(parameters.depthOfCut) + "; a depth of " + show(depth) +
                                     " would take more than " + std::to_string(maxLevels) + " levels");
    if (parameters.rapidPlaneZ < parameters.topMaterialZ)
        refuse(keys::rapidPlaneZ, "is " + show(parameters.rapidPlaneZ) +
                                      "; it must not lie below \"Top Material Z\", " + show(parameters.topMaterialZ));
    const std::pair<Key, double> planes[] = {{keys::initialRapidPlaneZ, parameters.initialRapidPlaneZ},
                                             {keys::finalRapidPlaneZ, parameters.finalRapidPlaneZ}};
    for (const auto& [key, plane] : planes)
        if (plane < parameters.rapidPlaneZ)
            refuse(key,
                   "is " + show(plane) + "; it must not lie below \"Rapid Plane Z\", " + show(parameters.rapidPlaneZ));
}

/// Heights down to the last one, the steps between them even and none greater than the depth of cut.
void addEvenLevels(double from, double to, double depthOfCut, std::vector<double>& levels)
{
    // A remainder that is nothing but rounding makes no level of its own.
    const int count = std::max(1, static_cast<int>(std::ceil((from - to) / depthOfCut - 1e-6)));
    for (int level = 1; level < count; ++level)
        levels.push_back(from - level * (from - to) / count);
    levels.push_back(to);
}

} // namespace

double PocketingParameters::rampSlope() const
{
    return std::tan(rampAngle * std::acos(-1.0) / 180);
}

double PocketingParameters::travelZ() const
{
    // Not given, the comparison is false.
    if (rapidAtRapidPlane == 0 && materialClearance >= 0)
        return std::min(rapidPlaneZ, topMaterialZ + std::max(materialClearance, minimumClearance));
    return rapidPlaneZ;
}

std::vector<double> PocketingParameters::levels() const
{
    const double floor = zDepth + zStockToLeave;
    // The heights that must be levels, from the top down.
    std::vector<double> fixed;
    if (partAxialStock > 0)
        fixed.push_back(floor + partAxialStock);
    if (overrideFinalStepHeight != 0 && finalStepHeight > 0)
        fixed.push_back(floor + finalStepHeight);
    fixed.insert(fixed.end(), additionalCutDepths.begin(), additionalCutDepths.end());
    const double tiny = 1e-6 * depthOfCut;
    std::erase_if(fixed, [&](double z) { return !(z < topMaterialZ - tiny && z > floor + tiny); });
    fixed.push_back(floor);
    std::sort(fixed.begin(), fixed.end(), std::greater<>());
    std::vector<double> levels;
    double from = topMaterialZ;
    for (const double z : fixed)
    {
        if (from - z > tiny)
            addEvenLevels(from, z, depthOfCut, levels);
        from = z;
    }
    return levels;
}

PocketingParameters readParameters(const Tessaron2dInput& input)
{
    if (input.boundaries.materialBoundaries.empty())
        throw JobError(status::noStock, statusText(status::noStock));
    if (input.boundaries.partBoundaries.empty())
        throw JobError(status::noPart, statusText(status::noPart));

    const Parameterized& given = input.parameters;
    PocketingParameters parameters;
    for (const NumberField& field : numberFields)
        readNumber(given, field, parameters.*field.member);
    for (const CodeField& field : codeFields)
        readCode(given, field, parameters.*field.member);
    parameters.additionalCutDepths = readHeights(given, keys::additionalCutDepths);
    fillIn(given, parameters);
    checkTogether(parameters);
    return parameters;
}

std::vector<ParameterRow> parameterTable()
{
    std::vector<ParameterRow> rows;
    for (const NumberField& field : numberFields)
        rows.push_back({field.key, "number", field.required});
    for (const CodeField& field : codeFields)
        rows.push_back({field.key, field.least == flag ? "flag" : "whole number", false});
    rows.push_back({keys::additionalCutDepths, "list", false});
    return rows;
}

} // namespace exchange::pocketing
