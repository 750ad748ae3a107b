#ifndef UTIL_PLATFORM_USERFOLDERS_H
#define UTIL_PLATFORM_USERFOLDERS_H

#include <string>
#include <vector>

namespace util
{

// On POSIX systems these are the base directories of freedesktop.org (XDG, version 0.8).

/// The user's folder for configuration files, an absolute path; empty when the system does not tell.
std::string userConfigurationFolder();

/// The folders for data that all users share, the most important one first.
std::vector<std::string> sharedDataFolders();

/// Makes a folder and those above it that are missing, for the user alone. A failure is not reported.
void makeUserFolder(const std::string& path);

} // namespace util

#endif
