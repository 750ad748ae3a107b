#ifndef TEMPLATES_COLUMNS_TEXTCOLUMN_H
#define TEMPLATES_COLUMNS_TEXTCOLUMN_H

#include "templates/columns/GridColumnInfo.h"

namespace TessaronResources
{

/// A column of texts, possibly of several lines.
class GridColumnInfoMultiText : public GridColumnInfo
{
public:
    using GridColumnInfo::GridColumnInfo;

    std::string formatValue(const util::Parameterized::Value* value) const override
    {
        const auto* const text = boost::get<std::string>(value);
        return text ? m_format.print(std::string_view(*text)) : std::string();
    }
    void parse(const std::string& text, util::Parameterized& set) const override { set.set(m_definition.key, text); }
    SortKeyMaker sortKeys() const override
    {
        return [](const util::Parameterized::Value& value)
        {
            const auto* const text = boost::get<std::string>(&value);
            return text && !text->empty() ? textSortKey(*text) : SortKey();
        };
    }
    SearchHints searchHints(const std::string&) const override
    {
        SearchHints hints;
        hints.showsTextAsItIs = m_format.isPlainText();
        return hints;
    }
    CellAppearance appearance() const override
    {
        CellAppearance appearance;
        appearance.isMultiLine = true;
        return appearance;
    }
};

} // namespace TessaronResources

#endif
