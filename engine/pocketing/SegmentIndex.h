#ifndef ENGINE_POCKETING_SEGMENTINDEX_H
#define ENGINE_POCKETING_SEGMENTINDEX_H

#include "engine/pocketing/Grid.h"

#include <cstddef>
#include <limits>
#include <vector>

namespace exchange::pocketing
{

/// A box on the grid, its edges included. Empty when default-constructed.
struct Box
{
    ClipperLib::cInt left = std::numeric_limits<ClipperLib::cInt>::max();
    ClipperLib::cInt bottom = std::numeric_limits<ClipperLib::cInt>::max();
    ClipperLib::cInt right = std::numeric_limits<ClipperLib::cInt>::lowest();
    ClipperLib::cInt top = std::numeric_limits<ClipperLib::cInt>::lowest();

    void include(const IntPoint& point);
    void include(const Box& other);
    bool overlaps(const Box& other) const
    {
        return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
    }
    /// The box with a margin on every side.
    Box grown(double margin) const;
};

/// The box about a segment.
Box boxOf(const IntPoint& start, const IntPoint& end);
/// The box about a path.
Box boxOf(const Path& path);

/// A segment of a loop.
struct Segment
{
    IntPoint start;
    IntPoint end;
    std::size_t loop = 0;
    /// Position in the loop, counted from 0.
    std::size_t position = 0;
};

/// The segments of closed loops, found by place. A tree of boxes over the segments in loop order: neighbours in a loop
/// are neighbours in space.
class SegmentIndex
{
public:
    SegmentIndex() = default;
    explicit SegmentIndex(const Paths& loops);

    const std::vector<Segment>& segments() const { return m_segments; }

    /// Calls `visit(index)` for every segment whose box overlaps the given one, until it returns false.
    /// \returns false when a visit did
    template <class Visit>
    bool visitOverlapping(const Box& box, const Visit& visit) const
    {
        return m_boxes.empty() || visitNode(1, box, visit);
    }

    /// Whether a segment of the index lies closer to the given one than a distance in steps.
    bool isCloser(const IntPoint& start, const IntPoint& end, double distance) const;

    /// Whether a point lies in the interior of the area that the loops bound, alternating between inside and outside.
    bool encloses(const IntPoint& point) const;

private:
    static constexpr std::size_t leafSize = 4;

    template <class Visit>
    bool visitNode(std::size_t node, const Box& box, const Visit& visit) const
    {
        if (!m_boxes[node].overlaps(box))
            return true;
        if (node < m_leafCount)
            return visitNode(2 * node, box, visit) && visitNode(2 * node + 1, box, visit);
        const std::size_t first = (node - m_leafCount) * leafSize;
        for (std::size_t i = first; i < first + leafSize && i < m_segments.size(); ++i)
            if (boxOf(m_segments[i].start, m_segments[i].end).overlaps(box) && !visit(i))
                return false;
        return true;
    }

    std::vector<Segment> m_segments;
    /// A complete binary tree: node 1 is the root, nodes 2n and 2n+1 are under node n, the last m_leafCount are leaves.
    std::vector<Box> m_boxes;
    std::size_t m_leafCount = 0;
};

/// The distance between two segments, in steps.
double segmentDistance(const IntPoint& a, const IntPoint& b, const IntPoint& c, const IntPoint& d);

/// Twice the signed area of a triangle: positive when c lies to the left of the line from a to b. Exact on the grid.
inline ClipperLib::cInt cross(const IntPoint& a, const IntPoint& b, const IntPoint& c)
{
    return (b.X - a.X) * (c.Y - a.Y) - (b.Y - a.Y) * (c.X - a.X);
}

/// Whether two segments cross, each with its end points on different sides of the other.
bool segmentsCross(const IntPoint& a, const IntPoint& b, const IntPoint& c, const IntPoint& d);

} // namespace exchange::pocketing

#endif
