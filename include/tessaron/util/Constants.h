#ifndef TESSARON_UTIL_CONSTANTS_H
#define TESSARON_UTIL_CONSTANTS_H

// Stability: stable.

namespace util
{

/// Half a turn in radians.
inline constexpr double pi = 3.14159265358979323846;

/// The angular tolerance, in radians, within which two angles count as equal.
inline constexpr double doubleEps = 1e-8;

} // namespace util

#endif
