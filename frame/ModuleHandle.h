#ifndef FRAME_MODULEHANDLE_H
#define FRAME_MODULEHANDLE_H

#include <tessaron/frame/Platform.h>

#include <string>

namespace TessaronResources
{

/// The handle of this library, not of the host.
HINSTANCE moduleHandle();

/// The full path of this library's file, not of the host's; empty when the platform does not tell.
std::string moduleFilePath();

} // namespace TessaronResources

#endif
