#include "engine/pocketing/SegmentIndex.h"

#include <algorithm>
#include <cmath>

namespace exchange::pocketing
{

namespace
{

double pointDistance(const IntPoint& point, const IntPoint& start, const IntPoint& end)
{
    const auto dx = static_cast<double>(end.X - start.X);
    const auto dy = static_cast<double>(end.Y - start.Y);
    const auto px = static_cast<double>(point.X - start.X);
    const auto py = static_cast<double>(point.Y - start.Y);
    const double length2 = dx * dx + dy * dy;
    const double t = length2 > 0 ? std::clamp((px * dx + py * dy) / length2, 0.0, 1.0) : 0.0;
    const double x = px - t * dx;
    const double y = py - t * dy;
    return std::sqrt(x * x + y * y);
}

int sign(ClipperLib::cInt value)
{
    return (value > 0) - (value < 0);
}

} // namespace

void Box::include(const IntPoint& point)
{
    left = std::min(left, point.X);
    right = std::max(right, point.X);
    bottom = std::min(bottom, point.Y);
    top = std::max(top, point.Y);
}

void Box::include(const Box& other)
{
    left = std::min(left, other.left);
    right = std::max(right, other.right);
    bottom = std::min(bottom, other.bottom);
    top = std::max(top, other.top);
}

Box Box::grown(double margin) const
{
    const auto steps = static_cast<ClipperLib::cInt>(std::ceil(margin));
    return {left - steps, bottom - steps, right + steps, top + steps};
}

Box boxOf(const IntPoint& start, const IntPoint& end)
{
    return {std::min(start.X, end.X), std::min(start.Y, end.Y), std::max(start.X, end.X), std::max(start.Y, end.Y)};
}

Box boxOf(const Path& path)
{
    Box box;
    for (const IntPoint& point : path)
        box.include(point);
    return box;
}

SegmentIndex::SegmentIndex(const Paths& loops)
{
    for (std::size_t loop = 0; loop < loops.size(); ++loop)
        for (std::size_t i = 0; i < loops[loop].size(); ++i)
            m_segments.push_back({loops[loop][i], loops[loop][(i + 1) % loops[loop].size()], loop, i});
    if (m_segments.empty())
        return;
    m_leafCount = 1;
    while (m_leafCount * leafSize < m_segments.size())
        m_leafCount *= 2;
    m_boxes.resize(2 * m_leafCount);
    for (std::size_t i = 0; i < m_segments.size(); ++i)
        m_boxes[m_leafCount + i / leafSize].include(boxOf(m_segments[i].start, m_segments[i].end));
    for (std::size_t node = m_leafCount - 1; node > 0; --node)
    {
        m_boxes[node].include(m_boxes[2 * node]);
        m_boxes[node].include(m_boxes[2 * node + 1]);
    }
}

bool SegmentIndex::isCloser(const IntPoint& start, const IntPoint& end, double distance) const
{
    return !visitOverlapping(
        boxOf(start, end).grown(distance),
        [&](std::size_t i) { return segmentDistance(start, end, m_segments[i].start, m_segments[i].end) >= distance; });
}

bool SegmentIndex::encloses(const IntPoint& point) const
{
    // A ray upwards crosses the loops an odd number of times when it starts inside.
    const Box ray{point.X, point.Y, point.X, std::numeric_limits<ClipperLib::cInt>::max()};
    bool inside = false;
    const bool clear =
        visitOverlapping(ray,
                         [&](std::size_t i)
                         {
                             const auto& [start, end, loop, position] = m_segments[i];
                             const int side = sign(cross(start, end, point));
                             if (side == 0 && boxOf(start, end).overlaps(boxOf(point, point)))
                                 return false;
                             if ((start.X <= point.X) != (end.X <= point.X) && side == (end.X > start.X ? -1 : 1))
                                 inside = !inside;
                             return true;
                         });
    return clear && inside;
}

double segmentDistance(const IntPoint& a, const IntPoint& b, const IntPoint& c, const IntPoint& d)
{
    if (segmentsCross(a, b, c, d))
        return 0;
    return std::min({pointDistance(a, c, d), pointDistance(b, c, d), pointDistance(c, a, b), pointDistance(d, a, b)});
}

bool segmentsCross(const IntPoint& a, const IntPoint& b, const IntPoint& c, const IntPoint& d)
{
    return sign(cross(a, b, c)) * sign(cross(a, b, d)) < 0 && sign(cross(c, d, a)) * sign(cross(c, d, b)) < 0;
}

} // namespace exchange::pocketing
