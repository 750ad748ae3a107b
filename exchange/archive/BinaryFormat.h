#ifndef EXCHANGE_ARCHIVE_BINARYFORMAT_H
#define EXCHANGE_ARCHIVE_BINARYFORMAT_H

#include <cstddef>

namespace exchange::archive
{

/// The archive library version that is written, and the newest one that is read.
inline constexpr unsigned libraryVersion = 10;

inline constexpr char signature[] = "serialization::archive";
inline constexpr std::size_t signatureSize = sizeof signature - 1;

/// The header's marks of the writer's platform: the sizes of int, long, float and double, then an int 1.
inline constexpr unsigned char nativeMarks[] = {4, 8, 4, 8, 1, 0, 0, 0};

/// The longest class name that the library takes.
inline constexpr std::size_t maxClassName = 127;

/// The class id of a null pointer.
inline constexpr int nullClassId = -1;

} // namespace exchange::archive

#endif
