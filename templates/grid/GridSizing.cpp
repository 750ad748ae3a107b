#include "templates/grid/GridSizing.h"

#include "templates/TemplateRows.h"

#include <wx/arrstr.h>
#include <wx/dc.h>
#include <wx/grid.h>

#include <algorithm>
#include <string>

namespace TessaronResources
{

namespace
{

constexpr int cellMargin = 5;
constexpr int headingMargin = 4;
constexpr int headingPadding = 14; // room for the sort arrow above the text
constexpr int largestAutoColumn = 400;
// Measuring every cell of a long list would take seconds; this many rows, spread over it, tell enough.
constexpr int sampledRows = 300;

} // namespace

int fittingColumnWidth(wxGrid& grid, wxDC& dc, const GridColumnInfo& column)
{
    dc.SetFont(grid.GetLabelFont());
    int width = dc.GetTextExtent(grid.GetColLabelValue(column.index)).x + grid.FromDIP(4 * cellMargin);
    if (column.appearance().isText)
    {
        dc.SetFont(grid.GetDefaultCellFont());
        const int rows = grid.GetNumberRows();
        const int step = std::max(1, rows / sampledRows);
        for (int row = 0; row < rows; row += step)
            width = std::max(width, dc.GetMultiLineTextExtent(grid.GetCellValue(row, column.index)).x +
                                        grid.FromDIP(3 * cellMargin));
    }
    return std::min(width, grid.FromDIP(largestAutoColumn));
}

wxString wrappedHeading(const wxString& title, int width, const wxDC& dc)
{
    wxString wrapped;
    wxString line;
    for (const wxString& word : wxSplit(title, ' ', '\0'))
    {
        const wxString longer = line.empty() ? word : line + " " + word;
        if (line.empty() || dc.GetTextExtent(longer).x <= width)
        {
            line = longer;
            continue;
        }
        wrapped += line + "\n";
        line = word;
    }
    return wrapped + line;
}

int headingTextWidth(const wxGrid& grid, int columnWidth)
{
    return columnWidth - 2 * grid.FromDIP(headingMargin);
}

int fittingHeadingHeight(const wxGrid& grid, wxDC& dc, const std::vector<GridColumnPtr>& columns)
{
    dc.SetFont(grid.GetLabelFont());
    int lines = 1;
    for (const GridColumnPtr& column : columns)
        if (column->definition().shown)
            lines = std::max(lines, 1 + wrappedHeading(grid.GetColLabelValue(column->index),
                                                       headingTextWidth(grid, grid.GetColSize(column->index)), dc)
                                            .Freq('\n'));
    return lines * dc.GetCharHeight() + grid.FromDIP(headingPadding);
}

std::vector<int> extraTextLines(const TemplateRows& rows, const std::vector<GridColumnPtr>& columns)
{
    std::vector<std::string> keys;
    for (const GridColumnPtr& column : columns)
        if (column->definition().shown && column->appearance().isMultiLine)
            keys.push_back(column->definition().key);

    const std::vector<std::size_t> places = rows.valuePlaces(keys);
    std::vector<int> extra(rows.size());
    bool any = false;
    for (std::size_t row = 0; row < extra.size(); ++row)
    {
        const ColumnValues::Values& values = rows.valuesAt(row);
        for (const std::size_t place : places)
            if (const auto* const text = boost::get<std::string>(values[place]))
            {
                const auto breaks = static_cast<int>(std::count(text->begin(), text->end(), '\n'));
                extra[row] = std::max(extra[row], breaks);
                any = any || breaks > 0;
            }
    }
    return any ? extra : std::vector<int>();
}

} // namespace TessaronResources
