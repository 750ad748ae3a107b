#ifndef FRAME_TOOLKIT_H
#define FRAME_TOOLKIT_H

#include "frame/CurrentModule.h"
#include "frame/MessagePump.h"

#include <wx/debug.h>

namespace TessaronResources
{

/// Brings the toolkit up unless it is already: the host's own, where it runs one, or one that the module starts and
/// keeps. The process's locale and signal handlers stay what they are.
/// \returns false when there is no display.
bool startToolkit();

/// Whether windows can be made.
bool toolkitRunning();

/// What every entry point holds while it runs: the module state it works under, and the toolkit kept from doing to the
/// host what a guest must not do. All of it is given back on every way out.
class EntryScope
{
public:
    explicit EntryScope(AFX_MODULE_STATE* state);
    ~EntryScope();
    EntryScope(const EntryScope&) = delete;
    EntryScope& operator=(const EntryScope&) = delete;

private:
    ModuleStateGuard m_moduleState;
    QuitScope m_quitScope;
    wxAssertHandler_t m_assertHandler = nullptr;
    bool m_toolkit = false;
    bool m_exitOnFrameDelete = false;
};

} // namespace TessaronResources

#endif
