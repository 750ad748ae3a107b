#include "engine/pocketing/Polygons.h"

#include "engine/pocketing/ContourClusters.h"
#include "engine/pocketing/SegmentIndex.h"
#include "engine/pocketing/Thinning.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <optional>
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

/// Contours of one set of points, however deep within each other.
struct Shape
{
    Paths outers;
    Paths holes;
};

void addContours(const PolyTree& tree, Shape& shape)
{
    for (const PolyNode* node = tree.GetFirst(); node; node = node->GetNext())
        (node->IsHole() ? shape.holes : shape.outers).push_back(node->Contour);
}

/// Two shapes put together. Only contours that come near the other shape take part in an operation.
Shape united(Shape a, Shape b)
{
    const auto boxesOf = [](const Paths& paths)
    {
        std::vector<Box> boxes;
        for (const Path& path : paths)
            boxes.push_back(boxOf(path));
        return boxes;
    };
    const std::vector<Box> outersOfA = boxesOf(a.outers);
    const std::vector<Box> outersOfB = boxesOf(b.outers);
    Shape result;
    Clipper clipper;
    const auto sort = [&clipper](Paths& paths, const std::vector<Box>& others, Paths& untouched)
    {
        for (Path& path : paths)
        {
            const Box box = boxOf(path);
            if (std::any_of(others.begin(), others.end(), [&box](const Box& other) { return other.overlaps(box); }))
                clipper.AddPath(path, ClipperLib::ptSubject, true);
            else
                untouched.push_back(std::move(path));
        }
    };
    sort(a.outers, outersOfB, result.outers);
    sort(a.holes, outersOfB, result.holes);
    sort(b.outers, outersOfA, result.outers);
    sort(b.holes, outersOfA, result.holes);
    PolyTree tree;
    clipper.Execute(ClipperLib::ctUnion, tree, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
    addContours(tree, result);
    return result;
}

/// Islands, counter-clockwise, grown by a distance. Many are halved by place, so that no operation is large: the halves
/// meet along a line only.
Shape grownShape(Paths islands, double distance, const OffsetTolerance& tolerance, const CancelFlag& cancel,
                 const ForEach& forEach)
{
    cancel.check();
    std::size_t points = 0;
    Box whole;
    for (const Path& island : islands)
    {
        points += island.size();
        whole.include(boxOf(island));
    }
    if (points <= tolerance.largest || islands.size() < 2)
    {
        PolyTree tree;
        offset(islands, distance, tolerance, tree);
        Shape shape;
        addContours(tree, shape);
        return shape;
    }
    const bool byX = whole.right - whole.left > whole.top - whole.bottom;
    const auto middle = [byX](const Path& island)
    {
        const Box box = boxOf(island);
        return byX ? box.left + box.right : box.bottom + box.top;
    };
    std::stable_sort(islands.begin(), islands.end(),
                     [&middle](const Path& a, const Path& b) { return middle(a) < middle(b); });
    const auto half = static_cast<std::ptrdiff_t>(islands.size() / 2);
    Paths parts[] = {{std::make_move_iterator(islands.begin()), std::make_move_iterator(islands.begin() + half)},
                     {std::make_move_iterator(islands.begin() + half), std::make_move_iterator(islands.end())}};
    Shape shapes[2];
    forEach(2,
            [&](std::size_t i) { shapes[i] = grownShape(std::move(parts[i]), distance, tolerance, cancel, forEach); });
    cancel.check();
    return united(std::move(shapes[0]), std::move(shapes[1]));
}

GrownHoles growHoles(Paths holes, double distance, const OffsetTolerance& tolerance, const CancelFlag& cancel,
                     const ForEach& forEach)
{
    ClipperLib::ReversePaths(holes);
    Shape shape = grownShape(std::move(holes), distance, tolerance, cancel, forEach);
    GrownHoles grown;
    for (const Path& hole : shape.holes)
    {
        Area area;
        addReversed(area, hole, tolerance);
        if (!area.empty())
            grown.enclosed.push_back(std::move(area));
    }
    // An island belongs to the smallest area that it lies in.
    std::vector<std::pair<double, std::size_t>> bySize;
    for (std::size_t i = 0; i < grown.enclosed.size(); ++i)
        bySize.emplace_back(sizeOf(grown.enclosed[i]), i);
    std::sort(bySize.begin(), bySize.end());
    std::vector<Box> boxes;
    for (const Area& area : grown.enclosed)
        boxes.push_back(boxOf(area.front()));
    for (const Path& outer : shape.outers)
    {
        cancel.check();
        const Box box = boxOf(outer);
        const auto holds = [&](const std::pair<double, std::size_t>& candidate)
        {
            const Area& area = grown.enclosed[candidate.second];
            return boxes[candidate.second].overlaps(box) && SegmentIndex(Paths{area.front()}).encloses(outer.front());
        };
        const auto area = std::find_if(bySize.begin(), bySize.end(), holds);
        if (area == bySize.end())
            addContour(grown.islands, outer, tolerance);
        else
            addReversed(grown.enclosed[area->second], outer, tolerance);
    }
    return grown;
}

/// Gives each island, counter-clockwise, to the area it lies in, as a hole. Nothing else comes near these islands.
void placeIslands(Paths islands, std::vector<Area>& areas, const CancelFlag& cancel)
{
    if (islands.empty())
        return;
    std::vector<Box> boxes;
    boxes.reserve(areas.size());
    for (const Area& area : areas)
        boxes.push_back(boxOf(area.front()));
    // The contours of the areas before any island joins them: islands do not lie within each other.
    std::vector<std::optional<SegmentIndex>> indices(areas.size());
    for (Path& island : islands)
    {
        cancel.check();
        const Box box = boxOf(island);
        for (std::size_t i = 0; i < areas.size(); ++i)
        {
            if (!boxes[i].overlaps(box))
                continue;
            if (!indices[i])
                indices[i].emplace(areas[i]);
            if (!indices[i]->encloses(island.front()))
                continue;
            ClipperLib::ReversePath(island);
            areas[i].push_back(std::move(island));
            break;
        }
    }
}

/// What an area becomes when it grows by a distance, unless it meets itself round an island. What its outer contour and
/// its holes move over are different places, so each moves alone.
std::vector<Area> grownArea(const Area& area, double distance, const OffsetTolerance& tolerance,
                            const CancelFlag& cancel)
{
    PolyTree outer;
    offset({area.front()}, distance, tolerance, outer);
    std::vector<Area> areas = areasOf(outer, tolerance);
    Paths islands;
    for (std::size_t i = 1; i < area.size(); ++i)
    {
        cancel.check();
        Path island = area[i];
        ClipperLib::ReversePath(island);
        PolyTree tree;
        offset({island}, -distance, tolerance, tree);
        for (const PolyNode* node = tree.GetFirst(); node; node = node->GetNext())
            addContour(islands, node->Contour, tolerance);
    }
    placeIslands(std::move(islands), areas, cancel);
    return areas;
}

/// Whether nothing can remain of an area that shrinks by a distance: no disc of that radius fits into its outer
/// contour. Looks at the contour's size and its widths only.
bool vanishes(const Path& outer, double distance)
{
    const double halfTurn = std::acos(-1.0);
    if (ClipperLib::Area(outer) < halfTurn * distance * distance)
        return true;
    constexpr int directions = 4;
    for (int i = 0; i < directions; ++i)
    {
        const double x = std::cos(halfTurn * i / directions);
        const double y = std::sin(halfTurn * i / directions);
        double least = std::numeric_limits<double>::infinity();
        double greatest = -least;
        for (const IntPoint& point : outer)
        {
            const double along = static_cast<double>(point.X) * x + static_cast<double>(point.Y) * y;
            least = std::min(least, along);
            greatest = std::max(greatest, along);
        }
        if (greatest - least < 2 * distance)
            return true;
    }
    return false;
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

Paths grown(const Paths& loops, double distance, const OffsetTolerance& tolerance)
{
    Paths all;
    for (const Area& area : subtract(loops, {}))
        all.insert(all.end(), area.begin(), area.end());
    PolyTree tree;
    offset(all, distance, tolerance, tree);
    Paths result;
    ClipperLib::PolyTreeToPaths(tree, result);
    return result;
}

std::vector<Area> shrink(const Area& area, double distance, const OffsetTolerance& tolerance, const CancelFlag& cancel,
                         const ForEach& forEach)
{
    if (vanishes(area.front(), distance))
        return {};
    ContourClusters clusters = clusterContours(area, distance);
    cancel.check();
    // A task of its own for what takes about as long as to hand it over many times.
    constexpr std::size_t pointsOfTask = 4000;
    std::vector<std::size_t> begins;
    std::size_t points = pointsOfTask;
    for (std::size_t i = 0; i < clusters.holes.size(); ++i)
    {
        if (points >= pointsOfTask)
        {
            begins.push_back(i);
            points = 0;
        }
        for (const Path& hole : clusters.holes[i])
            points += hole.size();
    }
    begins.push_back(clusters.holes.size());

    std::vector<Area> areas;
    std::vector<GrownHoles> grown(clusters.holes.size());
    forEach(begins.size(),
            [&](std::size_t task)
            {
                cancel.check();
                if (task == 0)
                {
                    PolyTree tree;
                    offset(clusters.outer, -distance, tolerance, tree);
                    areas = areasOf(tree, tolerance);
                    return;
                }
                for (std::size_t i = begins[task - 1]; i < begins[task]; ++i)
                {
                    cancel.check();
                    grown[i] = growHoles(std::move(clusters.holes[i]), distance, tolerance, cancel, forEach);
                }
            });

    Paths islands;
    for (GrownHoles& part : grown)
    {
        std::move(part.islands.begin(), part.islands.end(), std::back_inserter(islands));
        std::move(part.enclosed.begin(), part.enclosed.end(), std::back_inserter(areas));
    }
    placeIslands(std::move(islands), areas, cancel);
    return areas;
}

std::vector<Area> opened(const Area& area, double distance, const OffsetTolerance& tolerance, const CancelFlag& cancel)
{
    // Cores that meet when they grow stay apart: they overlap where the area is too narrow to matter.
    std::vector<Area> areas;
    for (const Area& core : shrink(area, distance, tolerance, cancel))
        for (Area& part : grownArea(core, distance, tolerance, cancel))
            areas.push_back(std::move(part));
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

double sizeOf(const Area& area)
{
    double size = 0;
    for (const Path& contour : area)
        size += ClipperLib::Area(contour);
    return size;
}

double perimeterOf(const Area& area)
{
    double perimeter = 0;
    for (const Path& path : area)
        for (std::size_t i = 0; i < path.size(); ++i)
        {
            const IntPoint& a = path[i];
            const IntPoint& b = path[(i + 1) % path.size()];
            perimeter += std::hypot(static_cast<double>(b.X - a.X), static_cast<double>(b.Y - a.Y));
        }
    return perimeter;
}

} // namespace exchange::pocketing
