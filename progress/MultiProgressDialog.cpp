#include <tessaron/progress/MultiProgressDialog.h>

#include "controls/TransparentImage.h"
#include "frame/ControlId.h"
#include "frame/CurrentModule.h"
#include "frame/Toolkit.h"
#include "progress/ProgressControls.h"
#include "progress/ProgressLoop.h"
#include "resources/TextIds.h"
#include <tessaron/frame/DataExchange.h>

#include <wx/app.h>
#include <wx/stattext.h>
#include <wx/weakref.h>

#include <algorithm>
#include <chrono>

namespace TessaronResources
{

namespace
{

constexpr int detailsHeight = 200;
constexpr int lineLeft = 10;
constexpr int lineRight = 220;
constexpr int firstLineTop = 110;
constexpr int lineHeight = 15;
constexpr int lineId = 65535;
// The window has to answer while the lines of a thousand workers come in: a poll makes a few, and what remains is made
// in idle time.
constexpr std::chrono::milliseconds timeForNewLines{10};

// The window owns its controls: a line that leaves the list before the window is destroyed has to be destroyed here, a
// later one has been already.
struct DestroyLine
{
    wxWeakRef<wxStaticText> line;

    void operator()(wxStaticText*)
    {
        if (line)
            line->Destroy();
    }
};

} // namespace

wxIMPLEMENT_ABSTRACT_CLASS(MultiProgressDialog, wxDialog);

wxBEGIN_EVENT_TABLE(MultiProgressDialog, DialogBase)
    EVT_CHECKBOX(progressIds::showDetails, MultiProgressDialog::onShowDetails)
    EVT_IDLE(MultiProgressDialog::onIdle)
wxEND_EVENT_TABLE()

MultiProgressDialog::MultiProgressDialog(int templateId, const boost::shared_ptr<exchange::ProgressData>& progress,
                                         const boost::shared_ptr<bool>& cancelled, CWnd* /*parent*/)
    : m_progress(progress), m_cancelled(cancelled), m_templateId(templateId)
{
}

MultiProgressDialog::~MultiProgressDialog()
{
    m_textLines.clear();
}

void MultiProgressDialog::makeWindow()
{
    const EntryScope scope(staticModuleState());
    if (!create(m_templateId, nullptr))
        return;
    Show();
    SetFocus();
}

void MultiProgressDialog::doProgressLoop()
{
    const EntryScope scope(staticModuleState());
    if (scope.isRefused())
        return;
    runProgressLoop(*m_cancelled, [this] { return poll(); });
}

std::vector<boost::shared_ptr<wxStaticText>>& MultiProgressDialog::getTextLines()
{
    return m_textLines;
}

bool MultiProgressDialog::poll()
{
    ProgressControls view(control(progressIds::bar), control(progressIds::stage));
    if (pollProgress(*m_progress, view, StageScope::job, currentString))
        return true;
    std::vector<int> workers;
    m_progress->getSubJobIds(workers);
    matchLines(workers.size());
    for (std::size_t k = 0; k < m_textLines.size(); ++k)
    {
        ProgressControls line(nullptr, m_textLines[k].get());
        pollProgress(*progressOfJob(workers[k]), line, StageScope::worker, currentString);
    }
    return false;
}

void MultiProgressDialog::matchLines(std::size_t workers)
{
    if (!GetHandle())
        return;
    m_wantedLines = workers;
    if (m_textLines.size() > workers)
        m_textLines.resize(workers);
    if (!makeLines())
        wxWakeUpIdle();
}

// Makes lines for a moment; whether all are there now.
bool MultiProgressDialog::makeLines()
{
    const auto deadline = std::chrono::steady_clock::now() + timeForNewLines;
    while (m_textLines.size() < m_wantedLines)
    {
        m_textLines.push_back(makeLine(m_textLines.size()));
        if (std::chrono::steady_clock::now() > deadline)
            break;
    }
    return m_textLines.size() == m_wantedLines;
}

void MultiProgressDialog::onIdle(wxIdleEvent& event)
{
    event.Skip();
    if (!makeLines())
        event.RequestMore();
}

boost::shared_ptr<wxStaticText> MultiProgressDialog::makeLine(std::size_t index)
{
    const int k = static_cast<int>(index);
    const wxString text = wxString::FromUTF8(formatCount(currentString(texts::worker), k + 1));
    const wxPoint topLeft(templatePixels(lineLeft), templatePixels(firstLineTop + lineHeight * k));
    const wxSize size(templatePixels(lineRight) - topLeft.x,
                      templatePixels(firstLineTop + lineHeight * (k + 1)) - topLeft.y);
    // Measured for its text only when that changes.
    auto* const line = new wxStaticText(this, controlId(lineId), text, topLeft, size, wxST_NO_AUTORESIZE);
    line->SetWindowStyleFlag(line->GetWindowStyleFlag() & ~wxST_NO_AUTORESIZE);
    if (line->GetFont() != GetFont())
        line->SetFont(GetFont());
    return {line, DestroyLine{line}};
}

bool MultiProgressDialog::OnInitDialog()
{
    const ModuleStateGuard guard(staticModuleState());
    DialogBase::OnInitDialog();
    setUpProgressWindow(*this, m_picture, m_templateId);
    if (wxWindow* const stage = control(progressIds::stage))
        // The template puts the overall text where the first worker line will be; it has to stay readable above it.
        stage->SetPosition({stage->GetPosition().x,
                            std::min(stage->GetPosition().y, templatePixels(firstLineTop) - stage->GetSize().y)});
    enableVisualManagerStyle();
    return true;
}

void MultiProgressDialog::DoDataExchange(CDataExchange* exchange)
{
    DialogBase::DoDataExchange(exchange);
    exchange->control(progressIds::picture, m_picture);
}

void MultiProgressDialog::OnCancel()
{
    const ModuleStateGuard guard(staticModuleState());
    m_progress->requestCancel();
}

void MultiProgressDialog::PostNcDestroy()
{
    DialogBase::PostNcDestroy();
    delete this;
}

void MultiProgressDialog::OnBnClickedCheckShowDetails()
{
    const ModuleStateGuard guard(staticModuleState());
    const wxRect window = GetRect();
    SetSize(window.x, window.y, window.width, window.height + (m_detailsShown ? -detailsHeight : detailsHeight));
    m_detailsShown = !m_detailsShown;
}

void MultiProgressDialog::onShowDetails(wxCommandEvent&)
{
    OnBnClickedCheckShowDetails();
}

} // namespace TessaronResources
