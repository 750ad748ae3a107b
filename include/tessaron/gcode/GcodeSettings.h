#ifndef TESSARON_GCODE_GCODESETTINGS_H
#define TESSARON_GCODE_GCODESETTINGS_H

// Stability: experimental.

#include <tessaron/util/Export.h>

#include <string>
#include <string_view>
#include <vector>

namespace exchange
{

/// The dialect of a control, and what a program needs that toolpath records do not have. Each member is a setting of
/// the same name in words, which gcodeSettings() lists and setGcodeSetting() takes.
struct GcodeSettings
{
    enum class Units
    {
        millimetres,
        inches
    };
    enum class ArcCentres
    {
        relative, ///< I and J count from the start of the arc
        absolute  ///< I and J are coordinates
    };
    enum class DwellUnit
    {
        seconds,
        milliseconds
    };
    enum class Spindle
    {
        clockwise,
        counterClockwise
    };
    enum class Coolant
    {
        off,
        mist,
        flood
    };
    /// What becomes of a CustomRecord whose text is none of those that are understood.
    enum class FreeText
    {
        refuse,
        comment,
        block ///< it is written as it stands, as a block of the program
    };

    /// The unit of the records' lengths and feed rates, and of the program. Nothing is converted.
    Units units = Units::millimetres;
    /// Places after the decimal point: 3 to 8, in inches at least 4; 0 for 4 in millimetres and 5 in inches.
    int decimals = 0;
    /// From one block's number to the next; 0 for no numbers.
    int lineNumbers = 0;
    ArcCentres arcCentres = ArcCentres::relative;
    /// By how many places I and J have more: 0 to 2. With none, an arc strays up to twice as far as its ends are
    /// rounded.
    int centreDecimals = 1;
    /// The greatest turn of an arc in one block, in degrees: 10 to 180. Longer arcs and full turns are split.
    int arcAngle = 180;
    /// Whether a rapid move that changes the height and the place takes two blocks, the one at the greater height.
    bool splitRapids = true;
    bool comments = true;
    /// Whether a line "%" stands before and behind the program.
    bool percent = true;
    /// The number after the letter O in the first block; 0 for no such block.
    int programNumber = 0;
    /// A title, written as a comment.
    std::string title;
    /// The tool of the toolpath: it is changed to, and its length offset is switched on. 0 for the tool that is in the
    /// spindle, with the length offset that is active.
    int tool = 0;
    Spindle spindle = Spindle::clockwise;
    /// Switched on with the spindle, and off at the end.
    Coolant coolant = Coolant::off;
    DwellUnit dwell = DwellUnit::seconds;
    FreeText freeText = FreeText::refuse;
    /// The first block, behind the code of the unit.
    std::string start = "G17 G40 G80 G90 G94";
    /// The block that takes the tool to a safe height, from anywhere; empty for none.
    std::string retract = "G53 G0 Z0";
    /// The last block.
    std::string end = "M30";
};

/// One line of the table of settings.
struct GcodeSetting
{
    const char* name;   ///< as setGcodeSetting() takes it
    const char* values; ///< what may be given, in words
    const char* effect;
};

/// All settings, in the order of the members of GcodeSettings.
TESSARON_EXCHANGE_API const std::vector<GcodeSetting>& gcodeSettings();

/// Sets one setting from texts.
/// \throws GcodeError (<tessaron/gcode/GcodeWriter.h>) naming the setting and what it takes; `settings` is as it was.
TESSARON_EXCHANGE_API void setGcodeSetting(GcodeSettings& settings, std::string_view name, std::string_view value);

/// The value of a setting, as setGcodeSetting() takes it.
/// \throws GcodeError when there is no setting of that name.
TESSARON_EXCHANGE_API std::string gcodeSetting(const GcodeSettings& settings, std::string_view name);

} // namespace exchange

#endif
