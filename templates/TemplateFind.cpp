#include "templates/TemplateFind.h"

#include "templates/columns/ColumnSearch.h"
#include "util/text/Ascii.h"
#include "util/text/FoldCase.h"

#include <algorithm>
#include <utility>

namespace TessaronResources
{

TemplateCell findCell(const TemplateRows& rows, const std::vector<GridColumnPtr>& columns, const std::string& text,
                      TemplateCell after)
{
    const std::string wanted = util::foldCase(text);
    std::vector<std::string> keys;
    keys.reserve(columns.size());
    for (const GridColumnPtr& column : columns)
        keys.push_back(column->definition().key);
    const std::vector<std::size_t> places = rows.valuePlaces(keys);

    std::vector<std::pair<ColumnSearch, std::size_t>> searches; // with the places of their values
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i]->definition().shown)
            if (ColumnSearch search(*columns[i], wanted); search.isPossible())
                searches.emplace_back(std::move(search), places[i]);
    if (searches.empty())
        return {};

    for (int row = std::max(after.row, 0); row < static_cast<int>(rows.size()); ++row)
    {
        const ColumnValues::Values& values = rows.valuesAt(static_cast<std::size_t>(row));
        for (auto& [search, place] : searches)
            if ((row > after.row || search.place() > after.column) && values[place] && search.matches(*values[place]))
                return {search.place(), row};
    }
    return {};
}

void TemplateFind::startOver()
{
    m_text.clear();
}

TemplateFind::Result TemplateFind::findNext(const std::string& typed, const TemplateRows& rows,
                                            const std::vector<GridColumnPtr>& columns)
{
    const std::string text(util::trimmed(typed));
    if (text.empty())
    {
        m_text.clear();
        return Result::nothing;
    }
    if (std::find(m_history.begin(), m_history.end(), text) == m_history.end())
        m_history.push_back(text);

    if (text != m_text)
    {
        m_text = text;
        m_hit = {};
        m_exhausted = false;
    }
    if (!m_exhausted)
        m_hit = findCell(rows, columns, text, m_hit);
    m_exhausted = m_hit == TemplateCell();
    return m_exhausted ? Result::notFound : Result::found;
}

} // namespace TessaronResources
