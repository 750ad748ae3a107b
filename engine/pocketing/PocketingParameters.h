#ifndef ENGINE_POCKETING_POCKETINGPARAMETERS_H
#define ENGINE_POCKETING_POCKETINGPARAMETERS_H

#include <limits>
#include <string>
#include <vector>

namespace exchange
{
struct Tessaron2dInput;
}

namespace exchange::pocketing
{

/// The codes of "Plunge Type".
enum class PlungeType
{
    automatic = -1, ///< absent: open side, pre-drilled hole, helix, ramp, in this order
    none = 0,       ///< from an open side only; what cannot be entered so is left out
    straight = 1,   ///< straight down
    ramp = 2,       ///< along the cut
    helix = 3,      ///< in circles; along the cut where none fits
    preDrill = 4,   ///< into pre-drilled holes; as automatic where there is none
};

/// The parameters of a pocketing job, checked and with their defaults filled in; lengths in the host's unit. A member
/// that is not a number was not given and has no default.
struct PocketingParameters
{
    static constexpr double notGiven = std::numeric_limits<double>::quiet_NaN();

    double toolDiameter = 0;
    double toolCornerRadius = 0;
    double stepover = 0;
    double depthOfCut = 0;
    double topMaterialZ = 0;
    double zDepth = 0;
    double rapidPlaneZ = 0;
    double initialRapidPlaneZ = notGiven;
    double finalRapidPlaneZ = notGiven;
    double feedrate = 0;
    double rampFeedrate = 0;
    double slotFeedrate = 0;
    double highFeedrate = 0;
    double xyRapidFeedRate = 0;
    double zRapidFeedRate = 0;
    double feedrateEntryFactor = 1;
    double rampFeedrateEntryFactor = 1;
    double helixFeedFactor = 1;
    double rampFeedFactor = 1;
    double spindleSpeed = 0;
    double cutTolerance = 0;
    double chainingTolerance = 0;
    double xyStockToLeave = 0;
    double zStockToLeave = 0;
    double partRadialStock = 0;
    double partAxialStock = 0;
    double finalStepHeight = notGiven;
    /// Height above uncut material down to which the tool comes at rapid.
    double plungeClearance = 0;
    double plungeRadius = notGiven;
    /// In degrees.
    double rampAngle = 3;
    double dwellAfterPlunge = 0;
    double highFeedClearance = 0;
    double materialClearance = notGiven;
    double minimumClearance = 0;
    /// 0 prefers rapids, 1 moves at the high feed rate.
    double rapidVsHighFeed = 0.5;
    double linearizationTolerance = 0;
    double maximumSegmentLength = 0;
    double drillDiameter = notGiven;
    double drillPointRange = notGiven;
    double fromPointX = 0;
    double fromPointY = 0;
    double homePointX = 0;
    double homePointY = 0;
    int plungeType = -1;
    int plungeHelix = 1;
    int plungeCurve = 1;
    int motionStart = 1;
    int motionEnd = 1;
    int rapidAtRapidPlane = 0;
    int linearizationMode = 0;
    int detectPreDrillPoints = 0;
    int overrideFinalStepHeight = 1;
    int fromPointSelected = 0;
    int homePointSelected = 0;
    int counterClockwise = 1;
    int depthFirst = 1;
    int threads = 1;
    /// Heights that a level lies at beside those of the steps.
    std::vector<double> additionalCutDepths;

    double toolRadius() const { return toolDiameter / 2; }
    /// The smallest distance of the tool's axis from the part.
    double clearance() const { return toolRadius() + xyStockToLeave; }
    /// The tangent of "Ramp Angle".
    double rampSlope() const;
    /// Where rapids run across.
    double travelZ() const;
    /// The depths to cut at, from the top down; the last is the floor. The steps are even and none is greater than
    /// "Depth of Cut".
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

/// A key that the job reads, as the documentation lists it.
struct ParameterRow
{
    std::string key;
    /// "number", "whole number", "flag" or "list".
    std::string kind;
    bool required = false;
};

/// Every key that the job reads, in the order of the documentation.
std::vector<ParameterRow> parameterTable();

} // namespace exchange::pocketing

#endif
