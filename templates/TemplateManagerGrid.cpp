#include "templates/TemplateManagerGrid.h"

#include "frame/NativeToolkit.h"
#include "frame/VisualManager.h"
#include "templates/FoldCase.h"
#include "templates/GridFont.h"
#include "templates/GridPlace.h"
#include "templates/TemplateGridTable.h"
#include "templates/TemplateMenu.h"
#include "templates/TemplateSort.h"

#include <wx/dcclient.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/time.h>

#include <algorithm>

namespace TessaronResources
{

namespace
{

constexpr int rowMarkWidth = 22;
constexpr int headingHeight = 28;
constexpr int cellMargin = 5;
constexpr int rowPadding = 8;
constexpr int smallestColumn = 24;
constexpr int largestAutoColumn = 400;
// Measuring every cell of a long list would take seconds; this many rows, spread over it, tell enough.
constexpr int sampledRows = 300;
constexpr int nameColumn = 0;
constexpr long typeAheadMilliseconds = 1000;

bool isTyping(const wxKeyEvent& event)
{
    return event.GetUnicodeKey() > WXK_SPACE && event.GetUnicodeKey() != WXK_DELETE &&
           (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
}

bool isNavigation(int key)
{
    switch (key)
    {
    case WXK_UP:
    case WXK_DOWN:
    case WXK_LEFT:
    case WXK_RIGHT:
    case WXK_PAGEUP:
    case WXK_PAGEDOWN:
    case WXK_HOME:
    case WXK_END:
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        return true;
    default:
        return false;
    }
}

} // namespace

TemplateManagerGrid::TemplateManagerGrid(wxWindow* parent, int id, TemplateSession& session,
                                         TemplateGridCommands& commands)
    : wxGrid(parent, id, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_NONE), m_session(session),
      m_commands(commands), m_table(new TemplateGridTable(session.rows(),
                                                          [this]
                                                          {
                                                              m_commands.templateEdited();
                                                              GetGridRowLabelWindow()->Refresh();
                                                              GetGridWindow()->Refresh();
                                                          }))
{
    m_table->SetAttrProvider(new TemplateHeadings(m_headings, session.rows()));
    SetTable(m_table, true, wxGridSelectRows);
    SetRowLabelSize(FromDIP(rowMarkWidth));
    SetColMinimalAcceptableWidth(FromDIP(smallestColumn));
    DisableDragRowSize();
    EnableDragColMove();
    DisableHidingColumns();
    SetTabBehaviour(Tab_Leave);
    native::setAccessibleName(*this, "Templates");

    Bind(wxEVT_GRID_CELL_LEFT_CLICK, &TemplateManagerGrid::onCellClick, this);
    Bind(wxEVT_GRID_CELL_RIGHT_CLICK, [this](wxGridEvent& event) { showMenu(event.GetRow()); });
    Bind(wxEVT_GRID_LABEL_RIGHT_CLICK, [this](wxGridEvent& event) { showMenu(event.GetRow()); });
    Bind(wxEVT_GRID_COL_SORT,
         [this](wxGridEvent& event)
         {
             event.Veto();
             const bool descending = m_headings.sortColumn == event.GetCol() && m_headings.sortAscending;
             sortBy({{m_table->column(event.GetCol()).definition().key, descending}});
         });
    Bind(wxEVT_GRID_COL_SIZE,
         [this](wxGridSizeEvent& event)
         {
             const auto col = static_cast<std::size_t>(event.GetRowOrCol());
             for (util::TemplateColumn& column : m_session.info().columns)
                 if (col < m_table->columns().size() && &column == &m_table->columns()[col]->definition())
                     column.width = ToDIP(GetColSize(event.GetRowOrCol()));
             event.Skip();
         });
    Bind(wxEVT_GRID_COL_MOVE,
         [this](wxGridEvent& event)
         {
             event.Skip();
             CallAfter([this] { onColumnMoved(); });
         });
    Bind(wxEVT_GRID_EDITOR_CREATED,
         [](wxGridEditorCreatedEvent& event) { VisualManager::current().apply(*event.GetWindow()); });
    Bind(wxEVT_KEY_DOWN, &TemplateManagerGrid::onKeyDown, this);
    Bind(wxEVT_CHAR, &TemplateManagerGrid::onChar, this);
    GetGridWindow()->Bind(wxEVT_SIZE,
                          [this](wxSizeEvent& event)
                          {
                              updateHint();
                              event.Skip();
                          });
    applyLook();
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
    const util::TemplateInfo& info = m_session.info();
    m_headings.sortColumn = -1;
    BeginBatch();
    m_table->setColumns(makeGridColumns(info.columns, true));
    ResetColPos();
    for (const GridColumnPtr& column : m_table->columns())
        setUpColumn(*column);
    SetColLabelSize(info.headingHeight > 0 ? info.headingHeight : FromDIP(headingHeight));
    sizeColumns();
    sizeRows();
    EndBatch();
    updateHint();
}

void TemplateManagerGrid::setUpColumn(const GridColumnInfo& column)
{
    const util::TemplateColumn& definition = column.definition();
    const bool isRating = definition.type == util::templateColumnType::rating;
    auto* const attr = new wxGridCellAttr;
    attr->SetAlignment(column.alignment() == CellAlignment::right ? wxALIGN_RIGHT : wxALIGN_LEFT, wxALIGN_CENTRE);
    // Stars are set by a click or a digit, not by typing over them.
    attr->SetReadOnly(!column.isEditable() || !column.enabled || isRating);
    attr->SetRenderer(isRating ? new RatingCellRenderer : new TemplateCellRenderer);
    if (const auto* const list = dynamic_cast<const GridColumnInfoListBox*>(&column))
    {
        wxArrayString choices;
        for (const std::string& choice : list->choices())
            choices.Add(wxString::FromUTF8(choice));
        attr->SetEditor(new wxGridCellChoiceEditor(choices));
    }
    SetColAttr(column.index, attr);
    ShowCol(column.index);
    column.setupHeading(*this, m_session.info().headingTextColour, m_session.info().headingBackColour);
    if (!definition.shown)
        HideCol(column.index);
}

void TemplateManagerGrid::applyLook()
{
    finishEdit();
    colourGrid(*this);
    wxFont font = gridFont(m_session.info().preferences.font);
    SetDefaultCellFont(font);
    SetLabelFont(font);
    colourHint();
    sizeRows();
    ForceRefresh();
}

void TemplateManagerGrid::colourHint()
{
    if (!m_hint)
        return;
    m_hint->SetForegroundColour(GetDefaultCellTextColour());
    m_hint->SetBackgroundColour(GetDefaultCellBackgroundColour());
}

void TemplateManagerGrid::sizeColumns()
{
    if (!m_session.info().preferences.autoSizeColumns)
        return;
    wxClientDC dc(this);
    dc.SetFont(GetDefaultCellFont());
    const int rows = GetNumberRows();
    const int step = std::max(1, rows / sampledRows);
    for (const GridColumnPtr& column : m_table->columns())
    {
        if (!column->definition().shown)
            continue;
        // Room for the sort arrow as well.
        int width = dc.GetTextExtent(GetColLabelValue(column->index)).x + FromDIP(4 * cellMargin);
        if (column->definition().type != util::templateColumnType::rating)
            for (int row = 0; row < rows; row += step)
                width = std::max(width, dc.GetMultiLineTextExtent(GetCellValue(row, column->index)).x +
                                            FromDIP(3 * cellMargin));
        SetColSize(column->index, std::min(width, FromDIP(largestAutoColumn)));
    }
}

void TemplateManagerGrid::sizeRows()
{
    wxClientDC dc(this);
    dc.SetFont(GetDefaultCellFont());
    const int line = dc.GetCharHeight();
    wxGridSizesInfo sizes;
    sizes.m_sizeDefault = line + FromDIP(rowPadding);
    const TemplateRows& rows = m_session.rows();
    if (m_session.info().preferences.autoSizeRows)
        for (const GridColumnPtr& column : m_table->columns())
        {
            const util::TemplateColumn& definition = column->definition();
            if (!definition.shown || definition.type != util::templateColumnType::text)
                continue;
            for (std::size_t row = 0; row < rows.size(); ++row)
            {
                const std::string* const text = rows.at(row).findString(definition.key);
                const auto lines = text ? std::count(text->begin(), text->end(), '\n') : 0;
                if (lines == 0)
                    continue;
                int& height = sizes.m_customSizes[static_cast<unsigned>(row)];
                height = std::max(height, sizes.m_sizeDefault + static_cast<int>(lines) * line);
            }
        }
    SetRowSizes(sizes);
}

// Rows

void TemplateManagerGrid::rowsRefilled()
{
    ClearSelection();
    m_headings.sortColumn = -1;
    BeginBatch();
    m_table->rowsChanged();
    sizeColumns();
    sizeRows();
    EndBatch();
    updateHint();
    ForceRefresh();
}

void TemplateManagerGrid::updateHint()
{
    // Not hidden but gone while there are rows: the toolkit moves hidden children too when the grid is scrolled, and
    // GTK complains.
    if (!m_session.rows().empty())
    {
        if (m_hint)
            m_hint->Destroy();
        m_hint = nullptr;
        return;
    }
    if (!m_hint)
    {
        m_hint = new wxStaticText(GetGridWindow(), wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                                  wxALIGN_CENTRE_HORIZONTAL);
        colourHint();
    }
    const bool filtered = m_session.info().preferences.matchFilter != 0;
    m_hint->SetLabel(filtered ? "No template here matches the current tool.\n"
                                "The preferences say which templates are displayed."
                              : "There are no templates in this folder yet.\n"
                                "Save an operation as a template, or import some.");
    const wxSize space = GetGridWindow()->GetClientSize();
    const wxSize size = m_hint->GetBestSize();
    m_hint->SetSize(std::max(0, (space.x - size.x) / 2), std::max(0, (space.y - size.y) / 3), size.x, size.y);
}

void TemplateManagerGrid::finishEdit()
{
    DisableCellEditControl();
}

std::vector<std::size_t> TemplateManagerGrid::selectedRows() const
{
    std::vector<std::size_t> rows;
    for (const wxGridBlockCoords& block : GetSelectedRowBlocks())
        for (int row = block.GetTopRow(); row <= block.GetBottomRow(); ++row)
            rows.push_back(static_cast<std::size_t>(row));
    std::sort(rows.begin(), rows.end());
    return rows;
}

void TemplateManagerGrid::select(const std::vector<std::size_t>& rows)
{
    ClearSelection();
    for (std::size_t k = 0; k < rows.size();)
    {
        std::size_t last = k;
        while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1)
            ++last;
        SelectBlock(static_cast<int>(rows[k]), 0, static_cast<int>(rows[last]), GetNumberCols() - 1, true);
        k = last + 1;
    }
}

void TemplateManagerGrid::sortBy(const std::vector<util::TemplateSortLevel>& levels)
{
    finishEdit();
    m_headings.sortColumn = -1;
    const std::vector<std::size_t> before = selectedRows();
    const auto current = static_cast<std::size_t>(std::max(GetGridCursorRow(), 0));
    const std::vector<std::size_t> order = sortedOrder(m_session.rows(), levels, m_session.info().columns);
    m_session.rows().reorder(order);

    std::vector<std::size_t> selected;
    for (std::size_t row = 0; row < order.size(); ++row)
    {
        if (std::binary_search(before.begin(), before.end(), order[row]))
            selected.push_back(row);
        if (order[row] == current && GetGridCursorCol() >= 0)
            GoToCell(static_cast<int>(row), GetGridCursorCol());
    }
    select(selected);
    if (levels.size() == 1)
        for (const GridColumnPtr& column : m_table->columns())
            if (column->definition().key == levels.front().key)
            {
                m_headings.sortColumn = column->index;
                m_headings.sortAscending = !levels.front().descending;
                break;
            }
    sizeRows();
    ForceRefresh();
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

// What the user does

void TemplateManagerGrid::selectCurrentRowLater()
{
    // The toolkit moves the current cell, and clears the selection, after the event that makes it do so.
    CallAfter(
        [this]
        {
            const int row = GetGridCursorRow();
            if (row >= 0 && row < GetNumberRows() && !IsInSelection(row, 0))
                SelectRow(row);
        });
}

void TemplateManagerGrid::onCellClick(wxGridEvent& event)
{
    if (event.ControlDown() || event.ShiftDown())
    {
        event.Skip();
        return;
    }
    // The first click into the current cell only selects its row; the toolkit would start to edit.
    const bool isCurrent = event.GetRow() == GetGridCursorRow() && event.GetCol() == GetGridCursorCol();
    if (isCurrent && !IsInSelection(event.GetRow(), 0))
    {
        GetGridWindow()->SetFocus();
        SelectRow(event.GetRow());
    }
    else
    {
        event.Skip();
        selectCurrentRowLater();
    }
    if (m_table->column(event.GetCol()).definition().type != util::templateColumnType::rating)
        return;
    const wxPoint at = CalcUnscrolledPosition(GetGridWindow()->ScreenToClient(wxGetMousePosition()));
    double rating = 0.0;
    GetCellValue(event.GetRow(), event.GetCol()).ToCDouble(&rating);
    const StarRow stars = RatingCellRenderer::stars(*this, CellToRect(event.GetRow(), event.GetCol()));
    if (const int clicked = ratingAt(stars, at.x, rating); clicked >= 0)
        SetCellValue(event.GetRow(), event.GetCol(), wxString::Format("%d", clicked));
}

void TemplateManagerGrid::onColumnMoved()
{
    std::vector<util::TemplateColumn> columns;
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

void TemplateManagerGrid::onKeyDown(wxKeyEvent& event)
{
    const bool onlyControl = event.GetModifiers() == wxMOD_CONTROL;
    // While a cell is edited, keys are for its text, also those that come before its editor has the focus.
    if (IsCellEditControlEnabled())
        event.Skip();
    else if (event.GetKeyCode() == WXK_DELETE && event.GetModifiers() == wxMOD_NONE)
        m_commands.deleteByKey();
    else if (event.GetKeyCode() == 'A' && onlyControl)
        SelectAll();
    else if (event.GetKeyCode() == 'F' && onlyControl)
        m_commands.find();
    else if (event.GetKeyCode() == WXK_F3 && event.GetModifiers() == wxMOD_NONE)
        m_commands.findAgain();
    else
    {
        event.Skip();
        if (event.GetModifiers() == wxMOD_NONE && isNavigation(event.GetKeyCode()))
            selectCurrentRowLater();
    }
}

void TemplateManagerGrid::onChar(wxKeyEvent& event)
{
    const int col = GetGridCursorCol();
    if (col < 0 || GetGridCursorRow() < 0 || !isTyping(event) || IsCellEditControlEnabled())
    {
        event.Skip();
        return;
    }
    const wxChar typed = event.GetUnicodeKey();
    const bool isDigit = typed >= '0' && typed <= '0' + ratingStars;
    if (col == nameColumn)
        typeAhead(typed);
    else if (!isDigit || !rate(static_cast<int>(typed - '0')))
        event.Skip();
}

bool TemplateManagerGrid::rate(int rating)
{
    if (m_table->column(GetGridCursorCol()).definition().type != util::templateColumnType::rating)
        return false;
    SetCellValue(GetGridCursorRow(), GetGridCursorCol(), wxString::Format("%d", rating));
    return true;
}

void TemplateManagerGrid::typeAhead(wxUniChar typed)
{
    const wxLongLong now = wxGetLocalTimeMillis();
    if (now - m_lastTyped > typeAheadMilliseconds)
        m_typed.clear();
    m_lastTyped = now;
    m_typed += wxString(typed).utf8_string();
    const std::string wanted = foldCase(m_typed);
    const int rows = GetNumberRows();
    for (int k = 0; k < rows; ++k)
    {
        const int row = (std::max(GetGridCursorRow(), 0) + k) % rows;
        if (foldCase(GetCellValue(row, nameColumn).utf8_string()).starts_with(wanted))
        {
            GoToCell(row, nameColumn);
            SelectRow(row);
            return;
        }
    }
}

void TemplateManagerGrid::showMenu(int row)
{
    finishEdit();
    if (row >= 0 && !IsInSelection(row, 0))
    {
        SetGridCursor(row, std::max(GetGridCursorCol(), 0));
        SelectRow(row);
    }
    wxMenu menu;
    for (const TemplateMenuItem& item : templateMenu(m_session.info().columns, !selectedRows().empty()))
    {
        if (item.id == 0)
        {
            menu.AppendSeparator();
            continue;
        }
        const wxString text = wxControl::EscapeMnemonics(wxString::FromUTF8(item.text));
        wxMenuItem* const line = item.isCheck ? menu.AppendCheckItem(item.id, text) : menu.Append(item.id, text);
        if (item.isCheck)
            line->Check(item.checked);
        line->Enable(item.enabled);
    }
    const int chosen = GetPopupMenuSelectionFromUser(menu);
    if (chosen == templateMenuId::configure)
        m_commands.configureColumns();
    else if (chosen == templateMenuId::remove)
        m_commands.deleteSelected();
    else if (toggleColumn(m_session.info().columns, chosen))
        m_commands.columnsChanged();
}

} // namespace TessaronResources
