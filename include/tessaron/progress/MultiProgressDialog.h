#ifndef TESSARON_PROGRESS_MULTIPROGRESSDIALOG_H
#define TESSARON_PROGRESS_MULTIPROGRESSDIALOG_H

// Stability: stable.

#include <tessaron/frame/DialogBase.h>
#include <tessaron/frame/Platform.h>
#include <tessaron/util/Export.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <vector>

class wxStaticText;

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

/// The window that watches a job of several workers: as ProgressDialog, with a line for each worker in a panel that
/// "Show Details" folds out. Cancel only asks the engine to stop: the window stays until the job has ended, so that the
/// lines show the wind-down. Driven as ProgressDialog is. Its members work under the module's own state.
class TESSARON_RESOURCES_API MultiProgressDialog : public DialogBase
{
public:
    /// \param templateId 1029 for the milling look, 1040 for the turning look
    /// \param progress   the whole job's record; kept for the life of the dialog
    /// \param cancelled  ends the loop when the host sets it to true; the dialog itself never does
    /// \param parent     not used: the window is made without a parent
    MultiProgressDialog(int templateId, const boost::shared_ptr<exchange::ProgressData>& progress,
                        const boost::shared_ptr<bool>& cancelled, CWnd* parent);
    ~MultiProgressDialog() override;

    /// Creates the window, shows it and gives it the keyboard focus; see ProgressDialog::makeWindow.
    virtual void makeWindow();
    /// Runs until the job has ended, the cancelled flag is set, or a quit message comes.
    virtual void doProgressLoop();

    /// One line for each worker, in the engine's order; of hundreds, the last ones come a moment later. A line lives at
    /// most as long as the window.
    std::vector<boost::shared_ptr<wxStaticText>>& getTextLines();

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnCancel() override;
    void PostNcDestroy() override;

    /// Folds the details out or away: the window becomes 200 pixels higher or lower.
    void OnBnClickedCheckShowDetails();

private:
    bool poll();
    void matchLines(std::size_t workers);
    bool makeLines();
    boost::shared_ptr<wxStaticText> makeLine(std::size_t index);
    void onShowDetails(wxCommandEvent& event);
    void onIdle(wxIdleEvent& event);

    boost::shared_ptr<exchange::ProgressData> m_progress;
    boost::shared_ptr<bool> m_cancelled;
    std::vector<boost::shared_ptr<wxStaticText>> m_textLines;
    std::size_t m_wantedLines = 0;
    bool m_detailsShown = false;
    mfcutil::CTransparentImage* m_picture = nullptr;
    int m_templateId;

    wxDECLARE_ABSTRACT_CLASS(MultiProgressDialog);
    wxDECLARE_EVENT_TABLE();
};

} // namespace TessaronResources

#endif
