#include "gcode/CustomText.h"

#include "util/text/Ascii.h"
#include "util/text/ReadDouble.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace exchange::gcode
{

namespace
{

constexpr int greatestTool = 99999;

} // namespace

std::variant<Dwell, ToolChange, CoolantChange, Misspelt, OtherText> customText(const std::string& text)
{
    const std::string_view all = util::trimmed(text);
    const std::size_t blank = std::min(all.find(' '), all.size());
    const std::string_view word = all.substr(0, blank);
    const std::string_view rest = util::trimmed(all.substr(blank));
    const char* const first = rest.data();
    const char* const last = first + rest.size();
    if (word == "Dwell")
    {
        Dwell dwell;
        const auto [end, error] = util::readDouble(first, last, dwell.seconds);
        if (error != std::errc() || end != last || !std::isfinite(dwell.seconds) || dwell.seconds < 0)
            return Misspelt{"\"Dwell\" and a number of seconds"};
        return dwell;
    }
    if (word == "Tool")
    {
        ToolChange change;
        const auto [end, error] = std::from_chars(first, last, change.tool);
        if (error != std::errc() || end != last || change.tool < 1 || change.tool > greatestTool)
            return Misspelt{"\"Tool\" and a number from 1 to 99999"};
        return change;
    }
    if (word == "Coolant")
    {
        if (rest == "off")
            return CoolantChange{GcodeSettings::Coolant::off};
        if (rest == "mist")
            return CoolantChange{GcodeSettings::Coolant::mist};
        if (rest == "flood")
            return CoolantChange{GcodeSettings::Coolant::flood};
        return Misspelt{"\"Coolant\" and off, mist or flood"};
    }
    return OtherText{};
}

} // namespace exchange::gcode
