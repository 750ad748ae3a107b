#include "frame/MessagePump.h"

#include "frame/HostWindows.h"
#include "frame/Toolkit.h"
#include "frame/native/NativeToolkit.h"
#include <tessaron/frame/PlainEntryPoints.h>

#include <wx/app.h>
#include <wx/evtloop.h>

#include <atomic>
#include <chrono>

namespace TessaronResources
{

namespace
{

// A host with an idle source of its own that is always ready never runs out of messages; its job must be polled all the
// same.
constexpr std::chrono::milliseconds longestDrain{25};

std::atomic<bool> ownQuit{false};
int scopes = 0;
const wxEventLoopBase* ownLoop = nullptr;
bool quitSeen = false;
// Idle work follows messages; without any since the last time there is none to do.
bool idleWorkDue = true;

// The toolkit does not publish whether a loop was told to end.
struct LoopState : wxEventLoopBase
{
    static bool shouldExit(const wxEventLoopBase& loop) { return loop.*(&LoopState::m_shouldExit); }
};

bool shouldExit(const wxEventLoopBase* loop)
{
    return loop && LoopState::shouldExit(*loop);
}

} // namespace

QuitScope::QuitScope()
{
    ++scopes;
}

QuitScope::~QuitScope()
{
    if (--scopes > 0 || !quitSeen)
        return;
    ownQuit = false;
    quitSeen = false;
}

MessagePump::MessagePump()
{
    if (toolkitRunning() && !wxEventLoopBase::GetActive())
    {
        m_ownLoop = std::make_unique<wxGUIEventLoop>();
        wxEventLoopBase::SetActive(m_ownLoop.get());
        ownLoop = m_ownLoop.get();
    }
}

MessagePump::~MessagePump()
{
    if (!m_ownLoop)
        return;
    wxEventLoopBase::SetActive(nullptr);
    ownLoop = nullptr;
}

bool MessagePump::quitPosted()
{
    if (ownQuit)
        return true;
    return toolkitRunning() && (shouldExit(wxTheApp->GetMainLoop()) || LastWindowGuard::lastWindowClosed());
}

bool MessagePump::pump()
{
    if (wxEventLoopBase* const loop = toolkitRunning() ? wxEventLoopBase::GetActive() : nullptr)
    {
        const auto deadline = std::chrono::steady_clock::now() + longestDrain;
        while (!m_quit && loop->Pending())
        {
            // What Dispatch tells is whether the innermost native loop was told to quit. That means something only
            // where such a loop runs and is the host's own: the toolkit quits and re-enters its loops as dialogs come
            // and go.
            const bool running = loop->Dispatch();
            idleWorkDue = true;
            m_quit = (!running && loop == ownLoop && native::insideNativeLoop()) || quitPosted();
            if (std::chrono::steady_clock::now() > deadline)
                break;
        }
    }
    m_quit = m_quit || quitPosted();
    quitSeen = quitSeen || m_quit;
    return m_quit;
}

void MessagePump::repostQuit()
{
    // A loop of the host's that was told to end remembers it by itself. Around us may be calls that run on a loop of
    // ours.
    if (scopes > 1)
        ownQuit = true;
}

void MessagePump::processToolkitIdle()
{
    if (!toolkitRunning() || !(idleWorkDue || wxTheApp->HasPendingEvents()))
        return;
    wxTheApp->ProcessPendingEvents();
    wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
    idleWorkDue = loop && loop->ProcessIdle();
}

void MessagePump::waitForMessage(int milliseconds)
{
    native::waitForMessage(milliseconds);
}

void MessagePump::requestQuit()
{
    ownQuit = true;
}

} // namespace TessaronResources

void tessaronResourcesQuit(void)
{
    TessaronResources::MessagePump::requestQuit();
}
