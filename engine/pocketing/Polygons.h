#ifndef ENGINE_POCKETING_POLYGONS_H
#define ENGINE_POCKETING_POLYGONS_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/Grid.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace exchange::pocketing
{

/// A connected area: its outer contour first, counter-clockwise, then its holes, clockwise.
using Area = Paths;

/// The accuracy of offsets, in steps of the grid.
struct OffsetTolerance
{
    /// How far the chords of a rounded corner may lie from the arc.
    double arc = 1;
    /// How far a contour may move when points that hardly matter are left out; 0 keeps all.
    double simplify = 0;
    /// How many points of islands one operation may have; more are done in parts.
    std::size_t largest = 30000;
};

/// Calls a function for each number from 0 to below a count, in any order and maybe on several threads, and waits for
/// all of them.
using ForEach = std::function<void(std::size_t count, const std::function<void(std::size_t)>& call)>;

/// One number after another, on this thread.
inline void inTurn(std::size_t count, const std::function<void(std::size_t)>& call)
{
    for (std::size_t i = 0; i < count; ++i)
        call(i);
}

/// The connected areas of what is in one set of loops and not in another; loops within loops alternate between inside
/// and outside.
std::vector<Area> subtract(const Paths& from, const Paths& loops);

/// What loops, alternating between inside and outside, become when they grow by a distance.
Paths grown(const Paths& loops, double distance, const OffsetTolerance& tolerance);

/// The connected areas that remain of an area when it shrinks by a distance, 0 or more.
/// \param forEach does what contours that stay apart come to; the result does not depend on it
/// \throws jobs::Cancelled when cancelled between two operations
std::vector<Area> shrink(const Area& area, double distance, const OffsetTolerance& tolerance,
                         const jobs::CancelFlag& cancel, const ForEach& forEach = inTurn);

/// The connected parts of an area of which every point is in a disc that lies in the area (its opening).
/// \param distance the radius of the disc
/// \throws jobs::Cancelled when cancelled between two operations
std::vector<Area> opened(const Area& area, double distance, const OffsetTolerance& tolerance,
                         const jobs::CancelFlag& cancel);

/// What is in an area shrunk by a distance and not in any of some other areas grown by that distance.
/// \throws jobs::Cancelled when cancelled between two operations
std::vector<Area> uncovered(const Area& area, const std::vector<const Area*>& others, double distance,
                            const OffsetTolerance& tolerance, const jobs::CancelFlag& cancel);

/// The size of an area, in square steps.
double sizeOf(const Area& area);
/// The length of all its contours, in steps.
double perimeterOf(const Area& area);

} // namespace exchange::pocketing

#endif
