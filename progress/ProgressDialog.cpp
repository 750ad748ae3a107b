#include <tessaron/progress/ProgressDialog.h>

#include "controls/TransparentImage.h"
#include "frame/CurrentModule.h"
#include "frame/ShownText.h"
#include "frame/Toolkit.h"
#include "progress/ProgressControls.h"
#include "progress/ProgressLoop.h"
#include <tessaron/frame/DataExchange.h>

namespace TessaronResources
{

wxIMPLEMENT_ABSTRACT_CLASS(ProgressDialog, wxDialog);

wxBEGIN_EVENT_TABLE(ProgressDialog, DialogBase)
wxEND_EVENT_TABLE()

ProgressDialog::ProgressDialog(int templateId, const char* caption,
                               const boost::shared_ptr<exchange::ProgressData>& progress,
                               const boost::shared_ptr<bool>& cancelled, CWnd* /*parent*/)
    : m_templateId(templateId), m_caption(caption ? caption : ""), m_progress(progress), m_cancelled(cancelled)
{
}

ProgressDialog::~ProgressDialog() = default;

void ProgressDialog::makeWindow()
{
    const EntryScope scope(storedModuleState());
    if (!create(m_templateId, nullptr))
        return;
    Show();
    SetFocus();
}

void ProgressDialog::doProgressLoop()
{
    const EntryScope scope(storedModuleState());
    if (scope.isRefused())
        return;
    ProgressControls view(control(progressIds::bar), control(progressIds::stage));
    runProgressLoop(*m_cancelled, [&] { return pollProgress(*m_progress, view, StageScope::job, currentString); });
}

bool ProgressDialog::OnInitDialog()
{
    const ModuleStateGuard guard(storedModuleState());
    DialogBase::OnInitDialog();
    setUpProgressWindow(*this, m_picture, m_templateId);
    SetTitle(shownText(m_caption));
    enableVisualManagerStyle();
    return true;
}

void ProgressDialog::DoDataExchange(CDataExchange* exchange)
{
    DialogBase::DoDataExchange(exchange);
    exchange->control(progressIds::picture, m_picture);
}

void ProgressDialog::OnCancel()
{
    const ModuleStateGuard guard(storedModuleState());
    m_progress->requestCancel();
    *m_cancelled = true;
}

void ProgressDialog::PostNcDestroy()
{
    DialogBase::PostNcDestroy();
    delete this;
}

} // namespace TessaronResources
