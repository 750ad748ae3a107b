#include "templates/dialogs/TemplateSortGrid.h"

#include "frame/Translation.h"
#include "frame/native/NativeToolkit.h"
#include "templates/grid/GridSetup.h"
#include "templates/grid/ListCellEditor.h"

#include <algorithm>
#include <string>
#include <vector>

namespace TessaronResources
{

namespace
{

enum Column
{
    captionColumn,
    titleColumn,
    orderColumn,
    columnCount
};

} // namespace

TemplateSortGrid::TemplateSortGrid(wxWindow* parent, int id, TemplateSortLevels& levels)
    : EditingGrid(parent, id), m_levels(levels)
{
    CreateGrid(0, columnCount, wxGridSelectRows);
    GetTable()->SetAttrProvider(new TemplateHeadings(m_headings, m_noTemplates));
    SetColLabelValue(captionColumn, translatedLabel("Sort"));
    SetColLabelValue(titleColumn, translatedLabel("Column"));
    SetColLabelValue(orderColumn, translatedLabel("Order"));
    HideRowLabels();
    native::setAccessibleName(*this, translatedLabel("Sort"));
    DisableDragRowSize();
    SetDefaultRowSize(FromDIP(26));
    SetColLabelSize(FromDIP(26));
    SetDefaultCellAlignment(wxALIGN_LEFT, wxALIGN_CENTRE);
    SetLabelFont(GetFont());
    SetDefaultRenderer(new TemplateCellRenderer);
    applyPalette(*this);
    Bind(wxEVT_GRID_CELL_LEFT_CLICK, &TemplateSortGrid::onClick, this);
    Bind(wxEVT_GRID_CELL_CHANGED, &TemplateSortGrid::onChanged, this);
    Bind(wxEVT_SIZE,
         [this](wxSizeEvent& event)
         {
             spreadColumns();
             event.Skip();
         });
}

void TemplateSortGrid::showLevels(std::size_t selected)
{
    DisableCellEditControl();
    const auto count = static_cast<int>(m_levels.levels().size());
    if (GetNumberRows() > count)
        DeleteRows(count, GetNumberRows() - count);
    else if (GetNumberRows() < count)
        AppendRows(count - GetNumberRows());
    const std::vector<std::string> titles = m_levels.columnTitles();
    for (int row = 0; row < count; ++row)
    {
        const auto level = static_cast<std::size_t>(row);
        SetCellValue(row, captionColumn, wxString::FromUTF8(TemplateSortLevels::caption(level)));
        SetReadOnly(row, captionColumn);
        SetCellEditor(row, titleColumn, new ListCellEditor(titles));
        SetCellValue(row, titleColumn, wxString::FromUTF8(titles[m_levels.columnOf(level)]));
        const auto& orders = m_levels.orderTexts(level);
        SetCellEditor(row, orderColumn, new ListCellEditor({orders.begin(), orders.end()}));
        SetCellValue(row, orderColumn, wxString::FromUTF8(orders[m_levels.levels()[level].descending ? 1 : 0]));
    }
    if (selected < m_levels.levels().size())
    {
        SetGridCursor(static_cast<int>(selected), titleColumn);
        SelectRow(static_cast<int>(selected));
    }
    spreadColumns();
}

std::size_t TemplateSortGrid::selectedLevel() const
{
    const int row = GetGridCursorRow();
    return row >= 0 && row < GetNumberRows() ? static_cast<std::size_t>(row) : m_levels.levels().size();
}

void TemplateSortGrid::onChanged(wxGridEvent& event)
{
    const auto level = static_cast<std::size_t>(event.GetRow());
    const std::string text = GetCellValue(event.GetRow(), event.GetCol()).utf8_string();
    const std::vector<std::string> titles = m_levels.columnTitles();
    if (event.GetCol() == orderColumn)
        m_levels.setDescending(level, text == m_levels.orderTexts(level)[1]);
    else if (const auto title = std::find(titles.begin(), titles.end(), text); title != titles.end())
        m_levels.setColumn(level, static_cast<std::size_t>(title - titles.begin()));
    // The orders on offer follow the column. Not now: the editor is still on its way out.
    CallAfter(
        [this, level, col = event.GetCol()]
        {
            showLevels(level);
            if (level < m_levels.levels().size())
                SetGridCursor(static_cast<int>(level), col);
        });
}

void TemplateSortGrid::onClick(wxGridEvent& event)
{
    if (event.GetCol() == captionColumn)
    {
        event.Skip();
        return;
    }
    // The toolkit itself would begin with a second click.
    DisableCellEditControl();
    GetGridWindow()->SetFocus();
    SetGridCursor(event.GetRow(), event.GetCol());
    SelectRow(event.GetRow());
    CallAfter([this] { EnableCellEditControl(); });
}

void TemplateSortGrid::spreadColumns()
{
    const int width = GetClientSize().x;
    const int caption = std::min(width / 4, FromDIP(90));
    SetColSize(captionColumn, caption);
    SetColSize(titleColumn, (width - caption) / 2);
    SetColSize(orderColumn, width - caption - (width - caption) / 2);
}

} // namespace TessaronResources
