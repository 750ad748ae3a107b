#ifndef TEMPLATES_DIALOGS_TEMPLATESORTDIALOG_H
#define TEMPLATES_DIALOGS_TEMPLATESORTDIALOG_H

#include "templates/TemplateSort.h"
#include "templates/dialogs/ResizableDialog.h"

namespace TessaronResources
{

class TemplateSortGrid;

/// Lets the user choose by which columns the templates are sorted.
class TemplateSortDialog : public ResizableDialog
{
public:
    /// `columns` is not owned. Without any level yet, the dialog starts with one.
    TemplateSortDialog(const std::vector<util::TemplateColumn>& columns, std::vector<util::TemplateSortLevel> levels,
                       wxWindow* owner);

    /// After OK: the levels, first level first.
    const std::vector<util::TemplateSortLevel>& result() const { return m_levels.levels(); }

protected:
    bool OnInitDialog() override;
    void OnOK() override;

private:
    void addLevel();
    void deleteLevel();
    void move(bool up);
    void show(std::size_t selected);
    void updateButtons();

    TemplateSortLevels m_levels;
    TemplateSortGrid* m_grid = nullptr;
};

} // namespace TessaronResources

#endif
