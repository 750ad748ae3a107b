#ifndef FRAME_TESSARONRESOURCESAPP_H
#define FRAME_TESSARONRESOURCESAPP_H

#include <tessaron/frame/WinApp.h>

namespace TessaronResources
{

/// The module's application object. There is one, made when the library is loaded; that touches no display.
class CTessaronResourcesApp : public CWinApp
{
public:
    CTessaronResourcesApp();
    ~CTessaronResourcesApp() override;

    /// Stores the module state that is current, which is the module's own while the library is being loaded, into the
    /// module state slot.
    bool InitInstance() override;

    /// Lets the toolkit do its idle work, then waits until a message arrives or a few milliseconds have passed, so that
    /// the loops of the windows cost next to nothing while a job runs.
    bool OnIdle(long count) override;
};

} // namespace TessaronResources

#endif
