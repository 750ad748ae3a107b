// A host that makes the module's dialogs its own: it derives from them, overrides what they do, and the user presses
// their buttons.
#include <tessaron/engine/ProgressData.h>
#include <tessaron/frame/DataExchange.h>
#include <tessaron/progress/MultiProgressDialog.h>
#include <tessaron/progress/ProgressDialog.h>

#include <boost/make_shared.hpp>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

using namespace TessaronResources;

namespace
{

constexpr int okId = 1;
constexpr int cancelId = 2;
constexpr int stageId = 1021;
constexpr int detailsId = 1042;

int failures = 0;

void check(bool condition, const char* what)
{
    if (!condition)
    {
        std::fprintf(stderr, "FAILED: %s\n", what);
        ++failures;
    }
}

/// Clicks a control of a window, again and again until something has come of it.
class User : private wxTimer
{
public:
    User(wxWindow& window, int id) : m_window(window), m_id(id) { Start(50); }

private:
    void Notify() override
    {
        if (++m_clicks > 400)
        {
            std::fprintf(stderr, "FAILED: nothing comes of clicking control %d\n", m_id);
            std::_Exit(1);
        }
        const wxWindow* const target = m_window.FindWindow(m_id);
        if (!target || !target->IsShownOnScreen())
            return;
        wxUIActionSimulator mouse;
        mouse.MouseMove(target->ClientToScreen(wxPoint(target->GetSize().x / 2, target->GetSize().y / 2)));
        mouse.MouseClick();
    }

    wxWindow& m_window;
    int m_id;
    int m_clicks = 0;
};

/// A job that the host runs itself.
struct HostJob : exchange::ProgressData
{
    void requestCancel() override { cancelRequested = true; }
    void getSubJobIds(std::vector<int>& ids) override
    {
        ids = {-2, -2};
        if (cancelRequested)
            percent = -1;
    }

    bool cancelRequested = false;
};

/// What the overrides of one dialog have seen.
struct Calls
{
    bool initialised = false;
    bool exchanged = false;
    bool cancelled = false;
    bool destroyed = false;

    bool all() const { return initialised && exchanged && cancelled && destroyed; }
};

/// One of the progress dialogs as the host wants it: with a title of its own and a line that the host finds.
template <class Dialog>
class HostDialog : public Dialog
{
public:
    template <class... Arguments>
    explicit HostDialog(Calls& calls, Arguments&&... arguments)
        : Dialog(std::forward<Arguments>(arguments)...), m_calls(calls)
    {
    }

    wxStaticText* stage() const { return m_stage; }
    using Dialog::control;

protected:
    bool OnInitDialog() override
    {
        m_calls.initialised = true;
        const bool chooseFocus = Dialog::OnInitDialog();
        this->SetTitle("Host");
        return chooseFocus;
    }
    void DoDataExchange(CDataExchange* exchange) override
    {
        m_calls.exchanged = true;
        Dialog::DoDataExchange(exchange);
        exchange->control(stageId, m_stage);
    }
    void OnCancel() override
    {
        m_calls.cancelled = true;
        Dialog::OnCancel();
    }
    void PostNcDestroy() override
    {
        m_calls.destroyed = true;
        Dialog::PostNcDestroy();
    }

private:
    Calls& m_calls;
    wxStaticText* m_stage = nullptr;
};

void watchAndCancel()
{
    const auto job = boost::make_shared<HostJob>();
    const auto cancelled = boost::make_shared<bool>(false);
    Calls calls;
    auto* const dialog = new HostDialog<ProgressDialog>(calls, 1000, "Job", job, cancelled, nullptr);
    dialog->makeWindow();
    check(dialog->GetTitle() == "Host" && dialog->stage(), "the host's dialog is set up by the host");
    {
        const User user(*dialog, cancelId);
        dialog->doProgressLoop();
    }
    dialog->DestroyWindow();
    check(calls.all(), "every override of the progress dialog is called");
    check(*cancelled && job->cancelRequested, "the base cancels the job");
}

void watchWorkersAndCancel()
{
    const auto job = boost::make_shared<HostJob>();
    const auto cancelled = boost::make_shared<bool>(false);
    Calls calls;
    auto* const dialog = new HostDialog<MultiProgressDialog>(calls, 1029, job, cancelled, nullptr);
    dialog->makeWindow();
    check(dialog->control(detailsId), "the details can be shown");
    {
        const User user(*dialog, cancelId);
        dialog->doProgressLoop();
    }
    check(dialog->getTextLines().size() == 2, "each worker has its line");
    dialog->DestroyWindow();
    check(calls.all(), "every override of the progress dialog of several workers is called");
    check(job->cancelRequested, "the base cancels the job of several workers");
}

/// A dialog of the host's, on the module's base.
class DepthDialog : public DialogBase
{
public:
    DepthDialog()
    {
        if (!createBare(nullptr, "Depth"))
            return;
        auto* const depth = new wxTextCtrl(this, depthId, "", wxPoint(10, 10));
        new wxCheckBox(this, finishId, "Finish", wxPoint(10, 50));
        auto* const side = new wxChoice(this, sideId, wxPoint(10, 90));
        side->Append("Left");
        side->Append("Right");
        new wxButton(this, okId, "OK", wxPoint(10, 140));
        SetClientSize(300, 200);
        initialise();
        depth->SetValue("7.5");
    }

    double depth = 2.5;
    bool finish = true;
    int side = 1;
    wxString filled;

private:
    static constexpr int depthId = 100;
    static constexpr int finishId = 101;
    static constexpr int sideId = 102;

    bool OnInitDialog() override
    {
        const bool chooseFocus = DialogBase::OnInitDialog();
        filled = dynamic_cast<wxTextCtrl*>(control(depthId))->GetValue();
        enableVisualManagerStyle();
        return chooseFocus;
    }
    void DoDataExchange(CDataExchange* exchange) override
    {
        DialogBase::DoDataExchange(exchange);
        exchange->number(depthId, depth);
        exchange->check(finishId, finish);
        exchange->index(sideId, side);
    }
};

void askForDepth()
{
    DepthDialog dialog;
    const User user(dialog, okId);
    check(dialog.ShowModal() == okId, "the host's own dialog is accepted");
    check(dialog.filled == "2.5", "its form is filled");
    check(dialog.depth == 7.5 && dialog.finish && dialog.side == 1, "its form is read");
}

class HostApp : public wxApp
{
public:
    bool OnInit() override { return true; }
    int OnRun() override
    {
        watchAndCancel();
        watchWorkersAndCancel();
        askForDepth();
        return failures != 0;
    }
};

} // namespace

wxIMPLEMENT_APP(HostApp);
