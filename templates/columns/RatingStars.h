#ifndef TEMPLATES_COLUMNS_RATINGSTARS_H
#define TEMPLATES_COLUMNS_RATINGSTARS_H

#include <algorithm>

namespace TessaronResources
{

/// A rating is shown as this many stars, of which as many are filled as it is worth.
constexpr int ratingStars = 5;

/// How the stars lie in a cell, in pixels: a row of squares from `left` on.
struct StarRow
{
    int left = 0;
    int top = 0;
    int edge = 0;
};

/// The stars of a cell: as large as the cell allows, no larger than `largest`, in the middle of its height.
inline StarRow starRow(int cellLeft, int cellTop, int cellWidth, int cellHeight, int largest)
{
    const int margin = std::max(cellHeight / 8, 2);
    const int edge = std::max(0, std::min({largest, cellHeight - 2 * margin, (cellWidth - 2 * margin) / ratingStars}));
    return {cellLeft + margin, cellTop + (cellHeight - edge) / 2, edge};
}

/// The rating that a click at `x` stands for: the star that was hit, 1 to 5; 0 on the one star of a rating of 1, which
/// takes the rating away; -1 beside the stars.
inline int ratingAt(const StarRow& stars, int x, double rating)
{
    if (stars.edge <= 0 || x < stars.left || x >= stars.left + ratingStars * stars.edge)
        return -1;
    const int star = (x - stars.left) / stars.edge + 1;
    return star == 1 && rating == 1.0 ? 0 : star;
}

} // namespace TessaronResources

#endif
