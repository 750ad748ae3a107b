#ifndef HOST_GEOMETRY_H
#define HOST_GEOMETRY_H

#include <tessaron/exchange/geom/PointNd.h>

#include <algorithm>
#include <limits>
#include <vector>

/// The demonstration host: a small CAM host that uses the module, the engine and the exchange library as any host
/// would.
namespace host
{

using Point2 = geom::PointNd<2>;
using Point3 = geom::PointNd<3>;

/// A box with its sides along the axes; empty until a point is included.
struct Box3
{
    Point3 low{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
               std::numeric_limits<double>::infinity()};
    Point3 high{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                -std::numeric_limits<double>::infinity()};

    bool empty() const { return low[0] > high[0]; }
    double size(int axis) const { return empty() ? 0.0 : high[axis] - low[axis]; }

    void include(const Point3& point)
    {
        for (int i = 0; i < 3; ++i)
        {
            low[i] = std::min(low[i], point[i]);
            high[i] = std::max(high[i], point[i]);
        }
    }
};

} // namespace host

#endif
