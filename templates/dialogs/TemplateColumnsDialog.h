#ifndef TEMPLATES_DIALOGS_TEMPLATECOLUMNSDIALOG_H
#define TEMPLATES_DIALOGS_TEMPLATECOLUMNSDIALOG_H

#include "templates/columns/TemplateColumnList.h"
#include "templates/dialogs/ResizableDialog.h"

class wxCheckListBox;

namespace TessaronResources
{

/// Lets the user choose which columns show, and their order.
class TemplateColumnsDialog : public ResizableDialog
{
public:
    TemplateColumnsDialog(const std::vector<util::TemplateColumn>& columns, wxWindow* owner);

    /// After OK: the columns in their new order, with their shown flags.
    std::vector<util::TemplateColumn> result() const { return m_columns.result(); }

protected:
    bool OnInitDialog() override;

private:
    void move(int (TemplateColumnList::*how)(int));
    void toggleSelected();
    void showItem(unsigned index);
    void updateButtons();

    TemplateColumnList m_columns;
    wxCheckListBox* m_list = nullptr;
};

} // namespace TessaronResources

#endif
