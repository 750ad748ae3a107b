#include "engine/pocketing/PocketingParameters.h"

#include "engine/jobs/JobError.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <thread>

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
};

/// A number that the job reads. One without a default must be there.
struct NumberField
{
    Key key;
    double PocketingParameters::*member;
    Range range;
    bool required;
};

const NumberField numberFields[] = {
    {keys::toolDiameter, &PocketingParameters::toolDiameter, Range::positive, true},
    {keys::stepover, &PocketingParameters::stepover, Range::positive, true},
    {keys::depthOfCut, &PocketingParameters::depthOfCut, Range::positive, true},
    {keys::topMaterialZ, &PocketingParameters::topMaterialZ, Range::any, true},
    {keys::zDepth, &PocketingParameters::zDepth, Range::any, true},
    {keys::rapidPlaneZ, &PocketingParameters::rapidPlaneZ, Range::any, true},
    {keys::feedrate, &PocketingParameters::feedrate, Range::positive, true},
    {keys::spindleSpeed, &PocketingParameters::spindleSpeed, Range::positive, true},
    {keys::rampFeedrate, &PocketingParameters::rampFeedrate, Range::positive, false},
    {keys::cutTolerance, &PocketingParameters::cutTolerance, Range::positive, false},
    {keys::chainingTolerance, &PocketingParameters::chainingTolerance, Range::positive, false},
    {keys::xyStockToLeave, &PocketingParameters::xyStockToLeave, Range::notNegative, false},
    {keys::zStockToLeave, &PocketingParameters::zStockToLeave, Range::notNegative, false},
    {keys::plungeClearance, &PocketingParameters::plungeClearance, Range::notNegative, false},
};

/// A bad tool diameter has a status code of its own; for anything else the text has to say what is wrong.
int statusOf(const std::string& field)
{
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
    return true;
}

/// The whole number under a key, or the default when it is absent.
int readInt(const Parameterized& parameters, const Key& key, int defaultValue)
{
    if (!parameters.has(key))
        return defaultValue;
    const int* const number = parameters.findInt(key);
    if (!number)
        refuse(key, "must be a whole number");
    return *number;
}

int readThreads(const Parameterized& parameters)
{
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    const int threads = readInt(parameters, keys::numberOfConcurrentThreads, cores);
    if (threads < 1)
        refuse(keys::numberOfConcurrentThreads, "is " + std::to_string(threads) + "; it must be at least 1");
    return std::min(threads, maxThreads);
}

/// Fills in the defaults that depend on other parameters.
void fillIn(const Parameterized& given, PocketingParameters& parameters)
{
    if (!given.has(keys::cutTolerance))
        parameters.cutTolerance = parameters.toolDiameter * defaultToleranceFactor;
    if (!given.has(keys::chainingTolerance))
        parameters.chainingTolerance = 10 * parameters.cutTolerance;
    if (!given.has(keys::rampFeedrate))
        parameters.rampFeedrate = parameters.feedrate / 2;
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
    const double depth = parameters.topMaterialZ - parameters.zDepth;
    if (depth <= 0)
        refuse(keys::zDepth, "is " + show(parameters.zDepth) + "; it must lie below \"Top Material Z\", " +
                                 show(parameters.topMaterialZ));
    if (parameters.zStockToLeave >= depth)
        refuse(keys::zStockToLeave,
               "is " + show(parameters.zStockToLeave) + "; the pocket is only " + show(depth) + " deep");
    if (!(depth / parameters.depthOfCut <= maxLevels))
        refuse(keys::depthOfCut, "is " + show(parameters.depthOfCut) + "; a depth of " + show(depth) +
                                     " would take more than " + std::to_string(maxLevels) + " levels");
    if (parameters.rapidPlaneZ < parameters.topMaterialZ)
        refuse(keys::rapidPlaneZ, "is " + show(parameters.rapidPlaneZ) +
                                      "; it must not lie below \"Top Material Z\", " + show(parameters.topMaterialZ));
}

} // namespace

std::vector<double> PocketingParameters::levels() const
{
    const double floor = zDepth + zStockToLeave;
    const double depth = topMaterialZ - floor;
    // A remainder that is nothing but rounding makes no level of its own.
    const int count = std::max(1, static_cast<int>(std::ceil(depth / depthOfCut - 1e-6)));
    std::vector<double> levels;
    for (int level = 1; level < count; ++level)
        levels.push_back(topMaterialZ - level * depthOfCut);
    levels.push_back(floor);
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
    parameters.counterClockwise = readInt(given, keys::toolpathCcw, 1) != 0;
    parameters.depthFirst = readInt(given, keys::depthFirst, 1) != 0;
    parameters.threads = readThreads(given);
    fillIn(given, parameters);
    checkTogether(parameters);
    return parameters;
}

} // namespace exchange::pocketing
