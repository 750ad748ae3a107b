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
};

} // namespace

const char* stringText(int id)
{
    const auto* const found = std::lower_bound(std::begin(table), std::end(table), id,
                                               [](const Entry& e, int wanted) { return e.id < wanted; });
    return found != std::end(table) && found->id == id ? found->text : "";
}

} // namespace TessaronResources::resources
