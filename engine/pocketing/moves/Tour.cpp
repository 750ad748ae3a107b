#include "engine/pocketing/moves/Tour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace exchange::pocketing
{

namespace
{

constexpr std::size_t neighbourCount = 8;
/// How often the way as a whole is gone through for improvements.
constexpr int greatestRounds = 12;

/// Places in square cells, some two in each.
class PlaceGrid
{
public:
    explicit PlaceGrid(const std::vector<Vec>& places) : m_places(places)
    {
        Vec low = places.front();
        Vec high = places.front();
        for (const Vec& place : places)
        {
            low = {std::min(low.x, place.x), std::min(low.y, place.y)};
            high = {std::max(high.x, place.x), std::max(high.y, place.y)};
        }
        m_low = low;
        const double width = std::max(1.0, high.x - low.x);
        const double height = std::max(1.0, high.y - low.y);
        const auto count = static_cast<double>(places.size());
        m_size = std::max({std::sqrt(width * height * 2 / count), width / count, height / count});
        m_columns = static_cast<long>(width / m_size) + 1;
        m_rows = static_cast<long>(height / m_size) + 1;
        m_cells.resize(static_cast<std::size_t>(m_columns * m_rows));
        for (std::size_t i = 0; i < places.size(); ++i)
            cell(column(places[i]), row(places[i])).push_back(i);
    }

    void remove(std::size_t i) { std::erase(cell(column(m_places[i]), row(m_places[i])), i); }

    /// The nearest places to a given one, the nearest first, equally near ones in their order.
    std::vector<std::size_t> nearest(const Vec& from, std::size_t count) const
    {
        std::vector<std::pair<double, std::size_t>> found;
        const long x = column(from);
        const long y = row(from);
        const long farthest = std::max(m_columns, m_rows);
        for (long ring = 0; ring <= farthest; ++ring)
        {
            for (long dx = -ring; dx <= ring; ++dx)
                for (long dy = -ring; dy <= ring; dy += std::abs(dx) == ring || ring == 0 ? 1 : 2 * ring)
                    collect(x + dx, y + dy, from, found);
            // What lies beyond the rings looked at is farther than this.
            const double sure = static_cast<double>(ring) * m_size;
            std::sort(found.begin(), found.end());
            if (found.size() >= count && found[count - 1].first <= sure * sure)
                break;
        }
        std::vector<std::size_t> result;
        for (std::size_t i = 0; i < std::min(count, found.size()); ++i)
            result.push_back(found[i].second);
        return result;
    }

private:
    long column(const Vec& place) const
    {
        return std::clamp(static_cast<long>(std::floor((place.x - m_low.x) / m_size)), 0L, m_columns - 1);
    }
    long row(const Vec& place) const
    {
        return std::clamp(static_cast<long>(std::floor((place.y - m_low.y) / m_size)), 0L, m_rows - 1);
    }
    std::vector<std::size_t>& cell(long x, long y) { return m_cells[static_cast<std::size_t>(y * m_columns + x)]; }

    void collect(long x, long y, const Vec& from, std::vector<std::pair<double, std::size_t>>& found) const
    {
        if (x < 0 || y < 0 || x >= m_columns || y >= m_rows)
            return;
        for (const std::size_t i : m_cells[static_cast<std::size_t>(y * m_columns + x)])
        {
            const Vec way = m_places[i] - from;
            found.emplace_back(dot(way, way), i);
        }
    }

    const std::vector<Vec>& m_places;
    Vec m_low;
    double m_size = 1;
    long m_columns = 1;
    long m_rows = 1;
    std::vector<std::vector<std::size_t>> m_cells;
};

/// An open way through places, begun at a fixed one.
class Improver
{
public:
    Improver(const std::vector<Vec>& places, const Vec& from, std::vector<std::size_t> order)
        : m_places(places), m_from(from), m_order(std::move(order)), m_position(places.size())
    {
        number(0, m_order.size());
    }

    void improve(const std::vector<std::vector<std::size_t>>& neighbours, const jobs::CancelFlag& cancel)
    {
        bool improved = true;
        for (int round = 0; improved && round < greatestRounds; ++round)
        {
            improved = false;
            for (std::size_t place = 0; place < m_places.size(); ++place)
            {
                cancel.check();
                for (const std::size_t other : neighbours[place])
                    improved = exchangeLinks(place, other) || moveRun(place, other) || improved;
            }
        }
    }

    std::vector<std::size_t> take() { return std::move(m_order); }

private:
    /// The place at a position; -1 is where the way begins.
    const Vec& at(std::ptrdiff_t position) const
    {
        return position < 0 ? m_from : m_places[m_order[static_cast<std::size_t>(position)]];
    }
    /// The length of the link between two positions; none leads on from the last.
    double link(std::ptrdiff_t a, std::ptrdiff_t b) const
    {
        if (b >= static_cast<std::ptrdiff_t>(m_order.size()))
            return 0;
        return norm(at(b) - at(a));
    }
    double gap(const Vec& a, std::ptrdiff_t b) const
    {
        return b >= static_cast<std::ptrdiff_t>(m_order.size()) ? 0 : norm(at(b) - a);
    }
    void number(std::size_t first, std::size_t last)
    {
        for (std::size_t i = first; i < last; ++i)
            m_position[m_order[i]] = i;
    }

    /// Links two places by turning round the run between them.
    bool exchangeLinks(std::size_t place, std::size_t other)
    {
        auto i = static_cast<std::ptrdiff_t>(m_position[place]);
        auto j = static_cast<std::ptrdiff_t>(m_position[other]);
        if (i > j)
            std::swap(i, j);
        // The links after both, and those before both.
        if (turnRound(i + 1, j) || turnRound(i, j - 1))
            return true;
        return false;
    }
    bool turnRound(std::ptrdiff_t first, std::ptrdiff_t last)
    {
        if (first < 0 || last <= first)
            return false;
        const double before = link(first - 1, first) + link(last, last + 1);
        const double after = norm(at(last) - at(first - 1)) + gap(at(first), last + 1);
        if (after >= before - tiny(before))
            return false;
        std::reverse(m_order.begin() + first, m_order.begin() + last + 1);
        number(static_cast<std::size_t>(first), static_cast<std::size_t>(last) + 1);
        return true;
    }

    /// Takes a run that begins at a place and puts it next to another one, either way round.
    bool moveRun(std::size_t place, std::size_t other)
    {
        const auto count = static_cast<std::ptrdiff_t>(m_order.size());
        for (std::ptrdiff_t length = 1; length <= 3; ++length)
        {
            const auto first = static_cast<std::ptrdiff_t>(m_position[place]);
            const std::ptrdiff_t last = first + length - 1;
            const auto target = static_cast<std::ptrdiff_t>(m_position[other]);
            if (last >= count || (target >= first - 1 && target <= last))
                continue;
            const Vec head = at(first);
            const Vec tail = at(last);
            const double removed = link(first - 1, first) + link(last, last + 1) - gap(at(first - 1), last + 1);
            const double kept = link(target, target + 1);
            const double straight = norm(head - at(target)) + gap(tail, target + 1) - kept;
            const double turned = norm(tail - at(target)) + gap(head, target + 1) - kept;
            if (std::min(straight, turned) >= removed - tiny(removed))
                continue;
            const auto begin = m_order.begin();
            if (turned < straight)
                std::reverse(begin + first, begin + last + 1);
            if (target > last)
                std::rotate(begin + first, begin + last + 1, begin + target + 1);
            else
                std::rotate(begin + target + 1, begin + first, begin + last + 1);
            number(static_cast<std::size_t>(std::min(first, target + 1)),
                   static_cast<std::size_t>(std::max(last, target) + 1));
            return true;
        }
        return false;
    }

    /// Less than this is rounding and no gain.
    static double tiny(double length) { return 1e-9 * length; }

    const std::vector<Vec>& m_places;
    const Vec m_from;
    std::vector<std::size_t> m_order;
    std::vector<std::size_t> m_position;
};

} // namespace

std::vector<std::vector<std::size_t>> nearNeighbours(const std::vector<Vec>& places, const jobs::CancelFlag& cancel)
{
    std::vector<std::vector<std::size_t>> neighbours(places.size());
    if (places.empty())
        return neighbours;
    const PlaceGrid grid(places);
    for (std::size_t i = 0; i < places.size(); ++i)
    {
        cancel.check();
        neighbours[i] = grid.nearest(places[i], neighbourCount + 1);
        std::erase(neighbours[i], i);
    }
    return neighbours;
}

std::vector<std::size_t> shortTour(const std::vector<Vec>& places, const Vec& from, const jobs::CancelFlag& cancel)
{
    std::vector<std::size_t> order;
    if (places.empty())
        return order;
    const std::vector<std::vector<std::size_t>> neighbours = nearNeighbours(places, cancel);
    PlaceGrid grid(places);
    Vec at = from;
    while (order.size() < places.size())
    {
        cancel.check();
        const std::size_t next = grid.nearest(at, 1).front();
        grid.remove(next);
        order.push_back(next);
        at = places[next];
    }
    Improver improver(places, from, std::move(order));
    improver.improve(neighbours, cancel);
    return improver.take();
}

} // namespace exchange::pocketing
