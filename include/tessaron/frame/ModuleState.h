#ifndef TESSARON_FRAME_MODULESTATE_H
#define TESSARON_FRAME_MODULESTATE_H

// Stability: stable.

#include <tessaron/frame/Platform.h>
#include <tessaron/util/Export.h>

namespace TessaronResources
{

/// The state of one module: whose resources and whose application object are in force. Owned by its module.
struct ModuleState
{
    /// The module's own handle.
    HINSTANCE instance = nullptr;
    /// Where dialog templates, strings and pictures come from. Null: from TessaronResources itself.
    ResourceSet* resources = nullptr;
    /// Whose idle handler the windows' loops call. Null: that of TessaronResources.
    CWinApp* app = nullptr;
};

/// The module state that is current on the calling thread; null until something made one current.
TESSARON_RESOURCES_API AFX_MODULE_STATE* getCurrentModuleState();

/// Makes a module state current on the calling thread.
/// \returns the one that was current before.
TESSARON_RESOURCES_API AFX_MODULE_STATE* setCurrentModuleState(AFX_MODULE_STATE* state);

/// Makes a module state current for as long as it lives, and then gives back the one that was current before.
class ModuleStateGuard
{
public:
    explicit ModuleStateGuard(AFX_MODULE_STATE* state) : m_previous(setCurrentModuleState(state)) {}
    ~ModuleStateGuard() { setCurrentModuleState(m_previous); }
    ModuleStateGuard(const ModuleStateGuard&) = delete;
    ModuleStateGuard& operator=(const ModuleStateGuard&) = delete;

private:
    AFX_MODULE_STATE* m_previous;
};

} // namespace TessaronResources

#endif
