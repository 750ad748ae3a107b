#ifndef MACHINING_CHIPCONTROLNOTES_H
#define MACHINING_CHIPCONTROLNOTES_H

#include <string>
#include <vector>

namespace TessaronResources
{

struct CutValues;

/// What the dialog tells about a cut below its removal rate: a text of the string table with "%s" for each value, and
/// the field that it marks (0: none).
struct ChipControlNote
{
    int textId = 0;
    std::vector<std::string> values;
    int field = 0;
};

/// What a machine can do; 0 where nobody said.
struct MachineLimits
{
    double spindleSpeed = 0;
    double feedrate = 0;
};

/// The notes about a cut, those first that matter most.
/// \param stepoverIsDerived the stepover was computed from the chip thickness
std::vector<ChipControlNote> chipControlNotes(const CutValues& cut, const MachineLimits& limits,
                                              bool stepoverIsDerived);

} // namespace TessaronResources

#endif
