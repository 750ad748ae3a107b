#include "resources/StringTable.h"

#include "resources/TextIds.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace TessaronResources::resources
{

namespace
{

struct Entry
{
    int id;
    const char* text;
};

// In ascending order of the ids: it is searched by halving.
constexpr Entry table[] = {
    {texts::creatingOffsetSurfaces, "Creating offset surfaces %d%% done"},
    {texts::creatingToolpath, "Toolpath generation %d%% done"},
    {texts::computingRemainingStock, "Computing remaining stock %d%% done"},
    {texts::speed, "Speed"},
    {texts::feed, "Feed"},
    {texts::stepover, "Stepover"},
    {texts::chipThickness, "Chip Thickness"},
    {texts::cutWidth, "Cut Width"},
    {texts::xyStepover, "Step Over"},
    {texts::xySpeed, "Cut Speed"},
    {texts::xyFeedrate, "XY Feedrate"},
    {texts::computingCutterLocations, "Computing cutter locations: %d checks left"},
    {texts::computingToolAxisVectors, "Computing tool axis vectors %d%% done"},
    {texts::importingFile, "Importing file: %d%%"},
    {texts::worker, "Thread #%d"},
    {texts::surfaceSpeedInFeet, "Surface speed in feet per minute"},
    {texts::surfaceSpeedInMeters, "Surface speed in meters per minute"},
    {texts::spindleSpeed, "Spindle speed in revolutions per minute"},
    {texts::feedPerToothInInches, "Feed per tooth in inches"},
    {texts::feedPerToothInMillimeters, "Feed per tooth in millimeters"},
    {texts::feedrateInInches, "Feedrate in inches per minute"},
    {texts::feedrateInMillimeters, "Feedrate in millimeters per minute"},
    {texts::stepoverInInches, "Stepover in inches"},
    {texts::stepoverInMillimeters, "Stepover in millimeters"},
    {texts::stepoverInPercent, "Stepover in percent of the tool diameter"},
    {texts::chipThicknessInInches, "Thickest chip that a tooth cuts, in inches"},
    {texts::chipThicknessInMillimeters, "Thickest chip that a tooth cuts, in millimeters"},
    {texts::removalRateInCubicInches, "Material removal rate in cubic inches per minute"},
    {texts::removalRateInCubicCentimeters, "Material removal rate in cubic centimeters per minute"},
    {texts::derivedQuantity, "The quantity that is computed from the others"},
    {texts::help, "Help"},
    {texts::clearance, "Clearance in the length unit of the part"},
    {texts::linkPreference, "0: rapid move links, 10: high-feed links"},
    {texts::cubicInchesPerMinute, "in³/min"},
    {texts::cubicCentimetersPerMinute, "cm³/min"},
    {texts::readInPart, "%s was read of \"%s\"."},
    {texts::chipThicknessContradicts, "At this feed per tooth and stepover the chip is %s thick."},
    {texts::halfTheDiameterTaken, "From half the diameter up, any stepover gives this chip: half was taken."},
    {texts::aboveMaximumSpindleSpeed, "Spindle speed above the maximum of %s."},
    {texts::aboveMaximumFeedrate, "Feedrate above the maximum of %s."},
    {texts::chipMayRub, "May rub: thinner than a usual edge radius, %s (Denkena/Biermann 2014)."},
    {texts::thinningFactor, "Thinning factor %s."},
};

static_assert(std::ranges::adjacent_find(table, std::greater_equal{}, &Entry::id) == std::end(table));

} // namespace

const char* stringText(int id)
{
    const auto* const found = std::ranges::lower_bound(table, id, {}, &Entry::id);
    return found != std::end(table) && found->id == id ? found->text : "";
}

} // namespace TessaronResources::resources
