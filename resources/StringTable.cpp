#include "resources/StringTable.h"

#include <algorithm>
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

// In ascending order of the ids.
constexpr Entry table[] = {
    {1005, "Creating offset surfaces %d%% done"},
    {1006, "Toolpath generation %d%% done"},
    {1008, "Computing remaining stock %d%% done"},
    {1031, "Speed"},
    {1032, "Feed"},
    {1033, "Stepover"},
    {1034, "Chip Thickness"},
    {1035, "Cut Width"},
    {1036, "Step Over"},
    {1037, "Cut Speed"},
    {1038, "XY Feedrate"},
    {1039, "Computing cutter locations: %d checks left"},
    {1040, "Computing tool axis vectors %d%% done"},
    {1042, "Importing file: %d%%"},
    {1043, "Thread #%d"},
    {1100, "Surface speed in feet per minute"},
    {1101, "Surface speed in meters per minute"},
    {1102, "Spindle speed in revolutions per minute"},
    {1103, "Feed per tooth in inches"},
    {1104, "Feed per tooth in millimeters"},
    {1105, "Feedrate in inches per minute"},
    {1106, "Feedrate in millimeters per minute"},
    {1107, "Stepover in inches"},
    {1108, "Stepover in millimeters"},
    {1109, "Stepover in percent of the tool diameter"},
    {1110, "Thickest chip that a tooth cuts, in inches"},
    {1111, "Thickest chip that a tooth cuts, in millimeters"},
    {1112, "Material removal rate in cubic inches per minute"},
    {1113, "Material removal rate in cubic centimeters per minute"},
    {1114, "The quantity that is computed from the others"},
    {1115, "Help"},
    {1116, "Clearance in the length unit of the part"},
    {1117, "0: rapid move links, 10: high-feed links"},
};

} // namespace

const char* stringText(int id)
{
    const auto* const found = std::lower_bound(std::begin(table), std::end(table), id,
                                               [](const Entry& e, int wanted) { return e.id < wanted; });
    return found != std::end(table) && found->id == id ? found->text : "";
}

} // namespace TessaronResources::resources
