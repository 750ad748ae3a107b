#include "templates/grid/EditingGrid.h"

#include "frame/looks/VisualManager.h"

namespace TessaronResources
{

EditingGrid::EditingGrid(wxWindow* parent, int id, long style)
    : wxGrid(parent, id, wxDefaultPosition, wxDefaultSize, style)
{
    Bind(wxEVT_GRID_EDITOR_CREATED, &EditingGrid::onEditorCreated, this);
    // Columns are widened at their headings only: the toolkit loses the column at a press whose motion it has not seen.
    DisableDragGridSize();
}

void EditingGrid::onEditorCreated(wxGridEditorCreatedEvent& event)
{
    VisualManager::current().apply(*event.GetWindow());
    m_editors.emplace_back(GetCellEditor(event.GetRow(), event.GetCol()));
}

void EditingGrid::ScrollWindow(int dx, int dy, const wxRect* rect)
{
    std::erase_if(m_editors,
                  [](const wxGridCellEditorPtr& editor)
                  {
                      const bool hidden = !editor->GetControl() || !editor->GetControl()->IsShown();
                      if (hidden)
                          editor->Destroy();
                      return hidden;
                  });
    wxGrid::ScrollWindow(dx, dy, rect);
}

} // namespace TessaronResources
