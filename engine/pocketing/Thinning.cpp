#include "engine/pocketing/Thinning.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace exchange::pocketing
{

namespace
{

struct Difference
{
    double x;
    double y;
};

Difference minus(const IntPoint& a, const IntPoint& b)
{
    return {static_cast<double>(a.X - b.X), static_cast<double>(a.Y - b.Y)};
}

Difference minus(const Point& a, const Point& b)
{
    return {a[0] - b[0], a[1] - b[1]};
}

template <class P>
double squaredDistance(const P& point, const P& start, const P& end)
{
    const auto [dx, dy] = minus(end, start);
    const auto [px, py] = minus(point, start);
    const double length2 = dx * dx + dy * dy;
    const double t = length2 > 0 ? std::clamp((px * dx + py * dy) / length2, 0.0, 1.0) : 0.0;
    return (px - t * dx) * (px - t * dx) + (py - t * dy) * (py - t * dy);
}

/// Marks the points between two that must stay. The position after the last point is the first point once more.
template <class P>
void keepFarPoints(const std::vector<P>& path, std::size_t first, std::size_t last, double tolerance,
                   std::vector<char>& keep)
{
    std::vector<std::pair<std::size_t, std::size_t>> runs{{first, last}};
    while (!runs.empty())
    {
        const auto [start, end] = runs.back();
        runs.pop_back();
        double greatest = tolerance * tolerance;
        std::size_t farthest = start;
        for (std::size_t i = start + 1; i < end; ++i)
        {
            const double distance = squaredDistance(path[i], path[start], path[end % path.size()]);
            if (distance > greatest)
            {
                greatest = distance;
                farthest = i;
            }
        }
        if (farthest == start)
            continue;
        keep[farthest] = 1;
        runs.emplace_back(start, farthest);
        runs.emplace_back(farthest, end);
    }
}

template <class P>
std::vector<P> kept(const std::vector<P>& path, const std::vector<char>& keep)
{
    std::vector<P> result;
    for (std::size_t i = 0; i < path.size(); ++i)
        if (keep[i])
            result.push_back(path[i]);
    return result;
}

template <class P>
std::vector<P> simplifiedLoop(const std::vector<P>& path, double tolerance)
{
    if (path.size() < 3)
        return {};
    // Split where the loop is farthest from its first point, so that both runs have ends apart.
    std::size_t opposite = 0;
    double greatest = 0;
    for (std::size_t i = 1; i < path.size(); ++i)
    {
        const double distance = squaredDistance(path[i], path[0], path[0]);
        if (distance > greatest)
        {
            greatest = distance;
            opposite = i;
        }
    }
    if (greatest <= tolerance * tolerance)
        return {};
    std::vector<char> keep(path.size(), 0);
    keep[0] = 1;
    keep[opposite] = 1;
    keepFarPoints(path, 0, opposite, tolerance, keep);
    keepFarPoints(path, opposite, path.size(), tolerance, keep);
    return kept(path, keep);
}

} // namespace

Path simplified(const Path& path, double tolerance)
{
    return simplifiedLoop(path, tolerance);
}

Polyline simplified(const Polyline& loop, double tolerance)
{
    return simplifiedLoop(loop, tolerance);
}

Polyline simplifiedRun(const Polyline& run, double tolerance)
{
    if (run.size() < 3)
        return run;
    std::vector<char> keep(run.size(), 0);
    keep.front() = 1;
    keep.back() = 1;
    keepFarPoints(run, 0, run.size() - 1, tolerance, keep);
    return kept(run, keep);
}

} // namespace exchange::pocketing
