#ifndef UTIL_PLATFORM_TEMPORARYFILE_H
#define UTIL_PLATFORM_TEMPORARYFILE_H

#include "util/platform/Folder.h"

#include <string>
#include <string_view>
#include <vector>

namespace util
{

// The names of the files that become other files when they are complete, and what removes those that never did.

/// A path beside `target` that no other call of any running process gives.
std::string temporaryPath(const std::string& target);

/// Whether a file name is one that temporaryPath() gives for a target whose name ends in `extension`.
bool isTemporaryName(std::string_view fileName, std::string_view extension);

/// Removes the temporary files, among the entries of a folder, that saving processes left when they died. The caller
/// holds the folder at least shared, which says that no process on this machine is saving there now; what is younger
/// than an hour stays nevertheless, for the sake of other machines.
void removeLeftovers(const Folder& folder, const std::vector<std::string>& fileNames, std::string_view extension);

} // namespace util

#endif
