#ifndef TEMPLATES_TEMPLATEROWS_H
#define TEMPLATES_TEMPLATEROWS_H

#include "templates/columns/ColumnValues.h"
#include "templates/columns/GridColumnInfo.h"
#include <tessaron/util/Parameterized.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace TessaronResources
{

/// The rows of the template grid: the templates with the user's edits that are not stored yet. A row number is a place
/// in the grid, from 0; sorting changes it.
class TemplateRows
{
public:
    /// Replaces all rows by those of `listed` that the filter displays, in their order. Edits are dropped.
    void fill(std::vector<util::Parameterized> listed, int filter, const util::Parameterized& current);

    std::size_t size() const { return m_rows.size(); }
    /// The template with its edits.
    const util::Parameterized& at(std::size_t row) const { return m_rows[row].set; }
    /// The template as it is stored.
    const util::Parameterized& storedAt(std::size_t row) const;

    /// The places in valuesAt() of the values under these keys.
    std::vector<std::size_t> valuePlaces(const std::vector<std::string>& keys) const;
    /// The values of a row's template under the keys that valuePlaces() has been asked for; null where it lacks one.
    /// Remembered until the row changes, so that searching and sorting again is fast. Valid until the row changes or
    /// valuePlaces() is asked for a new key.
    const ColumnValues::Values& valuesAt(std::size_t row) const;

    /// Takes what the user typed into a cell.
    /// \returns whether the template has changed by it. A text equal to what the cell shows changes nothing.
    bool edit(std::size_t row, const GridColumnInfo& column, const std::string& text);
    bool isEdited(std::size_t row) const { return m_rows[row].stored != nullptr; }
    bool hasEdits() const;
    /// The rows with edits, in ascending order.
    std::vector<std::size_t> editedRows() const;
    /// The template of a row has been stored, and is now as given.
    void markStored(std::size_t row, util::Parameterized set);

    /// Brings the rows into a new order: order[i] is the present number of the row that comes to place i. A row whose
    /// number is not among these is gone.
    void reorder(const std::vector<std::size_t>& order);

private:
    struct Row
    {
        util::Parameterized set;
        std::unique_ptr<util::Parameterized> stored; ///< only while it differs from `set`
        mutable ColumnValues::Values values;         ///< of `set`; too few: not read since the last change
    };
    std::vector<Row> m_rows;
    mutable ColumnValues m_values;
};

} // namespace TessaronResources

#endif
