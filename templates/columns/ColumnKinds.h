#ifndef TEMPLATES_COLUMNS_COLUMNKINDS_H
#define TEMPLATES_COLUMNS_COLUMNKINDS_H

#include "templates/columns/GridColumnInfo.h"

#include <vector>

namespace TessaronResources
{

/// The column object for a definition, by its type code. `gridFlag` is whether the grid can be edited at all; columns
/// of dates and of unknown types never can.
GridColumnPtr makeGridColumn(const util::TemplateColumn& definition, bool gridFlag);

/// The column objects of all definitions that are offered, in definition order, with their places in the grid. The
/// definitions are not owned: make the columns anew when the list has changed.
std::vector<GridColumnPtr> makeGridColumns(const std::vector<util::TemplateColumn>& definitions, bool gridFlag);

} // namespace TessaronResources

#endif
