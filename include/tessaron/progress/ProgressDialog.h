#ifndef TESSARON_PROGRESS_PROGRESSDIALOG_H
#define TESSARON_PROGRESS_PROGRESSDIALOG_H

// Stability: stable.

#include <tessaron/frame/DialogBase.h>
#include <tessaron/frame/Platform.h>
#include <tessaron/util/Export.h>

#include <boost/shared_ptr.hpp>

#include <string>

namespace exchange
{
class ProgressData;
}

namespace mfcutil
{
class CTransparentImage;
}

namespace TessaronResources
{

/// The window that watches an engine job: a bar, a line that tells the stage, and Cancel. A host can drive one itself:
///
///     auto cancelled = boost::make_shared<bool>(false);
///     auto* dialog = new ProgressDialog(1000, "Pocket", progress, cancelled, nullptr);
///     dialog->makeWindow();
///     dialog->doProgressLoop();
///     dialog->DestroyWindow(); // deletes the dialog
///
/// Its members work under the module state of the slot (see setModuleState), which the current state gives way to for
/// as long as they run.
class TESSARON_RESOURCES_API ProgressDialog : public DialogBase
{
public:
    /// \param templateId 1000 for the milling look, 1039 for the turning look
    /// \param caption    the window title, UTF-8; null for none
    /// \param progress   the job's record; kept for the life of the dialog
    /// \param cancelled  set to true when the user cancels; shared with the caller
    /// \param parent     not used: the window is made without a parent
    ProgressDialog(int templateId, const char* caption, const boost::shared_ptr<exchange::ProgressData>& progress,
                   const boost::shared_ptr<bool>& cancelled, CWnd* parent);
    ~ProgressDialog() override;

    /// Creates the window, shows it and gives it the keyboard focus. Without a display there is no window, and the loop
    /// runs all the same. The dialog owns itself from here on: end it with DestroyWindow().
    virtual void makeWindow();
    /// Runs until the job has ended, the user cancels, or a quit message comes.
    virtual void doProgressLoop();

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    /// Asks the engine to stop the job and sets the cancelled flag. The loop ends at its next pass.
    void OnCancel() override;
    void PostNcDestroy() override;

private:
    int m_templateId;
    std::string m_caption;
    boost::shared_ptr<exchange::ProgressData> m_progress;
    boost::shared_ptr<bool> m_cancelled;
    mfcutil::CTransparentImage* m_picture = nullptr;

    wxDECLARE_ABSTRACT_CLASS(ProgressDialog);
    wxDECLARE_EVENT_TABLE();
};

} // namespace TessaronResources

#endif
