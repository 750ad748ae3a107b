#ifndef UTIL_KEYS_H
#define UTIL_KEYS_H

#include <string>
#include <string_view>

namespace util
{

/// A key text of a parameter set. Constant for the life of the program; converts to what util::Parameterized takes.
class Key
{
public:
    constexpr explicit Key(const char* text) : m_text(text) {}
    constexpr const char* c_str() const { return m_text.data(); }
    constexpr operator std::string_view() const { return m_text; }
    operator std::string() const { return std::string(m_text); }

private:
    std::string_view m_text;
};

/// The vocabulary of parameter sets. The texts are part of the file formats and of the interface with hosts and
/// engines: they are exact to the byte, "Tool Flut Length" included.
namespace keys
{

// Tool and holder
inline constexpr Key toolNumber("Tool Number");
inline constexpr Key toolDiameter("Tool Diameter");
inline constexpr Key toolCornerRadius("Tool Corner Radius");
inline constexpr Key toolLowerRadius("Tool Lower Radius");
inline constexpr Key toolNoseRadius("Tool Nose Radius");
inline constexpr Key toolTipAngle("Tool Tip Angle");
inline constexpr Key toolTaperAngle("Tool Taper Angle");
inline constexpr Key toolNumFlutes("Tool Num Flutes");
inline constexpr Key toolFlutLength("Tool Flut Length");
inline constexpr Key toolLength("Tool Length");
inline constexpr Key toolLengthOfCut("Tool Length of Cut");
inline constexpr Key toolOverallLength("Tool Overall Length");
inline constexpr Key toolStickOutLength("Tool Stick Out Length");
inline constexpr Key toolInsertShape("Tool Insert Shape");
inline constexpr Key toolCoatingType("Tool Coating Type");
inline constexpr Key toolCoatingFactor("Tool Coating Factor");
inline constexpr Key toolHolderType("Tool Holder Type");
inline constexpr Key toolHolderFactor("Tool Holder Factor");
inline constexpr Key toolHolderAngle("Tool Holder Angle");
inline constexpr Key toolHolderOrientation("Tool Holder Orientation");
inline constexpr Key toolHolderWidth("Tool Holder Width");
inline constexpr Key holderShapeType("Holder Shape Type");
inline constexpr Key holderDxfPath("Holder Dxf Path");
inline constexpr Key holderClearance("Holder Clearance");
inline constexpr Key shankClearance("Shank Clearance");
inline constexpr Key checkHolderForCollisions("Check Holder For Collisions");
inline constexpr Key lengthOffset("Length Offset");
inline constexpr Key compensationNumber("Compensation Number");
inline constexpr Key gagePoint("Gage Point");
inline constexpr Key gagePointType("Gage Point Type");
inline constexpr Key gageOffsetX("Gage Offset X");
inline constexpr Key gageOffsetY("Gage Offset Y");
inline constexpr Key previousToolDiameter("Previous Tool Diameter");
inline constexpr Key machineTool("Machine Tool");

// Feeds, speeds and cutting conditions
inline constexpr Key feedrate("Feedrate");
inline constexpr Key feedrateUnits("Feedrate Units");
inline constexpr Key feedrateLimited("Feedrate Limited");
inline constexpr Key feedrateEntryFactor("Feedrate Entry Factor");
inline constexpr Key maximumFeedrate("Maximum Feedrate");
inline constexpr Key minimumFeedRate("Minimum Feed Rate");
inline constexpr Key highFeedrate("High Feedrate");
inline constexpr Key highFeedrateUnits("High Feedrate Units");
inline constexpr Key highFeedrateZNegative("High Feedrate Z Negative");
inline constexpr Key highFeedClearance("High Feed Clearance");
inline constexpr Key rapidVsHighFeed("Rapid vs High Feed");
inline constexpr Key racetrackFeedRate("Racetrack Feed Rate");
inline constexpr Key rampFeedrate("Ramp Feedrate");
inline constexpr Key rampFeedrateEntryFactor("Ramp Feedrate Entry Factor");
inline constexpr Key rampSpindleSpeed("Ramp Spindle Speed");
inline constexpr Key slotFeedrate("Slot Feedrate");
inline constexpr Key slotSpindleSpeed("Slot Spindle Speed");
inline constexpr Key spindleSpeed("Spindle Speed");
inline constexpr Key spindleSpeedUnits("Spindle Speed Units");
inline constexpr Key spindleSpeedLimited("Spindle Speed Limited");
inline constexpr Key maximumSpindleSpeed("Maximum Spindle Speed");
inline constexpr Key spindleDirection("Spindle Direction");
inline constexpr Key xyRapidFeedRate("XY Rapid Feed Rate");
inline constexpr Key zRapidFeedRate("Z Rapid Feed Rate");
inline constexpr Key zagFeedRatePercent("Zag Feed Rate Percent");
inline constexpr Key adjustFeedRateForHelixPlungeType("Adjust Feed Rate for Helix Plunge Type");
inline constexpr Key adjustFeedRateForRampPlungeType("Adjust Feed Rate for Ramp Plunge Type");
inline constexpr Key coolant("Coolant");
inline constexpr Key aggressivenessType("Aggressiveness Type");
inline constexpr Key aggressivenessFactor("Aggressiveness Factor");
inline constexpr Key sideMillSlotMillRatio("Side Mill Slot Mill Ratio");
inline constexpr Key partMaterialType("Part Material Type");
inline constexpr Key partMaterialHardness("Part Material Hardness");
inline constexpr Key partMaterialHardnessType("Part Material Hardness Type");
inline constexpr Key partHoldingType("Part Holding Type");
inline constexpr Key partHoldingFactor("Part Holding Factor");
inline constexpr Key machineTaperType("Machine Taper Type");
inline constexpr Key machineTaperFactor("Machine Taper Factor");

// Cut pattern, depths and stock
inline constexpr Key cuttingStrategy("Cutting Strategy");
inline constexpr Key toolpathType("Toolpath Type");
inline constexpr Key toolpathCcw("Toolpath CCW");
inline constexpr Key cutAngle("Cut Angle");
inline constexpr Key cutOrientation("Cut Orientation");
inline constexpr Key cutTolerance("Cut Tolerance");
inline constexpr Key monotoneCutting("Monotone Cutting");
inline constexpr Key depthFirst("Depth First");
inline constexpr Key depthOfCut("Depth of Cut");
inline constexpr Key slotDepthOfCut("Slot Depth of Cut");
inline constexpr Key additionalCutDepths("Additional Cut Depths");
inline constexpr Key additionalCutDepthsFlags("Additional Cut Depths Flags");
inline constexpr Key insertCutDepthsAtZMax("Insert Cut Depths At Z Max");
inline constexpr Key adjustCutLevelsToStock("Adjust Cut Levels to Stock");
inline constexpr Key finalStepHeight("Final Step Height");
inline constexpr Key overrideFinalStepHeight("Override Final Step Height");
inline constexpr Key totalDepth("Total Depth");
inline constexpr Key zDepth("Z Depth");
inline constexpr Key zMax("Z Max");
inline constexpr Key stepover("Stepover");
inline constexpr Key sideMillStepover("Side-mill Stepover");
inline constexpr Key allowWiderSideMilling("Allow Wider Side Milling");
inline constexpr Key allowInitialSpiral("Allow Initial Spiral");
inline constexpr Key allowUndercut("Allow Undercut");
inline constexpr Key cavityMillingOnly("Cavity Milling Only");
inline constexpr Key stockToLeave("Stock to Leave");
inline constexpr Key xyStockToLeave("XY Stock to Leave");
inline constexpr Key zStockToLeave("Z Stock to Leave");
inline constexpr Key previousXYStockToLeave("Previous XY Stock to Leave");
inline constexpr Key checkStockToLeave("Check Stock to Leave");
inline constexpr Key partAxialStock("Part Axial Stock");
inline constexpr Key partRadialStock("Part Radial Stock");
inline constexpr Key smoothingRadius("Smoothing Radius");
inline constexpr Key previousSmoothingRadius("Previous Smoothing Radius");
inline constexpr Key minimumRadius("Minimum Radius");
inline constexpr Key minimumPocketRadius("Minimum Pocket Radius");
inline constexpr Key hitFlats("Hit Flats");
inline constexpr Key hitFlatsMinArea("Hit Flats Min Area");
inline constexpr Key ignoreMinAreaDiameter("Ignore Min Area Diameter");
inline constexpr Key maxPitch("Max Pitch");
inline constexpr Key linearizationMode("Linearization Mode");
inline constexpr Key linearizationTolerance("Linearization Tolerance");
inline constexpr Key maximumSegmentLength("Maximum segment length");
inline constexpr Key chainingTolerance("Chaining Tolerance");
inline constexpr Key contourRamping("Contour Ramping");
inline constexpr Key numberOfConcurrentThreads("Number of Concurrent Threads");

// Entry, plunge and motion
inline constexpr Key plungeType("Plunge Type");
inline constexpr Key plungeHelix("Plunge Helix");
inline constexpr Key plungeCurve("Plunge Curve");
inline constexpr Key plungeRadius("Plunge Radius");
inline constexpr Key plungeClearance("Plunge Clearance");
inline constexpr Key rampAngle("Ramp Angle");
inline constexpr Key dwellAfterPlunge("Dwell After Plunge");
inline constexpr Key useEntryExitClearance("Use Entry Exit Clearance");
inline constexpr Key detectOptimalPreDrillPoints("Detect Optimal Pre-Drill Points");
inline constexpr Key motionStartCutting("Motion Start Cutting");
inline constexpr Key motionEndCutting("Motion End Cutting");

// Linking, rapids and clearances
inline constexpr Key rapidAtRapidPlane("Rapid At Rapid Plane");
inline constexpr Key rapidPlaneZ("Rapid Plane Z");
inline constexpr Key initialRapidPlaneZ("Initial Rapid Plane Z");
inline constexpr Key finalRapidPlaneZ("Final Rapid Plane Z");
inline constexpr Key checkClearance("Check Clearance");
inline constexpr Key materialClearance("Material Clearance");
inline constexpr Key minimumClearance("Minimum Clearance");
inline constexpr Key repositionClearance("Reposition Clearance");
inline constexpr Key repositioning2DOnly("Repositioning 2D Only");
inline constexpr Key repositioningAngle("Repositioning Angle");
inline constexpr Key repositioningKeepRapid("Repositioning Keep Rapid");
inline constexpr Key repositioningRadius("Repositioning Radius");
inline constexpr Key minimumRepositioningRadius("Minimum Repositioning Radius");
inline constexpr Key repositioningTessellationAngle("Repositioning Tessellation Angle");
inline constexpr Key useFreewayLinking("Use Freeway Linking");
inline constexpr Key collisionAvoidanceMode("Collision Avoidance Mode");
inline constexpr Key gougeCheckCurves("Gouge Check Curves");
inline constexpr Key fromPointSelected("From Point Selected");
inline constexpr Key fromPointX("From Point X");
inline constexpr Key fromPointY("From Point Y");
inline constexpr Key goHomePointSelected("Go Home Point Selected");
inline constexpr Key goHomePointX("Go Home Point X");
inline constexpr Key goHomePointY("Go Home Point Y");

// In-process return
inline constexpr Key inProcessReturn("In-process Return");
inline constexpr Key inProcessReturnAfterFullPassOnly("In-process Return After Full Pass Only");
inline constexpr Key inProcessReturnDistance("In-process Return Distance");
inline constexpr Key inProcessReturnDivideEqually("In-process Return Divide Equally");
inline constexpr Key
    inProcessReturnIncrementToolNumberAndLengthOffset("In-process Return Increment Tool Number and Length Offset");
inline constexpr Key inProcessReturnIncrementToolNumberAndLengthOffsetValue(
    "In-process Return Increment Tool Number and Length Offset Value");
inline constexpr Key inProcessReturnMotion("In-process Return Motion");
inline constexpr Key inProcessReturnNumberOfPasses("In-process Return Number Of Passes");
inline constexpr Key inProcessReturnPointSelected("In-process Return Point Selected");
inline constexpr Key inProcessReturnPointX("In-process Return Point X");
inline constexpr Key inProcessReturnPointY("In-process Return Point Y");
inline constexpr Key inProcessReturnRetractTo("In-process Return Retract To");
inline constexpr Key inProcessReturnSeconds("In-process Return Seconds");

// Boundaries, regions and part geometry
inline constexpr Key material("Material");
inline constexpr Key materialMeshClosed("Material Mesh Closed");
inline constexpr Key topMaterialZ("Top Material Z");
inline constexpr Key bottomMaterialZ("Bottom Material Z");
inline constexpr Key firstRegion("First Region");
inline constexpr Key lastRegion("Last Region");
inline constexpr Key regionId("Region Id");
inline constexpr Key processRegionsSeparately("Process Regions Separately");
inline constexpr Key loopContainment("Loop Containment");
inline constexpr Key loopId("Loop Id");
inline constexpr Key curveId("Curve Id");
inline constexpr Key useLoopIds("Use Loop Ids");
inline constexpr Key useLoopCurveIds("Use Loop Curve Ids");
inline constexpr Key useLoopDepths("Use Loop Depths");
inline constexpr Key useSeparatePartAndMaterialChains("Use Separate Part And Material Chains");
inline constexpr Key smoothPartBoundaries("Smooth Part Boundaries");
inline constexpr Key smoothPartBoundariesAngle("Smooth Part Boundaries Angle");
inline constexpr Key pickCorners("Pick Corners");
inline constexpr Key previousPickCorners("Previous Pick Corners");
inline constexpr Key taperAngle("Taper Angle");
inline constexpr Key islandTaperAngle("Island Taper Angle");
inline constexpr Key outerWallTaperAngle("Outer Wall Taper Angle");
inline constexpr Key topChamferAngle("Top Chamfer Angle");
inline constexpr Key topChamferHeight("Top Chamfer Height");
inline constexpr Key topFilletRadius("Top Fillet Radius");
inline constexpr Key bottomChamferAngle("Bottom Chamfer Angle");
inline constexpr Key bottomChamferHeight("Bottom Chamfer Height");
inline constexpr Key bottomFilletRadius("Bottom Fillet Radius");
inline constexpr Key layerName("Layer Name");
inline constexpr Key color("Color");
inline constexpr Key hidden("Hidden");
inline constexpr Key type("Type");
inline constexpr Key units("Units");
inline constexpr Key workOffset("Work Offset");

// Drilling
inline constexpr Key drillAngle("Drill Angle");
inline constexpr Key drillDiameter("Drill Diameter");
inline constexpr Key drillPointRange("Drill Point Range");

// 5-axis
inline constexpr Key fiveAxisConstrainWallIsoparametric("5X Constrain Wall Isoparametric");
inline constexpr Key fiveAxisRotaryMode("5X Rotary Mode");
inline constexpr Key fiveAxisRotaryNumberOfBladesToCut("5X Rotary Number of Blades to Cut");
inline constexpr Key fiveAxisRotaryTotalNumberOfBlades("5X Rotary Total Number of Blades");

// Template metadata
inline constexpr Key templateName("Template Name");
inline constexpr Key templateDescription("Template Description");
inline constexpr Key templateComments("Template Comments");
inline constexpr Key templateCam("Template CAM");
inline constexpr Key templateVersion("Template Version");
inline constexpr Key templateRating("Template Rating");
inline constexpr Key templateGuid("Template Guid");
inline constexpr Key templateDateCreated("Template Date Created");
inline constexpr Key templateDateModified("Template Date Modified");

// Job and user
inline constexpr Key jobLifetime("Job Lifetime");
inline constexpr Key lastJobId("Last Job Id");
inline constexpr Key toolpathEvents("Toolpath Events");
inline constexpr Key username("Username");
inline constexpr Key password("Password");

// Progress stage names
inline constexpr Key stageCreatingToolpath("Creating toolpath: ");
inline constexpr Key stageCreatingOffsetSurfaces("Creating offset surfaces: ");
inline constexpr Key stageComputingRemainingStock("Computing remaining stock: ");
inline constexpr Key stageComputingToolAxisVectors("Computing tool axis vectors: ");
inline constexpr Key stageGeneratingBoundaries("Generating boundaries: ");
inline constexpr Key stageImportingFile("Importing file: ");
inline constexpr Key stageProcessingPartBoundaries("Processing part boundaries: ");
inline constexpr Key stageProcessingMaterialBoundaries("Processing material boundaries: ");
inline constexpr Key stageRelinkingToolpath("Relinking toolpath: ");
inline constexpr Key stageSlicesGenerated("Slices generated: ");
inline constexpr Key stageTotalSlices("Total slices: ");
inline constexpr Key stageTotalToolpaths("Total toolpaths: ");

// Template store words
inline constexpr Key folderTessaron("tessaron");
inline constexpr Key folderOrrimant("orrimant");
inline constexpr Key orrimantTemplateInfo("orrimant_template_info");

} // namespace keys

} // namespace util

#endif
