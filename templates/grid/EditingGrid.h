#ifndef TEMPLATES_GRID_EDITINGGRID_H
#define TEMPLATES_GRID_EDITINGGRID_H

#include <wx/grid.h>

#include <vector>

namespace TessaronResources
{

/// A grid whose editors are drawn in the look in force, and are gone when they are hidden: the toolkit moves hidden
/// ones too when the grid is scrolled, and GTK complains.
class EditingGrid : public wxGrid
{
public:
    EditingGrid(wxWindow* parent, int id, long style = wxWANTS_CHARS);

    void ScrollWindow(int dx, int dy, const wxRect* rect = nullptr) override;

private:
    void onEditorCreated(wxGridEditorCreatedEvent& event);

    std::vector<wxGridCellEditorPtr> m_editors; ///< that have a control
};

} // namespace TessaronResources

#endif
