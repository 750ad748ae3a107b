#ifndef GCODE_CUSTOMTEXT_H
#define GCODE_CUSTOMTEXT_H

#include <tessaron/gcode/GcodeSettings.h>

#include <string>
#include <variant>

namespace exchange::gcode
{

struct Dwell
{
    double seconds = 0; ///< finite, not negative
};
struct ToolChange
{
    int tool = 0; ///< 1 to 99999
};
struct CoolantChange
{
    GcodeSettings::Coolant coolant = GcodeSettings::Coolant::off;
};
/// A text with a word in front that is understood, and something else behind it.
struct Misspelt
{
    const char* expected;
};
/// Any other text.
struct OtherText
{
};

/// What a custom record asks for.
std::variant<Dwell, ToolChange, CoolantChange, Misspelt, OtherText> customText(const std::string& text);

} // namespace exchange::gcode

#endif
