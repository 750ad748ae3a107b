#ifndef ENGINE_POCKETING_GRID_H
#define ENGINE_POCKETING_GRID_H

#include <tessaron/exchange/geom/PointNd.h>

#include <polyclipping/clipper.hpp>

#include <cmath>
#include <vector>

namespace exchange::pocketing
{

using Point = geom::PointNd<2>;
using Polyline = std::vector<Point>;

using ClipperLib::IntPoint;
using ClipperLib::Path;
using ClipperLib::Paths;

/// The integer grid that polygons are computed on: centred on the input, its step a power of two, chosen so that the
/// input spans between 2^27 and 2^28 steps. Coordinates so stay below 2^29 when polygons grow, and the cross product of
/// two differences fits 64 bits.
class Grid
{
public:
    Grid() = default;
    /// \param extent the greater side of the box about the input, finite and greater than 0
    Grid(const Point& centre, double extent) : m_centre(centre), m_scale(std::ldexp(1.0, 28 - (std::ilogb(extent) + 1)))
    {
    }

    /// The length of one step, in the host's unit.
    double resolution() const { return 1 / m_scale; }
    double toSteps(double length) const { return length * m_scale; }
    double toLength(double steps) const { return steps / m_scale; }

    IntPoint toGrid(const Point& point) const
    {
        return IntPoint(std::llround((point[0] - m_centre[0]) * m_scale),
                        std::llround((point[1] - m_centre[1]) * m_scale));
    }
    /// A place given in steps, whole or not.
    Point toPoint(double x, double y) const { return Point(m_centre[0] + x / m_scale, m_centre[1] + y / m_scale); }
    Point toPoint(const IntPoint& point) const
    {
        return toPoint(static_cast<double>(point.X), static_cast<double>(point.Y));
    }

private:
    Point m_centre;
    double m_scale = 1;
};

} // namespace exchange::pocketing

#endif
