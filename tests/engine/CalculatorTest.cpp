#include <tessaron/engine/Calculator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

constexpr bool inch = false;
constexpr bool millimetres = true;
constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double huge = std::numeric_limits<double>::max();

struct Cut
{
    bool metric = inch;
    double toolDiameter = 0;
    double depthOfCut = 0;
    int flutes = 0;
    double surfaceSpeed = 0;
    int spindleSpeed = 0;
    double feedPerTooth = 0;
    double feedrate = 0;
    double stepover = 0;
    double chipThickness = 0;
    double removalRate = 0;
};

Cut solved(Cut cut)
{
    cut.removalRate = -1;
    exchange::calculateMachiningParameters(cut.toolDiameter, cut.depthOfCut, cut.flutes, cut.metric, &cut.surfaceSpeed,
                                           &cut.spindleSpeed, &cut.feedPerTooth, &cut.feedrate, &cut.stepover,
                                           &cut.chipThickness, &cut.removalRate);
    return cut;
}

using Real = double Cut::*;

struct Example
{
    const char* source;
    Cut given;
    Real result;
    double printed;
    double tolerance; // half a unit of the last printed digit, wider where the note says so
};

TEST(Calculator, AgreesWithPublishedExamples)
{
    const Example examples[] = {
        {"Mitsubishi, milling, cutting speed; pi taken as 3.14",
         {.metric = millimetres, .toolDiameter = 125, .spindleSpeed = 350},
         &Cut::surfaceSpeed,
         137.4,
         0.1},
        {"Mitsubishi, inch; pi taken as 3.14",
         {.toolDiameter = 5, .spindleSpeed = 350},
         &Cut::surfaceSpeed,
         457.9,
         0.3},
        {"Phantom, milling speeds",
         {.metric = millimetres, .flutes = 3, .spindleSpeed = 663, .feedPerTooth = 0.065},
         &Cut::feedrate,
         129,
         0.5},
        {"cncshop.eu",
         {.metric = millimetres, .flutes = 2, .spindleSpeed = 18000, .feedPerTooth = 0.1},
         &Cut::feedrate,
         3600,
         1e-9},
        {"WIDIA p. 78, feed from the printed speed",
         {.metric = millimetres, .flutes = 8, .spindleSpeed = 510, .feedPerTooth = 0.2},
         &Cut::feedrate,
         816,
         1e-9},
        {"Ingersoll 2011 p. 453",
         {.toolDiameter = 0.375, .flutes = 4, .surfaceSpeed = 450, .feedPerTooth = 0.004},
         &Cut::feedrate,
         73.3,
         0.05},
        {"Ingersoll 2011 p. 453, removal rate truncated",
         {.toolDiameter = 0.375,
          .depthOfCut = 0.125,
          .flutes = 4,
          .surfaceSpeed = 450,
          .feedPerTooth = 0.004,
          .stepover = 0.10},
         &Cut::removalRate,
         0.915,
         0.005},
        {"feed per tooth", {.flutes = 4, .spindleSpeed = 5000, .feedrate = 30}, &Cut::feedPerTooth, 0.0015, 1e-12},
        {"removal rate, metric",
         {.metric = millimetres, .depthOfCut = 5, .feedrate = 1000, .stepover = 3},
         &Cut::removalRate,
         15,
         1e-9},
        {"removal rate, metric, small",
         {.metric = millimetres, .depthOfCut = 1, .feedrate = 500, .stepover = 0.5},
         &Cut::removalRate,
         0.25,
         1e-12},
        {"removal rate, inch", {.depthOfCut = 0.2, .feedrate = 40, .stepover = 0.3}, &Cut::removalRate, 2.4, 1e-12},
        {"removal rate, inch, small",
         {.depthOfCut = 0.1, .feedrate = 60, .stepover = 0.25},
         &Cut::removalRate,
         1.5,
         1e-12},
        {"MachineCalcs, thinning",
         {.toolDiameter = 0.5, .flutes = 4, .spindleSpeed = 8000, .stepover = 0.05, .chipThickness = 0.002},
         &Cut::feedPerTooth,
         0.00333,
         0.000005},
        {"MachineCalcs, compensated feed",
         {.toolDiameter = 0.5, .flutes = 4, .spindleSpeed = 8000, .stepover = 0.05, .chipThickness = 0.002},
         &Cut::feedrate,
         106.7,
         0.05},
        {"MyShopMetrics",
         {.toolDiameter = 0.5, .flutes = 4, .surfaceSpeed = 400, .stepover = 0.05, .chipThickness = 0.003},
         &Cut::feedPerTooth,
         0.005,
         0.0000005},
        {"thinning, metric",
         {.metric = millimetres, .toolDiameter = 10, .stepover = 1, .chipThickness = 0.05},
         &Cut::feedPerTooth,
         0.0833,
         0.00005},
        {"Dormer Pramet p. 114, 5 %",
         {.toolDiameter = 100, .stepover = 5, .chipThickness = 1},
         &Cut::feedPerTooth,
         2.29,
         0.005},
        {"Dormer Pramet p. 114, 15 %",
         {.toolDiameter = 100, .stepover = 15, .chipThickness = 1},
         &Cut::feedPerTooth,
         1.40,
         0.005},
        {"Dormer Pramet p. 114, 25 %",
         {.toolDiameter = 100, .stepover = 25, .chipThickness = 1},
         &Cut::feedPerTooth,
         1.15,
         0.0051},
        {"Dormer Pramet p. 114, 40 %",
         {.toolDiameter = 100, .stepover = 40, .chipThickness = 1},
         &Cut::feedPerTooth,
         1.02,
         0.005},
    };
    for (const Example& example : examples)
        EXPECT_NEAR(solved(example.given).*example.result, example.printed, example.tolerance) << example.source;
}

TEST(Calculator, RoundsTheDerivedSpindleSpeedHalfUp)
{
    const struct
    {
        const char* what;
        Cut given;
        int printed;
    } examples[] = {
        {"WIDIA p. 78 prints 510 for this", {.metric = millimetres, .toolDiameter = 125, .surfaceSpeed = 200}, 509},
        {"metric", {.metric = millimetres, .toolDiameter = 12, .surfaceSpeed = 300}, 7958},
        {"Ingersoll 2011 p. 453", {.toolDiameter = 0.375, .surfaceSpeed = 450}, 4584},
        {"inch, slow", {.toolDiameter = 1.5, .surfaceSpeed = 50}, 127},
        {"inch, fast", {.toolDiameter = 1.5, .surfaceSpeed = 200}, 509},
        {"MyShopMetrics", {.toolDiameter = 0.5, .surfaceSpeed = 400}, 3056},
        {"half a revolution up", {.flutes = 2, .feedPerTooth = 1, .feedrate = 5}, 3},
        {"never below one", {.toolDiameter = 1e6, .surfaceSpeed = 0.001}, 1},
        {"too fast to count", {.toolDiameter = 1e-9, .surfaceSpeed = 1e9}, 0},
    };
    for (const auto& example : examples)
        EXPECT_EQ(solved(example.given).spindleSpeed, example.printed) << example.what;
}

TEST(Calculator, DerivesFeedsAndTheSurfaceSpeedFromTheRoundedSpindleSpeed)
{
    const Cut given{.toolDiameter = 0.5, .flutes = 3, .surfaceSpeed = 401, .feedPerTooth = 0.004};
    const Cut cut = solved(given);
    EXPECT_DOUBLE_EQ(cut.feedrate, cut.spindleSpeed * 3 * 0.004);
    EXPECT_EQ(cut.surfaceSpeed, 401) << "a given surface speed is kept";

    const Cut fromFeeds = solved({.toolDiameter = 0.5, .flutes = 3, .feedPerTooth = 0.004, .feedrate = 36.77});
    EXPECT_EQ(fromFeeds.spindleSpeed, 3064);
    EXPECT_DOUBLE_EQ(fromFeeds.surfaceSpeed, std::acos(-1.0) * 0.5 * 3064 / 12);
    EXPECT_EQ(fromFeeds.feedrate, 36.77);
}

TEST(Calculator, PrefersTheFeedrateOverTheChipForTheFeedPerTooth)
{
    const Cut cut = solved(
        {.toolDiameter = 10, .flutes = 2, .spindleSpeed = 1000, .feedrate = 200, .stepover = 1, .chipThickness = 0.5});
    EXPECT_DOUBLE_EQ(cut.feedPerTooth, 0.1);
    EXPECT_EQ(cut.chipThickness, 0.5) << "contradicting values are kept";
}

TEST(Calculator, FindsTheSpindleSpeedInTheFeedsOnlyWithoutASurfaceSpeed)
{
    // No diameter, so that the surface speed cannot give the spindle speed.
    EXPECT_EQ(solved({.flutes = 2, .surfaceSpeed = 100, .feedPerTooth = 0.1, .feedrate = 100}).spindleSpeed, 0);
    EXPECT_EQ(solved({.flutes = 2, .feedPerTooth = 0.1, .feedrate = 100}).spindleSpeed, 500);
}

// The tooth passes the place where it meets its full feed.
TEST(Calculator, ThinsNoChipFromHalfTheDiameterOn)
{
    for (const double percent : {50.0, 50.1, 60.0, 70.0, 100.0})
    {
        const double stepover = 10.0 * percent / 100.0;
        EXPECT_EQ(solved({.toolDiameter = 10, .feedPerTooth = 0.1, .stepover = stepover}).chipThickness, 0.1)
            << percent;
        EXPECT_EQ(solved({.toolDiameter = 10, .stepover = stepover, .chipThickness = 0.1}).feedPerTooth, 0.1)
            << percent;
    }
}

TEST(Calculator, RecoversTheStepoverFromTheChip)
{
    for (const double percent : {1e-6, 0.01, 0.5, 5.0, 25.0, 49.999})
    {
        const double stepover = 12.0 * percent / 100.0;
        const double chip = solved({.toolDiameter = 12, .feedPerTooth = 0.1, .stepover = stepover}).chipThickness;
        const double back = solved({.toolDiameter = 12, .feedPerTooth = 0.1, .chipThickness = chip}).stepover;
        // Close to half the diameter the chip hardly changes with the stepover.
        EXPECT_NEAR(back / stepover, 1.0, percent > 49 ? 1e-7 : 1e-12) << percent << " %";
    }
}

TEST(Calculator, KeepsToItsLimitsOnDegenerateInput)
{
    const struct
    {
        const char* what;
        Cut given;
        Real result;
        double expected;
    } cases[] = {
        {"chip as thick as the feed",
         {.toolDiameter = 10, .feedPerTooth = 0.1, .chipThickness = 0.1},
         &Cut::stepover,
         5},
        {"chip thicker than the feed",
         {.toolDiameter = 10, .feedPerTooth = 0.1, .chipThickness = 0.3},
         &Cut::stepover,
         5},
        {"full feed from half the diameter on",
         {.toolDiameter = 10, .feedPerTooth = 0.1, .stepover = 7},
         &Cut::chipThickness,
         0.1},
        {"stepover above the diameter, chip",
         {.toolDiameter = 10, .feedPerTooth = 0.1, .stepover = 25},
         &Cut::chipThickness,
         0.1},
        {"stepover above the diameter, kept", {.toolDiameter = 10, .stepover = 25}, &Cut::stepover, 25},
        {"stepover above the diameter, removal",
         {.toolDiameter = 10, .depthOfCut = 2, .feedrate = 3, .stepover = 25},
         &Cut::removalRate,
         60},
        {"no diameter: no speed, no feedrate",
         {.flutes = 2, .surfaceSpeed = 100, .feedPerTooth = 1},
         &Cut::feedrate,
         0},
        {"no diameter: no chip", {.feedPerTooth = 0.1, .stepover = 1}, &Cut::chipThickness, 0},
        {"no diameter: still a removal rate", {.depthOfCut = 2, .feedrate = 3, .stepover = 1}, &Cut::removalRate, 6},
        {"negative diameter", {.toolDiameter = -10, .spindleSpeed = 100}, &Cut::surfaceSpeed, 0},
        {"no flutes", {.spindleSpeed = 100, .feedPerTooth = 0.1}, &Cut::feedrate, 0},
        {"negative flutes", {.flutes = -2, .spindleSpeed = 100, .feedPerTooth = 0.1}, &Cut::feedrate, 0},
        {"negative depth", {.depthOfCut = -2, .feedrate = 3, .stepover = 1}, &Cut::removalRate, 0},
        {"no feedrate", {.depthOfCut = 2, .stepover = 1}, &Cut::removalRate, 0},
        {"negative stepover kept", {.toolDiameter = 10, .feedPerTooth = 1, .stepover = -1}, &Cut::stepover, -1},
        {"negative stepover derives nothing",
         {.toolDiameter = 10, .feedPerTooth = 1, .stepover = -1},
         &Cut::chipThickness,
         0},
        {"negative feedrate derives nothing",
         {.flutes = 2, .spindleSpeed = 100, .feedrate = -3},
         &Cut::feedPerTooth,
         0},
        {"negative feedrate, removal", {.depthOfCut = 2, .feedrate = -3, .stepover = 1}, &Cut::removalRate, 0},
        {"infinite feedrate is unknown",
         {.flutes = 2, .spindleSpeed = 100, .feedPerTooth = 1, .feedrate = inf},
         &Cut::feedrate,
         200},
        {"NaN that nothing derives", {.stepover = nan}, &Cut::stepover, 0},
        {"NaN depth", {.depthOfCut = nan, .feedrate = 3, .stepover = 1}, &Cut::removalRate, 0},
        {"overflow", {.flutes = 2, .spindleSpeed = 100, .feedPerTooth = huge}, &Cut::feedrate, 0},
        {"removal overflow", {.depthOfCut = huge, .feedrate = huge, .stepover = 1}, &Cut::removalRate, 0},
        {"stepover lost against the diameter",
         {.toolDiameter = huge, .stepover = 5e-324, .chipThickness = 1},
         &Cut::feedPerTooth,
         0},
        {"everything unknown", {.toolDiameter = 10, .depthOfCut = 1, .flutes = 2}, &Cut::removalRate, 0},
    };
    for (const auto& one : cases)
        EXPECT_DOUBLE_EQ(solved(one.given).*one.result, one.expected) << one.what;
}

TEST(Calculator, NeverGivesAnythingButFiniteNumbers)
{
    const double reals[] = {0, 1, -1, 5e-324, huge, nan};
    const int integers[] = {0, 1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    for (const double diameter : reals)
        for (const int flutes : integers)
            for (const int spindle : integers)
                for (const double surface : reals)
                    for (const double tooth : reals)
                        for (const double feed : reals)
                            for (const double stepover : reals)
                                for (const double chip : {0.0, 1.0, huge, nan})
                                {
                                    const Cut cut = solved(
                                        {inch, diameter, 1, flutes, surface, spindle, tooth, feed, stepover, chip});
                                    for (const Real real : {&Cut::surfaceSpeed, &Cut::feedPerTooth, &Cut::feedrate,
                                                            &Cut::stepover, &Cut::chipThickness, &Cut::removalRate})
                                        ASSERT_TRUE(std::isfinite(cut.*real))
                                            << diameter << ' ' << flutes << ' ' << surface << ' ' << spindle << ' '
                                            << tooth << ' ' << feed << ' ' << stepover << ' ' << chip;
                                }
}

TEST(Calculator, KeepsWhatIsGiven)
{
    const Cut given{millimetres, 10, 2, 3, 150, 4000, 0.1, 999, 3, 0.7};
    const Cut cut = solved(given);
    EXPECT_EQ(cut.surfaceSpeed, given.surfaceSpeed);
    EXPECT_EQ(cut.spindleSpeed, given.spindleSpeed);
    EXPECT_EQ(cut.feedPerTooth, given.feedPerTooth);
    EXPECT_EQ(cut.feedrate, given.feedrate);
    EXPECT_EQ(cut.stepover, given.stepover);
    EXPECT_EQ(cut.chipThickness, given.chipThickness);
    EXPECT_DOUBLE_EQ(cut.removalRate, 2 * 3 * 999 / 1000.0);
}

} // namespace
