#include "templates/grid/TemplateGridTable.h"
#include "frame/Translation.h"

#include <utility>

namespace TessaronResources
{

TemplateGridTable::TemplateGridTable(TemplateSession& session)
    : m_session(session), m_shownRows(static_cast<int>(session.rows().size()))
{
}

void TemplateGridTable::setColumns(std::vector<GridColumnPtr> columns)
{
    const int before = GetNumberCols();
    m_columns = std::move(columns);
    const int now = GetNumberCols();
    if (!GetView() || now == before)
        return;
    wxGridTableMessage message = now > before
                                     ? wxGridTableMessage(this, wxGRIDTABLE_NOTIFY_COLS_APPENDED, now - before)
                                     : wxGridTableMessage(this, wxGRIDTABLE_NOTIFY_COLS_DELETED, now, before - now);
    GetView()->ProcessTableMessage(message);
}

void TemplateGridTable::rowsChanged()
{
    const int before = m_shownRows;
    const int now = GetNumberRows();
    m_shownRows = now;
    if (!GetView() || now == before)
        return;
    wxGridTableMessage message = now > before
                                     ? wxGridTableMessage(this, wxGRIDTABLE_NOTIFY_ROWS_APPENDED, now - before)
                                     : wxGridTableMessage(this, wxGRIDTABLE_NOTIFY_ROWS_DELETED, now, before - now);
    GetView()->ProcessTableMessage(message);
}

wxString TemplateGridTable::GetValue(int row, int col)
{
    if (row < 0 || row >= GetNumberRows() || col < 0 || col >= GetNumberCols())
        return wxString();
    return wxString::FromUTF8(column(col).format(m_session.rows().at(static_cast<std::size_t>(row))));
}

void TemplateGridTable::SetValue(int row, int col, const wxString& value)
{
    if (row >= 0 && row < GetNumberRows() && col >= 0 && col < GetNumberCols())
        m_session.editCell(static_cast<std::size_t>(row), column(col), value.utf8_string());
}

wxString TemplateGridTable::GetColLabelValue(int col)
{
    return col >= 0 && col < GetNumberCols() ? translatedLabel(column(col).definition().title.c_str()) : wxString();
}

} // namespace TessaronResources
