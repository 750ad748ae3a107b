#include "gcode/ArcGeometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace exchange::gcode
{

PlanePoint TurnedWay::at(const PlanePoint& start, double share) const
{
    const double angle = (counterClockwise ? turn : -turn) * share;
    const double x = start.x - centre.x;
    const double y = start.y - centre.y;
    return {centre.x + x * std::cos(angle) - y * std::sin(angle), centre.y + x * std::sin(angle) + y * std::cos(angle)};
}

double TurnedWay::sagitta(double share) const
{
    // 1 - cos(a) = 2 sin(a/2)^2, which loses nothing where the angle is small.
    const double sine = std::sin(turn * share / 4);
    return 2 * radius * sine * sine;
}

std::optional<TurnedWay> turnedWay(const PlanePoint& start, const PlanePoint& end, double radius, bool counterClockwise,
                                   double slack)
{
    const double dx = end.x - start.x;
    const double dy = end.y - start.y;
    const double chord = std::hypot(dx, dy);
    const double size = std::abs(radius);
    if (chord == 0 || size == 0 || chord > 2 * size + slack)
        return std::nullopt;
    const double half = chord / 2;
    const double height = size > half ? std::sqrt((size - half) * (size + half)) : 0;
    const double side = (radius > 0) == counterClockwise ? 1 : -1;
    TurnedWay way;
    way.centre = {start.x + dx / 2 - side * height * dy / chord, start.y + dy / 2 + side * height * dx / chord};
    way.radius = std::max(size, half);
    way.turn = 2 * std::atan2(half, height);
    if (radius < 0)
        way.turn = 2 * std::numbers::pi - way.turn;
    way.counterClockwise = counterClockwise;
    return way;
}

PlanePoint evenlyFar(const PlanePoint& centre, const PlanePoint& one, const PlanePoint& other)
{
    const double dx = other.x - one.x;
    const double dy = other.y - one.y;
    const double along =
        ((centre.x - (one.x + other.x) / 2) * dx + (centre.y - (one.y + other.y) / 2) * dy) / (dx * dx + dy * dy);
    return {centre.x - along * dx, centre.y - along * dy};
}

} // namespace exchange::gcode
