#ifndef TEMPLATES_COLUMNS_NUMBERCOLUMN_H
#define TEMPLATES_COLUMNS_NUMBERCOLUMN_H

#include "frame/Translation.h"
#include "templates/columns/CellNumber.h"
#include "templates/columns/GridColumnInfo.h"
#include "util/text/FoldCase.h"

namespace TessaronResources
{

/// What columns of reals and of integers have in common.
class NumberColumn : public GridColumnInfo
{
public:
    using GridColumnInfo::GridColumnInfo;

    SortKeyMaker sortKeys() const override
    {
        return [](const util::Parameterized::Value& value) { return numberSortKey(value); };
    }
    const std::array<std::string, 2>& sortOrderTexts() const override
    {
        static const std::array<std::string, 2> texts = {translated("Smallest to Largest"),
                                                         translated("Largest to Smallest")};
        return texts;
    }
    SearchHints searchHints(const std::string& wanted) const override
    {
        const std::string used = "0123456789+-. einfa" + util::foldCase(m_format.literals());
        SearchHints hints;
        hints.isPossible = wanted.find_first_not_of(used) == std::string::npos;
        hints.valuesRecur = true;
        return hints;
    }
    CellAppearance appearance() const override { return {CellAlignment::right}; }
};

} // namespace TessaronResources

#endif
