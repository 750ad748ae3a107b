#ifndef GCODE_SETTINGSCHECK_H
#define GCODE_SETTINGSCHECK_H

#include <tessaron/gcode/GcodeSettings.h>

namespace exchange::gcode
{

/// \throws GcodeError when a setting is out of its range
void checkSettings(const GcodeSettings& settings);

} // namespace exchange::gcode

#endif
