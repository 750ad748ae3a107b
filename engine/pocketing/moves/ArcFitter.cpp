#include "engine/pocketing/moves/ArcFitter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

namespace exchange::pocketing
{

namespace
{

/// Controls find the centre of an arc from its ends and radius; near half a turn that is ill-conditioned.
constexpr double greatestSweep = 2.9;
/// An arc of fewer edges than this saves nothing.
constexpr std::size_t leastEdges = 3;
/// A radius of this many times the chord is a line to any control.
constexpr double flattest = 1000;

/// The point where lines at right angles to two chords through their middles meet.
std::optional<Vec> centreOf(const Vec& a, const Vec& b, const Vec& c)
{
    const Vec ab = b - a;
    const Vec ac = c - a;
    const double twice = 2 * cross(ab, ac);
    if (twice == 0)
        return std::nullopt;
    const double ab2 = dot(ab, ab);
    const double ac2 = dot(ac, ac);
    return a + Vec{(ac.y * ab2 - ab.y * ac2) / twice, (ab.x * ac2 - ac.x * ab2) / twice};
}

class LoopFitter
{
public:
    LoopFitter(const Path& path, double tolerance, const MoveFilter& allows)
        : m_path(path), m_tolerance(tolerance), m_allows(allows)
    {
    }

    Track fit() const
    {
        Track track;
        const std::size_t count = m_path.size();
        const std::size_t first = firstCorner();
        for (std::size_t from = first; from < first + count;)
        {
            std::size_t to = from + 1;
            const std::optional<PlaneMove> arc = longestArc(from, first + count, to);
            track.push_back(arc ? *arc : lineTo(point(from), point(from + 1)));
            from = to;
        }
        return track;
    }

private:
    Vec point(std::size_t i) const { return toVec(m_path[i % m_path.size()]); }

    /// Where a run of an arc is least likely to be cut in two: at the sharpest corner.
    std::size_t firstCorner() const
    {
        std::size_t sharpest = 0;
        double least = 2;
        for (std::size_t i = 0; i < m_path.size(); ++i)
        {
            const Vec in = point(i) - point(i + m_path.size() - 1);
            const Vec out = point(i + 1) - point(i);
            const double cosine = dot(in, out) / std::max(1.0, norm(in) * norm(out));
            if (cosine < least)
            {
                least = cosine;
                sharpest = i;
            }
        }
        return sharpest;
    }

    std::optional<PlaneMove> longestArc(std::size_t from, std::size_t end, std::size_t& to) const
    {
        if (m_tolerance <= 0 || from + leastEdges > end)
            return std::nullopt;
        std::optional<PlaneMove> best = arcOver(from, from + leastEdges);
        if (!best)
            return std::nullopt;
        // Double the run until it fails, then halve the step.
        std::size_t reached = from + leastEdges;
        std::size_t step = leastEdges;
        bool growing = true;
        while (step > 0)
        {
            const std::size_t next = std::min(end, reached + step);
            const std::optional<PlaneMove> arc = next > reached ? arcOver(from, next) : std::nullopt;
            if (arc)
            {
                best = arc;
                reached = next;
            }
            else
                growing = false;
            step = growing ? step * 2 : step / 2;
        }
        if (!m_allows(*best))
            return std::nullopt;
        to = reached;
        return best;
    }

    std::optional<PlaneMove> arcOver(std::size_t from, std::size_t to) const
    {
        const Vec start = point(from);
        const Vec end = point(to);
        const std::optional<Vec> centre = centreOf(start, point((from + to) / 2), end);
        if (!centre || start == end)
            return std::nullopt;
        const double radius = norm(start - *centre);
        if (!(radius < flattest * norm(end - start)))
            return std::nullopt;
        const Turn turn = cross(point((from + to) / 2) - start, end - start) > 0 ? Turn::left : Turn::right;
        const PlaneMove arc{start, end, *centre, turn};
        if (arc.sweep() > greatestSweep)
            return std::nullopt;
        const double sense = turn == Turn::left ? 1 : -1;
        for (std::size_t i = from; i < to; ++i)
        {
            const Vec a = point(i);
            const Vec b = point(i + 1);
            const Vec middle = (a + b) * 0.5;
            if (std::fabs(norm(a - *centre) - radius) > m_tolerance ||
                std::fabs(norm(middle - *centre) - radius) > m_tolerance ||
                sense * cross(a - *centre, b - *centre) <= 0)
                return std::nullopt;
        }
        return arc;
    }

    const Path& m_path;
    const double m_tolerance;
    const MoveFilter& m_allows;
};

} // namespace

Track fitArcs(const Path& path, double tolerance, const MoveFilter& allows)
{
    return LoopFitter(path, tolerance, allows).fit();
}

} // namespace exchange::pocketing
