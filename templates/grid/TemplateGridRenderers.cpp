#include "templates/grid/TemplateGridRenderers.h"

#include "frame/PaletteColour.h"
#include "frame/looks/VisualManager.h"
#include "templates/grid/GridSizing.h"

#include <wx/control.h>
#include <wx/dc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace TessaronResources
{

namespace
{

constexpr int largestStar = 18;
constexpr int cellMargin = 4;

const VisualPalette& look()
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
    dc.SetPen(wxPen(toColour(mixed(look().heading, look().border, 0.7))));
    dc.DrawLine(rect.GetRight(), rect.GetTop(), rect.GetRight(), rect.GetBottom() + 1);
    dc.DrawLine(rect.GetLeft(), rect.GetBottom(), rect.GetRight() + 1, rect.GetBottom());
    rect.width -= 1;
    rect.height -= 1;
}

void drawStar(wxDC& dc, wxPoint2DDouble centre, double radius)
{
    constexpr int corners = 10;
    constexpr double innerShare = 0.42;
    std::array<wxPoint, corners> points;
    for (int k = 0; k < corners; ++k)
    {
        const double r = k % 2 == 0 ? radius : radius * innerShare;
        const double angle = std::numbers::pi * (k * 2.0 / corners - 0.5);
        points[static_cast<std::size_t>(k)] = wxPoint(static_cast<int>(std::lround(centre.m_x + r * std::cos(angle))),
                                                      static_cast<int>(std::lround(centre.m_y + r * std::sin(angle))));
    }
    dc.DrawPolygon(corners, points.data());
}

void drawArrow(wxDC& dc, wxPoint middle, int half, bool ascending)
{
    const int tip = ascending ? -half / 2 : half / 2;
    const wxPoint points[] = {
        {middle.x - half, middle.y - tip}, {middle.x + half, middle.y - tip}, {middle.x, middle.y + tip}};
    dc.DrawPolygon(3, points);
}

} // namespace

void TemplateCellRenderer::drawBackground(wxDC& dc, const wxRect& rect, int row, bool selected) const
{
    fill(dc, rect, selected ? look().accent : row % 2 == 0 ? look().field : look().alternateField);
}

void TemplateCellRenderer::Draw(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, const wxRect& rect, int row, int col,
                                bool selected)
{
    drawBackground(dc, rect, row, selected);
    const wxString text = grid.GetCellValue(row, col);
    if (text.empty())
        return;
    const wxRect inside = wxRect(rect).Deflate(grid.FromDIP(cellMargin), 1);
    dc.SetFont(attr.GetFont());
    fitFont(dc, text, inside.width);
    dc.SetTextForeground(toColour(selected ? look().accentText : look().fieldText));
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    int horizontal = 0;
    int vertical = 0;
    attr.GetAlignment(&horizontal, &vertical);
    const bool oneLine = text.find('\n') == wxString::npos;
    grid.DrawTextRectangle(dc, oneLine ? wxControl::Ellipsize(text, dc, wxELLIPSIZE_END, inside.width) : text, inside,
                           horizontal, vertical);
}

void DateCellRenderer::fitFont(wxDC& dc, const wxString& text, int width) const
{
    // In steps, so that a column looks like one.
    constexpr double steps = 20.0;
    constexpr double smallest = 0.75;
    const int needed = dc.GetTextExtent(text).x;
    if (needed > width)
        dc.SetFont(
            dc.GetFont().Scaled(static_cast<float>(std::max(smallest, std::floor(steps * width / needed) / steps))));
}

StarRow RatingCellRenderer::stars(const wxWindow& grid, const wxRect& cell)
{
    return starRow(cell.x, cell.y, cell.width, cell.height, grid.FromDIP(largestStar));
}

void RatingCellRenderer::Draw(wxGrid& grid, wxGridCellAttr&, wxDC& dc, const wxRect& rect, int row, int col,
                              bool selected)
{
    drawBackground(dc, rect, row, selected);
    double rating = 0.0;
    const bool rated = grid.GetCellValue(row, col).ToCDouble(&rating);
    if (!rated && !selected)
        return;
    const StarRow place = stars(grid, rect);
    const wxColour full = toColour(selected ? look().accentText : look().mark);
    const wxColour outline = toColour(selected ? look().accentText : mixed(look().mark, look().field, 0.35));
    dc.SetPen(wxPen(outline));
    for (int k = 0; k < ratingStars; ++k)
    {
        dc.SetBrush(rating >= k + 0.5 ? wxBrush(full) : *wxTRANSPARENT_BRUSH);
        drawStar(dc, {place.left + (k + 0.5) * place.edge, place.top + place.edge * 0.5}, place.edge * 0.45);
    }
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
    drawHeading(dc, rect, m_state.backColour == util::TemplateInfo::noColour ? look().heading : m_state.backColour);
}

void TemplateHeadings::ColumnHeading::DrawLabel(const wxGrid& grid, wxDC& dc, const wxString& value, const wxRect& rect,
                                                int, int, int) const
{
    const bool ownColour = m_state.textColour != util::TemplateInfo::noColour;
    const wxColour colour = toColour(ownColour ? m_state.textColour : look().headingText);
    if (m_column == m_state.sortColumn)
    {
        // Above the text, so that it takes none of its width.
        const int half = grid.FromDIP(5);
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(colour));
        drawArrow(dc, {rect.x + rect.width / 2, rect.y + half}, half, m_state.sortAscending);
    }
    dc.SetFont(grid.GetLabelFont());
    dc.SetTextForeground(colour);
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    const int width = headingTextWidth(grid, rect.width);
    const wxRect inside = wxRect(rect).Deflate((rect.width - width) / 2, 0);
    // A single word may still be too long.
    grid.DrawTextRectangle(dc, wxControl::Ellipsize(wrappedHeading(value, width, dc), dc, wxELLIPSIZE_END, width),
                           inside, wxALIGN_LEFT, wxALIGN_CENTRE);
}

void TemplateHeadings::RowHeading::DrawBorder(const wxGrid&, wxDC& dc, wxRect& rect) const
{
    drawHeading(dc, rect, look().heading);
}

void TemplateHeadings::RowHeading::DrawLabel(const wxGrid& grid, wxDC& dc, const wxString&, const wxRect& rect, int,
                                             int, int) const
{
    if (!m_edited)
        return;
    // A pencil.
    const int edge = grid.FromDIP(5);
    const wxPoint middle(rect.x + rect.width / 2, rect.y + rect.height / 2);
    dc.SetPen(wxPen(toColour(look().headingText), grid.FromDIP(3)));
    dc.DrawLine(middle.x - edge + 2, middle.y + edge - 2, middle.x + edge, middle.y - edge);
    dc.SetPen(wxPen(toColour(look().headingText), 1));
    dc.DrawLine(middle.x - edge, middle.y + edge, middle.x - edge + 3, middle.y + edge - 3);
}

void TemplateHeadings::Corner::DrawBorder(const wxGrid&, wxDC& dc, wxRect& rect) const
{
    drawHeading(dc, rect, look().heading);
}

} // namespace TessaronResources
