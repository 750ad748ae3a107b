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

void MovePlanner::comeOver(const Vec& place, double down, const std::optional<Vec>& from, double fromZ,
                           std::vector<Move>& moves) const
{
    if (from && m_walls.keepsClear(lineTo(*from, place)))
    {
        // The level before has cleared all of the region.
        if (*from != place)
            moves.push_back({Purpose::link, lineTo(*from, place), fromZ, 0});
        return;
    }
    if (from)
        moves.push_back(lift(*from));
    moves.push_back({Purpose::rapid, lineTo(place, place), m_settings.rapidZ, 0});
    if (down < m_settings.rapidZ)
        moves.push_back({Purpose::rapid, lineTo(place, place), down, 0});
}

void MovePlanner::enter(const Step& step, double z, double above, const std::optional<Vec>& from,
                        std::vector<Move>& moves) const
{
    const Entry& entry = step.entry;
    const double clear = std::min(m_settings.rapidZ, above + m_settings.plungeClearance);
    const double start = from ? above : clear;
    const Vec next = approachStart(step);
    const double dwell = m_settings.dwellAfterPlunge;
    switch (entry.kind)
    {
    case Entry::Kind::helix:
    {
        // As many half turns as keep the slope; the last one ends where the way to the pass begins.
        const Vec end = EntryFinder::endOf(entry, next);
        const double dropOfHalfTurn = halfTurn * entry.radius / m_settings.scale * m_settings.rampSlope;
        const auto plan = [&](double fromZ)
        { return std::max(1, static_cast<int>(std::ceil((fromZ - z) / dropOfHalfTurn - 1e-9))); };
        const Vec opposite = entry.place * 2 - end;
        // Whether the tool can stay at the height it has depends on where the helix begins.
        std::vector<Move> over;
        double fromZ = start;
        Vec begin = plan(fromZ) % 2 == 0 ? end : opposite;
        comeOver(begin, clear, from, above, over);
        if (from && over.size() > 1)
        {
            over.clear();
            fromZ = clear;
            begin = plan(fromZ) % 2 == 0 ? end : opposite;
            const bool stays = m_walls.keepsClear(lineTo(*from, begin));
            if (!stays)
                comeOver(begin, clear, from, above, over);
            else
            {
                over.push_back(lift(*from));
                comeOver(begin, clear, std::nullopt, above, over);
            }
        }
        moves.insert(moves.end(), over.begin(), over.end());
        const int halves = plan(fromZ);
        for (int i = 1; i <= halves; ++i)
        {
            const Vec to = (halves - i) % 2 == 0 ? end : opposite;
            const Vec before = to == end ? opposite : end;
            const double height = i == halves ? z : fromZ + (z - fromZ) * i / halves;
            moves.push_back({Purpose::helix,
                             {before, to, entry.place, m_settings.counterClockwise ? Turn::left : Turn::right},
                             height,
                             i == halves ? dwell : 0});
        }
        return;
    }
    case Entry::Kind::ramp:
    {
        // Whichever height it starts from: long enough for the greater one.
        const double distance = (clear - z) / m_settings.rampSlope * m_settings.scale;
        const Track track = runUp(entry.ramp, distance);
        const Vec begin = track.front().start;
        const std::size_t before = moves.size();
        comeOver(begin, clear, from, above, moves);
        const bool stayed = from && moves.size() - before <= 1;
        addSloping(Purpose::ramp, track, stayed ? above : clear, z, moves);
        moves.back().dwell = dwell;
        return;
    }
    case Entry::Kind::hole:
    case Entry::Kind::side:
    case Entry::Kind::straight:
        if (from)
            moves.push_back(lift(*from));
        comeOver(entry.place, clear, std::nullopt, above, moves);
        moves.push_back({Purpose::plunge, lineTo(entry.place, entry.place), z, dwell});
        return;
    }
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
