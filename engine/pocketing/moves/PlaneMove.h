#ifndef ENGINE_POCKETING_MOVES_PLANEMOVE_H
#define ENGINE_POCKETING_MOVES_PLANEMOVE_H

#include "engine/pocketing/SegmentIndex.h"

#include <cmath>
#include <vector>

namespace exchange::pocketing
{

/// A place or a difference of places in the plane, in steps of the grid.
struct Vec
{
    double x = 0;
    double y = 0;

    bool operator==(const Vec& other) const = default;
};

inline Vec operator+(const Vec& a, const Vec& b)
{
    return {a.x + b.x, a.y + b.y};
}
inline Vec operator-(const Vec& a, const Vec& b)
{
    return {a.x - b.x, a.y - b.y};
}
inline Vec operator*(const Vec& a, double factor)
{
    return {a.x * factor, a.y * factor};
}
inline double dot(const Vec& a, const Vec& b)
{
    return a.x * b.x + a.y * b.y;
}
/// Positive when b turns to the left of a.
inline double cross(const Vec& a, const Vec& b)
{
    return a.x * b.y - a.y * b.x;
}
inline double norm(const Vec& a)
{
    return std::sqrt(dot(a, a));
}
inline Vec toVec(const IntPoint& point)
{
    return {static_cast<double>(point.X), static_cast<double>(point.Y)};
}

enum class Turn
{
    none,  ///< a straight line
    left,  ///< an arc, counter-clockwise
    right, ///< an arc, clockwise
};

/// The track of the tool's axis in the plane for one move: a line, or an arc of less than a whole turn.
struct PlaneMove
{
    Vec start;
    Vec end;
    /// Of an arc.
    Vec centre;
    Turn turn = Turn::none;

    double radius() const { return norm(start - centre); }
    /// The angle that an arc turns through, positive, below a whole turn.
    double sweep() const;
    double length() const;
    /// The place at a part of the way, 0 to 1.
    Vec at(double part) const;
    /// The direction of travel there, of length 1.
    Vec direction(double part) const;
    /// The part of the way at which the move comes nearest to a place.
    double nearestPart(const Vec& place) const;
    /// The place of the move that is nearest to a given one.
    Vec nearestPlace(const Vec& place) const;
    /// Whether a direction from the centre of an arc leads to the arc.
    bool spans(const Vec& arm) const;
    /// The move between two parts of the way, `to` after `from`. Less than a step of an arc is a line.
    PlaneMove piece(double from, double to) const;
    PlaneMove reversed() const;
    Box box() const;
    /// The distance from a segment.
    double distanceTo(const Vec& a, const Vec& b) const;
};

inline PlaneMove lineTo(const Vec& start, const Vec& end)
{
    return {start, end, {}, Turn::none};
}

/// Moves that follow each other.
using Track = std::vector<PlaneMove>;

double lengthOf(const Track& track);
Track reversed(const Track& track);

Box boxOf(const Track& track);
/// The middle of the box about a track.
Vec middleOf(const Track& track);

/// A place on a track.
struct TrackPlace
{
    std::size_t move = 0;
    double part = 0;
    Vec place;
    /// How far it is from the place that was asked for.
    double distance = 0;
};

/// The place of a track, which is not empty, that is nearest to a given one.
TrackPlace nearestOn(const Track& track, const Vec& place);

/// A closed track from a place once round to it.
Track startingAt(const Track& loop, const TrackPlace& start);

/// The last `distance` of the way round a closed track that ends where it begins, going round as often as it takes.
Track runUp(const Track& loop, double distance);

} // namespace exchange::pocketing

#endif
