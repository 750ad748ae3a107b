#ifndef TESTS_ENGINE_SIMULATOR_SIMULATION_H
#define TESTS_ENGINE_SIMULATOR_SIMULATION_H

#include "tests/engine/simulator/MachineTime.h"
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/ToolpathRecords.h>

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// Runs a toolpath through a block of material: a height for each cell of a raster, lowered wherever the tool's disc
/// passes. Reads nothing but the records that hosts read.
namespace simulator
{

struct Options
{
    /// The width of a cell; 0 for an eighth of the tool's radius, or what comes to four million cells.
    double cell = 0;
    /// Look for what the tool reaches and left.
    bool coverage = true;
    Machine machine;
    /// Places that must be cut down to the floor, though no raster tells whether the tool may get there.
    std::vector<Point2> places;
};

/// What is wrong at one place.
struct Fault
{
    std::string what;
    std::size_t record = 0;
    Point3 place;
};

struct Report
{
    std::size_t records = 0;
    /// Moves that bring the tool nearer to the part than radius, stock to leave and tolerance allow, or below the
    /// floor.
    std::size_t gouges = 0;
    /// Cells above the floor that the tool reaches.
    std::size_t uncutCells = 0;
    std::size_t reachableCells = 0;
    std::size_t rapidsThroughMaterial = 0;
    /// Rapids across below the top of the material, whether anything is in their way or not.
    std::size_t lowRapids = 0;
    /// Stretches cut wider than a tenth of the diameter at a feed rate far above "Feedrate".
    std::size_t fastCuts = 0;
    /// Moves across that take off more than "Depth of Cut" at once.
    std::size_t deepCuts = 0;
    /// Feed moves down that are steeper than "Ramp Angle", into a disc of which more than a twentieth is material.
    std::size_t plunges = 0;
    /// Rapids up from below the top of the material: to above it, and not that far.
    std::size_t retracts = 0;
    std::size_t hops = 0;
    /// Records that cannot be run.
    std::size_t unsoundRecords = 0;
    /// The first of them all.
    std::vector<Fault> faults;

    /// The length of what is cut across at each height.
    std::map<double, double> cutAt;
    /// How much of the length across below the top is cut how wide, as parts of the diameter: none, to a quarter, to a
    /// half, to three quarters, to 95 %, all of it.
    std::array<double, 6> engagement{};
    double feedLength = 0;
    double rapidLength = 0;

    /// How long the machine takes, in seconds. Each motion is in one row.
    struct Seconds
    {
        double rapid = 0;
        double plunge = 0; ///< straight down at feed
        double ramp = 0;   ///< down and across at feed
        double air = 0;    ///< at feed, and nothing is cut
        double cut = 0;
        double all() const { return rapid + plunge + ramp + air + cut; }
    };
    Seconds seconds;

    /// How many of each kind of fault there are, and the first places; empty when the toolpath is sound.
    std::string problems() const;
    /// The heights at which a tenth or more of the greatest length is cut, from the floor up.
    std::vector<double> levels() const;
};

Report simulate(const exchange::Tessaron2dInput& input, const exchange::ToolpathRecords& toolpath,
                const Options& options = {});

} // namespace simulator

#endif
