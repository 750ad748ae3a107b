#ifndef UTIL_PLATFORM_LIBRARYFILE_H
#define UTIL_PLATFORM_LIBRARYFILE_H

#include <string>

namespace util
{

/// The file that a library was loaded from.
struct LibraryFile
{
    void* handle = nullptr; ///< where it is loaded; null when the system does not tell
    std::string path;       ///< absolute, links resolved; empty when the system does not tell
};

/// The library that this call is linked into: each of the three libraries gets an answer of its own. Found out while
/// the library is loaded, because a relative path means another file once the host has changed its working folder.
const LibraryFile& thisLibrary();

/// The folder of thisLibrary(), where the files that belong to it lie. Without a separator at its end; empty when it
/// cannot be told.
std::string thisLibraryFolder();

} // namespace util

#endif
