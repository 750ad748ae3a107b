#include "frame/TessaronResourcesApp.h"

#include "frame/CurrentModule.h"
#include "frame/EmbeddedResources.h"
#include "frame/MessagePump.h"
#include "util/platform/LibraryFile.h"
#include <tessaron/frame/EntryPoints.h>

namespace TessaronResources
{

namespace
{

// How long one idle turn may wait for a message. Short against the 50 ms between two polls of a progress window.
constexpr int idleWaitMilliseconds = 20;

CWinApp* applicationObject = nullptr;
AFX_MODULE_STATE* moduleStateSlot = nullptr;
thread_local AFX_MODULE_STATE* currentState = nullptr;

const ResourceSet& embeddedResources()
{
    static const EmbeddedResources resources;
    return resources;
}

} // namespace

CTessaronResourcesApp::CTessaronResourcesApp()
{
    m_hInstance = util::thisLibrary().handle;
    applicationObject = this;
}

CTessaronResourcesApp::~CTessaronResourcesApp()
{
    applicationObject = nullptr;
}

bool CTessaronResourcesApp::InitInstance()
{
    if (!CWinApp::InitInstance())
        return false;
    moduleStateSlot = getCurrentModuleState();
    return true;
}

bool CTessaronResourcesApp::OnIdle(long count)
{
    if (count == 0)
        MessagePump::processToolkitIdle();
    MessagePump::waitForMessage(idleWaitMilliseconds);
    return false;
}

AFX_MODULE_STATE* getCurrentModuleState()
{
    return currentState;
}

AFX_MODULE_STATE* setCurrentModuleState(AFX_MODULE_STATE* state)
{
    AFX_MODULE_STATE* const previous = currentState;
    currentState = state;
    return previous;
}

AFX_MODULE_STATE* storedModuleState()
{
    return moduleStateSlot;
}

AFX_MODULE_STATE* staticModuleState()
{
    static AFX_MODULE_STATE state{util::thisLibrary().handle, nullptr, nullptr};
    return &state;
}

const ResourceSet& currentResources()
{
    return currentState && currentState->resources ? *currentState->resources : embeddedResources();
}

CWinApp& currentApp()
{
    return currentState && currentState->app ? *currentState->app : *applicationObject;
}

void setModuleState(AFX_MODULE_STATE* state)
{
    moduleStateSlot = state;
}

CWinApp* getTessaronResourcesApp()
{
    return applicationObject;
}

HINSTANCE getInstance()
{
    return applicationObject ? applicationObject->m_hInstance : nullptr;
}

namespace
{

CTessaronResourcesApp theApp;

// The platform calls InitInstance inside the module's own context; here the loading of the library does.
const bool initialised = []
{
    const ModuleStateGuard guard(staticModuleState());
    return theApp.InitInstance();
}();

} // namespace

} // namespace TessaronResources
