#include "templates/grid/TemplateGridInput.h"

#include "frame/native/NativeLoop.h"
#include "templates/TemplateMenu.h"
#include "templates/grid/TemplateGridTable.h"
#include "templates/grid/TemplateManagerGrid.h"
#include "util/text/FoldCase.h"

#include <wx/menu.h>
#include <wx/time.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

namespace TessaronResources
{

namespace
{

constexpr int nameColumn = 0;
constexpr int dragDistance = 4;
constexpr long typeAheadMilliseconds = 1000;

bool isTyping(const wxKeyEvent& event)
{
    return event.GetUnicodeKey() >= WXK_SPACE && event.GetUnicodeKey() != WXK_DELETE &&
           (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
}

// What moves the current cell, or has the toolkit clear the selection.
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
    case WXK_ESCAPE:
        return true;
    default:
        return false;
    }
}

} // namespace

TemplateGridInput::TemplateGridInput(TemplateManagerGrid& grid, TemplateGridTable& table, TemplateSession& session,
                                     TemplateGridCommands& commands)
    : m_grid(grid), m_table(table), m_session(session), m_commands(commands)
{
    followHeadingClicks();
    m_grid.Bind(wxEVT_GRID_CELL_LEFT_CLICK, &TemplateGridInput::onCellClick, this);
    m_grid.Bind(wxEVT_GRID_CELL_RIGHT_CLICK, [this](wxGridEvent& event) { showMenu(event.GetRow()); });
    m_grid.Bind(wxEVT_GRID_LABEL_RIGHT_CLICK, [this](wxGridEvent& event) { showMenu(event.GetRow()); });
    for (const auto& event : {wxEVT_GRID_CELL_LEFT_DCLICK, wxEVT_GRID_EDITOR_SHOWN, wxEVT_GRID_EDITOR_HIDDEN})
        m_grid.Bind(event,
                    [this](wxGridEvent& done)
                    {
                        done.Skip(done.GetEventType() != wxEVT_GRID_CELL_LEFT_DCLICK || !dropsList(done.GetCol()));
                        selectCurrentRowLater();
                    });
    m_grid.Bind(wxEVT_KEY_DOWN, &TemplateGridInput::onKeyDown, this);
    m_grid.Bind(wxEVT_CHAR, &TemplateGridInput::onChar, this);
}

void TemplateGridInput::followHeadingClicks()
{
    // The toolkit tells of no click on a heading that can also be dragged.
    wxWindow* const headings = m_grid.GetGridColLabelWindow();
    const auto onPress = [this](wxMouseEvent& event)
    {
        event.Skip();
        m_pressedAt = event.GetPosition();
        m_pressedHeading = headingAt(event.GetPosition());
    };
    headings->Bind(wxEVT_LEFT_DOWN, onPress);
    headings->Bind(wxEVT_LEFT_DCLICK, onPress);
    headings->Bind(wxEVT_LEFT_UP,
                   [this](wxMouseEvent& event)
                   {
                       event.Skip();
                       const int column = std::exchange(m_pressedHeading, wxNOT_FOUND);
                       const int way = std::abs(event.GetPosition().x - m_pressedAt.x);
                       if (column != wxNOT_FOUND && way <= m_grid.FromDIP(dragDistance))
                           m_grid.CallAfter(
                               [this, column]
                               {
                                   if (column < m_grid.GetNumberCols())
                                       m_grid.sortByHeading(column);
                               });
                   });
}

int TemplateGridInput::headingAt(wxPoint place) const
{
    const int x = m_grid.CalcUnscrolledPosition(place).x;
    return m_grid.XToEdgeOfCol(x) == wxNOT_FOUND ? m_grid.XToCol(x) : wxNOT_FOUND;
}

void TemplateGridInput::selectCurrentRowLater()
{
    // The toolkit moves the current cell, and clears the selection, after the event that makes it do so.
    m_grid.CallAfter(
        [this]
        {
            const int row = m_grid.GetGridCursorRow();
            if (row >= 0 && row < m_grid.GetNumberRows() && !m_grid.IsInSelection(row, 0))
                m_grid.SelectRow(row);
        });
}

bool TemplateGridInput::dropsList(int col) const
{
    return m_table.column(col).editor() == CellEditor::list;
}

void TemplateGridInput::onCellClick(wxGridEvent& event)
{
    if (event.ControlDown() || event.ShiftDown())
    {
        event.Skip();
        return;
    }
    // The first click into the current cell only selects its row; the toolkit would start to edit.
    const bool isCurrent = event.GetRow() == m_grid.GetGridCursorRow() && event.GetCol() == m_grid.GetGridCursorCol();
    if (isCurrent && !m_grid.IsInSelection(event.GetRow(), 0))
    {
        m_grid.GetGridWindow()->SetFocus();
        m_grid.SelectRow(event.GetRow());
    }
    else if (isCurrent && dropsList(event.GetCol()))
    {
        // The toolkit would wait for the button's release; a second click would meet the list's cell and close it.
        m_grid.GetGridWindow()->SetFocus();
        m_grid.CallAfter([this] { m_grid.EnableCellEditControl(); });
    }
    else
    {
        event.Skip();
        selectCurrentRowLater();
    }
    changeByClick(event.GetRow(), event.GetCol());
}

void TemplateGridInput::changeByClick(int row, int col)
{
    const wxPoint at = m_grid.CalcUnscrolledPosition(m_grid.GetGridWindow()->ScreenToClient(wxGetMousePosition()));
    const CellArea cell = cellArea(m_grid, m_grid.CellToRect(row, col));
    const std::string text = m_grid.GetCellValue(row, col).utf8_string();
    if (const std::optional<std::string> changed = m_table.column(col).textAfterClick(cell, {at.x, at.y}, text))
        m_grid.SetCellValue(row, col, wxString::FromUTF8(*changed));
}

void TemplateGridInput::onKeyDown(wxKeyEvent& event)
{
    const bool onlyControl = event.GetModifiers() == wxMOD_CONTROL;
    // While a cell is edited, keys are for its text, also those that come before its editor has the focus.
    if (m_grid.IsCellEditControlEnabled())
        event.Skip();
    else if (event.GetKeyCode() == WXK_DELETE && event.GetModifiers() == wxMOD_NONE)
        m_commands.deleteByKey();
    else if (event.GetKeyCode() == 'A' && onlyControl)
        m_grid.SelectAll();
    // In an empty grid the toolkit would look for the cells around one that is not there.
    else if (m_grid.GetGridCursorRow() >= 0 || !(isNavigation(event.GetKeyCode()) || event.GetKeyCode() == WXK_SPACE))
    {
        event.Skip();
        if ((event.GetModifiers() == wxMOD_NONE || onlyControl) && isNavigation(event.GetKeyCode()))
            selectCurrentRowLater();
    }
}

void TemplateGridInput::onChar(wxKeyEvent& event)
{
    const int col = m_grid.GetGridCursorCol();
    const bool onName = col == nameColumn && event.GetModifiers() == wxMOD_NONE;
    if (onName && event.GetKeyCode() == WXK_BACK && !m_grid.IsCellEditControlEnabled())
    {
        // The toolkit would open the editor, and empty the name.
        takeBack();
        return;
    }
    if (col < 0 || m_grid.GetGridCursorRow() < 0 || !isTyping(event) || m_grid.IsCellEditControlEnabled())
    {
        event.Skip();
        return;
    }
    const wxUniChar typed = event.GetUnicodeKey();
    if (col == nameColumn)
        typeAhead(typed);
    else if (!changeByKey(typed))
        event.Skip();
}

bool TemplateGridInput::changeByKey(wxUniChar typed)
{
    const int row = m_grid.GetGridCursorRow();
    const int col = m_grid.GetGridCursorCol();
    const std::optional<std::string> changed =
        m_table.column(col).textAfterKey(static_cast<char32_t>(typed.GetValue()));
    if (changed)
        m_grid.SetCellValue(row, col, wxString::FromUTF8(*changed));
    return changed.has_value();
}

void TemplateGridInput::typeAhead(wxUniChar typed)
{
    const wxLongLong now = wxGetLocalTimeMillis();
    if (now - m_lastTyped > typeAheadMilliseconds)
        m_typed.clear();
    m_lastTyped = now;
    m_typed += typed;
    goToTyped();
}

void TemplateGridInput::takeBack()
{
    m_lastTyped = wxGetLocalTimeMillis();
    if (!m_typed.empty())
        m_typed.RemoveLast();
    if (!m_typed.empty())
        goToTyped();
}

void TemplateGridInput::goToTyped()
{
    const std::string wanted = util::foldCase(m_typed.utf8_string());
    const int rows = m_grid.GetNumberRows();
    for (int k = 0; k < rows; ++k)
    {
        const int row = (std::max(m_grid.GetGridCursorRow(), 0) + k) % rows;
        const util::Parameterized& set = m_session.rows().at(static_cast<std::size_t>(row));
        if (util::foldCase(m_table.column(nameColumn).format(set)).starts_with(wanted))
        {
            m_grid.GoToCell(row, nameColumn);
            m_grid.SelectRow(row);
            return;
        }
    }
}

void TemplateGridInput::showMenu(int row)
{
    m_grid.finishEdit();
    if (row >= 0 && !m_grid.IsInSelection(row, 0))
    {
        m_grid.SetGridCursor(row, std::max(m_grid.GetGridCursorCol(), 0));
        m_grid.SelectRow(row);
    }
    wxMenu menu;
    for (const TemplateMenuItem& item : templateMenu(m_session.info().columns, m_grid.IsSelection()))
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
    const int chosen = native::chooseFromMenu(m_grid, menu);
    if (chosen == templateMenuId::configure)
        m_commands.configureColumns();
    else if (chosen == templateMenuId::remove)
        m_commands.deleteSelected();
    else if (toggleColumn(m_session.info().columns, chosen))
        m_commands.columnsChanged();
}

} // namespace TessaronResources
