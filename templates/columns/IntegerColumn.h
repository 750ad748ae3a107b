#ifndef TEMPLATES_COLUMNS_INTEGERCOLUMN_H
#define TEMPLATES_COLUMNS_INTEGERCOLUMN_H

#include "templates/columns/NumberColumn.h"

namespace TessaronResources
{

/// A column of integers.
class GridColumnInfoInteger : public NumberColumn
{
public:
    using NumberColumn::NumberColumn;

    std::string formatValue(const util::Parameterized::Value* value) const override
    {
        const std::optional<int> whole = integerOf(value);
        return whole ? m_format.print(*whole) : std::string();
    }
    /// Takes the integer that the text starts with: "12.7" is 12.
    void parse(const std::string& text, util::Parameterized& set) const override
    {
        if (const std::optional<int> value = leadingNumber<int>(text))
            set.set(m_definition.key, *value);
    }
};

} // namespace TessaronResources

#endif
