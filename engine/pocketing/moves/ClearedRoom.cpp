#include "engine/pocketing/moves/ClearedRoom.h"

#include <algorithm>
#include <cmath>

namespace exchange::pocketing
{

namespace
{

/// Places of the tool's disc that are looked at: on two circles, just inside the rim and half way to it.
constexpr int placesOnCircle = 16;
constexpr double circles[] = {0.95, 0.5};
/// How many times a move is looked at on the length of a tool radius.
constexpr double looksOnRadius = 4;

} // namespace

std::int64_t ClearedRoom::cell(double coordinate) const
{
    return static_cast<std::int64_t>(std::floor(coordinate / (4 * m_radius)));
}

std::uint64_t ClearedRoom::key(std::int64_t x, std::int64_t y)
{
    return (static_cast<std::uint64_t>(x) << 32U) ^ (static_cast<std::uint64_t>(y) & 0xFFFFFFFFU);
}

void ClearedRoom::clear()
{
    m_pieces.clear();
    m_cells.clear();
}

void ClearedRoom::add(const Track& track)
{
    for (const PlaneMove& move : track)
    {
        // A piece has a small box.
        const int count = std::max(1, static_cast<int>(std::ceil(move.length() / (4 * m_radius))));
        for (int i = 0; i < count; ++i)
        {
            const PlaneMove piece =
                count == 1 ? move : move.piece(static_cast<double>(i) / count, static_cast<double>(i + 1) / count);
            const auto number = static_cast<std::uint32_t>(m_pieces.size());
            m_pieces.push_back(piece);
            const Box reach = piece.box().grown(m_radius);
            for (std::int64_t x = cell(static_cast<double>(reach.left)); x <= cell(static_cast<double>(reach.right));
                 ++x)
                for (std::int64_t y = cell(static_cast<double>(reach.bottom));
                     y <= cell(static_cast<double>(reach.top)); ++y)
                    m_cells[key(x, y)].push_back(number);
        }
    }
}

bool ClearedRoom::isSwept(const Vec& place) const
{
    const auto found = m_cells.find(key(cell(place.x), cell(place.y)));
    return found != m_cells.end() && std::any_of(found->second.begin(), found->second.end(),
                                                 [&](std::uint32_t i)
                                                 {
                                                     const Vec away = m_pieces[i].nearestPlace(place) - place;
                                                     return dot(away, away) <= m_radius * m_radius;
                                                 });
}

bool ClearedRoom::isClear(const Vec& place) const
{
    static const double step = 2 * std::acos(-1.0) / placesOnCircle;
    for (const double circle : circles)
        for (int i = 0; i < placesOnCircle; ++i)
        {
            const Vec there = place + Vec{std::cos(i * step), std::sin(i * step)} * (circle * m_radius);
            // On the very edge of the stock is not air: what lies along the edge would be missed.
            if (!isSwept(there) && !m_walls.isAir(there, 0.02 * m_radius))
                return false;
        }
    return true;
}

std::vector<std::pair<bool, PlaneMove>> ClearedRoom::split(const PlaneMove& move) const
{
    const int count = std::max(1, static_cast<int>(std::ceil(move.length() / m_radius * looksOnRadius)));
    std::vector<std::pair<bool, PlaneMove>> pieces;
    const auto part = [count](int i) { return static_cast<double>(i) / count; };
    int begin = 0;
    bool before = isClear(move.start);
    bool clear = true;
    for (int i = 1; i <= count; ++i)
    {
        const bool now = isClear(move.at(part(i)));
        const bool piece = before && now;
        if (i > 1 && piece != clear)
        {
            pieces.emplace_back(clear, move.piece(part(begin), part(i - 1)));
            begin = i - 1;
        }
        clear = piece;
        before = now;
    }
    pieces.emplace_back(clear, begin == 0 ? move : move.piece(part(begin), 1));
    return pieces;
}

} // namespace exchange::pocketing
