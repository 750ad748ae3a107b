#ifndef GCODE_ARCGEOMETRY_H
#define GCODE_ARCGEOMETRY_H

#include <optional>

namespace exchange::gcode
{

struct PlanePoint
{
    double x = 0;
    double y = 0;
};

/// A circular move in the plane.
struct TurnedWay
{
    PlanePoint centre;
    double radius = 0; ///< positive
    double turn = 0;   ///< radians, positive
    bool counterClockwise = false;

    /// The point at a share of the way from the start, 0 to 1.
    PlanePoint at(const PlanePoint& start, double share) const;
    /// How far a share of the way, at most half a turn, stands out from its chord.
    double sagitta(double share) const;
};

/// The way that an arc record stands for: with a positive radius the one of at most half a turn, with a negative one
/// the longer one.
/// \param slack by how much the ends may be farther apart than the circle is wide; the way is then half a turn
/// \returns nothing when the ends are the same or too far apart: there is no such circle, or no only one
std::optional<TurnedWay> turnedWay(const PlanePoint& start, const PlanePoint& end, double radius, bool counterClockwise,
                                   double slack);

/// The point nearest to `centre` that is as far from one point as from the other, which are not the same.
PlanePoint evenlyFar(const PlanePoint& centre, const PlanePoint& one, const PlanePoint& other);

} // namespace exchange::gcode

#endif
