#ifndef HOST_FINDINGSLIST_H
#define HOST_FINDINGSLIST_H

#include <tessaron/engine/JobService.h>

#include <wx/panel.h>

#include <functional>
#include <vector>

class wxListView;
class wxStaticText;

namespace host
{

/// Lists what the job of a toolpath has found, below the drawing; hidden while there is nothing to tell.
class FindingsList : public wxPanel
{
public:
    explicit FindingsList(wxWindow* parent);

    void show(const std::vector<exchange::JobFinding>& findings);

    /// Is told the finding that the user picks.
    std::function<void(const exchange::JobFinding&)> onPick;

private:
    void pick(long row);
    void fitColumns();

    std::vector<exchange::JobFinding> m_findings;
    wxStaticText* m_heading = nullptr;
    wxListView* m_list = nullptr;
};

} // namespace host

#endif
