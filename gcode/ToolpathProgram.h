#ifndef GCODE_TOOLPATHPROGRAM_H
#define GCODE_TOOLPATHPROGRAM_H

#include <tessaron/gcode/GcodeSettings.h>

#include <iosfwd>

namespace exchange
{
struct ToolpathRecords;
}

namespace exchange::gcode
{

/// Writes a toolpath as a program, with settings that have been checked.
/// \throws GcodeError naming the record that cannot be written
void writeProgram(std::ostream& stream, const ToolpathRecords& toolpath, const GcodeSettings& settings);

} // namespace exchange::gcode

#endif
