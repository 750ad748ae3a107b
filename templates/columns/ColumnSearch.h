#ifndef TEMPLATES_COLUMNS_COLUMNSEARCH_H
#define TEMPLATES_COLUMNS_COLUMNSEARCH_H

#include "templates/columns/GridColumnInfo.h"

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstdint>
#include <string>

namespace TessaronResources
{

/// Looks for one text in the cells of one column. What a cell shows decides; but most cells are never printed for it.
class ColumnSearch
{
public:
    /// `wanted` is case-folded and not empty; `column` outlives the object.
    ColumnSearch(const GridColumnInfo& column, const std::string& wanted);

    /// False when no value whatever can make a cell of the column show the text.
    bool isPossible() const { return m_hints.isPossible; }
    /// The column's place in the grid.
    int place() const { return m_column->index; }
    /// Does the cell of this value show the text?
    bool matches(const util::Parameterized::Value& value);

private:
    bool matchesShown(const util::Parameterized::Value& value) const;

    const GridColumnInfo* m_column;
    std::string m_wanted;
    SearchHints m_hints;
    bool m_isAscii; ///< the wanted text
    boost::unordered_flat_map<std::uint64_t, bool> m_known;
};

} // namespace TessaronResources

#endif
