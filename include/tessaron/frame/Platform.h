#ifndef TESSARON_FRAME_PLATFORM_H
#define TESSARON_FRAME_PLATFORM_H

// Stability: stable.

class wxWindow;

/// The user-interface module: its entry points, its exported windows and what a host needs to drive them.
namespace TessaronResources
{

/// A window of the toolkit, as the signatures of the entry points name it.
typedef wxWindow CWnd;

/// What identifies a loaded module: its load address on Linux, its module handle on Windows.
typedef void* HINSTANCE;

class CWinApp;
class ResourceSet;
struct ModuleState;
/// The published name of the per-module state record.
typedef ModuleState AFX_MODULE_STATE;

} // namespace TessaronResources

#endif
