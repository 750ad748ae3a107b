#include "machining/ChipControlRules.h"

#include "controls/NumericExpression.h"
#include "resources/TextIds.h"
#include <tessaron/util/Assertion.h>
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace TessaronResources
{

namespace
{

using namespace chipControl;

constexpr int xyFeedKind = 300;

// Operations whose stepover is the width of the cut.
constexpr int cutWidthKinds[] = {200, 201, 1, 2};

constexpr int xyFeedTexts[derivedQuantityCount] = {texts::xySpeed, texts::xyFeedrate, texts::xyStepover,
                                                   texts::chipThickness};
constexpr int millingTexts[derivedQuantityCount] = {texts::speed, texts::feed, texts::stepover, texts::chipThickness};

struct FieldTexts
{
    int field;
    int inch;
    int metric;
};

constexpr FieldTexts tooltips[] = {
    {surfaceSpeed, texts::surfaceSpeedInFeet, texts::surfaceSpeedInMeters},
    {spindleSpeed, texts::spindleSpeed, texts::spindleSpeed},
    {feedPerTooth, texts::feedPerToothInInches, texts::feedPerToothInMillimeters},
    {feedrate, texts::feedrateInInches, texts::feedrateInMillimeters},
    {stepover, texts::stepoverInInches, texts::stepoverInMillimeters},
    {stepoverPercent, texts::stepoverInPercent, texts::stepoverInPercent},
    {chipThickness, texts::chipThicknessInInches, texts::chipThicknessInMillimeters},
    {removalRate, texts::removalRateInCubicInches, texts::removalRateInCubicCentimeters},
    {derivedQuantity, texts::derivedQuantity, texts::derivedQuantity},
    {help, texts::help, texts::help},
};

struct FieldQuantity
{
    int field;
    DerivedQuantity quantity;
};

constexpr FieldQuantity quantities[] = {
    {surfaceSpeed, DerivedQuantity::speed},          {spindleSpeed, DerivedQuantity::speed},
    {feedPerTooth, DerivedQuantity::feed},           {feedrate, DerivedQuantity::feed},
    {stepoverPercent, DerivedQuantity::stepover},    {stepover, DerivedQuantity::stepover},
    {chipThickness, DerivedQuantity::chipThickness},
};

} // namespace

ChipControlRules::ChipControlRules(int operationKind, util::Parameterized* target, bool metric)
    : m_target(target), m_workingSet(*target), m_operationKind(operationKind), m_metric(metric)
{
    recalculate();
}

int ChipControlRules::templateId() const
{
    if (kindCode() == xyFeedKind)
        return 1028;
    return m_metric ? 1027 : 1026;
}

bool ChipControlRules::isCutWidth() const
{
    return std::ranges::find(cutWidthKinds, kindCode()) != std::end(cutWidthKinds);
}

int ChipControlRules::quantityTextId(int index) const
{
    if (index == static_cast<int>(DerivedQuantity::stepover) && isCutWidth())
        return texts::cutWidth;
    return (kindCode() == xyFeedKind ? xyFeedTexts : millingTexts)[index];
}

int ChipControlRules::stepoverLabelTextId() const
{
    return isCutWidth() ? texts::cutWidth : 0;
}

int ChipControlRules::tooltipTextId(int field) const
{
    const auto* const found = std::ranges::find(tooltips, field, &FieldTexts::field);
    if (found == std::end(tooltips))
        return 0;
    return m_metric ? found->metric : found->inch;
}

int ChipControlRules::removalRateUnitTextId() const
{
    return m_metric ? texts::cubicCentimetersPerMinute : texts::cubicInchesPerMinute;
}

const char* ChipControlRules::helpFileName() const
{
    return m_metric ? "Chip Thickness Control in Tessaron Metric.chm" : "Chip Thickness Control in Tessaron Inch.chm";
}

bool ChipControlRules::isEnabled(int field, DerivedQuantity derived)
{
    const auto* const found = std::ranges::find(quantities, field, &FieldQuantity::field);
    return found == std::end(quantities) || found->quantity != derived;
}

double& ChipControlRules::real(int field)
{
    switch (field)
    {
    case chipControl::surfaceSpeed:
        return m_surfaceSpeed;
    case chipControl::feedPerTooth:
        return m_feedPerTooth;
    case chipControl::feedrate:
        return m_workingSet.doubleAt(util::keys::feedrate);
    case chipControl::stepover:
        return m_workingSet.doubleAt(util::keys::stepover);
    case chipControl::stepoverPercent:
        return m_stepoverPercent;
    case chipControl::chipThickness:
        return m_chipThickness;
    default:
        util::assertionFailed("field is one of chipControl::realFields", "Machining\\ChipControl", __LINE__);
    }
}

int& ChipControlRules::spindleSpeed()
{
    return m_workingSet.intAt(util::keys::spindleSpeed);
}

double ChipControlRules::toolDiameter()
{
    return m_workingSet.doubleAt(util::keys::toolDiameter);
}

std::string ChipControlRules::removalRateText() const
{
    const std::string text = mfcutil::formatDecimals(m_removalRate, 2);
    return text == "0.00" && m_removalRate > 0 ? mfcutil::formatGeneral(m_removalRate, 2) : text;
}

CutValues ChipControlRules::cut()
{
    return {toolDiameter(),
            m_workingSet.doubleAt(util::keys::depthOfCut),
            m_workingSet.intAt(util::keys::toolNumFlutes),
            m_metric,
            m_surfaceSpeed,
            spindleSpeed(),
            m_feedPerTooth,
            real(feedrate),
            real(stepover),
            m_chipThickness,
            m_removalRate};
}

bool ChipControlRules::agree()
{
    return TessaronResources::agree(cut());
}

std::vector<ChipControlNote> ChipControlRules::notes()
{
    const MachineLimits limits{m_workingSet.numberOr(util::keys::maximumSpindleSpeed, 0),
                               m_workingSet.numberOr(util::keys::maximumFeedrate, 0)};
    return chipControlNotes(cut(), limits, m_lastDerived == DerivedQuantity::stepover);
}

void ChipControlRules::percentToStepover()
{
    m_workingSet.set(util::keys::stepover, m_stepoverPercent * toolDiameter() / 100.0);
}

// A diameter of zero gives an infinity or NaN here, and the field says so.
double ChipControlRules::stepoverInPercent()
{
    return real(stepover) * 100.0 / toolDiameter();
}

void ChipControlRules::fieldLeft(int field, DerivedQuantity derived)
{
    const bool speedDerived = derived == DerivedQuantity::speed;
    switch (field)
    {
    case chipControl::surfaceSpeed:
        m_workingSet.set(util::keys::spindleSpeed, 0);
        m_feedPerTooth = 0.0;
        break;
    case chipControl::spindleSpeed:
        m_surfaceSpeed = 0.0;
        m_feedPerTooth = 0.0;
        break;
    case chipControl::feedPerTooth:
        if (!speedDerived)
            m_workingSet.set(util::keys::feedrate, 0.0);
        break;
    case chipControl::feedrate:
        if (!speedDerived)
            m_feedPerTooth = 0.0;
        break;
    case chipControl::stepoverPercent:
        percentToStepover();
        break;
    case chipControl::stepover:
        m_stepoverPercent = stepoverInPercent();
        break;
    default:
        break;
    }
    clear(derived);
    m_lastDerived = derived;
    recalculate();
}

void ChipControlRules::clear(DerivedQuantity derived)
{
    switch (derived)
    {
    case DerivedQuantity::speed:
        m_workingSet.set(util::keys::spindleSpeed, 0);
        m_surfaceSpeed = 0.0;
        break;
    case DerivedQuantity::feed:
        m_workingSet.set(util::keys::feedrate, 0.0);
        m_feedPerTooth = 0.0;
        break;
    case DerivedQuantity::stepover:
        m_workingSet.set(util::keys::stepover, 0.0);
        break;
    case DerivedQuantity::chipThickness:
        m_chipThickness = 0.0;
        break;
    case DerivedQuantity::none:
        break;
    }
}

void ChipControlRules::recalculate()
{
    m_removalRate = 0.0;
    CutValues solved = cut();
    solve(solved);
    m_surfaceSpeed = solved.surfaceSpeed;
    m_workingSet.set(util::keys::spindleSpeed, solved.spindleSpeed);
    m_feedPerTooth = solved.feedPerTooth;
    m_workingSet.set(util::keys::feedrate, solved.feedrate);
    m_workingSet.set(util::keys::stepover, solved.stepover);
    m_chipThickness = solved.chipThickness;
    m_removalRate = solved.removalRate;
    m_stepoverPercent = stepoverInPercent();
}

void ChipControlRules::apply()
{
    // A stepover that says what the percentage says keeps its last digits, too.
    if (!std::isfinite(m_stepoverPercent) || m_stepoverPercent != stepoverInPercent())
        percentToStepover();
    m_target->clear();
    for (const auto& [key, value] : m_workingSet.params())
        m_target->set(key, value);
}

} // namespace TessaronResources
