#ifndef TEMPLATES_COLUMNS_RATINGCOLUMN_H
#define TEMPLATES_COLUMNS_RATINGCOLUMN_H

#include "templates/columns/RealColumn.h"

#include <algorithm>
#include <numbers>

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

/// The stars of a cell: as large as the cell allows, within reason, in the middle of its height.
inline StarRow starRow(const CellArea& cell)
{
    constexpr int largestStar = 18;
    const int margin = std::max(cell.height / 8, 2);
    const int edge = std::max(
        0, std::min({cell.pixels(largestStar), cell.height - 2 * margin, (cell.width - 2 * margin) / ratingStars}));
    return {cell.left + margin, cell.top + (cell.height - edge) / 2, edge};
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

/// A column of ratings, shown as stars. A click on a star or a digit rates.
class RatingColumn : public GridColumnInfoDouble
{
public:
    using GridColumnInfoDouble::GridColumnInfoDouble;

    const std::array<std::string, 2>& sortOrderTexts() const override { return alphabeticOrderTexts(); }
    CellAppearance appearance() const override { return {CellAlignment::right, false}; }
    void draw(CellPainter& painter, const std::string& text) const override
    {
        const std::optional<double> rating = leadingNumber<double>(text);
        if (!rating && !painter.isSelected())
            return;
        const StarRow place = starRow(painter.area());
        for (int k = 0; k < ratingStars; ++k)
            painter.drawMark(star(place.left + (k + 0.5) * place.edge, place.top + place.edge * 0.5, place.edge * 0.45),
                             rating.value_or(0.0) >= k + 0.5);
    }
    CellEditor editor() const override { return CellEditor::direct; }
    std::optional<std::string> textAfterClick(const CellArea& cell, CellPoint at,
                                              const std::string& text) const override
    {
        const int clicked = ratingAt(starRow(cell), at.x, leadingNumber<double>(text).value_or(0.0));
        return clicked < 0 ? std::nullopt : std::optional(std::to_string(clicked));
    }
    std::optional<std::string> textAfterKey(char32_t key) const override
    {
        const bool isRating = key >= U'0' && key <= U'0' + ratingStars;
        return isRating ? std::optional(std::string(1, static_cast<char>(key))) : std::nullopt;
    }

private:
    static std::vector<CellPoint> star(double x, double y, double radius)
    {
        constexpr int corners = 10;
        constexpr double innerShare = 0.42;
        std::vector<CellPoint> points;
        for (int k = 0; k < corners; ++k)
        {
            const double r = k % 2 == 0 ? radius : radius * innerShare;
            const double angle = std::numbers::pi * (k * 2.0 / corners - 0.5);
            points.push_back({static_cast<int>(std::lround(x + r * std::cos(angle))),
                              static_cast<int>(std::lround(y + r * std::sin(angle)))});
        }
        return points;
    }
};

} // namespace TessaronResources

#endif
