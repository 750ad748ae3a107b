#ifndef TEMPLATES_GRID_GRIDSIZING_H
#define TEMPLATES_GRID_GRIDSIZING_H

#include "templates/columns/GridColumnInfo.h"

#include <vector>

class wxDC;
class wxGrid;
class wxString;

namespace TessaronResources
{

class TemplateRows;

/// The width at which a column shows its heading and its cells whole, in pixels, within reason. Of a long list only a
/// sample of the cells is measured. Changes the font of `dc`, which is one of the grid's.
int fittingColumnWidth(wxGrid& grid, wxDC& dc, const GridColumnInfo& column);

/// A heading broken at blanks into lines that fit a width, in pixels, as far as its words are that short.
wxString wrappedHeading(const wxString& title, int width, const wxDC& dc);

/// The height at which every heading shows all its lines, in pixels. Changes the font of `dc`.
int fittingHeadingHeight(const wxGrid& grid, wxDC& dc, const std::vector<GridColumnPtr>& columns);

/// The width in pixels that the text of a heading has in a column.
int headingTextWidth(const wxGrid& grid, int columnWidth);

/// For each row, how many lines of text it shows beyond one; empty when no row shows more than one.
std::vector<int> extraTextLines(const TemplateRows& rows, const std::vector<GridColumnPtr>& columns);

} // namespace TessaronResources

#endif
