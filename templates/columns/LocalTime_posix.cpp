#include "templates/columns/LocalTime.h"

#include <array>
#include <ctime>
#include <limits>

namespace TessaronResources
{

std::string printLocalTime(std::uint64_t seconds, const std::string& format)
{
    if (seconds > static_cast<std::uint64_t>(std::numeric_limits<std::time_t>::max()))
        return {};
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    std::array<char, 4096> buffer;
    if (!::localtime_r(&time, &parts))
        return {};
    return {buffer.data(), std::strftime(buffer.data(), buffer.size(), format.c_str(), &parts)};
}

} // namespace TessaronResources
