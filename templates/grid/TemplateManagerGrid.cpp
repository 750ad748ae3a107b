#include "templates/grid/TemplateManagerGrid.h"

#include "frame/Translation.h"
#include "frame/native/NativeToolkit.h"
#include "templates/columns/ColumnKinds.h"
#include "templates/grid/GridFont.h"
#include "templates/grid/GridSetup.h"
#include "templates/grid/GridSizing.h"
#include "templates/grid/ListCellEditor.h"
#include "templates/grid/TemplateGridTable.h"

#include <wx/dcclient.h>
#include <wx/generic/gridsel.h>

#include <algorithm>
#include <numeric>

namespace TessaronResources
{

namespace
{

constexpr int rowMarkWidth = 22;
constexpr int rowPadding = 8;
constexpr int smallestColumn = 24;
constexpr int nameColumn = 0;

} // namespace

TemplateManagerGrid::TemplateManagerGrid(wxWindow* parent, int id, TemplateSession& session,
                                         TemplateGridCommands& commands)
    : EditingGrid(parent, id, wxWANTS_CHARS | wxBORDER_NONE), m_session(session), m_commands(commands),
      m_table(new TemplateGridTable(session)), m_hint(*this), m_input(*this, *m_table, session, commands),
      m_tip(*this, *m_table)
{
    m_table->SetAttrProvider(new TemplateHeadings(m_headings, session.rows()));
    SetTable(m_table, true, wxGridSelectRows);
    SetRowLabelSize(FromDIP(rowMarkWidth));
    SetColMinimalAcceptableWidth(FromDIP(smallestColumn));
    DisableDragRowSize();
    EnableDragColMove();
    DisableHidingColumns();
    SetTabBehaviour(Tab_Leave);
    native::setAccessibleName(*this, translatedLabel("Templates"));

    Bind(wxEVT_GRID_COL_SIZE,
         [this](wxGridSizeEvent& event)
         {
             const auto col = static_cast<std::size_t>(event.GetRowOrCol());
             for (util::TemplateColumn& column : m_session.info().columns)
                 if (col < m_table->columns().size() && &column == &m_table->columns()[col]->definition())
                     column.width = ToDIP(GetColSize(event.GetRowOrCol()));
             m_session.info().headingHeight = -1;
             fitHeadings();
             event.Skip();
         });
    Bind(wxEVT_GRID_COL_MOVE,
         [this](wxGridEvent& event)
         {
             event.Skip();
             CallAfter([this] { onColumnMoved(); });
         });
    GetGridWindow()->Bind(wxEVT_SIZE,
                          [this](wxSizeEvent& event)
                          {
                              updateHint();
                              event.Skip();
                          });
    applyLook();
    session.addObserver(*this);
}

void TemplateManagerGrid::rowsEdited()
{
    GetGridRowLabelWindow()->Refresh();
    GetGridWindow()->Refresh();
}

// Columns and look

void TemplateManagerGrid::setHeading(int column, const std::string&, int width, const std::string&,
                                     std::uint32_t textColour, std::uint32_t backColour)
{
    m_headings.textColour = textColour;
    m_headings.backColour = backColour;
    SetColSize(column, FromDIP(std::max(width, smallestColumn)));
}

void TemplateManagerGrid::rebuildColumns()
{
    finishEdit();
    Held before = held();
    const std::string current = before.column >= 0 ? m_columnKeys[static_cast<std::size_t>(before.column)] : "";
    BeginBatch();
    m_table->setColumns(makeGridColumns(m_session.info().columns, true));
    ResetColPos();
    m_columnKeys.clear();
    for (const GridColumnPtr& column : m_table->columns())
    {
        setUpColumn(column);
        m_columnKeys.push_back(column->definition().key);
    }
    showSortMarks();
    sizeColumns();
    sizeRows();
    fitHeadings();
    EndBatch();
    updateHint();
    if (before.column < 0 || m_table->columns().empty())
        return;
    before.column = std::max(columnOf(current), nameColumn);
    if (!IsColShown(before.column))
        before.column = nameColumn;
    std::vector<std::size_t> sameRows(m_session.rows().size());
    std::iota(sameRows.begin(), sameRows.end(), std::size_t{0});
    restore(before, sameRows);
}

int TemplateManagerGrid::columnOf(const std::string& key) const
{
    const auto found = std::find(m_columnKeys.begin(), m_columnKeys.end(), key);
    return found == m_columnKeys.end() ? wxNOT_FOUND : static_cast<int>(found - m_columnKeys.begin());
}

void TemplateManagerGrid::showSortMarks()
{
    m_headings.sortMarks.clear();
    for (const util::TemplateSortLevel& level : m_session.info().sortLevels)
        if (const int column = columnOf(level.key); column >= 0)
            m_headings.sortMarks.push_back({column, !level.descending});
}

void TemplateManagerGrid::setUpColumn(const GridColumnPtr& column)
{
    auto* const attr = new wxGridCellAttr;
    attr->SetAlignment(column->appearance().alignment == CellAlignment::right ? wxALIGN_RIGHT : wxALIGN_LEFT,
                       wxALIGN_CENTRE);
    attr->SetReadOnly(!column->isEditable() || !column->enabled || column->editor() == CellEditor::direct);
    attr->SetRenderer(new ColumnCellRenderer(column));
    if (column->editor() == CellEditor::list)
        attr->SetEditor(new ListCellEditor(column->choices()));
    SetColAttr(column->index, attr);
    ShowCol(column->index);
    column->setupHeading(*this, m_session.info().headingTextColour, m_session.info().headingBackColour);
    if (!column->definition().shown)
        HideCol(column->index);
}

void TemplateManagerGrid::applyLook()
{
    finishEdit();
    applyPalette(*this);
    wxFont font = gridFont(m_session.info().preferences.font);
    SetDefaultCellFont(font);
    SetLabelFont(font);
    m_hint.applyLook();
    sizeRows();
    fitHeadings();
    ForceRefresh();
}

void TemplateManagerGrid::sizeColumns()
{
    if (!m_session.info().preferences.autoSizeColumns)
        return;
    wxClientDC dc(this);
    for (const GridColumnPtr& column : m_table->columns())
        if (column->definition().shown)
            SetColSize(column->index, fittingColumnWidth(*this, dc, *column));
}

void TemplateManagerGrid::fitHeadings()
{
    wxClientDC dc(this);
    const int stored = m_session.info().headingHeight;
    SetColLabelSize(std::max(stored, fittingHeadingHeight(*this, dc, m_table->columns())));
}

void TemplateManagerGrid::sizeRows()
{
    wxClientDC dc(this);
    dc.SetFont(GetDefaultCellFont());
    const int line = dc.GetCharHeight();
    SetDefaultRowSize(line + FromDIP(rowPadding), true);
    if (!m_session.info().preferences.autoSizeRows)
        return;
    const std::vector<int> extraLines = extraTextLines(m_session.rows(), m_table->columns());
    if (extraLines.empty())
        return;
    std::vector<int> heights;
    heights.reserve(extraLines.size());
    for (const int extra : extraLines)
        heights.push_back(GetDefaultRowSize() + extra * line);
    setRowHeights(heights);
}

void TemplateManagerGrid::setRowHeights(const std::vector<int>& heights)
{
    // The toolkit's own way, row by row, moves all the rows below each time.
    m_rowHeights.clear();
    m_rowHeights.reserve(heights.size());
    m_rowBottoms.clear();
    m_rowBottoms.reserve(heights.size());
    int bottom = 0;
    for (const int height : heights)
    {
        bottom += height;
        m_rowHeights.push_back(height);
        m_rowBottoms.push_back(bottom);
    }
    CalcDimensions();
}

void TemplateManagerGrid::onColumnMoved()
{
    std::vector<util::TemplateColumn> columns;
    columns.reserve(m_session.info().columns.size());
    for (int position = 0; position < GetNumberCols(); ++position)
        columns.push_back(m_table->column(GetColAt(position)).definition());
    for (const util::TemplateColumn& column : m_session.info().columns)
        if (!column.offered)
            columns.push_back(column);
    // The name column stays where it is.
    if (GetNumberCols() > 0 && GetColAt(0) == nameColumn)
        m_session.info().columns = columns;
    m_commands.columnsChanged();
}

// Rows

void TemplateManagerGrid::rowsReplaced(const std::vector<std::size_t>& former)
{
    const Held before = held();
    ClearSelection();
    showSortMarks();
    BeginBatch();
    m_table->rowsChanged();
    sizeColumns();
    sizeRows();
    fitHeadings();
    EndBatch();
    updateHint();
    restore(before, former);
    ForceRefresh();
}

void TemplateManagerGrid::restore(const Held& before, const std::vector<std::size_t>& former)
{
    std::vector<bool> selected(former.size());
    int current = std::min(before.row, static_cast<int>(former.size()) - 1);
    for (std::size_t row = 0; row < former.size(); ++row)
    {
        if (former[row] == newRow)
            continue;
        selected[row] = std::binary_search(before.selected.begin(), before.selected.end(), former[row]);
        if (static_cast<int>(former[row]) == before.row)
            current = static_cast<int>(row);
    }
    if (current >= 0 && before.column >= 0)
        GoToCell(current, before.column);
    select(selected);
}

void TemplateManagerGrid::updateHint()
{
    m_hint.update(m_session.info().preferences.matchFilter != 0);
}

void TemplateManagerGrid::finishEdit()
{
    DisableCellEditControl();
}

std::vector<std::size_t> TemplateManagerGrid::selectedRows() const
{
    std::vector<std::size_t> rows;
    for (const wxGridBlockCoords& block : GetSelectedBlocks())
        for (int row = block.GetTopRow(); row <= block.GetBottomRow(); ++row)
            rows.push_back(static_cast<std::size_t>(row));
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::optional<std::size_t> TemplateManagerGrid::chosenRow() const
{
    const int current = GetGridCursorRow();
    if (current >= 0 && IsInSelection(current, nameColumn))
        return static_cast<std::size_t>(current);
    const std::vector<std::size_t> selected = selectedRows();
    return selected.empty() ? std::nullopt : std::optional(selected.front());
}

void TemplateManagerGrid::select(const std::vector<bool>& selected)
{
    ClearSelection();
    // The toolkit's own way, block by block, compares each with all that are there, and tells everyone of each.
    wxVectorGridBlockCoords& blocks = m_selection->GetBlocks();
    const auto count = static_cast<int>(selected.size());
    const auto isSelected = [&](int row) { return selected[static_cast<std::size_t>(row)]; };
    for (int row = 0; row < count; ++row)
        if (isSelected(row))
        {
            const int first = row;
            while (row + 1 < count && isSelected(row + 1))
                ++row;
            blocks.push_back(wxGridBlockCoords(first, 0, row, GetNumberCols() - 1));
        }
    if (blocks.empty())
        return;
    const wxGridBlockCoords last = blocks.back();
    blocks.pop_back();
    SelectBlock(last.GetTopLeft(), last.GetBottomRight(), true);
}

void TemplateManagerGrid::sortBy(const std::vector<util::TemplateSortLevel>& levels)
{
    finishEdit();
    m_session.sort(levels);
    showSortMarks();
    ForceRefresh();
}

void TemplateManagerGrid::rowsReordered(const std::vector<std::size_t>& order)
{
    const Held before = held();
    std::vector<int> heights;
    if (!m_rowHeights.empty())
        for (const std::size_t former : order)
            heights.push_back(m_rowHeights[former]);
    if (!heights.empty())
        setRowHeights(heights);
    restore(before, order);
}

void TemplateManagerGrid::sortByHeading(int column)
{
    const std::string key = m_table->column(column).definition().key;
    const std::vector<util::TemplateSortLevel>& levels = m_session.info().sortLevels;
    const bool again = levels.size() == 1 && levels.front().key == key;
    sortBy({{key, again && !levels.front().descending}});
}

void TemplateManagerGrid::quickSort(bool descending)
{
    const int col = std::max(GetGridCursorCol(), 0);
    if (col < GetNumberCols())
        sortBy({{m_table->column(col).definition().key, descending}});
}

TemplateFind::Result TemplateManagerGrid::findNext(const std::string& text)
{
    finishEdit();
    const TemplateFind::Result result = m_find.findNext(text, m_session.rows(), m_table->columns());
    if (result == TemplateFind::Result::found)
    {
        GoToCell(m_find.hit().row, m_find.hit().column);
        SelectRow(m_find.hit().row);
    }
    return result;
}

wxRect TemplateManagerGrid::currentCellOnScreen() const
{
    const wxRect cell = CellToRect(GetGridCursorCoords());
    return {GetGridWindow()->ClientToScreen(CalcScrolledPosition(cell.GetPosition())), cell.GetSize()};
}

} // namespace TessaronResources
