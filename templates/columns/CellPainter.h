#ifndef TEMPLATES_COLUMNS_CELLPAINTER_H
#define TEMPLATES_COLUMNS_CELLPAINTER_H

#include <cmath>
#include <string>
#include <vector>

namespace TessaronResources
{

/// A point of a cell, in pixels of the grid.
struct CellPoint
{
    int x = 0;
    int y = 0;
};

/// Where a cell lies in the grid, in pixels.
struct CellArea
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    double scale = 1.0; ///< of the screen; 1 is 96 dots per inch

    /// A length as designed for a scale of 1.
    int pixels(int length) const { return static_cast<int>(std::lround(length * scale)); }
};

/// What a column draws its cells with. The background is there already; colours and fonts are those of the grid.
class CellPainter
{
public:
    virtual ~CellPainter() = default;

    virtual const CellArea& area() const = 0;
    virtual bool isSelected() const = 0;
    /// A text of one or more lines, aligned as the column is. One line that is too wide is written smaller, down to
    /// this share of the font's size, and then cut off with dots.
    virtual void drawText(const std::string& text, double smallestScale) = 0;
    /// A polygon in the colour of marks, filled or as an outline.
    virtual void drawMark(const std::vector<CellPoint>& corners, bool filled) = 0;
};

} // namespace TessaronResources

#endif
