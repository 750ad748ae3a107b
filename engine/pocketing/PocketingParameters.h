#ifndef ENGINE_POCKETING_POCKETINGPARAMETERS_H
#define ENGINE_POCKETING_POCKETINGPARAMETERS_H

#include <vector>

namespace exchange
{
struct Tessaron2dInput;
}

namespace exchange::pocketing
{

/// The parameters of a pocketing job, checked and with their defaults filled in; lengths in the host's unit.
struct PocketingParameters
{
    double toolDiameter = 0;
    double stepover = 0;
    double depthOfCut = 0;
    double topMaterialZ = 0;
    double zDepth = 0;
    double rapidPlaneZ = 0;
    double feedrate = 0;
    double rampFeedrate = 0;
    double spindleSpeed = 0;
    double cutTolerance = 0;
    double chainingTolerance = 0;
    double xyStockToLeave = 0;
    double zStockToLeave = 0;
    /// Height above uncut material down to which the tool comes at rapid; negative: it feeds from the rapid plane.
    double plungeClearance = -1;
    bool counterClockwise = true;
    bool depthFirst = true;
    int threads = 1;

    double toolRadius() const { return toolDiameter / 2; }
    /// The smallest distance of the tool's axis from the part and from the edge of the stock.
    double clearance() const { return toolRadius() + xyStockToLeave; }
    /// The depths to cut at, from the top down; the last is the floor.
    std::vector<double> levels() const;
};

/// The most workers a job uses, whatever the parameter asks for.
constexpr int maxThreads = 64;
/// The most depth levels a job cuts.
constexpr int maxLevels = 10000;
/// The factor between "Tool Diameter" and the default of "Cut Tolerance".
constexpr double defaultToleranceFactor = 0.001;

/// Reads the parameters of an input and checks everything that can be checked without computing.
/// \throws jobs::JobError with the status code, the parameter's name and a text
PocketingParameters readParameters(const Tessaron2dInput& input);

} // namespace exchange::pocketing

#endif
