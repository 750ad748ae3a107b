#ifndef TEMPLATES_GRID_CUTOFFTIP_H
#define TEMPLATES_GRID_CUTOFFTIP_H

#include <wx/grid.h>

namespace TessaronResources
{

class TemplateGridTable;

/// Shows the whole text of a cell that cuts it off while the pointer is over it.
class CutOffTip
{
public:
    /// Neither is owned; both outlive the object.
    CutOffTip(wxGrid& grid, const TemplateGridTable& table);
    CutOffTip(const CutOffTip&) = delete;
    CutOffTip& operator=(const CutOffTip&) = delete;

private:
    void onMotion(wxMouseEvent& event);
    wxString tipOf(const wxGridCellCoords& cell) const;

    wxGrid& m_grid;
    const TemplateGridTable& m_table;
};

} // namespace TessaronResources

#endif
