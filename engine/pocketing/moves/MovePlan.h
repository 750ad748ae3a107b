#ifndef ENGINE_POCKETING_MOVES_MOVEPLAN_H
#define ENGINE_POCKETING_MOVES_MOVEPLAN_H

#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/moves/Route.h"

#include <optional>
#include <vector>

namespace exchange::pocketing
{

/// One move of the tool: in the plane in steps of the grid, heights in the host's unit.
struct Move
{
    Purpose purpose = Purpose::rapid;
    PlaneMove track;
    /// The height at the end.
    double z = 0;
    /// How long to wait at the end, in seconds.
    double dwell = 0;
};

/// The heights that moves are planned by, in the host's unit.
struct HeightSettings
{
    /// The top of the material.
    double top = 0;
    /// Where rapids run across.
    double rapidZ = 0;
    double plungeClearance = 0;
    /// Above what the level before left, where links run at the high feed rate.
    double hopClearance = 0;
    /// The tangent of the steepest entry.
    double rampSlope = 0;
    bool counterClockwise = true;
    double dwellAfterPlunge = 0;
    /// Steps of the grid to a unit.
    double scale = 1;
};

/// Makes moves of routes.
class MovePlanner
{
public:
    MovePlanner(const GougeCheck& walls, const HeightSettings& settings) : m_walls(walls), m_settings(settings) {}

    /// The moves that cut a region at one depth and leave the tool there.
    /// \param z the depth to cut at
    /// \param above the height to which material has been removed before
    /// \param from where the tool stands when it is in the same region at the height `above`; nothing when it stands
    ///     somewhere at the height of rapids
    std::vector<Move> planLevel(const Route& route, double z, double above, const std::optional<Vec>& from) const;

    /// The move from the last depth of a region up to the height of rapids.
    Move lift(const Vec& at) const { return {Purpose::rapid, lineTo(at, at), m_settings.rapidZ, 0}; }

private:
    void enter(const Step& step, double z, double above, const std::optional<Vec>& from,
               std::vector<Move>& moves) const;
    /// Where an entry into material begins: where the level before has left it, or at the clearance over what may stand
    /// higher than said.
    double entryHeight(double above) const { return above < m_settings.top ? above : clearHeight(above); }
    double clearHeight(double above) const;
    /// Comes down over a place to a height above what the level before has left.
    void comeDown(const Vec& place, double height, double above, std::vector<Move>& moves) const;
    /// Comes over a place at the height where an entry begins.
    void comeOver(const Vec& place, double above, const std::optional<Vec>& from, std::vector<Move>& moves) const;
    static void addTrack(Purpose purpose, const Track& track, double z, std::vector<Move>& moves);
    static void addSloping(Purpose purpose, const Track& track, double from, double to, std::vector<Move>& moves);

    const GougeCheck& m_walls;
    const HeightSettings m_settings;
};

/// What checking a finished plan needs to know.
/// \throws jobs::JobError (status::internalError) when a move would cut into the part or a rapid would run through
///     material
void checkMoves(const std::vector<Move>& moves, const GougeCheck& walls, double top, double steepestSlope);

} // namespace exchange::pocketing

#endif
