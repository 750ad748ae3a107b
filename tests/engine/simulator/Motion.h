#ifndef TESTS_ENGINE_SIMULATOR_MOTION_H
#define TESTS_ENGINE_SIMULATOR_MOTION_H

#include <tessaron/exchange/ToolpathRecords.h>

#include <cstddef>
#include <string>
#include <vector>

namespace simulator
{

using Point2 = geom::PointNd<2>;
using Point3 = geom::PointNd<3>;

/// What one record moves.
struct Motion
{
    bool rapid = false;
    Point3 start;
    Point3 end;
    /// Of an arc, seen from above: 1 counter-clockwise, -1 clockwise, 0 a straight line.
    int sense = 0;
    Point2 centre;
    double radius = 0;
    /// The angle that an arc turns through.
    double sweep = 0;
    /// In the unit of length a minute; 0 for a rapid.
    double feed = 0;
    std::size_t record = 0;

    /// Seen from above.
    double lengthAcross() const;
    double length() const;
    double descent() const { return start[2] - end[2]; }
    /// The place at a part of the way, 0 to 1.
    Point3 at(double part) const;
};

struct Motions
{
    std::vector<Motion> all;
    std::size_t records = 0;
    /// What is wrong with the records themselves: numbers that are none, arcs that their radius cannot reach, cuts
    /// before feed rate and spindle speed.
    std::vector<std::string> faults;
};

/// The motions of a toolpath. Where the first one starts is not known: it is left out.
Motions motionsOf(const exchange::ToolpathRecords& toolpath);

} // namespace simulator

#endif
