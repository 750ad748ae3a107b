#include <tessaron/engine/Calculator.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace exchange
{
namespace
{

enum Quantity
{
    toolDiameterGiven,
    flutesGiven,
    surface,
    spindle,
    toothFeed,
    feed,
    radial,
    chip,
    quantityCount
};

struct Cut
{
    std::array<double, quantityCount> values{};
    double lengthsPerSpeedUnit = 0; // 12 inches in a foot, 1000 millimetres in a metre

    double operator[](Quantity quantity) const { return values[quantity]; }
    bool known(Quantity quantity) const { return values[quantity] > 0.0; }
    bool unknown(Quantity quantity) const { return values[quantity] == 0.0; }
};

double roundedSpindleSpeed(double speed)
{
    return std::max(std::floor(speed + 0.5), 1.0); // in this order: NaN stays NaN
}

double spindleFromSurface(const Cut& cut)
{
    return roundedSpindleSpeed(cut[surface] * cut.lengthsPerSpeedUnit / (std::numbers::pi * cut[toolDiameterGiven]));
}

double surfaceFromSpindle(const Cut& cut)
{
    return std::numbers::pi * cut[toolDiameterGiven] * cut[spindle] / cut.lengthsPerSpeedUnit;
}

double toothFeedFromFeed(const Cut& cut)
{
    return cut[feed] / (cut[spindle] * cut[flutesGiven]);
}

double feedFromToothFeed(const Cut& cut)
{
    return cut[spindle] * cut[flutesGiven] * cut[toothFeed];
}

double spindleFromFeeds(const Cut& cut)
{
    return roundedSpindleSpeed(cut[feed] / (cut[flutesGiven] * cut[toothFeed]));
}

// The thickest chip as a fraction of the feed per tooth. From half the diameter on, the tooth meets its full feed.
double thinning(const Cut& cut)
{
    const double engagement = cut[radial] / cut[toolDiameterGiven];
    return engagement < 0.5 ? 2.0 * std::sqrt(engagement * (1.0 - engagement)) : 1.0;
}

double toothFeedFromChip(const Cut& cut)
{
    return cut[chip] / thinning(cut);
}

double chipFromToothFeed(const Cut& cut)
{
    return cut[toothFeed] * thinning(cut);
}

// The smaller root of the thinning equation, in the form that loses no digits for thin chips.
double radialFromChip(const Cut& cut)
{
    const double fraction = std::min(cut[chip] / cut[toothFeed], 1.0);
    const double square = fraction * fraction;
    return cut[toolDiameterGiven] * square / (2.0 * (1.0 + std::sqrt(1.0 - square)));
}

struct Rule
{
    Quantity derived;
    std::array<Quantity, 3> from; // all positive
    double (*solve)(const Cut& cut);
    Quantity alsoUnknown; // the derived quantity itself where nothing else matters
};

// The order decides which rule wins where two of them could derive the same quantity.
constexpr Rule rules[] = {
    // V = pi D n / K
    {spindle, {toolDiameterGiven, surface, surface}, spindleFromSurface, spindle},
    {surface, {toolDiameterGiven, spindle, spindle}, surfaceFromSpindle, surface},
    // F = n z f
    {toothFeed, {flutesGiven, spindle, feed}, toothFeedFromFeed, toothFeed},
    {feed, {flutesGiven, spindle, toothFeed}, feedFromToothFeed, feed},
    {spindle, {flutesGiven, toothFeed, feed}, spindleFromFeeds, surface},
    // h = f 2 sqrt(r (1 - r)), r = e / D
    {toothFeed, {toolDiameterGiven, radial, chip}, toothFeedFromChip, toothFeed},
    {chip, {toolDiameterGiven, toothFeed, radial}, chipFromToothFeed, chip},
    {radial, {toolDiameterGiven, toothFeed, chip}, radialFromChip, radial},
};

bool applies(const Rule& rule, const Cut& cut)
{
    return cut.unknown(rule.derived) && cut.unknown(rule.alsoUnknown) &&
           std::ranges::all_of(rule.from, [&](Quantity quantity) { return cut.known(quantity); });
}

double finiteOrZero(double value, double limit = std::numeric_limits<double>::max())
{
    return std::isfinite(value) && std::abs(value) <= limit ? value : 0.0;
}

void solve(Cut& cut)
{
    bool changed = true;
    while (changed)
    {
        changed = false;
        for (const Rule& rule : rules)
        {
            if (!applies(rule, cut))
                continue;
            const double limit =
                rule.derived == spindle ? std::numeric_limits<int>::max() : std::numeric_limits<double>::max();
            cut.values[rule.derived] = finiteOrZero(rule.solve(cut), limit);
            changed = changed || cut.known(rule.derived);
        }
    }
}

double removalRate(const Cut& cut, double depthOfCut, bool metric)
{
    if (!(depthOfCut > 0.0) || !cut.known(radial) || !cut.known(feed))
        return 0.0;
    const double width = cut.known(toolDiameterGiven) ? std::min(cut[radial], cut[toolDiameterGiven]) : cut[radial];
    return finiteOrZero(depthOfCut * width * cut[feed] / (metric ? 1000.0 : 1.0));
}

} // namespace

void calculateMachiningParameters(double toolDiameter, double depthOfCut, int numFlutes, bool metric,
                                  double* surfaceSpeed, int* spindleSpeed, double* feedPerTooth, double* feedrate,
                                  double* stepover, double* chipThickness, double* materialRemovalRate)
{
    Cut cut;
    cut.lengthsPerSpeedUnit = metric ? 1000.0 : 12.0;
    cut.values = {finiteOrZero(toolDiameter),  static_cast<double>(numFlutes),
                  finiteOrZero(*surfaceSpeed), static_cast<double>(*spindleSpeed),
                  finiteOrZero(*feedPerTooth), finiteOrZero(*feedrate),
                  finiteOrZero(*stepover),     finiteOrZero(*chipThickness)};
    solve(cut);

    *surfaceSpeed = cut[surface];
    *spindleSpeed = static_cast<int>(cut[spindle]);
    *feedPerTooth = cut[toothFeed];
    *feedrate = cut[feed];
    *stepover = cut[radial];
    *chipThickness = cut[chip];
    *materialRemovalRate = removalRate(cut, finiteOrZero(depthOfCut), metric);
}

} // namespace exchange
