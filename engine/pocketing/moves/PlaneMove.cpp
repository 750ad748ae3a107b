#include "engine/pocketing/moves/PlaneMove.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace exchange::pocketing
{

namespace
{

const double wholeTurn = 2 * std::acos(-1.0);

/// The angle from one direction on to another, in the sense of a turn; 0 to below a whole turn.
double angleBetween(const Vec& from, const Vec& to, Turn turn)
{
    double angle = std::atan2(cross(from, to), dot(from, to));
    if (turn == Turn::right)
        angle = -angle;
    return angle < 0 ? angle + wholeTurn : angle;
}

double nearestPartOfLine(const Vec& start, const Vec& end, const Vec& place)
{
    const Vec way = end - start;
    const double length2 = dot(way, way);
    return length2 > 0 ? std::clamp(dot(place - start, way) / length2, 0.0, 1.0) : 0.0;
}

double pointToLine(const Vec& place, const Vec& start, const Vec& end)
{
    return norm(place - (start + (end - start) * nearestPartOfLine(start, end, place)));
}

double lineToLine(const Vec& a, const Vec& b, const Vec& c, const Vec& d)
{
    const auto opposite = [](double s, double t) { return (s < 0 && t > 0) || (s > 0 && t < 0); };
    if (opposite(cross(b - a, c - a), cross(b - a, d - a)) && opposite(cross(d - c, a - c), cross(d - c, b - c)))
        return 0;
    return std::min({pointToLine(a, c, d), pointToLine(b, c, d), pointToLine(c, a, b), pointToLine(d, a, b)});
}

} // namespace

double PlaneMove::sweep() const
{
    return turn == Turn::none ? 0 : angleBetween(start - centre, end - centre, turn);
}

double PlaneMove::length() const
{
    return turn == Turn::none ? norm(end - start) : radius() * sweep();
}

Vec PlaneMove::at(double part) const
{
    if (part <= 0)
        return start;
    if (part >= 1)
        return end;
    if (turn == Turn::none)
        return start + (end - start) * part;
    const double angle = sweep() * part * (turn == Turn::left ? 1 : -1);
    const Vec arm = start - centre;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return centre + Vec{arm.x * c - arm.y * s, arm.x * s + arm.y * c};
}

Vec PlaneMove::direction(double part) const
{
    const Vec way = turn == Turn::none ? end - start : at(part) - centre;
    const double length = norm(way);
    if (length == 0)
        return {1, 0};
    const Vec unit = way * (1 / length);
    if (turn == Turn::none)
        return unit;
    return turn == Turn::left ? Vec{-unit.y, unit.x} : Vec{unit.y, -unit.x};
}

double PlaneMove::nearestPart(const Vec& place) const
{
    if (turn == Turn::none)
        return nearestPartOfLine(start, end, place);
    const double whole = sweep();
    const double angle = angleBetween(start - centre, place - centre, turn);
    if (angle <= whole)
        return whole > 0 ? angle / whole : 0;
    return norm(place - start) <= norm(place - end) ? 0 : 1;
}

PlaneMove PlaneMove::piece(double from, double to) const
{
    PlaneMove result = *this;
    result.start = at(from);
    result.end = at(to);
    // Rounding may put the ends of a speck of an arc in the wrong order, which is nearly a whole turn.
    if ((to - from) * length() < 1)
        result.turn = Turn::none;
    return result;
}

PlaneMove PlaneMove::reversed() const
{
    PlaneMove result{end, start, centre, turn};
    if (turn != Turn::none)
        result.turn = turn == Turn::left ? Turn::right : Turn::left;
    return result;
}

bool PlaneMove::spans(const Vec& arm) const
{
    const Vec from = (turn == Turn::left ? start : end) - centre;
    const Vec to = (turn == Turn::left ? end : start) - centre;
    if (cross(from, to) >= 0)
        return cross(from, arm) >= 0 && cross(arm, to) >= 0;
    return !(cross(to, arm) > 0 && cross(arm, from) > 0);
}

Vec PlaneMove::nearestPlace(const Vec& place) const
{
    if (turn == Turn::none)
        return start + (end - start) * nearestPartOfLine(start, end, place);
    const Vec arm = place - centre;
    const double length = norm(arm);
    if (length > 0 && spans(arm))
        return centre + arm * (radius() / length);
    return norm(place - start) <= norm(place - end) ? start : end;
}

Box PlaneMove::box() const
{
    Vec low{std::min(start.x, end.x), std::min(start.y, end.y)};
    Vec high{std::max(start.x, end.x), std::max(start.y, end.y)};
    if (turn != Turn::none)
    {
        const double r = radius();
        for (const Vec& side : {Vec{1, 0}, Vec{0, 1}, Vec{-1, 0}, Vec{0, -1}})
            if (spans(side))
            {
                const Vec extreme = centre + side * r;
                low = {std::min(low.x, extreme.x), std::min(low.y, extreme.y)};
                high = {std::max(high.x, extreme.x), std::max(high.y, extreme.y)};
            }
    }
    const auto down = [](double value) { return static_cast<ClipperLib::cInt>(std::floor(value)); };
    const auto up = [](double value) { return static_cast<ClipperLib::cInt>(std::ceil(value)); };
    return {down(low.x), down(low.y), up(high.x), up(high.y)};
}

double PlaneMove::distanceTo(const Vec& a, const Vec& b) const
{
    if (turn == Turn::none)
        return lineToLine(start, end, a, b);
    // The least distance is at an end of either, on the arm from the centre across the segment, or where they cross.
    const auto fromArc = [this](const Vec& place) { return norm(place - nearestPlace(place)); };
    double least = std::min({pointToLine(start, a, b), pointToLine(end, a, b), fromArc(a), fromArc(b)});
    const auto onArc = [this](const Vec& place) { return spans(place - centre); };
    const Vec way = b - a;
    const double length2 = dot(way, way);
    if (length2 == 0)
        return least;
    const double foot = dot(centre - a, way) / length2;
    const Vec nearest = a + way * foot;
    const double offset = norm(nearest - centre);
    const double r = radius();
    if (offset >= r)
    {
        if (foot >= 0 && foot <= 1 && onArc(nearest))
            least = std::min(least, offset - r);
        return least;
    }
    const double half = std::sqrt((r * r - offset * offset) / length2);
    for (const double t : {foot - half, foot + half})
        if (t >= 0 && t <= 1 && onArc(a + way * t))
            return 0;
    return least;
}

double lengthOf(const Track& track)
{
    double length = 0;
    for (const PlaneMove& move : track)
        length += move.length();
    return length;
}

Track reversed(const Track& track)
{
    Track result;
    result.reserve(track.size());
    for (auto move = track.rbegin(); move != track.rend(); ++move)
        result.push_back(move->reversed());
    return result;
}

Box boxOf(const Track& track)
{
    Box box;
    for (const PlaneMove& move : track)
        box.include(move.box());
    return box;
}

Vec middleOf(const Track& track)
{
    const Box box = boxOf(track);
    return {static_cast<double>(box.left + box.right) / 2, static_cast<double>(box.bottom + box.top) / 2};
}

TrackPlace nearestOn(const Track& track, const Vec& place)
{
    TrackPlace best;
    best.distance = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < track.size(); ++i)
    {
        const Vec there = track[i].nearestPlace(place);
        const double distance = norm(there - place);
        if (distance < best.distance)
            best = {i, 0, there, distance};
    }
    best.part = track[best.move].nearestPart(best.place);
    return best;
}

Track startingAt(const Track& loop, const TrackPlace& start)
{
    Track result;
    result.reserve(loop.size() + 1);
    if (start.part < 1)
        result.push_back(loop[start.move].piece(start.part, 1));
    for (std::size_t i = 1; i < loop.size(); ++i)
        result.push_back(loop[(start.move + i) % loop.size()]);
    if (start.part > 0)
        result.push_back(loop[start.move].piece(0, start.part));
    return result;
}

Track runUp(const Track& loop, double distance)
{
    Track result;
    for (std::size_t i = 0; distance > 0 && i < 1000 * loop.size(); ++i)
    {
        const PlaneMove& move = loop[loop.size() - 1 - i % loop.size()];
        const double length = move.length();
        if (length <= 0)
            continue;
        result.push_back(length <= distance ? move : move.piece(1 - distance / length, 1));
        distance -= length;
    }
    std::reverse(result.begin(), result.end());
    return result;
}

} // namespace exchange::pocketing
