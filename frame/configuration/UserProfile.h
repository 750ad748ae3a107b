#ifndef FRAME_CONFIGURATION_USERPROFILE_H
#define FRAME_CONFIGURATION_USERPROFILE_H

#include <string>

namespace TessaronResources
{

/// An entry of the application's profile of the current user; empty when there is none.
std::string profileText(const char* section, const char* entry);

/// Keeps an entry of the application's profile of the current user. A profile that cannot be written stays as it is.
void keepProfileText(const char* section, const char* entry, const std::string& text);

} // namespace TessaronResources

#endif
