#ifndef TEMPLATES_COLUMNS_LOCALTIME_H
#define TEMPLATES_COLUMNS_LOCALTIME_H

#include <cstdint>
#include <string>

namespace TessaronResources
{

/// A time in seconds since 1970 (UTC), printed as local time with a strftime format into at most 4095 bytes; empty when
/// it does not print or lies outside of what the system's calendar reaches.
std::string printLocalTime(std::uint64_t seconds, const std::string& format);

} // namespace TessaronResources

#endif
