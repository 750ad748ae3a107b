#include "frame/Toolkit.h"

#include "frame/native/NativeToolkit.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/strconv.h>
#include <wx/thread.h>

namespace TessaronResources
{

namespace
{

// A message box about a failure inside the toolkit would be no help to the user.
class SilentLog : public wxLog
{
protected:
    void DoLogRecord(wxLogLevel, const wxString&, const wxLogRecordInfo&) override {}
};

void ignoreAssertion(const wxString&, int, const wxString&, const wxString&, const wxString&) {}

// The application object of a process whose host does not run the toolkit.
class GuestApp : public wxApp
{
public:
    // The native toolkit is up already. Starting it the toolkit's way would rename the host, set a variable of its
    // environment, and print a warning in a host that uses the native toolkit itself.
    bool Initialize(int& count, wxChar** arguments) override
    {
        static wxMBConvUTF8 fileNames(wxMBConvUTF8::MAP_INVALID_UTF8_TO_PUA);
        wxConvCurrent = &wxConvUTF8;
        wxConvFileName = &fileNames;
        return wxAppBase::Initialize(count, arguments); // NOLINT(bugprone-parent-virtual-call)
    }

    bool OnInit() override
    {
        SetExitOnFrameDelete(false);
        return true;
    }

    void ExitMainLoop() override { MessagePump::requestQuit(); }
};

bool startOwnToolkit()
{
    const native::ProcessStateGuard guard;
    if (!native::displayIsNamed() || !native::start())
        return false;
    wxSetAssertHandler(ignoreAssertion);
    delete wxLog::SetActiveTarget(new SilentLog);
    wxApp::SetInstance(new GuestApp);
    int argc = 1;
    char name[] = "TessaronResources";
    char* argv[] = {name, nullptr};
    if (wxEntryStart(argc, argv) && wxTheApp->CallOnInit())
        return true;
    wxApp::SetInstance(nullptr);
    return false;
}

bool ownsUserInterface()
{
    if (wxTheApp)
        return !wxTheApp->IsGUI() || wxIsMainThread();
    return !native::displayIsNamed() || native::ownsEventQueue();
}

} // namespace

bool toolkitRunning()
{
    return wxTheApp != nullptr && wxTheApp->IsGUI() && native::displayIsOpen() && wxIsMainThread();
}

bool startToolkit()
{
    return toolkitRunning() || (!wxTheApp && startOwnToolkit());
}

EntryScope::EntryScope(AFX_MODULE_STATE* state) : m_moduleState(state)
{
    if (!ownsUserInterface())
        return;
    m_quitScope.emplace();
    if (startToolkit())
        m_lastWindow.emplace();
}

EntryScope::~EntryScope() = default;

} // namespace TessaronResources
