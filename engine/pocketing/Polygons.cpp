#include "engine/pocketing/Polygons.h"

#include "engine/pocketing/ContourClusters.h"
#include "engine/pocketing/SegmentIndex.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>

namespace exchange::pocketing
{

namespace
{

using ClipperLib::Clipper;
using ClipperLib::ClipperOffset;
using ClipperLib::PolyNode;
using ClipperLib::PolyTree;
using jobs::CancelFlag;

void addContour(Area& area, const Path& contour, const OffsetTolerance& tolerance)
{
    Path path = tolerance.simplify > 0 ? simplified(contour, tolerance.simplify) : contour;
    if (path.size() >= 3)
        area.push_back(std::move(path));
}

void addReversed(Area& area, Path contour, const OffsetTolerance& tolerance)
{
    ClipperLib::ReversePath(contour);
    addContour(area, contour, tolerance);
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

void offset(const Paths& paths, double distance, const OffsetTolerance& tolerance, PolyTree& tree)
{
    ClipperOffset offsetter(2.0, tolerance.arc);
    offsetter.AddPaths(paths, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
    offsetter.Execute(tree, distance);
}

/// Adds the contours of an area that has grown by a distance. What its outer contour and its holes move over are
/// different places, so each moves alone.
void addGrown(const Area& area, double distance, const OffsetTolerance& tolerance, const CancelFlag& cancel,
              Paths& grown)
{
    for (std::size_t i = 0; i < area.size(); ++i)
    {
        cancel.check();
        Path contour = area[i];
        const bool isHole = i > 0;
        if (isHole)
            ClipperLib::ReversePath(contour);
        PolyTree tree;
        offset({contour}, isHole ? -distance : distance, tolerance, tree);
        Paths moved;
        ClipperLib::PolyTreeToPaths(tree, moved);
        if (isHole)
            ClipperLib::ReversePaths(moved);
        grown.insert(grown.end(), moved.begin(), moved.end());
    }
}

/// What holes, as islands, become when they grow: the islands, counter-clockwise, and the areas they close in.
struct GrownHoles
{
    Paths islands;
    std::vector<Area> enclosed;
};

GrownHoles growHoles(Paths holes, double distance, const OffsetTolerance& tolerance)
{
    ClipperLib::ReversePaths(holes);
    PolyTree tree;
    offset(holes, distance, tolerance, tree);
    GrownHoles grown;
    for (const PolyNode* node = tree.GetFirst(); node; node = node->GetNext())
    {
        if (node->IsHole())
        {
            Area area;
            addReversed(area, node->Contour, tolerance);
            if (area.empty())
                continue;
            for (const PolyNode* island : node->Childs)
                addReversed(area, island->Contour, tolerance);
            grown.enclosed.push_back(std::move(area));
        }
        else if (node->Parent == &tree)
            addContour(grown.islands, node->Contour, tolerance);
    }
    return grown;
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

std::vector<Area> shrink(const Area& area, double distance, const OffsetTolerance& tolerance, const CancelFlag& cancel)
{
    const ContourClusters clusters = clusterContours(area, distance);
    cancel.check();
    PolyTree tree;
    offset(clusters.outer, -distance, tolerance, tree);
    std::vector<Area> areas = areasOf(tree, tolerance);

    Paths islands;
    for (const Paths& holes : clusters.holes)
    {
        cancel.check();
        GrownHoles grown = growHoles(holes, distance, tolerance);
        std::move(grown.islands.begin(), grown.islands.end(), std::back_inserter(islands));
        std::move(grown.enclosed.begin(), grown.enclosed.end(), std::back_inserter(areas));
    }
    // Nothing else comes near these islands: each is a hole of the area it lies in.
    std::vector<Box> boxes;
    boxes.reserve(areas.size());
    for (const Area& candidate : areas)
        boxes.push_back(boxOf(candidate.front()));
    for (Path& island : islands)
    {
        cancel.check();
        for (std::size_t i = 0; i < areas.size(); ++i)
            if (boxes[i].overlaps(boxOf(island)) && contains(areas[i], island.front()))
            {
                ClipperLib::ReversePath(island);
                areas[i].push_back(std::move(island));
                break;
            }
    }
    return areas;
}

std::vector<Area> uncovered(const Area& area, const std::vector<const Area*>& others, double distance,
                            const OffsetTolerance& tolerance, const CancelFlag& cancel)
{
    const OffsetTolerance exact{tolerance.arc, 0};
    Clipper clipper;
    for (const Area& inner : shrink(area, distance, exact, cancel))
        clipper.AddPaths(inner, ClipperLib::ptSubject, true);
    Paths grown;
    for (const Area* other : others)
        addGrown(*other, distance, exact, cancel, grown);
    clipper.AddPaths(grown, ClipperLib::ptClip, true);
    cancel.check();
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
