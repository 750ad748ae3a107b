#include "tests/engine/simulator/Raster.h"

#include <limits>

namespace simulator
{

double distance(const Point2& place, const Chord& chord)
{
    const double dx = chord.end[0] - chord.start[0];
    const double dy = chord.end[1] - chord.start[1];
    const double px = place[0] - chord.start[0];
    const double py = place[1] - chord.start[1];
    const double length2 = dx * dx + dy * dy;
    const double t = length2 > 0 ? std::clamp((px * dx + py * dy) / length2, 0.0, 1.0) : 0.0;
    const double x = px - t * dx;
    const double y = py - t * dy;
    return std::sqrt(x * x + y * y);
}

double distance(const Chord& a, const Chord& b)
{
    const auto side = [](const Chord& line, const Point2& place)
    {
        return (line.end[0] - line.start[0]) * (place[1] - line.start[1]) -
               (line.end[1] - line.start[1]) * (place[0] - line.start[0]);
    };
    if (side(a, b.start) * side(a, b.end) < 0 && side(b, a.start) * side(b, a.end) < 0)
        return 0;
    return std::min({distance(a.start, b), distance(a.end, b), distance(b.start, a), distance(b.end, a)});
}

std::vector<Chord> piecesOf(const Chord& chord, double greatest)
{
    const double dx = chord.end[0] - chord.start[0];
    const double dy = chord.end[1] - chord.start[1];
    const int count = std::max(1, static_cast<int>(std::ceil(std::hypot(dx, dy) / greatest)));
    std::vector<Chord> pieces;
    Point2 last = chord.start;
    for (int i = 1; i <= count; ++i)
    {
        const double t = static_cast<double>(i) / count;
        const Point2 next = i == count ? chord.end : Point2(chord.start[0] + t * dx, chord.start[1] + t * dy);
        pieces.push_back({last, next});
        last = next;
    }
    return pieces;
}

std::vector<char> Raster::inside(const std::vector<Chord>& boundary) const
{
    std::vector<char> result(size(), 0);
    std::vector<std::vector<const Chord*>> byRow(static_cast<std::size_t>(m_rows));
    for (const Chord& chord : boundary)
    {
        const auto [bottom, top] = std::minmax({chord.start[1], chord.end[1]});
        const int first = std::max(0, static_cast<int>(std::floor(row(bottom))) - 1);
        const int last = std::min(m_rows - 1, static_cast<int>(std::ceil(row(top))) + 1);
        for (int r = first; r <= last; ++r)
            byRow[static_cast<std::size_t>(r)].push_back(&chord);
    }
    std::vector<double> crossings;
    for (int r = 0; r < m_rows; ++r)
    {
        // Pieces of a chain meet only nearly: a line through such a gap crosses an odd number of times, one beside it
        // does not.
        for (int attempt = 0; attempt < 20; ++attempt)
        {
            const double y = middle(0, r)[1] + attempt * 0.007 * m_cell;
            crossings.clear();
            for (const Chord* const chord : byRow[static_cast<std::size_t>(r)])
                if ((chord->start[1] <= y) != (chord->end[1] <= y))
                    crossings.push_back(chord->start[0] + (y - chord->start[1]) / (chord->end[1] - chord->start[1]) *
                                                              (chord->end[0] - chord->start[0]));
            if (crossings.size() % 2 == 0)
                break;
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
        {
            const int first = std::max(0, static_cast<int>(std::ceil(column(crossings[i]))));
            const int last = std::min(m_columns - 1, static_cast<int>(std::floor(column(crossings[i + 1]))));
            for (int c = first; c <= last; ++c)
                result[index(c, r)] = 1;
        }
    }
    return result;
}

std::vector<float> Raster::distances(const std::vector<Chord>& chords, double limit) const
{
    std::vector<float> result(size(), static_cast<float>(limit));
    for (const Chord& chord : chords)
        for (const Chord& piece : piecesOf(chord, limit))
            visitNear(piece, limit,
                      [&](std::size_t cell, double away2)
                      { result[cell] = std::min(result[cell], static_cast<float>(std::sqrt(away2))); });
    return result;
}

namespace
{

/// The lower envelope of the parabolas over a line of values.
class Envelope
{
public:
    explicit Envelope(std::size_t length) : m_values(length), m_vertices(length), m_borders(length + 1) {}

    double& operator[](std::size_t i) { return m_values[i]; }

    /// Calls `store(i, value)` for each place of the line.
    template <class Store>
    void lower(const Store& store)
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        std::size_t count = 0;
        for (std::size_t q = 0; q < m_values.size(); ++q)
        {
            if (m_values[q] == infinity)
                continue;
            double border = -infinity;
            while (count > 0)
            {
                border = crossing(m_vertices[count - 1], q);
                if (border > m_borders[count - 1])
                    break;
                --count;
                border = -infinity;
            }
            m_vertices[count] = q;
            m_borders[count] = border;
            ++count;
        }
        std::size_t k = 0;
        for (std::size_t i = 0; i < m_values.size(); ++i)
        {
            if (count == 0)
            {
                store(i, infinity);
                continue;
            }
            const auto x = static_cast<double>(i);
            while (k + 1 < count && m_borders[k + 1] < x)
                ++k;
            const double away = x - static_cast<double>(m_vertices[k]);
            store(i, away * away + m_values[m_vertices[k]]);
        }
    }

private:
    double crossing(std::size_t a, std::size_t b) const
    {
        const auto x = static_cast<double>(a);
        const auto y = static_cast<double>(b);
        return (m_values[b] + y * y - m_values[a] - x * x) / (2 * (y - x));
    }

    std::vector<double> m_values;
    std::vector<std::size_t> m_vertices;
    std::vector<double> m_borders;
};

} // namespace

std::vector<float> Raster::squaredDistances(const std::vector<char>& marked) const
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    std::vector<float> result(size());
    for (std::size_t i = 0; i < size(); ++i)
        result[i] = marked[i] != 0 ? 0 : infinity;
    const auto columns = static_cast<std::size_t>(m_columns);
    const auto rows = static_cast<std::size_t>(m_rows);
    Envelope down(rows);
    for (std::size_t c = 0; c < columns; ++c)
    {
        for (std::size_t r = 0; r < rows; ++r)
            down[r] = result[r * columns + c];
        down.lower([&](std::size_t r, double value) { result[r * columns + c] = static_cast<float>(value); });
    }
    Envelope across(columns);
    for (std::size_t r = 0; r < rows; ++r)
    {
        for (std::size_t c = 0; c < columns; ++c)
            across[c] = result[r * columns + c];
        across.lower([&](std::size_t c, double value) { result[r * columns + c] = static_cast<float>(value); });
    }
    return result;
}

} // namespace simulator
