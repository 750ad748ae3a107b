#include "templates/TemplateSort.h"

#include "frame/Translation.h"
#include "templates/columns/ColumnKinds.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace TessaronResources
{

namespace
{

struct SortLevel
{
    SortKeyMaker makeKey;
    bool descending;

    /// Negative, zero or positive, as a comes before, beside or after b. Rows without a value come last either way.
    int compare(const SortKey& a, const SortKey& b) const
    {
        if (a.isEmpty() || b.isEmpty())
            return static_cast<int>(a.isEmpty()) - static_cast<int>(b.isEmpty());
        const int order = a.compare(b);
        return descending ? -order : order;
    }
};

const util::TemplateColumn* findColumn(const std::vector<util::TemplateColumn>& columns, const std::string& key)
{
    const auto it = std::find_if(columns.begin(), columns.end(), [&](const auto& column) { return column.key == key; });
    return it == columns.end() ? nullptr : &*it;
}

} // namespace

std::vector<std::size_t> sortedOrder(const TemplateRows& rows, const std::vector<util::TemplateSortLevel>& levels,
                                     const std::vector<util::TemplateColumn>& columns)
{
    std::vector<SortLevel> sorts;
    std::vector<std::string> keys;
    for (const util::TemplateSortLevel& level : levels)
        if (const util::TemplateColumn* const column = findColumn(columns, level.key))
        {
            sorts.push_back({makeGridColumn(*column, false)->sortKeys(), level.descending});
            keys.push_back(level.key);
        }

    // Row by row, so that a comparison finds all it needs in one place.
    std::vector<SortKey> sortKeys(rows.size() * sorts.size());
    const std::vector<std::size_t> places = rows.valuePlaces(keys);
    for (std::size_t row = 0; row < rows.size(); ++row)
    {
        const ColumnValues::Values& ofRow = rows.valuesAt(row);
        for (std::size_t i = 0; i < sorts.size(); ++i)
            if (const util::Parameterized::Value* const value = ofRow[places[i]])
                sortKeys[row * sorts.size() + i] = sorts[i].makeKey(*value);
    }

    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b)
                     {
                         for (std::size_t i = 0; i < sorts.size(); ++i)
                             if (const int result =
                                     sorts[i].compare(sortKeys[a * sorts.size() + i], sortKeys[b * sorts.size() + i]);
                                 result != 0)
                                 return result < 0;
                         return false;
                     });
    return order;
}

TemplateSortLevels::TemplateSortLevels(const std::vector<util::TemplateColumn>& columns,
                                       std::vector<util::TemplateSortLevel> levels)
    : m_columns(columns), m_levels(std::move(levels))
{
    m_levels.erase(std::remove_if(m_levels.begin(), m_levels.end(),
                                  [&](const auto& level) { return !findColumn(m_columns, level.key); }),
                   m_levels.end());
}

std::string TemplateSortLevels::caption(std::size_t level)
{
    return level == 0 ? translated("Sort by") : translated("Then by");
}

std::vector<std::string> TemplateSortLevels::columnTitles() const
{
    std::vector<std::string> titles;
    for (const util::TemplateColumn& column : m_columns)
        titles.push_back(translated(column.title));
    return titles;
}

std::size_t TemplateSortLevels::columnOf(std::size_t level) const
{
    return static_cast<std::size_t>(findColumn(m_columns, m_levels[level].key) - m_columns.data());
}

const std::array<std::string, 2>& TemplateSortLevels::orderTexts(std::size_t level) const
{
    return makeGridColumn(m_columns[columnOf(level)], false)->sortOrderTexts();
}

std::size_t TemplateSortLevels::add()
{
    for (const util::TemplateColumn& column : m_columns)
    {
        const bool used =
            std::any_of(m_levels.begin(), m_levels.end(), [&](const auto& level) { return level.key == column.key; });
        if (!used)
        {
            m_levels.push_back({column.key, false});
            return m_levels.size() - 1;
        }
    }
    return m_levels.size();
}

bool TemplateSortLevels::canAdd() const
{
    TemplateSortLevels copy(*this);
    return copy.add() < copy.m_levels.size();
}

void TemplateSortLevels::remove(std::size_t level)
{
    m_levels.erase(m_levels.begin() + static_cast<std::ptrdiff_t>(level));
}

void TemplateSortLevels::moveUp(std::size_t level)
{
    if (canMoveUp(level))
        std::swap(m_levels[level], m_levels[level - 1]);
}

void TemplateSortLevels::moveDown(std::size_t level)
{
    if (canMoveDown(level))
        std::swap(m_levels[level], m_levels[level + 1]);
}

void TemplateSortLevels::setColumn(std::size_t level, std::size_t column)
{
    m_levels[level].key = m_columns[column].key;
}

void TemplateSortLevels::setDescending(std::size_t level, bool descending)
{
    m_levels[level].descending = descending;
}

} // namespace TessaronResources
