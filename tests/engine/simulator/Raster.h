#ifndef TESTS_ENGINE_SIMULATOR_RASTER_H
#define TESTS_ENGINE_SIMULATOR_RASTER_H

#include "tests/engine/simulator/Motion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace simulator
{

/// A straight piece of a boundary or of a way, seen from above.
struct Chord
{
    Point2 start;
    Point2 end;
};

double distance(const Point2& place, const Chord& chord);
double distance(const Chord& a, const Chord& b);

/// Square cells over a part. What is known of a cell is known of its middle.
class Raster
{
public:
    Raster() = default;
    Raster(const Point2& low, const Point2& high, double cell)
        : m_low(low), m_cell(cell), m_columns(static_cast<int>(std::ceil((high[0] - low[0]) / cell)) + 1),
          m_rows(static_cast<int>(std::ceil((high[1] - low[1]) / cell)) + 1)
    {
    }

    double cell() const { return m_cell; }
    int columns() const { return m_columns; }
    int rows() const { return m_rows; }
    std::size_t size() const { return static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows); }
    std::size_t index(int column, int row) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) + static_cast<std::size_t>(column);
    }
    Point2 middle(int column, int row) const { return Point2(m_low[0] + column * m_cell, m_low[1] + row * m_cell); }
    Point2 middle(std::size_t index) const
    {
        const auto columns = static_cast<std::size_t>(m_columns);
        return middle(static_cast<int>(index % columns), static_cast<int>(index / columns));
    }
    /// The cell that a place lies in, or the nearest one.
    std::size_t cellAt(const Point2& place) const
    {
        return index(std::clamp(static_cast<int>(std::lround(column(place[0]))), 0, m_columns - 1),
                     std::clamp(static_cast<int>(std::lround(row(place[1]))), 0, m_rows - 1));
    }

    /// Calls `visit(cell, squared distance)` for every cell whose middle is less than a distance from a chord, which is
    /// best short.
    template <class Visit>
    void visitNear(const Chord& chord, double reach, const Visit& visit) const
    {
        const auto [left, right] = std::minmax({chord.start[0], chord.end[0]});
        const auto [bottom, top] = std::minmax({chord.start[1], chord.end[1]});
        const auto from = [](double value) { return std::max(0, static_cast<int>(std::ceil(value))); };
        const int lastRow = std::min(m_rows - 1, static_cast<int>(std::floor(row(top + reach))));
        const int lastColumn = std::min(m_columns - 1, static_cast<int>(std::floor(column(right + reach))));
        const double dx = chord.end[0] - chord.start[0];
        const double dy = chord.end[1] - chord.start[1];
        const double length2 = dx * dx + dy * dy;
        const double perLength2 = length2 > 0 ? 1 / length2 : 0;
        const int firstColumn = from(column(left - reach));
        for (int r = from(row(bottom - reach)); r <= lastRow; ++r)
        {
            const double py = m_low[1] + r * m_cell - chord.start[1];
            for (int c = firstColumn; c <= lastColumn; ++c)
            {
                const double px = m_low[0] + c * m_cell - chord.start[0];
                const double t = std::min(1.0, std::max(0.0, (px * dx + py * dy) * perLength2));
                const double x = px - t * dx;
                const double y = py - t * dy;
                const double away2 = x * x + y * y;
                if (away2 < reach * reach)
                    visit(index(c, r), away2);
            }
        }
    }

    /// For each cell whether its middle lies inside closed boundaries, alternating; gaps in them must be small.
    std::vector<char> inside(const std::vector<Chord>& boundary) const;
    /// For each cell the distance of its middle from the nearest chord; at least `limit` where none is so near.
    std::vector<float> distances(const std::vector<Chord>& chords, double limit) const;
    /// For each cell the square of the distance to the nearest of the marked ones, in cells (Felzenszwalb and
    /// Huttenlocher 2012).
    std::vector<float> squaredDistances(const std::vector<char>& marked) const;

private:
    double column(double x) const { return (x - m_low[0]) / m_cell; }
    double row(double y) const { return (y - m_low[1]) / m_cell; }

    Point2 m_low;
    double m_cell = 1;
    int m_columns = 0;
    int m_rows = 0;
};

/// Cuts a chord in pieces no longer than a length.
std::vector<Chord> piecesOf(const Chord& chord, double greatest);

} // namespace simulator

#endif
