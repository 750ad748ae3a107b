#include "templates/grid/GridSetup.h"

#include "frame/PaletteColour.h"
#include "frame/looks/VisualManager.h"

#include <wx/grid.h>

namespace TessaronResources
{

void replacePlaceholder(wxGrid& grid, wxWindow* frame)
{
    if (!frame)
        return;
    grid.SetSize(frame->GetRect());
    grid.MoveAfterInTabOrder(frame);
    frame->Destroy();
}

void applyPalette(wxGrid& grid)
{
    const VisualPalette& palette = VisualManager::current().palette();
    grid.SetDefaultCellBackgroundColour(toColour(palette.field));
    grid.SetDefaultCellTextColour(toColour(palette.fieldText));
    grid.SetLabelBackgroundColour(toColour(palette.heading));
    grid.SetLabelTextColour(toColour(palette.headingText));
    grid.SetGridLineColour(toColour(palette.gridLine));
    grid.SetSelectionBackground(toColour(palette.accent));
    grid.SetSelectionForeground(toColour(palette.accentText));
    grid.SetCellHighlightColour(toColour(palette.accent));
    grid.SetBackgroundColour(toColour(palette.field));
    grid.GetGridWindow()->SetBackgroundColour(toColour(palette.field));
    grid.ForceRefresh();
}

} // namespace TessaronResources
