#include "frame/HostWindows.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/toplevel.h>

#include <type_traits>

namespace TessaronResources
{

namespace
{

// The toolkit publishes whether the setting is on. Behind that it has three values: off, on, and on from the start of
// the main loop.
struct ExitSetting : wxAppBase
{
    static auto& of(wxAppBase& app) { return app.*(&ExitSetting::m_exitOnFrameDelete); }
};

constexpr int off = 0;

const LastWindowGuard* outermost = nullptr;

// Windows of the module say of themselves that they keep no host alive.
bool hostHasWindows()
{
    for (const wxWindow* const window : wxTopLevelWindows)
        if (static_cast<const wxTopLevelWindow*>(window)->ShouldPreventAppExit())
            return true;
    return false;
}

void endMainLoop()
{
    if (wxEventLoopBase* const loop = wxTheApp->GetMainLoop(); loop && !hostHasWindows())
        loop->ScheduleExit();
}

} // namespace

LastWindowGuard::LastWindowGuard()
    : m_setting(ExitSetting::of(*wxTheApp)), m_hostHadWindows(hostHasWindows()), m_outermost(!outermost)
{
    if (m_outermost)
        outermost = this;
    wxTheApp->SetExitOnFrameDelete(false);
}

LastWindowGuard::~LastWindowGuard()
{
    const bool hostEnds = m_outermost && lastWindowClosed();
    if (m_outermost)
        outermost = nullptr;
    if (!wxTheApp)
        return;
    auto& setting = ExitSetting::of(*wxTheApp);
    setting = static_cast<std::remove_reference_t<decltype(setting)>>(m_setting);
    if (!hostEnds)
        return;
    if (wxTheApp->GetMainLoop())
        endMainLoop();
    else // It has not started yet.
        wxTheApp->CallAfter([] { endMainLoop(); });
}

bool LastWindowGuard::lastWindowClosed()
{
    return outermost && outermost->m_hostHadWindows && outermost->m_setting != off && !hostHasWindows();
}

void detachFromOwner(wxTopLevelWindow& window)
{
    // The toolkit destroys a window's children with it. The native window keeps its place above the owner's.
    if (wxWindow* const owner = window.GetParent())
        owner->RemoveChild(&window);
}

} // namespace TessaronResources
