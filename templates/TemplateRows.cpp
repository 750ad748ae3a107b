#include "templates/TemplateRows.h"

#include "templates/TemplateMatch.h"
#include <tessaron/util/Keys.h>

#include <algorithm>
#include <utility>

namespace TessaronResources
{

void TemplateRows::fill(std::vector<util::Parameterized> listed, int filter, const util::Parameterized& current)
{
    m_rows.clear();
    m_rows.reserve(listed.size());
    for (util::Parameterized& set : listed)
        if (matchesFilter(filter, set, current))
            m_rows.push_back({std::move(set), nullptr, {}});
}

const util::Parameterized& TemplateRows::storedAt(std::size_t row) const
{
    const Row& found = m_rows[row];
    return found.stored ? *found.stored : found.set;
}

std::vector<std::size_t> TemplateRows::valuePlaces(const std::vector<std::string>& keys) const
{
    std::vector<std::size_t> places;
    places.reserve(keys.size());
    for (const std::string& key : keys)
    {
        places.push_back(m_values.placeOf(key));
        if (places.back() == m_values.size())
            m_values.add(key);
    }
    return places;
}

const ColumnValues::Values& TemplateRows::valuesAt(std::size_t row) const
{
    const Row& asked = m_rows[row];
    if (asked.values.size() < m_values.size())
        asked.values = m_values.of(asked.set);
    return asked.values;
}

bool TemplateRows::edit(std::size_t row, const GridColumnInfo& column, const std::string& text)
{
    Row& edited = m_rows[row];
    // A cell may show less than the value holds: leaving it as it is must not round or cut the value.
    if (text == column.format(edited.set))
        return false;
    util::Parameterized set = edited.set;
    column.parse(text, set);
    if (set == edited.set)
        return false;
    if (!edited.stored)
        edited.stored = std::make_unique<util::Parameterized>(std::move(edited.set));
    edited.set = std::move(set);
    edited.values.clear();
    if (edited.set == *edited.stored)
        edited.stored.reset();
    return true;
}

bool TemplateRows::hasEdits() const
{
    return std::any_of(m_rows.begin(), m_rows.end(), [](const Row& row) { return row.stored != nullptr; });
}

std::vector<std::size_t> TemplateRows::editedRows() const
{
    std::vector<std::size_t> edited;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        if (isEdited(row))
            edited.push_back(row);
    return edited;
}

void TemplateRows::markStored(std::size_t row, util::Parameterized set)
{
    m_rows[row].set = std::move(set);
    m_rows[row].values.clear();
    m_rows[row].stored.reset();
}

void TemplateRows::reorder(const std::vector<std::size_t>& order)
{
    std::vector<Row> rows;
    rows.reserve(order.size());
    for (const std::size_t row : order)
        rows.push_back(std::move(m_rows[row]));
    m_rows = std::move(rows);
}

} // namespace TessaronResources
