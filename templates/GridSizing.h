#ifndef TEMPLATES_GRIDSIZING_H
#define TEMPLATES_GRIDSIZING_H

#include "templates/GridColumnInfo.h"

#include <vector>

class wxDC;
class wxGrid;

namespace TessaronResources
{

class TemplateRows;

/// The width at which a column shows its heading and its cells whole, in pixels, within reason. Of a long list only a
/// sample of the cells is measured. Changes the font of `dc`, which is one of the grid's.
int fittingColumnWidth(wxGrid& grid, wxDC& dc, const GridColumnInfo& column);

/// For each row, how many lines of text it shows beyond one; empty when no row shows more than one.
std::vector<int> extraTextLines(const TemplateRows& rows, const std::vector<GridColumnPtr>& columns);

} // namespace TessaronResources

#endif
