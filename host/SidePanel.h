#ifndef HOST_SIDEPANEL_H
#define HOST_SIDEPANEL_H

#include "host/Scene.h"

#include <wx/scrolwin.h>

#include <functional>
#include <vector>

class wxCheckBox;
class wxChoice;
class wxSizer;
class wxStaticText;

namespace host
{

/// A time as a machinist reads it: "45 s", "12 min 05 s", "2 h 08 min".
wxString durationText(double minutes);

/// Shows what the part is machined with and what came of it, and lets the user pick what is drawn.
class SidePanel : public wxScrolledWindow
{
public:
    explicit SidePanel(wxWindow* parent);

    /// Shows a scene.
    /// \param seconds how long its toolpath took to compute; 0 when that is not known
    void show(const Scene& scene, double seconds);
    void setShownLevel(int level);

    /// Is told the level that the user picked, as Scene::level.
    std::function<void(int)> onLevel;
    /// Is told whether the user wants to see rapid moves.
    std::function<void(bool)> onRapids;

private:
    wxSizer* addSection(const wxString& title);
    wxStaticText* addRow(wxSizer* section, const wxString& label);
    void showPart(const Part* part);
    void showToolpath(const Scene& scene, double seconds);

    wxStaticText* m_name = nullptr;
    wxStaticText* m_file = nullptr;
    std::vector<wxStaticText*> m_parameters;
    std::vector<wxStaticText*> m_results;
    wxChoice* m_levels = nullptr;
    wxCheckBox* m_rapids = nullptr;
};

} // namespace host

#endif
