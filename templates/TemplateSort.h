#ifndef TEMPLATES_TEMPLATESORT_H
#define TEMPLATES_TEMPLATESORT_H

#include "templates/TemplateRows.h"
#include <tessaron/engine/TemplateInfo.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace TessaronResources
{

/// The order in which the levels put the rows: element i is the present number of the row that belongs at place i, as
/// TemplateRows::reorder() takes it. Stable: rows that all levels find equal keep their order.
///
/// Values are compared as the kind of their column says, not as the texts that cells show. Templates without a value
/// come last in both directions. A level whose key has no column in `columns` sorts nothing.
std::vector<std::size_t> sortedOrder(const TemplateRows& rows, const std::vector<util::TemplateSortLevel>& levels,
                                     const std::vector<util::TemplateColumn>& columns);

/// The levels of the sort dialog as the user builds them.
class TemplateSortLevels
{
public:
    /// Levels whose key has no column are dropped. `columns` is not owned.
    TemplateSortLevels(const std::vector<util::TemplateColumn>& columns, std::vector<util::TemplateSortLevel> levels);

    const std::vector<util::TemplateSortLevel>& levels() const { return m_levels; }
    /// "Sort by" for the first level, "Then by" for the others.
    static std::string caption(std::size_t level);
    /// The titles offered in the column cell, in definition order.
    std::vector<std::string> columnTitles() const;
    /// The place of a level's column among the titles.
    std::size_t columnOf(std::size_t level) const;
    /// The two texts offered in the order cell, ascending first.
    const std::array<std::string, 2>& orderTexts(std::size_t level) const;

    /// Appends an ascending level by the first column that no level sorts by yet.
    /// \returns its number; the number of levels, and nothing appended, when every column is in use.
    std::size_t add();
    void remove(std::size_t level);
    bool canAdd() const;
    bool canMoveUp(std::size_t level) const { return level > 0 && level < m_levels.size(); }
    bool canMoveDown(std::size_t level) const { return level + 1 < m_levels.size(); }
    void moveUp(std::size_t level);
    void moveDown(std::size_t level);
    /// `column` is a place among the titles.
    void setColumn(std::size_t level, std::size_t column);
    void setDescending(std::size_t level, bool descending);

private:
    const std::vector<util::TemplateColumn>& m_columns;
    std::vector<util::TemplateSortLevel> m_levels;
};

} // namespace TessaronResources

#endif
