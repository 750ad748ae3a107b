#ifndef ENGINE_POCKETING_MOVES_CLEAREDROOM_H
#define ENGINE_POCKETING_MOVES_CLEAREDROOM_H

#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/moves/PlaneMove.h"

#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

namespace exchange::pocketing
{

/// What the tool has cleared at the depth it works at.
class ClearedRoom
{
public:
    /// \param toolRadius in steps
    ClearedRoom(const GougeCheck& walls, double toolRadius) : m_walls(walls), m_radius(toolRadius) {}

    void clear();
    /// Adds what a track clears.
    void add(const Track& track);

    /// Whether the tool meets no material at a place, but for slivers of a twentieth of its radius.
    bool isClear(const Vec& place) const;
    /// A move in pieces that follow each other, each with whether it runs through cleared room.
    std::vector<std::pair<bool, PlaneMove>> split(const PlaneMove& move) const;

private:
    std::int64_t cell(double coordinate) const;
    static std::uint64_t key(std::int64_t x, std::int64_t y);
    bool isSwept(const Vec& place) const;

    const GougeCheck& m_walls;
    const double m_radius;
    std::vector<PlaneMove> m_pieces;
    /// The pieces that reach into each square of four tool radii.
    std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> m_cells;
};

} // namespace exchange::pocketing

#endif
