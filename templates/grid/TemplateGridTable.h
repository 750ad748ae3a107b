#ifndef TEMPLATES_GRID_TEMPLATEGRIDTABLE_H
#define TEMPLATES_GRID_TEMPLATEGRIDTABLE_H

#include "templates/TemplateSession.h"
#include "templates/columns/GridColumnInfo.h"

#include <wx/grid.h>

#include <vector>

namespace TessaronResources
{

/// The templates as the cells of a grid. Texts are made when a cell is drawn, so that the number of rows costs nothing.
class TemplateGridTable : public wxGridTableBase
{
public:
    /// `session` is not owned and outlives the table.
    explicit TemplateGridTable(TemplateSession& session);

    void setColumns(std::vector<GridColumnPtr> columns);
    const std::vector<GridColumnPtr>& columns() const { return m_columns; }
    const GridColumnInfo& column(int col) const { return *m_columns[static_cast<std::size_t>(col)]; }

    /// Tells the grid that the rows are others now.
    void rowsChanged();

    int GetNumberRows() override { return static_cast<int>(m_session.rows().size()); }
    int GetNumberCols() override { return static_cast<int>(m_columns.size()); }
    wxString GetValue(int row, int col) override;
    void SetValue(int row, int col, const wxString& value) override;
    wxString GetColLabelValue(int col) override;
    wxString GetRowLabelValue(int) override { return wxString(); }

private:
    TemplateSession& m_session;
    std::vector<GridColumnPtr> m_columns;
    int m_shownRows = 0;
};

} // namespace TessaronResources

#endif
