#include "templates/grid/CutOffTip.h"

#include "templates/grid/TemplateGridRenderers.h"
#include "templates/grid/TemplateGridTable.h"

#include <wx/dcclient.h>

#include <string>

namespace TessaronResources
{

namespace
{

/// Measures what a column draws instead of drawing it.
class Measuring : public CellPainter
{
public:
    Measuring(wxGrid& grid, const wxRect& cell) : m_dc(&grid), m_area(cellArea(grid, cell))
    {
        m_dc.SetFont(grid.GetDefaultCellFont());
    }

    const CellArea& area() const override { return m_area; }
    bool isSelected() const override { return false; }
    void drawText(const std::string& text, double smallestScale) override
    {
        const wxSize needed = m_dc.GetMultiLineTextExtent(wxString::FromUTF8(text));
        m_cutOff = needed.x * smallestScale > m_area.width - 2 * m_area.pixels(cellMargin) || needed.y > m_area.height;
    }
    void drawMark(const std::vector<CellPoint>&, bool) override {}

    bool isCutOff() const { return m_cutOff; }

private:
    wxClientDC m_dc;
    CellArea m_area;
    bool m_cutOff = false;
};

} // namespace

CutOffTip::CutOffTip(wxGrid& grid, const TemplateGridTable& table) : m_grid(grid), m_table(table)
{
    m_grid.GetGridWindow()->Bind(wxEVT_MOTION, &CutOffTip::onMotion, this);
}

void CutOffTip::onMotion(wxMouseEvent& event)
{
    event.Skip();
    wxWindow* const cells = m_grid.GetGridWindow();
    const wxString tip = tipOf(m_grid.XYToCell(m_grid.CalcUnscrolledPosition(event.GetPosition())));
    if (tip == cells->GetToolTipText())
        return;
    if (tip.empty())
        cells->UnsetToolTip();
    else
        cells->SetToolTip(tip);
}

wxString CutOffTip::tipOf(const wxGridCellCoords& cell) const
{
    if (cell == wxGridNoCellCoords)
        return {};
    const wxString text = m_grid.GetCellValue(cell);
    Measuring measured(m_grid, m_grid.CellToRect(cell));
    m_table.column(cell.GetCol()).draw(measured, text.utf8_string());
    return measured.isCutOff() ? text : wxString();
}

} // namespace TessaronResources
