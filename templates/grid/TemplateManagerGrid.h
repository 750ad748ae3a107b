#ifndef TEMPLATES_GRID_TEMPLATEMANAGERGRID_H
#define TEMPLATES_GRID_TEMPLATEMANAGERGRID_H

#include "templates/TemplateFind.h"
#include "templates/TemplateSession.h"
#include "templates/grid/CutOffTip.h"
#include "templates/grid/EditingGrid.h"
#include "templates/grid/EmptyGridHint.h"
#include "templates/grid/TemplateGridInput.h"
#include "templates/grid/TemplateGridRenderers.h"

#include <optional>
#include <string>
#include <vector>

namespace TessaronResources
{

class TemplateGridTable;

/// What the user asks of the manager from within the grid.
class TemplateGridCommands
{
public:
    virtual ~TemplateGridCommands() = default;

    virtual void deleteSelected() = 0;
    /// As deleteSelected(), but asks first: a key is easily hit.
    virtual void deleteByKey() = 0;
    virtual void configureColumns() = 0;
    /// The column definitions have been changed in place: they are to be stored and the columns made anew.
    virtual void columnsChanged() = 0;
};

/// The grid of templates: one row a template, one column a column definition.
class TemplateManagerGrid : public EditingGrid, private TemplateCells, private TemplateSessionObserver
{
public:
    /// Both are not owned; no command is given to the session once the grid is gone.
    TemplateManagerGrid(wxWindow* parent, int id, TemplateSession& session, TemplateGridCommands& commands);

    /// Makes the columns anew from the session's definitions.
    void rebuildColumns();
    /// Takes on the look in force and the preferred font.
    void applyLook();
    /// Ends an edit that is under way; what was typed counts.
    void finishEdit();

    /// Ascending.
    std::vector<std::size_t> selectedRows() const;
    /// The selected row of the current cell, or else the first selected one; none without a selection.
    std::optional<std::size_t> chosenRow() const;

    /// Has the session sort its rows. Each level has its mark in the heading of its column.
    void sortBy(const std::vector<util::TemplateSortLevel>& levels);
    /// Sorts by a column, the other way round when the rows are in its order already.
    void sortByHeading(int column);
    /// Sorts by the current column.
    void quickSort(bool descending);

    /// Moves the current cell to the next one that holds a text. Result as TemplateFind has it.
    TemplateFind::Result findNext(const std::string& text);
    /// The next search begins at the first cell again.
    void searchFromStart() { m_find.startOver(); }
    const std::vector<std::string>& searchedTexts() const { return m_find.history(); }
    /// Where the current cell is on the screen.
    wxRect currentCellOnScreen() const;

private:
    // The grid as its columns see it. Cells are drawn on demand: only headings are set up.
    void setCell(int, int, const std::string&, CellAlignment, const std::string&) override {}
    void setCellChoices(int, int, const std::vector<std::string>&) override {}
    void setRowHeight(int, int) override {}
    void setHeading(int column, const std::string& title, int width, const std::string& font, std::uint32_t textColour,
                    std::uint32_t backColour) override;

    // What the session tells
    void rowsReplaced(const std::vector<std::size_t>& former) override;
    /// Selected rows, the current cell and heights go with their templates.
    void rowsReordered(const std::vector<std::size_t>& order) override;
    void rowsEdited() override;

    void setUpColumn(const GridColumnPtr& column);
    void showSortMarks();
    int columnOf(const std::string& key) const;
    /// Which rows are selected, and the current one.
    struct Held
    {
        std::vector<std::size_t> selected;
        int row;
        int column;
    };
    Held held() const { return {selectedRows(), GetGridCursorRow(), GetGridCursorCol()}; }
    /// Selects the rows whose templates were selected, and goes to the current one; where that is gone, to its place.
    void restore(const Held& before, const std::vector<std::size_t>& former);
    void sizeColumns();
    void sizeRows();
    /// As high as their text needs, and no lower than stored.
    void fitHeadings();
    void setRowHeights(const std::vector<int>& heights);
    void updateHint();
    /// One flag for each row.
    void select(const std::vector<bool>& selected);
    void onColumnMoved();

    TemplateSession& m_session;
    TemplateGridCommands& m_commands;
    HeadingState m_headings;
    TemplateGridTable* m_table;
    std::vector<std::string> m_columnKeys; ///< of the columns as they are set up; the definitions may be others already
    TemplateFind m_find;
    EmptyGridHint m_hint;
    TemplateGridInput m_input;
    CutOffTip m_tip;
};

} // namespace TessaronResources

#endif
