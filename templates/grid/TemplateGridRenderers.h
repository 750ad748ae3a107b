#ifndef TEMPLATES_GRID_TEMPLATEGRIDRENDERERS_H
#define TEMPLATES_GRID_TEMPLATEGRIDRENDERERS_H

#include "templates/TemplateRows.h"
#include "templates/columns/GridColumnInfo.h"

#include <wx/grid.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace TessaronResources
{

/// The arrow of a column that the rows are sorted by.
struct SortMark
{
    int column;
    bool ascending;
};

/// What the headings of the template grid show besides their titles.
struct HeadingState
{
    std::vector<SortMark> sortMarks; ///< one a sort level, the first level first
    std::uint32_t textColour = util::TemplateInfo::noColour;
    std::uint32_t backColour = util::TemplateInfo::noColour;
};

/// What a cell leaves free on both sides of its text, as designed for a scale of 1.
inline constexpr int cellMargin = 4;

/// A cell's place, as columns take it.
CellArea cellArea(const wxWindow& grid, const wxRect& cell);

/// A cell of text. Selected rows have the look's accent, every other row a slightly different background.
class TemplateCellRenderer : public wxGridCellStringRenderer
{
public:
    void Draw(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, const wxRect& rect, int row, int col,
              bool selected) override;
    TemplateCellRenderer* Clone() const override { return new TemplateCellRenderer; }

private:
    virtual void drawContent(CellPainter& painter, const std::string& text) const;
};

/// A cell as its column draws it.
class ColumnCellRenderer : public TemplateCellRenderer
{
public:
    explicit ColumnCellRenderer(GridColumnPtr column) : m_column(std::move(column)) {}
    ColumnCellRenderer* Clone() const override { return new ColumnCellRenderer(m_column); }

private:
    void drawContent(CellPainter& painter, const std::string& text) const override;

    GridColumnPtr m_column;
};

/// Draws the headings in the look in force, with the arrow of the sorted column, and marks edited rows.
class TemplateHeadings : public wxGridCellAttrProvider
{
public:
    /// Both are not owned.
    TemplateHeadings(const HeadingState& state, const TemplateRows& rows);

    const wxGridColumnHeaderRenderer& GetColumnHeaderRenderer(int col) override;
    const wxGridRowHeaderRenderer& GetRowHeaderRenderer(int row) override;
    const wxGridCornerHeaderRenderer& GetCornerRenderer() override { return m_corner; }

private:
    class ColumnHeading : public wxGridColumnHeaderRenderer
    {
    public:
        explicit ColumnHeading(const HeadingState& state) : m_state(state) {}
        void DrawBorder(const wxGrid& grid, wxDC& dc, wxRect& rect) const override;
        void DrawLabel(const wxGrid& grid, wxDC& dc, const wxString& value, const wxRect& rect, int horizAlign,
                       int vertAlign, int textOrientation) const override;
        int m_column = -1;

    private:
        const HeadingState& m_state;
    };

    class RowHeading : public wxGridRowHeaderRenderer
    {
    public:
        void DrawBorder(const wxGrid& grid, wxDC& dc, wxRect& rect) const override;
        void DrawLabel(const wxGrid&, wxDC& dc, const wxString&, const wxRect& rect, int, int, int) const override;
        bool m_edited = false;
    };

    class Corner : public wxGridCornerHeaderRenderer
    {
    public:
        void DrawBorder(const wxGrid& grid, wxDC& dc, wxRect& rect) const override;
        void DrawLabel(const wxGrid&, wxDC&, const wxString&, const wxRect&, int, int, int) const override {}
    };

    const TemplateRows& m_rows;
    ColumnHeading m_column;
    RowHeading m_row;
    Corner m_corner;
};

} // namespace TessaronResources

#endif
