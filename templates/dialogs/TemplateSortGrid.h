#ifndef TEMPLATES_DIALOGS_TEMPLATESORTGRID_H
#define TEMPLATES_DIALOGS_TEMPLATESORTGRID_H

#include "templates/TemplateSort.h"
#include "templates/grid/EditingGrid.h"
#include "templates/grid/TemplateGridRenderers.h"

namespace TessaronResources
{

/// The grid of sort levels: one row a level, with drop-down lists for its column and its order.
class TemplateSortGrid : public EditingGrid
{
public:
    /// `levels` is not owned and outlives the grid.
    TemplateSortGrid(wxWindow* parent, int id, TemplateSortLevels& levels);

    /// Shows the levels as they are now, with `selected` as the current one.
    void showLevels(std::size_t selected);

    /// The current level; the number of levels when there is none.
    std::size_t selectedLevel() const;

private:
    void onChanged(wxGridEvent& event);
    void onClick(wxGridEvent& event);
    void spreadColumns();

    TemplateSortLevels& m_levels;
    TemplateRows m_noTemplates;
    HeadingState m_headings;
};

} // namespace TessaronResources

#endif
