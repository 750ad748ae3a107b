#ifndef TEMPLATES_GRID_LISTCELLEDITOR_H
#define TEMPLATES_GRID_LISTCELLEDITOR_H

#include <wx/grid.h>

#include <string>
#include <vector>

class wxListBox;

namespace TessaronResources
{

/// Drops a list of texts down from its cell. The toolkit's own editor for lists is higher and wider than a cell, covers
/// the cells around it, and puts its first text into a cell that was empty.
class ListCellEditor : public wxGridCellEditor
{
public:
    explicit ListCellEditor(std::vector<std::string> choices) : m_choices(std::move(choices)) {}

    void Create(wxWindow* parent, wxWindowID id, wxEvtHandler* handler) override;
    void SetSize(const wxRect& cell) override;
    void PaintBackground(wxDC&, const wxRect&, const wxGridCellAttr&) override {}
    void BeginEdit(int row, int col, wxGrid* grid) override;
    bool EndEdit(int row, int col, const wxGrid* grid, const wxString& before, wxString* after) override;
    void ApplyEdit(int row, int col, wxGrid* grid) override;
    void Reset() override;
    /// Goes to the next text that begins with the character.
    void StartingKey(wxKeyEvent& event) override;
    bool IsAcceptedKey(wxKeyEvent& event) override;
    wxString GetValue() const override;
    ListCellEditor* Clone() const override { return new ListCellEditor(m_choices); }

private:
    void finish();

    std::vector<std::string> m_choices;
    wxListBox* m_list = nullptr; ///< the control; owned by its parent
    wxGrid* m_grid = nullptr;    ///< while it is edited
    int m_before = -1;
};

} // namespace TessaronResources

#endif
