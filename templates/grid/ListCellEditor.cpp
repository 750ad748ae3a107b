#include "templates/grid/ListCellEditor.h"

#include <wx/listbox.h>

#include <algorithm>

namespace TessaronResources
{

namespace
{

constexpr int padding = 24; // for the frame and the scroll bar
constexpr int mostRows = 14;
constexpr int scrollBarHeight = 10;
constexpr int linePadding = 8;

} // namespace

void ListCellEditor::Create(wxWindow* parent, wxWindowID id, wxEvtHandler* handler)
{
    wxArrayString texts;
    for (const std::string& choice : m_choices)
        texts.Add(wxString::FromUTF8(choice));
    auto* const box = new wxListBox(parent, id, wxDefaultPosition, wxDefaultSize, texts, wxLB_SINGLE | wxWANTS_CHARS);
    m_list = box;
    SetControl(box);
    // Not before the list has taken the click.
    box->Bind(wxEVT_LEFT_UP,
              [this, box](wxMouseEvent& event)
              {
                  event.Skip();
                  box->CallAfter([this] { finish(); });
              });
    // Enter is a double click to the list, which presses the dialog's default button if nobody takes it.
    box->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { finish(); });
    box->Bind(wxEVT_CHAR_HOOK,
              [this](wxKeyEvent& event)
              {
                  if (event.GetKeyCode() != WXK_ESCAPE)
                  {
                      event.Skip();
                      return;
                  }
                  Reset();
                  finish();
              });
    wxGridCellEditor::Create(parent, id, handler);
}

void ListCellEditor::finish()
{
    if (m_grid)
        m_grid->DisableCellEditControl();
}

void ListCellEditor::SetSize(const wxRect& cell)
{
    wxListBox* const box = m_list;
    const wxSize room = box->GetParent()->GetClientSize();
    int width = cell.width;
    for (const wxString& text : box->GetStrings())
        width = std::max(width, box->GetTextExtent(text).x + box->FromDIP(padding));
    const int lines = std::min(static_cast<int>(m_choices.size()), mostRows);
    const int wanted = lines * (box->GetCharHeight() + box->FromDIP(linePadding)) + box->FromDIP(linePadding);
    // Below its cell, or above where there is more room.
    const int below = room.y - cell.GetBottom() - 1 - box->FromDIP(scrollBarHeight);
    const bool isBelow = wanted <= below || below >= cell.y;
    const int height = std::min(wanted, isBelow ? below : cell.y);
    box->SetSize(std::clamp(cell.x, 0, std::max(0, room.x - width)), isBelow ? cell.GetBottom() + 1 : cell.y - height,
                 width, height);
}

void ListCellEditor::BeginEdit(int row, int col, wxGrid* grid)
{
    m_grid = grid;
    m_before = m_list->FindString(grid->GetTable()->GetValue(row, col), true);
    m_list->SetFocus();
    // After that: a list that gets the focus selects its first text.
    Reset();
}

bool ListCellEditor::EndEdit(int, int, const wxGrid*, const wxString&, wxString* after)
{
    m_grid = nullptr;
    const int chosen = m_list->GetSelection();
    if (chosen == wxNOT_FOUND || chosen == m_before)
        return false;
    if (after)
        *after = m_list->GetString(static_cast<unsigned>(chosen));
    return true;
}

void ListCellEditor::ApplyEdit(int row, int col, wxGrid* grid)
{
    grid->GetTable()->SetValue(row, col, GetValue());
}

void ListCellEditor::Reset()
{
    m_list->SetSelection(m_before);
    if (m_before != wxNOT_FOUND)
        m_list->EnsureVisible(m_before);
}

bool ListCellEditor::IsAcceptedKey(wxKeyEvent& event)
{
    return wxGridCellEditor::IsAcceptedKey(event) && event.GetUnicodeKey() > WXK_SPACE;
}

void ListCellEditor::StartingKey(wxKeyEvent& event)
{
    const wxString typed(event.GetUnicodeKey());
    const auto count = static_cast<int>(m_choices.size());
    for (int k = 1; k <= count; ++k)
    {
        const int choice = (std::max(m_before, -1) + k) % count;
        if (!m_list->GetString(static_cast<unsigned>(choice)).Left(1).IsSameAs(typed, false))
            continue;
        m_list->SetSelection(choice);
        m_list->EnsureVisible(choice);
        return;
    }
}

wxString ListCellEditor::GetValue() const
{
    return m_list->GetStringSelection();
}

} // namespace TessaronResources
