#include "machining/ChipControlNotes.h"

#include "controls/NumericExpression.h"
#include "machining/ChipControlFields.h"
#include "machining/CutValues.h"
#include "resources/TextIds.h"

#include <cmath>

namespace TessaronResources
{

namespace
{

// The cutting edge of a sharp carbide tool is rounded with a radius of about five micrometers, and chips thinner than
// that are rather pressed aside than cut. B. Denkena, D. Biermann: Cutting edge geometries, CIRP Annals 63 (2014).
constexpr double usualEdgeRadiusInMillimeters = 0.005;
constexpr double usualEdgeRadiusInInches = 0.0002;

// Where thinning starts to show in a feed.
constexpr double leastThinningFactor = 1.005;

// What a field shows of a number, in its last decimal.
constexpr double lastDecimal = 1e-6;

std::string length(double value, bool metric)
{
    return mfcutil::formatTidy(value) + (metric ? " mm" : " in");
}

bool contradicts(double shown, double right)
{
    return shown > 0 && right > 0 && std::abs(shown - right) > lastDecimal && !nearlyEqual(shown, right);
}

} // namespace

std::vector<ChipControlNote> chipControlNotes(const CutValues& cut, const MachineLimits& limits, bool stepoverIsDerived)
{
    std::vector<ChipControlNote> notes;
    const double chip = chipThicknessOf(cut);
    if (contradicts(cut.chipThickness, chip))
        notes.push_back({texts::chipThicknessContradicts, {length(chip, cut.metric)}, chipControl::chipThickness});
    else if (stepoverIsDerived && cut.chipThickness > 0 && nearlyEqual(cut.chipThickness, cut.feedPerTooth) &&
             nearlyEqual(cut.stepover * 2, cut.toolDiameter))
        notes.push_back({texts::halfTheDiameterTaken, {}, 0});
    if (limits.spindleSpeed > 0 && cut.spindleSpeed > limits.spindleSpeed)
        notes.push_back({texts::aboveMaximumSpindleSpeed, {mfcutil::formatTidy(limits.spindleSpeed)}, 0});
    if (limits.feedrate > 0 && cut.feedrate > limits.feedrate && !nearlyEqual(cut.feedrate, limits.feedrate))
        notes.push_back({texts::aboveMaximumFeedrate, {mfcutil::formatTidy(limits.feedrate)}, 0});
    const double edgeRadius = cut.metric ? usualEdgeRadiusInMillimeters : usualEdgeRadiusInInches;
    if (chip > 0 && chip < edgeRadius)
        notes.push_back({texts::chipMayRub, {length(edgeRadius, cut.metric)}, 0});
    if (chip > 0 && cut.feedPerTooth > leastThinningFactor * chip)
        notes.push_back({texts::thinningFactor, {mfcutil::formatDecimals(cut.feedPerTooth / chip, 2)}, 0});
    return notes;
}

} // namespace TessaronResources
