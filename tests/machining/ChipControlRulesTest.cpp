#include "machining/ChipControlRules.h"
#include "resources/TextIds.h"

#include <tessaron/util/Assertion.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace TessaronResources;
namespace keys = util::keys;
using chipControl::realFields;

constexpr bool inch = false;
constexpr bool metric = true;

constexpr int kind(int code)
{
    return code * 65536;
}

// A 10 mm tool with two flutes.
util::Parameterized operation()
{
    util::Parameterized set;
    set.set(keys::toolDiameter, 10.0);
    set.set(keys::depthOfCut, 4.0);
    set.set(keys::toolNumFlutes, 2);
    set.set(keys::spindleSpeed, 5000);
    set.set(keys::feedrate, 1000.0);
    set.set(keys::stepover, 2.0);
    set.set("Template Name", std::string("kept"));
    return set;
}

double speedAt(int revolutions)
{
    return std::numbers::pi * 10 * revolutions / 1000;
}

TEST(ChipControlRules, ChoosesTemplateAndTexts)
{
    const struct
    {
        int operationKind;
        bool metric;
        int templateId;
        int stepoverText;
        int stepoverLabel;
        int speedText;
    } cases[] = {
        {0, inch, 1026, 1033, 0, 1031},
        {0, metric, 1027, 1033, 0, 1031},
        {5, inch, 1026, 1033, 0, 1031},
        {kind(1), metric, 1027, 1035, 1035, 1031},
        {kind(2), inch, 1026, 1035, 1035, 1031},
        {kind(200) + 65535, inch, 1026, 1035, 1035, 1031},
        {kind(201), metric, 1027, 1035, 1035, 1031},
        {kind(3), metric, 1027, 1033, 0, 1031},
        {kind(300), inch, 1028, 1036, 0, 1037},
        {kind(300), metric, 1028, 1036, 0, 1037},
        {kind(-300), metric, 1027, 1033, 0, 1031},
        {-1, inch, 1026, 1033, 0, 1031},
    };
    util::Parameterized set = operation();
    for (const auto& one : cases)
    {
        const ChipControlRules rules(one.operationKind, &set, one.metric);
        EXPECT_EQ(rules.templateId(), one.templateId) << one.operationKind;
        EXPECT_EQ(rules.quantityTextId(0), one.speedText) << one.operationKind;
        EXPECT_EQ(rules.quantityTextId(1), one.templateId == 1028 ? 1038 : 1032) << one.operationKind;
        EXPECT_EQ(rules.quantityTextId(2), one.stepoverText) << one.operationKind;
        EXPECT_EQ(rules.quantityTextId(3), 1034) << one.operationKind;
        EXPECT_EQ(rules.stepoverLabelTextId(), one.stepoverLabel) << one.operationKind;
    }
    EXPECT_STREQ(ChipControlRules(0, &set, metric).helpFileName(), "Chip Thickness Control in Tessaron Metric.chm");
    EXPECT_STREQ(ChipControlRules(0, &set, inch).helpFileName(), "Chip Thickness Control in Tessaron Inch.chm");
}

TEST(ChipControlRules, DisablesTheFieldsOfTheDerivedQuantityOnly)
{
    const int fields[] = {4000, 4001, 4002, 4003, 4004, 1040, 4005, 4057};
    const std::vector<int> disabled[] = {{4000, 4001}, {4002, 4003}, {4004, 1040}, {4005}};
    for (int index = 0; index < derivedQuantityCount; ++index)
        for (const int field : fields)
            EXPECT_EQ(ChipControlRules::isEnabled(field, static_cast<DerivedQuantity>(index)),
                      std::ranges::find(disabled[index], field) == disabled[index].end())
                << field << " while " << index << " is derived";
}

TEST(ChipControlRules, StartsFromTheHostsParameters)
{
    util::Parameterized set = operation();
    const util::Parameterized before = set;
    ChipControlRules rules(0, &set, metric);
    EXPECT_DOUBLE_EQ(rules.real(4000), speedAt(5000));
    EXPECT_EQ(rules.spindleSpeed(), 5000);
    EXPECT_DOUBLE_EQ(rules.real(4002), 0.1);
    EXPECT_DOUBLE_EQ(rules.real(4003), 1000);
    EXPECT_DOUBLE_EQ(rules.real(4004), 2);
    EXPECT_DOUBLE_EQ(rules.real(1040), 20);
    EXPECT_DOUBLE_EQ(rules.real(4005), 0.08); // 2 sqrt(0.2 * 0.8) of the feed per tooth
    EXPECT_EQ(rules.removalRateText(), "8.00");
    EXPECT_EQ(set, before);
}

struct Fields
{
    double surfaceSpeed;
    int spindleSpeed;
    double feedPerTooth;
    double feedrate;
    double stepover;
    double percent;
    double chipThickness;
};

TEST(ChipControlRules, DerivesTheChosenQuantityAfterEachField)
{
    using enum DerivedQuantity;
    const double chip = 0.08;
    const struct
    {
        const char* what;
        int field;
        double typed;
        DerivedQuantity derived;
        Fields expected;
    } cases[] = {
        {"a new speed keeps the feedrate",
         4000,
         speedAt(8000),
         chipThickness,
         {speedAt(8000), 8000, 0.0625, 1000, 2, 20, 0.05}},
        {"a new spindle speed gives the surface speed",
         4001,
         2500,
         chipThickness,
         {speedAt(2500), 2500, 0.2, 1000, 2, 20, 0.16}},
        {"a new feed per tooth gives the feedrate",
         4002,
         0.05,
         chipThickness,
         {speedAt(5000), 5000, 0.05, 500, 2, 20, 0.04}},
        {"a new feedrate gives the feed per tooth",
         4003,
         3000,
         chipThickness,
         {speedAt(5000), 5000, 0.3, 3000, 2, 20, 0.24}},
        {"a percentage gives the stepover", 1040, 50, chipThickness, {speedAt(5000), 5000, 0.1, 1000, 5, 50, 0.1}},
        {"a stepover gives the percentage", 4004, 8, chipThickness, {speedAt(5000), 5000, 0.1, 1000, 8, 80, 0.1}},
        {"a chip that is derived again", 4005, 7, chipThickness, {speedAt(5000), 5000, 0.1, 1000, 2, 20, chip}},
        {"speed from a new feedrate", 4003, 2000, speed, {speedAt(10000), 10000, 0.1, 2000, 2, 20, chip}},
        {"speed from a new feed per tooth", 4002, 0.2, speed, {speedAt(2500), 2500, 0.2, 1000, 2, 20, chip}},
        {"feed from a thinner chip", 4005, 0.04, feed, {speedAt(5000), 5000, 0.05, 500, 2, 20, 0.04}},
        {"feed from a wider cut", 1040, 50, feed, {speedAt(5000), 5000, 0.08, 800, 5, 50, 0.08}},
        {"feed at a new spindle speed", 4001, 10000, feed, {speedAt(10000), 10000, 0.1, 2000, 2, 20, chip}},
        {"stepover from the chip", 4005, 0.06, stepover, {speedAt(5000), 5000, 0.1, 1000, 1, 10, 0.06}},
        {"no wider than half for a thick chip", 4005, 0.5, stepover, {speedAt(5000), 5000, 0.1, 1000, 5, 50, 0.5}},
        {"a cut of more than half the diameter", 4004, 6, chipThickness, {speedAt(5000), 5000, 0.1, 1000, 6, 60, 0.1}},
        {"nothing chosen", 4003, 2000, none, {speedAt(5000), 5000, 0.2, 2000, 2, 20, chip}},
    };
    for (const auto& one : cases)
    {
        util::Parameterized set = operation();
        ChipControlRules rules(0, &set, metric);
        if (one.field == 4001)
            rules.spindleSpeed() = static_cast<int>(one.typed);
        else
            rules.real(one.field) = one.typed;
        rules.fieldLeft(one.field, one.derived);

        EXPECT_NEAR(rules.real(4000), one.expected.surfaceSpeed, 1e-9) << one.what;
        EXPECT_EQ(rules.spindleSpeed(), one.expected.spindleSpeed) << one.what;
        EXPECT_NEAR(rules.real(4002), one.expected.feedPerTooth, 1e-9) << one.what;
        EXPECT_NEAR(rules.real(4003), one.expected.feedrate, 1e-9) << one.what;
        EXPECT_NEAR(rules.real(4004), one.expected.stepover, 1e-9) << one.what;
        EXPECT_NEAR(rules.real(1040), one.expected.percent, 1e-9) << one.what;
        EXPECT_NEAR(rules.real(4005), one.expected.chipThickness, 1e-9) << one.what;
        const double removed = 4 * one.expected.stepover * one.expected.feedrate / 1000;
        EXPECT_NEAR(std::stod(rules.removalRateText()), removed, 0.005001) << one.what;
    }
}

TEST(ChipControlRules, TellsThatHalfTheDiameterWasTakenOnlyWhileTheStepoverIsDerived)
{
    for (const DerivedQuantity derived : {DerivedQuantity::stepover, DerivedQuantity::chipThickness})
    {
        util::Parameterized set = operation();
        set.set(keys::stepover, 5.0);
        ChipControlRules rules(0, &set, metric);
        rules.real(4005) = rules.real(4002);
        rules.fieldLeft(4005, derived);
        EXPECT_EQ(rules.real(4004), 5);
        EXPECT_EQ(rules.notes().size(), derived == DerivedQuantity::stepover ? 1U : 0U);
    }
}

// A chip that does not match the feed per tooth must not decide about it.
TEST(ChipControlRules, KeepsBothFeedsWhileSpeedIsDerived)
{
    for (const int field : {4002, 4003})
    {
        util::Parameterized set = operation();
        ChipControlRules rules(0, &set, metric);
        rules.real(4003) = 2000;
        rules.real(4005) = 0.05;
        rules.fieldLeft(field, DerivedQuantity::speed);
        EXPECT_EQ(rules.spindleSpeed(), 10000) << field;
        EXPECT_EQ(rules.real(4002), 0.1) << field;
        EXPECT_EQ(rules.real(4003), 2000) << field;
        EXPECT_EQ(rules.real(4005), 0.05) << field;
    }
}

TEST(ChipControlRules, HandsTheWorkingSetBackOnApplyOnly)
{
    util::Parameterized set = operation();
    set.set("Color", 7);
    const util::Parameterized before = set;
    ChipControlRules rules(0, &set, metric);
    rules.real(4003) = 2500;
    rules.fieldLeft(4003, DerivedQuantity::chipThickness);
    rules.real(4004) = 9; // not left yet: the percentage decides
    EXPECT_EQ(set, before);

    set.set("Added meanwhile", 1); // the set is replaced, not added to
    rules.apply();
    EXPECT_EQ(set.intOr(keys::spindleSpeed, 0), 5000);
    EXPECT_EQ(set.numberOr(keys::feedrate, 0), 2500);
    EXPECT_DOUBLE_EQ(set.numberOr(keys::stepover, 0), 2);
    EXPECT_EQ(set.stringOr("Template Name", ""), "kept");
    EXPECT_EQ(set.size(), before.size());
}

TEST(ChipControlRules, ShowsTheRemovalRateWithTwoDecimalsUnlessItWouldReadZero)
{
    const struct
    {
        double depth;
        const char* text;
    } cases[] = {{0, "0.00"},      {-1, "0.00"},       {6.1728, "12.35"}, {5000, "10000.00"},
                 {0.002, "0.004"}, {0.0017, "0.0034"}, {0.0025, "0.01"}};
    for (const auto& one : cases)
    {
        util::Parameterized set = operation();
        set.set(keys::depthOfCut, one.depth);
        EXPECT_EQ(ChipControlRules(0, &set, metric).removalRateText(), one.text);
    }
}

TEST(ChipControlRules, TakesWhateverTheHostGives)
{
    util::Parameterized set = operation();
    set.set(keys::toolDiameter, 0.0);
    ChipControlRules rules(0, &set, metric);
    EXPECT_FALSE(std::isfinite(rules.real(1040)));
    rules.apply();
    EXPECT_NE(set.numberOr(keys::stepover, 2.0), 2.0);

    for (const util::Key& key : {keys::toolDiameter, keys::depthOfCut, keys::toolNumFlutes, keys::spindleSpeed,
                                 keys::feedrate, keys::stepover})
    {
        util::Parameterized incomplete = operation();
        incomplete.erase(key);
        EXPECT_THROW(ChipControlRules(0, &incomplete, metric), util::AssertionError) << key.c_str();
    }
}

TEST(ChipControlRules, NamesUnitsInTheTooltipOfEveryField)
{
    util::Parameterized set = operation();
    const ChipControlRules inches(0, &set, inch);
    const ChipControlRules millimetres(0, &set, metric);
    for (const int field : realFields)
        EXPECT_TRUE(inches.tooltipTextId(field) != 0 && millimetres.tooltipTextId(field) != 0) << field;
    EXPECT_NE(inches.tooltipTextId(4003), millimetres.tooltipTextId(4003));
    EXPECT_EQ(inches.tooltipTextId(2), 0);
}

TEST(ChipControlRules, KeepsTheLastDigitsOfTheStepover)
{
    for (const double stepover : {0.1, 1.0 / 3, 2.7182818284590452, 9.9})
    {
        util::Parameterized set = operation();
        set.set(keys::toolDiameter, 9.7);
        set.set(keys::stepover, stepover);
        const util::Parameterized before = set;
        ChipControlRules(0, &set, metric).apply();
        EXPECT_EQ(set, before) << stepover;
    }
}

TEST(ChipControlRules, TellsWhetherThereIsSomethingToCalculate)
{
    const struct
    {
        int field;
        double value;
        bool agree;
    } cases[] = {
        {4000, speedAt(5000) * 1.00005, true}, // the spindle speed is a whole number
        {4000, speedAt(5003), false},
        {4002, 0.1001, false},
        {4003, 1000.05, true},
        {4003, 1001, false},
        {4004, 2.01, false},
        {4005, 0.0801, false},
    };
    for (const auto& one : cases)
    {
        util::Parameterized set = operation();
        ChipControlRules rules(0, &set, metric);
        EXPECT_TRUE(rules.agree());
        rules.real(one.field) = one.value;
        EXPECT_EQ(rules.agree(), one.agree) << one.field << " " << one.value;
    }
}

// A 10 mm or 10 inch tool with two flutes, at 5000 revolutions.
CutValues cut(double feedPerTooth, double stepover, double chip, bool inMillimetres = true)
{
    return {.toolDiameter = 10,
            .depthOfCut = 4,
            .numFlutes = 2,
            .metric = inMillimetres,
            .spindleSpeed = 5000,
            .feedPerTooth = feedPerTooth,
            .feedrate = 10000 * feedPerTooth,
            .stepover = stepover,
            .chipThickness = chip};
}

TEST(ChipControlNotes, TellWhatAProgrammerShouldKnow)
{
    using namespace texts;
    using Texts = std::vector<std::pair<int, std::string>>;
    const struct
    {
        const char* what;
        CutValues cut;
        MachineLimits limits;
        bool stepoverIsDerived;
        Texts notes;
    } cases[] = {
        {"a full cut", cut(0.1, 6, 0.1), {}, false, {}},
        {"a narrow cut", cut(0.1, 2, 0.08), {}, false, {{thinningFactor, "1.25"}}},
        {"hardly thinned", cut(0.1, 4.7, 0.0998198377), {}, false, {}},
        {"another chip",
         cut(0.1, 2, 0.07),
         {},
         false,
         {{chipThicknessContradicts, "0.08 mm"}, {thinningFactor, "1.25"}}},
        {"another chip, inches",
         cut(0.1, 2, 0.07, inch),
         {},
         false,
         {{chipThicknessContradicts, "0.08 in"}, {thinningFactor, "1.25"}}},
        {"a chip that no stepover gives", cut(0.1, 5, 0.2), {}, true, {{chipThicknessContradicts, "0.1 mm"}}},
        {"half the diameter taken", cut(0.1, 5, 0.1), {}, true, {{halfTheDiameterTaken, ""}}},
        {"half the diameter given", cut(0.1, 5, 0.1), {}, false, {}},
        {"rubbing", cut(0.006, 2, 0.0048), {}, false, {{chipMayRub, "0.005 mm"}, {thinningFactor, "1.25"}}},
        {"rubbing, inches", cut(0.00019, 6, 0.00019, inch), {}, false, {{chipMayRub, "0.0002 in"}}},
        {"thin, inches", cut(0.00021, 6, 0.00021, inch), {}, false, {}},
        {"too fast",
         cut(0.1, 6, 0.1),
         {4999, 999.5},
         false,
         {{aboveMaximumSpindleSpeed, "4999"}, {aboveMaximumFeedrate, "999.5"}}},
        {"just fast enough", cut(0.1, 6, 0.1), {5000, 1000}, false, {}},
        {"nothing known", {}, {1, 1}, true, {}},
    };
    for (const auto& one : cases)
    {
        Texts told;
        for (const ChipControlNote& note : chipControlNotes(one.cut, one.limits, one.stepoverIsDerived))
        {
            told.emplace_back(note.textId, note.values.empty() ? "" : note.values.front());
            EXPECT_EQ(note.field, note.textId == chipThicknessContradicts ? 4005 : 0) << one.what;
        }
        EXPECT_EQ(told, one.notes) << one.what;
    }
}

TEST(ChipControlRules, TakesTheMachinesLimitsFromTheSet)
{
    util::Parameterized set = operation();
    set.set(keys::maximumSpindleSpeed, 4000);
    set.set(keys::maximumFeedrate, 900.0);
    const std::vector<ChipControlNote> notes = ChipControlRules(0, &set, metric).notes();
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_EQ(notes[0].values, std::vector<std::string>{"4000"});
    EXPECT_EQ(notes[1].values, std::vector<std::string>{"900"});
}

} // namespace
