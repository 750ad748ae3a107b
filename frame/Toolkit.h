#ifndef FRAME_TOOLKIT_H
#define FRAME_TOOLKIT_H

#include "frame/CurrentModule.h"
#include "frame/HostWindows.h"
#include "frame/MessagePump.h"

#include <optional>

namespace TessaronResources
{

/// Brings the toolkit up unless it is already: the host's own, where it runs one, or one that the module starts and
/// keeps. The process's locale and signal handlers stay what they are.
/// \returns false when there is no display.
bool startToolkit();

/// Whether windows can be made, on this thread.
bool toolkitRunning();

/// What every entry point holds while it runs: the module state it works under, and the toolkit kept from doing to the
/// host what a guest must not do. All of it is given back on every way out. On a thread that does not own the user
/// interface, toolkitRunning() is false and nothing of the toolkit is touched.
class EntryScope
{
public:
    explicit EntryScope(AFX_MODULE_STATE* state);
    ~EntryScope();
    EntryScope(const EntryScope&) = delete;
    EntryScope& operator=(const EntryScope&) = delete;

    /// Whether the calling thread does not own the user interface, so that the call has to fail.
    bool isRefused() const { return !m_quitScope; }

private:
    ModuleStateGuard m_moduleState;
    std::optional<QuitScope> m_quitScope;
    std::optional<LastWindowGuard> m_lastWindow;
};

} // namespace TessaronResources

#endif
