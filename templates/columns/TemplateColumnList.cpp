#include "templates/columns/TemplateColumnList.h"
#include "frame/Translation.h"

#include <cstddef>
#include <utility>

namespace TessaronResources
{

TemplateColumnList::TemplateColumnList(const std::vector<util::TemplateColumn>& definitions)
    : m_definitions(definitions)
{
    for (const util::TemplateColumn& definition : definitions)
        m_items.push_back({translated(definition.title), static_cast<int>(m_items.size()), definition.shown});
}

void TemplateColumnList::setShown(int item, bool shown)
{
    // The first column is the name, without which rows cannot be told apart.
    m_items.at(static_cast<std::size_t>(item)).shown = shown || item == 0;
}

bool TemplateColumnList::canMoveUp(int selected) const
{
    return selected >= 2 && selected < static_cast<int>(m_items.size());
}

bool TemplateColumnList::canMoveDown(int selected) const
{
    return selected >= 1 && selected < static_cast<int>(m_items.size()) - 1;
}

int TemplateColumnList::moveUp(int selected)
{
    return canMoveUp(selected) ? swapWithNext(selected - 1, selected - 1) : selected;
}

int TemplateColumnList::moveDown(int selected)
{
    return canMoveDown(selected) ? swapWithNext(selected, selected + 1) : selected;
}

int TemplateColumnList::swapWithNext(int first, int selectedAfter)
{
    const auto place = static_cast<std::size_t>(first);
    std::swap(m_items[place], m_items[place + 1]);
    return selectedAfter;
}

std::vector<util::TemplateColumn> TemplateColumnList::result() const
{
    std::vector<util::TemplateColumn> columns;
    for (const Item& item : m_items)
    {
        columns.push_back(m_definitions[static_cast<std::size_t>(item.definition)]);
        columns.back().shown = item.shown;
    }
    return columns;
}

} // namespace TessaronResources
