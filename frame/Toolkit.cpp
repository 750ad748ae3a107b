#include "frame/Toolkit.h"

#include "frame/native/NativeToolkit.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>

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
    if (!native::displayIsNamed())
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

} // namespace

bool toolkitRunning()
{
    return wxTheApp != nullptr && wxTheApp->IsGUI() && native::displayIsOpen();
}

bool startToolkit()
{
    return toolkitRunning() || (!wxTheApp && startOwnToolkit());
}

EntryScope::EntryScope(AFX_MODULE_STATE* state) : m_moduleState(state), m_toolkit(startToolkit())
{
    if (!m_toolkit)
        return;
    m_assertHandler = wxSetAssertHandler(ignoreAssertion);
    // Closing our window must not end a host that has no other window open.
    m_exitOnFrameDelete = wxTheApp->GetExitOnFrameDelete();
    wxTheApp->SetExitOnFrameDelete(false);
}

EntryScope::~EntryScope()
{
    if (!m_toolkit)
        return;
    wxSetAssertHandler(m_assertHandler);
    if (wxTheApp)
        wxTheApp->SetExitOnFrameDelete(m_exitOnFrameDelete);
}

} // namespace TessaronResources
