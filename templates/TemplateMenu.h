#ifndef TEMPLATES_TEMPLATEMENU_H
#define TEMPLATES_TEMPLATEMENU_H

#include <tessaron/engine/TemplateInfo.h>

#include <string>
#include <vector>

namespace TessaronResources
{

/// One line of the grid's context menu.
struct TemplateMenuItem
{
    int id = 0;       ///< 0: a separator
    std::string text; ///< plain: no character of it marks a shortcut
    bool isCheck = false;
    bool checked = false;
    bool enabled = true;
};

namespace templateMenuId
{
constexpr int firstColumn = 1001; ///< and the column's place in the definitions added
constexpr int configure = 2001;
constexpr int remove = 2002;
} // namespace templateMenuId

/// The context menu for the definitions; `hasSelection` when at least one template is selected.
std::vector<TemplateMenuItem> templateMenu(const std::vector<util::TemplateColumn>& columns, bool hasSelection);

/// Does what the item of a column does: shows or hides it. False when `id` belongs to no column that may be hidden.
bool toggleColumn(std::vector<util::TemplateColumn>& columns, int id);

} // namespace TessaronResources

#endif
