#include "templates/GridSizing.h"

#include "templates/TemplateRows.h"

#include <wx/dc.h>
#include <wx/grid.h>

#include <algorithm>
#include <string>

namespace TessaronResources
{

namespace
{

constexpr int cellMargin = 5;
constexpr int largestAutoColumn = 400;
// Measuring every cell of a long list would take seconds; this many rows, spread over it, tell enough.
constexpr int sampledRows = 300;

} // namespace

int fittingColumnWidth(wxGrid& grid, wxDC& dc, const GridColumnInfo& column)
{
    dc.SetFont(grid.GetLabelFont());
    // Room for the sort arrow as well.
    int width = dc.GetTextExtent(grid.GetColLabelValue(column.index)).x + grid.FromDIP(4 * cellMargin);
    if (column.definition().type != util::templateColumnType::rating)
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

std::vector<int> extraTextLines(const TemplateRows& rows, const std::vector<GridColumnPtr>& columns)
{
    std::vector<std::string> keys;
    for (const GridColumnPtr& column : columns)
        if (column->definition().shown && column->definition().type == util::templateColumnType::text)
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
