#ifndef TEMPLATES_COLUMNS_REALCOLUMN_H
#define TEMPLATES_COLUMNS_REALCOLUMN_H

#include "templates/columns/NumberColumn.h"

namespace TessaronResources
{

/// A column of reals.
class GridColumnInfoDouble : public NumberColumn
{
public:
    using NumberColumn::NumberColumn;

    std::string formatValue(const util::Parameterized::Value* value) const override
    {
        if (const double* const real = boost::get<double>(value))
            return m_format.print(*real);
        const int* const whole = boost::get<int>(value);
        return whole ? m_format.print(static_cast<double>(*whole)) : std::string();
    }
    /// Takes the number that the text starts with: "12abc" is 12.
    void parse(const std::string& text, util::Parameterized& set) const override
    {
        const std::optional<double> value = leadingNumber<double>(text);
        if (value && std::isfinite(*value))
            set.set(m_definition.key, *value);
    }
};

} // namespace TessaronResources

#endif
