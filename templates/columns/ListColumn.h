#ifndef TEMPLATES_COLUMNS_LISTCOLUMN_H
#define TEMPLATES_COLUMNS_LISTCOLUMN_H

#include "templates/columns/CellNumber.h"
#include "templates/columns/GridColumnInfo.h"
#include "util/text/FoldCase.h"
#include "util/text/ReadableText.h"

#include <algorithm>
#include <map>

namespace TessaronResources
{

/// A column of codes out of the definition's options, shown by their texts.
class GridColumnInfoListBox : public GridColumnInfo
{
public:
    GridColumnInfoListBox(const util::TemplateColumn& definition, bool editable)
        : GridColumnInfo(definition, editable), m_options(definition.options)
    {
        for (auto& [code, text] : m_options)
            text = util::readableText(text);
    }

    std::string formatValue(const util::Parameterized::Value* value) const override
    {
        const std::optional<int> code = integerOf(value);
        for (const auto& [optionCode, text] : m_options)
            if (code == optionCode)
                return text;
        return {};
    }
    /// Stores the code of the option with this text; does nothing when there is none.
    void parse(const std::string& text, util::Parameterized& set) const override
    {
        for (const auto& [code, optionText] : m_options)
            if (text == optionText)
                return set.set(m_definition.key, code);
    }
    /// Offers the options' texts as well.
    void setupCell(TemplateCells& grid, int row, const util::Parameterized& set, int height) const override
    {
        GridColumnInfo::setupCell(grid, row, set, height);
        if (m_definition.shown)
            grid.setCellChoices(row, index, choices());
    }
    SortKeyMaker sortKeys() const override
    {
        std::map<int, SortKey> keys;
        for (const auto& [code, text] : m_options)
            keys.emplace(code, textSortKey(text));
        return [keys = std::move(keys)](const util::Parameterized::Value& value)
        {
            const std::optional<int> code = integerOf(&value);
            const auto found = code ? keys.find(*code) : keys.end();
            return found == keys.end() ? SortKey() : found->second;
        };
    }
    SearchHints searchHints(const std::string& wanted) const override
    {
        SearchHints hints;
        hints.isPossible = std::any_of(m_options.begin(), m_options.end(),
                                       [&wanted](const auto& option)
                                       { return util::foldCase(option.second).find(wanted) != std::string::npos; });
        hints.valuesRecur = true;
        return hints;
    }
    CellEditor editor() const override { return CellEditor::list; }
    std::vector<std::string> choices() const override
    {
        std::vector<std::string> texts;
        for (const auto& [code, text] : m_options)
            texts.push_back(text);
        return texts;
    }

private:
    util::TemplateOptions m_options; ///< the definition's, with texts that can be shown
};

} // namespace TessaronResources

#endif
