#include "templates/columns/ColumnKinds.h"

#include "templates/columns/DateColumn.h"
#include "templates/columns/IntegerColumn.h"
#include "templates/columns/ListColumn.h"
#include "templates/columns/RatingColumn.h"
#include "templates/columns/RealColumn.h"
#include "templates/columns/TextColumn.h"

#include <boost/make_shared.hpp>

namespace TessaronResources
{

namespace
{

namespace type = util::templateColumnType;

template <class Column>
GridColumnPtr make(const util::TemplateColumn& definition, bool editable)
{
    return boost::make_shared<Column>(definition, editable);
}

constexpr struct
{
    int type;
    GridColumnPtr (*make)(const util::TemplateColumn& definition, bool editable);
} kinds[] = {
    {type::integer, make<GridColumnInfoInteger>}, {type::real, make<GridColumnInfoDouble>},
    {type::text, make<GridColumnInfoMultiText>},  {type::date, make<GridColumnInfoDate>},
    {type::list, make<GridColumnInfoListBox>},    {type::rating, make<RatingColumn>},
};

} // namespace

GridColumnPtr makeGridColumn(const util::TemplateColumn& definition, bool gridFlag)
{
    for (const auto& kind : kinds)
        if (kind.type == definition.type)
            return kind.make(definition, gridFlag);
    return make<GridColumnInfoMultiText>(definition, false);
}

std::vector<GridColumnPtr> makeGridColumns(const std::vector<util::TemplateColumn>& definitions, bool gridFlag)
{
    std::vector<GridColumnPtr> columns;
    for (const util::TemplateColumn& definition : definitions)
    {
        if (!definition.offered)
            continue;
        columns.push_back(makeGridColumn(definition, gridFlag));
        columns.back()->index = static_cast<int>(columns.size()) - 1;
    }
    return columns;
}

} // namespace TessaronResources
