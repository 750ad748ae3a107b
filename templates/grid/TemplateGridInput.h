#ifndef TEMPLATES_GRID_TEMPLATEGRIDINPUT_H
#define TEMPLATES_GRID_TEMPLATEGRIDINPUT_H

#include <wx/defs.h>
#include <wx/gdicmn.h>
#include <wx/longlong.h>
#include <wx/string.h>

class wxGridEvent;
class wxKeyEvent;
class wxUniChar;

namespace TessaronResources
{

class TemplateGridCommands;
class TemplateGridTable;
class TemplateManagerGrid;
class TemplateSession;

/// What the keys and the pointer do in the template grid.
class TemplateGridInput
{
public:
    /// None is owned; all outlive the object.
    TemplateGridInput(TemplateManagerGrid& grid, TemplateGridTable& table, TemplateSession& session,
                      TemplateGridCommands& commands);
    TemplateGridInput(const TemplateGridInput&) = delete;
    TemplateGridInput& operator=(const TemplateGridInput&) = delete;

private:
    void onCellClick(wxGridEvent& event);
    void onKeyDown(wxKeyEvent& event);
    void onChar(wxKeyEvent& event);
    void followHeadingClicks();
    /// The column whose heading is at this place of the headings' window; wxNOT_FOUND at an edge that can be dragged.
    int headingAt(wxPoint place) const;
    void selectCurrentRowLater();
    bool dropsList(int col) const;
    void changeByClick(int row, int col);
    /// \returns whether the key means something to the current cell.
    bool changeByKey(wxUniChar typed);
    /// Goes to the next name that begins with what has been typed in a row.
    void typeAhead(wxUniChar typed);
    void takeBack();
    void goToTyped();
    void showMenu(int row);

    TemplateManagerGrid& m_grid;
    TemplateGridTable& m_table;
    TemplateSession& m_session;
    TemplateGridCommands& m_commands;
    wxString m_typed;
    wxLongLong m_lastTyped;
    wxPoint m_pressedAt;
    int m_pressedHeading = wxNOT_FOUND;
};

} // namespace TessaronResources

#endif
