#include "templates/grid/TemplateGridRenderers.h"

#include "frame/PaletteColour.h"
#include "frame/looks/VisualManager.h"
#include "templates/grid/GridSizing.h"

#include <wx/control.h>
#include <wx/dc.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace TessaronResources
{

namespace
{

const VisualPalette& palette()
{
    return VisualManager::current().palette();
}

void fill(wxDC& dc, const wxRect& rect, Rgb colour)
{
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(toColour(colour)));
    dc.DrawRectangle(rect);
}

// A heading's surface, with a line on the sides where another cell follows.
void drawHeading(wxDC& dc, wxRect& rect, Rgb back)
{
    fill(dc, rect, back);
    dc.SetPen(wxPen(toColour(mixed(palette().heading, palette().border, 0.7))));
    dc.DrawLine(rect.GetRight(), rect.GetTop(), rect.GetRight(), rect.GetBottom() + 1);
    dc.DrawLine(rect.GetLeft(), rect.GetBottom(), rect.GetRight() + 1, rect.GetBottom());
    rect.width -= 1;
    rect.height -= 1;
}

void drawArrow(wxDC& dc, wxPoint middle, int half, bool ascending)
{
    const int tip = ascending ? -half / 2 : half / 2;
    const wxPoint points[] = {
        {middle.x - half, middle.y - tip}, {middle.x + half, middle.y - tip}, {middle.x, middle.y + tip}};
    dc.DrawPolygon(3, points);
}

/// Draws one cell with the toolkit.
class DcCellPainter : public CellPainter
{
public:
    DcCellPainter(wxGrid& grid, const wxGridCellAttr& attr, wxDC& dc, const wxRect& rect, bool selected)
        : m_grid(grid), m_attr(attr), m_dc(dc), m_rect(rect), m_area(cellArea(grid, rect)), m_selected(selected)
    {
    }

    const CellArea& area() const override { return m_area; }
    bool isSelected() const override { return m_selected; }
    void drawText(const std::string& text, double smallestScale) override;
    void drawMark(const std::vector<CellPoint>& corners, bool filled) override;

private:
    void fitFont(const wxString& text, int width, double smallestScale);

    wxGrid& m_grid;
    const wxGridCellAttr& m_attr;
    wxDC& m_dc;
    const wxRect& m_rect;
    CellArea m_area;
    bool m_selected;
};

void DcCellPainter::drawText(const std::string& text, double smallestScale)
{
    const wxString shown = wxString::FromUTF8(text);
    const wxRect inside = wxRect(m_rect).Deflate(m_area.pixels(cellMargin), 1);
    m_dc.SetFont(m_attr.GetFont());
    if (smallestScale < 1.0)
        fitFont(shown, inside.width, smallestScale);
    m_dc.SetTextForeground(toColour(m_selected ? palette().accentText : palette().fieldText));
    m_dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    int horizontal = 0;
    int vertical = 0;
    m_attr.GetAlignment(&horizontal, &vertical);
    const bool oneLine = shown.find('\n') == wxString::npos;
    m_grid.DrawTextRectangle(m_dc, oneLine ? wxControl::Ellipsize(shown, m_dc, wxELLIPSIZE_END, inside.width) : shown,
                             inside, horizontal, vertical);
}

void DcCellPainter::fitFont(const wxString& text, int width, double smallestScale)
{
    // In steps, so that a column looks like one.
    constexpr double steps = 20.0;
    const int needed = m_dc.GetTextExtent(text).x;
    if (needed > width)
        m_dc.SetFont(m_dc.GetFont().Scaled(
            static_cast<float>(std::max(smallestScale, std::floor(steps * width / needed) / steps))));
}

void DcCellPainter::drawMark(const std::vector<CellPoint>& corners, bool filled)
{
    std::vector<wxPoint> points;
    points.reserve(corners.size());
    for (const CellPoint& corner : corners)
        points.emplace_back(corner.x, corner.y);
    const Rgb colour = m_selected ? palette().accentText : palette().mark;
    m_dc.SetPen(wxPen(toColour(m_selected ? colour : mixed(palette().mark, palette().field, 0.35))));
    m_dc.SetBrush(filled ? wxBrush(toColour(colour)) : *wxTRANSPARENT_BRUSH);
    m_dc.DrawPolygon(static_cast<int>(points.size()), points.data());
}

} // namespace

CellArea cellArea(const wxWindow& grid, const wxRect& cell)
{
    return {cell.x, cell.y, cell.width, cell.height, grid.FromDIP(100) / 100.0};
}

void TemplateCellRenderer::Draw(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, const wxRect& rect, int row, int col,
                                bool selected)
{
    fill(dc, rect, selected ? palette().accent : row % 2 == 0 ? palette().field : palette().alternateField);
    DcCellPainter painter(grid, attr, dc, rect, selected);
    drawContent(painter, grid.GetCellValue(row, col).utf8_string());
}

void TemplateCellRenderer::drawContent(CellPainter& painter, const std::string& text) const
{
    if (!text.empty())
        painter.drawText(text, 1.0);
}

void ColumnCellRenderer::drawContent(CellPainter& painter, const std::string& text) const
{
    m_column->draw(painter, text);
}

TemplateHeadings::TemplateHeadings(const HeadingState& state, const TemplateRows& rows) : m_rows(rows), m_column(state)
{
}

const wxGridColumnHeaderRenderer& TemplateHeadings::GetColumnHeaderRenderer(int col)
{
    m_column.m_column = col;
    return m_column;
}

const wxGridRowHeaderRenderer& TemplateHeadings::GetRowHeaderRenderer(int row)
{
    m_row.m_edited = static_cast<std::size_t>(row) < m_rows.size() && m_rows.isEdited(static_cast<std::size_t>(row));
    return m_row;
}

void TemplateHeadings::ColumnHeading::DrawBorder(const wxGrid&, wxDC& dc, wxRect& rect) const
{
    drawHeading(dc, rect, m_state.backColour == util::TemplateInfo::noColour ? palette().heading : m_state.backColour);
}

void TemplateHeadings::ColumnHeading::DrawLabel(const wxGrid& grid, wxDC& dc, const wxString& value, const wxRect& rect,
                                                int, int, int) const
{
    const bool ownColour = m_state.textColour != util::TemplateInfo::noColour;
    const wxColour colour = toColour(ownColour ? m_state.textColour : palette().headingText);
    dc.SetTextForeground(colour);
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    for (std::size_t level = 0; level < m_state.sortMarks.size(); ++level)
    {
        if (m_state.sortMarks[level].column != m_column)
            continue;
        // Above the text, so that it takes none of its width.
        const int half = grid.FromDIP(5);
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(colour));
        drawArrow(dc, {rect.x + rect.width / 2, rect.y + half}, half, m_state.sortMarks[level].ascending);
        if (m_state.sortMarks.size() > 1)
        {
            constexpr float ofTheText = 0.7F;
            dc.SetFont(grid.GetLabelFont().Scaled(ofTheText));
            dc.DrawText(std::to_string(level + 1), rect.x + rect.width / 2 + 2 * half, rect.y);
        }
    }
    dc.SetFont(grid.GetLabelFont());
    const int width = headingTextWidth(grid, rect.width);
    const wxRect inside = wxRect(rect).Deflate((rect.width - width) / 2, 0);
    // A single word may still be too long.
    grid.DrawTextRectangle(dc, wxControl::Ellipsize(wrappedHeading(value, width, dc), dc, wxELLIPSIZE_END, width),
                           inside, wxALIGN_LEFT, wxALIGN_CENTRE);
}

void TemplateHeadings::RowHeading::DrawBorder(const wxGrid&, wxDC& dc, wxRect& rect) const
{
    drawHeading(dc, rect, palette().heading);
}

void TemplateHeadings::RowHeading::DrawLabel(const wxGrid& grid, wxDC& dc, const wxString&, const wxRect& rect, int,
                                             int, int) const
{
    if (!m_edited)
        return;
    // A pencil.
    const int edge = grid.FromDIP(5);
    const wxPoint middle(rect.x + rect.width / 2, rect.y + rect.height / 2);
    dc.SetPen(wxPen(toColour(palette().headingText), grid.FromDIP(3)));
    dc.DrawLine(middle.x - edge + 2, middle.y + edge - 2, middle.x + edge, middle.y - edge);
    dc.SetPen(wxPen(toColour(palette().headingText), 1));
    dc.DrawLine(middle.x - edge, middle.y + edge, middle.x - edge + 3, middle.y + edge - 3);
}

void TemplateHeadings::Corner::DrawBorder(const wxGrid&, wxDC& dc, wxRect& rect) const
{
    drawHeading(dc, rect, palette().heading);
}

} // namespace TessaronResources
