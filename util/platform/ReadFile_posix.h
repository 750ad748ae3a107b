#ifndef UTIL_PLATFORM_READFILE_POSIX_H
#define UTIL_PLATFORM_READFILE_POSIX_H

#include "util/platform/ReadFile.h"

#include <sys/stat.h>

namespace util
{

/// As readFile(), with the path taken from an open folder.
FileContents readFileAt(int folder, const char* path, std::size_t limit);

FileStamp makeStamp(const struct stat& data);
FileState stateOfError(int error);

} // namespace util

#endif
