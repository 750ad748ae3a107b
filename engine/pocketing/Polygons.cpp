#include "engine/pocketing/Polygons.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace exchange::pocketing
{

namespace
{

using ClipperLib::Clipper;
using ClipperLib::ClipperOffset;
using ClipperLib::PolyNode;
using ClipperLib::PolyTree;

void addContour(Area& area, const Path& contour, const OffsetTolerance& tolerance)
{
    Path path = tolerance.simplify > 0 ? simplified(contour, tolerance.simplify) : contour;
    if (path.size() >= 3)
        area.push_back(std::move(path));
}

/// One area for each outer contour of a tree, in the order of the tree.
std::vector<Area> areasOf(const PolyTree& tree, const OffsetTolerance& tolerance)
{
    std::vector<Area> areas;
    for (const PolyNode* node = tree.GetFirst(); node; node = node->GetNext())
    {
        if (node->IsHole())
            continue;
        Area area;
        addContour(area, node->Contour, tolerance);
        if (area.empty())
            continue;
        for (const PolyNode* hole : node->Childs)
            addContour(area, hole->Contour, tolerance);
        areas.push_back(std::move(area));
    }
    return areas;
}

Paths offset(const Paths& paths, double distance, const OffsetTolerance& tolerance)
{
    ClipperOffset offsetter(2.0, tolerance.arc);
    offsetter.AddPaths(paths, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
    Paths result;
    offsetter.Execute(result, distance);
    return result;
}

double squaredDistance(const IntPoint& point, const IntPoint& start, const IntPoint& end)
{
    const auto dx = static_cast<double>(end.X - start.X);
    const auto dy = static_cast<double>(end.Y - start.Y);
    const auto px = static_cast<double>(point.X - start.X);
    const auto py = static_cast<double>(point.Y - start.Y);
    const double length2 = dx * dx + dy * dy;
    const double t = length2 > 0 ? std::clamp((px * dx + py * dy) / length2, 0.0, 1.0) : 0.0;
    return (px - t * dx) * (px - t * dx) + (py - t * dy) * (py - t * dy);
}

/// Marks the points of an open run that must stay.
void keepFarPoints(const Path& path, std::size_t first, std::size_t last, double tolerance, std::vector<char>& keep)
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

} // namespace

std::vector<Area> subtract(const Paths& from, const Paths& loops)
{
    Clipper clipper;
    clipper.AddPaths(from, ClipperLib::ptSubject, true);
    clipper.AddPaths(loops, ClipperLib::ptClip, true);
    PolyTree tree;
    clipper.Execute(ClipperLib::ctDifference, tree, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd);
    return areasOf(tree, {});
}

std::vector<Area> shrink(const Area& area, double distance, const OffsetTolerance& tolerance)
{
    ClipperOffset offsetter(2.0, tolerance.arc);
    offsetter.AddPaths(area, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
    PolyTree tree;
    offsetter.Execute(tree, -distance);
    return areasOf(tree, tolerance);
}

std::vector<Area> uncovered(const Area& area, const std::vector<const Area*>& others, double distance,
                            const OffsetTolerance& tolerance)
{
    Clipper clipper;
    clipper.AddPaths(offset(area, -distance, tolerance), ClipperLib::ptSubject, true);
    for (const Area* other : others)
        clipper.AddPaths(offset(*other, distance, tolerance), ClipperLib::ptClip, true);
    PolyTree tree;
    clipper.Execute(ClipperLib::ctDifference, tree, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
    return areasOf(tree, tolerance);
}

Path simplified(const Path& path, double tolerance)
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
    Path result;
    for (std::size_t i = 0; i < path.size(); ++i)
        if (keep[i])
            result.push_back(path[i]);
    return result;
}

double sizeOf(const Area& area)
{
    double size = 0;
    for (const Path& contour : area)
        size += ClipperLib::Area(contour);
    return size;
}

bool contains(const Paths& loops, const IntPoint& point)
{
    bool inside = false;
    for (const Path& loop : loops)
    {
        const int side = ClipperLib::PointInPolygon(point, loop);
        if (side < 0)
            return false;
        inside = inside != (side == 1);
    }
    return inside;
}

} // namespace exchange::pocketing
