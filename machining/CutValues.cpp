#include "machining/CutValues.h"

#include <tessaron/engine/Calculator.h>

#include <algorithm>
#include <cmath>

namespace TessaronResources
{

namespace
{

constexpr double lastDigits = 1e-9;

int spindleSpeedOf(CutValues cut)
{
    cut.spindleSpeed = 0;
    solve(cut);
    return cut.spindleSpeed;
}

bool speedsAgree(const CutValues& cut)
{
    return spindleSpeedOf(cut) == cut.spindleSpeed;
}

bool feedsAgree(CutValues cut)
{
    const double feedrate = cut.feedrate;
    CutValues fromFeeds = cut;
    fromFeeds.surfaceSpeed = 0;
    if (spindleSpeedOf(fromFeeds) == cut.spindleSpeed)
        return true;
    cut.feedrate = 0;
    solve(cut);
    return nearlyEqual(cut.feedrate, feedrate);
}

} // namespace

void solve(CutValues& cut)
{
    exchange::calculateMachiningParameters(cut.toolDiameter, cut.depthOfCut, cut.numFlutes, cut.metric,
                                           &cut.surfaceSpeed, &cut.spindleSpeed, &cut.feedPerTooth, &cut.feedrate,
                                           &cut.stepover, &cut.chipThickness, &cut.removalRate);
}

bool nearlyEqual(double one, double other)
{
    return one == other || std::abs(one - other) <= lastDigits * std::max(std::abs(one), std::abs(other));
}

double chipThicknessOf(CutValues cut)
{
    cut.chipThickness = 0;
    solve(cut);
    return cut.chipThickness;
}

bool agree(const CutValues& cut)
{
    return speedsAgree(cut) && feedsAgree(cut) && nearlyEqual(chipThicknessOf(cut), cut.chipThickness);
}

} // namespace TessaronResources
