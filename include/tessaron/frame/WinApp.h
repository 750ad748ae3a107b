#ifndef TESSARON_FRAME_WINAPP_H
#define TESSARON_FRAME_WINAPP_H

// Stability: stable.

#include <tessaron/frame/Platform.h>

namespace TessaronResources
{

/// The application object of a module: a module's own notion of "the program", apart from the toolkit's, which belongs
/// to the process. Header-only, so that a host can derive one for a module state of its own.
class CWinApp
{
public:
    CWinApp() = default;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp() = default;

    /// Called once when the module is loaded.
    /// \returns whether the module can be used.
    virtual bool InitInstance() { return true; }

    /// Called by the windows' loops when no message waits, with 0, 1, 2, … until it returns false.
    /// The loops never block by themselves: a handler that returns at once makes them spin.
    virtual bool OnIdle(long /*count*/) { return false; }

    /// The module's own handle; set before InitInstance.
    HINSTANCE m_hInstance = nullptr;
};

} // namespace TessaronResources

#endif
