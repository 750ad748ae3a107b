#ifndef TEMPLATES_COLUMNS_TEMPLATECOLUMNLIST_H
#define TEMPLATES_COLUMNS_TEMPLATECOLUMNLIST_H

#include <tessaron/engine/TemplateInfo.h>

#include <string>
#include <vector>

namespace TessaronResources
{

/// The columns dialog's list: which columns show, and their order. A selection is a place in the list, -1 for none.
class TemplateColumnList
{
public:
    struct Item
    {
        std::string title;
        int definition = 0; ///< the definition's place in the list that the dialog was opened with
        bool shown = false;
    };

    explicit TemplateColumnList(const std::vector<util::TemplateColumn>& definitions);

    const std::vector<Item>& items() const { return m_items; }
    /// The first item stays shown.
    void setShown(int item, bool shown);

    // The first item, the name column, neither moves nor is displaced.
    bool canMoveUp(int selected) const;
    bool canMoveDown(int selected) const;
    /// Moves an item by one place.
    /// \returns its new place, which is the old one when it cannot move.
    int moveUp(int selected);
    int moveDown(int selected);

    /// The definitions in list order, with their shown flags set from the items.
    std::vector<util::TemplateColumn> result() const;

private:
    int swapWithNext(int first, int selectedAfter);

    std::vector<util::TemplateColumn> m_definitions;
    std::vector<Item> m_items;
};

} // namespace TessaronResources

#endif
