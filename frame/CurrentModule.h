#ifndef FRAME_CURRENTMODULE_H
#define FRAME_CURRENTMODULE_H

#include <tessaron/frame/ModuleState.h>

namespace TessaronResources
{

/// What the module state slot holds: the module's own state from the load of the library on, or what setModuleState
/// stored there. In force in ProgressDialog and its entry points.
AFX_MODULE_STATE* storedModuleState();

/// The module's own state, whatever the slot holds. In force in every other entry point.
AFX_MODULE_STATE* staticModuleState();

/// The resources of the current module state.
const ResourceSet& currentResources();

/// The application object of the current module state.
CWinApp& currentApp();

} // namespace TessaronResources

#endif
