#include "engine/pocketing/moves/MovePlan.h"

#include "engine/jobs/JobError.h"
#include "engine/pocketing/moves/EntryFinder.h"
#include <tessaron/exchange/StatusTable.h>

#include <algorithm>
#include <cmath>

namespace exchange::pocketing
{

namespace
{

const double halfTurn = std::acos(-1.0);

/// Where the first leg of a step begins.
Vec approachStart(const Step& step)
{
    return step.approach.empty() ? step.pass.front().start : step.approach.front().track.front().start;
}

} // namespace

std::vector<Move> MovePlanner::planLevel(const Route& route, double z, double above,
                                         const std::optional<Vec>& from) const
{
    std::vector<Move> moves;
    for (std::size_t i = 0; i < route.steps.size(); ++i)
    {
        const Step& step = route.steps[i];
        const std::optional<Vec> last = i == 0 ? from : std::optional<Vec>(route.steps[i - 1].end());
        if (step.reach == Reach::entry)
            enter(step, z, above, i == 0 ? from : std::nullopt, moves);
        else if (step.reach != Reach::down)
        {
            const double over = step.reach == Reach::hop ? std::min(m_settings.rapidZ, above + m_settings.hopClearance)
                                                         : m_settings.rapidZ;
            const double low = std::min(over, z + m_settings.plungeClearance);
            moves.push_back({Purpose::rapid, lineTo(*last, *last), over, 0});
            moves.push_back(
                {step.reach == Reach::hop ? Purpose::link : Purpose::rapid, lineTo(*last, step.drop), over, 0});
            if (low < over)
                moves.push_back({Purpose::rapid, lineTo(step.drop, step.drop), low, 0});
            moves.push_back({Purpose::plunge, lineTo(step.drop, step.drop), z, 0});
        }
        for (const Leg& leg : step.approach)
            addTrack(leg.purpose, leg.track, z, moves);
        addTrack(Purpose::cut, step.pass, z, moves);
        addTrack(Purpose::lead, step.leave, z, moves);
        // What follows by another entry starts from above.
        if (i + 1 < route.steps.size() && route.steps[i + 1].reach == Reach::entry)
            moves.push_back(lift(step.end()));
    }
    return moves;
}

double MovePlanner::clearHeight(double above) const
{
    return std::min(m_settings.rapidZ, above + m_settings.plungeClearance);
}

void MovePlanner::comeDown(const Vec& place, double height, double above, std::vector<Move>& moves) const
{
    moves.push_back({Purpose::rapid, lineTo(place, place), m_settings.rapidZ, 0});
    const double clear = clearHeight(above);
    if (clear < m_settings.rapidZ)
        moves.push_back({Purpose::rapid, lineTo(place, place), clear, 0});
    if (height < clear)
        moves.push_back({Purpose::plunge, lineTo(place, place), height, 0});
}

void MovePlanner::comeOver(const Vec& place, double above, const std::optional<Vec>& from,
                           std::vector<Move>& moves) const
{
    if (from && m_walls.keepsClear(lineTo(*from, place)))
    {
        // The level before has cleared all of the region.
        if (*from != place)
            moves.push_back({Purpose::link, lineTo(*from, place), above, 0});
        return;
    }
    if (from)
        moves.push_back(lift(*from));
    comeDown(place, entryHeight(above), above, moves);
}

void MovePlanner::enter(const Step& step, double z, double above, const std::optional<Vec>& from,
                        std::vector<Move>& moves) const
{
    const Entry& entry = step.entry;
    const double height = entryHeight(above);
    switch (entry.kind)
    {
    case Entry::Kind::helix:
    {
        // Half turns down to where the way to the pass begins, and before them what is left of the way.
        const Vec end = EntryFinder::endOf(entry, approachStart(step));
        const double angle = (height - z) / m_settings.rampSlope * m_settings.scale / entry.radius;
        const int whole = static_cast<int>(angle / halfTurn);
        // A speck of an arc is none.
        const double first = std::max(angle - whole * halfTurn, halfTurn / 16);
        const double sense = m_settings.counterClockwise ? 1 : -1;
        Vec at = whole % 2 == 0 ? end : entry.place * 2 - end;
        const PlaneMove back{at, entry.place * 2 - at, entry.place, sense > 0 ? Turn::right : Turn::left};
        const Vec begin = back.at(first / halfTurn);
        comeOver(begin, above, from, moves);
        const Turn turn = sense > 0 ? Turn::left : Turn::right;
        const double drop = (height - z) / (first + whole * halfTurn);
        moves.push_back({Purpose::helix, {begin, at, entry.place, turn}, whole > 0 ? height - drop * first : z, 0});
        for (int i = 1; i <= whole; ++i)
        {
            const Vec to = entry.place * 2 - at;
            const double down = i == whole ? z : height - drop * (first + i * halfTurn);
            moves.push_back({Purpose::helix, {at, to, entry.place, turn}, down, 0});
            at = to;
        }
        break;
    }
    case Entry::Kind::ramp:
    {
        const Track track = runUp(entry.ramp, (height - z) / m_settings.rampSlope * m_settings.scale);
        comeOver(track.front().start, above, from, moves);
        addSloping(Purpose::ramp, track, height, z, moves);
        break;
    }
    case Entry::Kind::hole:
    case Entry::Kind::side:
    case Entry::Kind::straight:
        if (from)
            moves.push_back(lift(*from));
        comeDown(entry.place, z, above, moves);
        break;
    }
    moves.back().dwell = m_settings.dwellAfterPlunge;
}

void MovePlanner::addTrack(Purpose purpose, const Track& track, double z, std::vector<Move>& moves)
{
    // What is left of rounding is no move.
    for (const PlaneMove& move : track)
        if (move.turn != Turn::none || norm(move.end - move.start) > 0.01)
            moves.push_back({purpose, move, z, 0});
}

void MovePlanner::addSloping(Purpose purpose, const Track& track, double from, double to, std::vector<Move>& moves)
{
    const double whole = lengthOf(track);
    double done = 0;
    for (std::size_t i = 0; i < track.size(); ++i)
    {
        done += track[i].length();
        const double z = i + 1 == track.size() ? to : from + (to - from) * done / whole;
        moves.push_back({purpose, track[i], z, 0});
    }
}

void checkMoves(const std::vector<Move>& moves, const GougeCheck& walls, double top, double steepestSlope)
{
    const auto refuse = [](const char* what)
    { throw jobs::JobError(status::internalError, std::string(what) + "; no toolpath was made."); };
    // Pieces of moves that were checked as a whole end where rounding puts them.
    const double clearance = walls.clearance() - 0.01;
    for (std::size_t i = 0; i < moves.size(); ++i)
    {
        const Move& move = moves[i];
        const double before = i > 0 ? moves[i - 1].z : move.z;
        const bool across = move.track.start != move.track.end;
        if (move.purpose == Purpose::rapid)
        {
            if (across && move.z < top)
                refuse("A rapid would run across below the top of the material");
            continue;
        }
        if (std::min(before, move.z) < top && !walls.keepsDistance(move.track, clearance))
            refuse("The computed path would cut into the part");
        if ((move.purpose == Purpose::ramp || move.purpose == Purpose::helix) &&
            before - move.z > move.track.length() * steepestSlope * (1 + 1e-6))
            refuse("An entry would be steeper than the ramp angle");
    }
}

} // namespace exchange::pocketing
