#include "templates/dialogs/TemplateSortGrid.h"

#include "frame/Translation.h"
#include "frame/looks/VisualManager.h"
#include "frame/native/NativeToolkit.h"
#include "templates/grid/GridSetup.h"

#include <algorithm>

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

template <class Texts>
wxArrayString toStrings(const Texts& texts)
{
    wxArrayString result;
    for (const std::string& text : texts)
        result.Add(wxString::FromUTF8(text));
    return result;
}

} // namespace

TemplateSortGrid::TemplateSortGrid(wxWindow* parent, int id, TemplateSortLevels& levels)
    : wxGrid(parent, id), m_levels(levels)
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
    Bind(wxEVT_GRID_CELL_CHANGED, &TemplateSortGrid::onChanged, this);
    Bind(wxEVT_GRID_CELL_LEFT_CLICK, &TemplateSortGrid::onClick, this);
    Bind(wxEVT_GRID_EDITOR_CREATED,
         [](wxGridEditorCreatedEvent& event) { VisualManager::current().apply(*event.GetWindow()); });
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
    const wxArrayString titles = toStrings(m_levels.columnTitles());
    for (int row = 0; row < count; ++row)
    {
        const auto level = static_cast<std::size_t>(row);
        SetCellValue(row, captionColumn, wxString::FromUTF8(TemplateSortLevels::caption(level)));
        SetReadOnly(row, captionColumn);
        SetCellEditor(row, titleColumn, new wxGridCellChoiceEditor(titles));
        SetCellValue(row, titleColumn, titles[m_levels.columnOf(level)]);
        const wxArrayString orders = toStrings(m_levels.orderTexts(level));
        SetCellEditor(row, orderColumn, new wxGridCellChoiceEditor(orders));
        SetCellValue(row, orderColumn, orders[m_levels.levels()[level].descending ? 1 : 0]);
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
    const wxString text = GetCellValue(event.GetRow(), event.GetCol());
    if (event.GetCol() == titleColumn)
    {
        const int column = toStrings(m_levels.columnTitles()).Index(text);
        if (column != wxNOT_FOUND)
            m_levels.setColumn(level, static_cast<std::size_t>(column));
    }
    else
        m_levels.setDescending(level, text == wxString::FromUTF8(m_levels.orderTexts(level)[1]));
    // The orders on offer follow the column. Not now: the editor is still on its way out.
    CallAfter([this, level] { showLevels(level); });
}

void TemplateSortGrid::onClick(wxGridEvent& event)
{
    event.Skip();
    if (event.GetCol() == captionColumn)
        return;
    CallAfter(
        [this, row = event.GetRow(), column = event.GetCol()]
        {
            if (row < GetNumberRows())
            {
                SetGridCursor(row, column);
                EnableCellEditControl();
            }
        });
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
