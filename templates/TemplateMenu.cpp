#include "templates/TemplateMenu.h"
#include "frame/Translation.h"

#include <cstddef>

namespace TessaronResources
{

std::vector<TemplateMenuItem> templateMenu(const std::vector<util::TemplateColumn>& columns, bool hasSelection)
{
    std::vector<TemplateMenuItem> items;
    for (const util::TemplateColumn& column : columns)
    {
        const int place = static_cast<int>(items.size());
        // The name column cannot be hidden.
        items.push_back({templateMenuId::firstColumn + place, translated(column.title), true, column.shown, place > 0});
    }
    const TemplateMenuItem separator;
    items.push_back(separator);
    items.push_back({templateMenuId::configure, translated("Configure...")});
    items.push_back(separator);
    items.push_back({templateMenuId::remove, translated("Delete"), false, false, hasSelection});
    return items;
}

bool toggleColumn(std::vector<util::TemplateColumn>& columns, int id)
{
    const int place = id - templateMenuId::firstColumn;
    if (place < 1 || place >= static_cast<int>(columns.size()))
        return false;
    util::TemplateColumn& column = columns[static_cast<std::size_t>(place)];
    column.shown = !column.shown;
    return true;
}

} // namespace TessaronResources
