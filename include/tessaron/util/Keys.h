#ifndef TESSARON_UTIL_KEYS_H
#define TESSARON_UTIL_KEYS_H

// Stability: stable.

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
/// engines: they are exact to the byte, "Tool Flut Length" included, and case counts.
///
/// Kinds: "real" is a double, "integer" a 32-bit integer, "code" an integer that names one choice of an option list,
/// "text" a string. Lengths, and levels along the tool axis, are in the host's unit (inch or millimetre), which nothing
/// here converts; angles are in the unit that host and engine agree on. A key without a remark carries what its host
/// and engine agree on: it is stored and passed on as it is.
namespace keys
{

// Tool and holder
inline constexpr Key toolNumber("Tool Number");
/// Real, length: the cutting diameter.
inline constexpr Key toolDiameter("Tool Diameter");
/// Real, length.
inline constexpr Key toolCornerRadius("Tool Corner Radius");
/// Real, length.
inline constexpr Key toolLowerRadius("Tool Lower Radius");
/// Real, length.
inline constexpr Key toolNoseRadius("Tool Nose Radius");
/// Real, angle.
inline constexpr Key toolTipAngle("Tool Tip Angle");
/// Real, angle.
inline constexpr Key toolTaperAngle("Tool Taper Angle");
/// Integer: the number of cutting edges.
inline constexpr Key toolNumFlutes("Tool Num Flutes");
/// Real, length.
inline constexpr Key toolFlutLength("Tool Flut Length");
/// Real, length.
inline constexpr Key toolLength("Tool Length");
/// Real, length.
inline constexpr Key toolLengthOfCut("Tool Length of Cut");
inline constexpr Key toolOverallLength("Tool Overall Length");
/// Real, length.
inline constexpr Key toolStickOutLength("Tool Stick Out Length");
/// Text.
inline constexpr Key toolInsertShape("Tool Insert Shape");
/// Code.
inline constexpr Key toolCoatingType("Tool Coating Type");
inline constexpr Key toolCoatingFactor("Tool Coating Factor");
/// Code.
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
/// Text.
inline constexpr Key machineTool("Machine Tool");

// Feeds, speeds and cutting conditions
/// Real, length per minute.
inline constexpr Key feedrate("Feedrate");
inline constexpr Key feedrateUnits("Feedrate Units");
inline constexpr Key feedrateLimited("Feedrate Limited");
inline constexpr Key feedrateEntryFactor("Feedrate Entry Factor");
/// Real, length per minute.
inline constexpr Key maximumFeedrate("Maximum Feedrate");
inline constexpr Key minimumFeedRate("Minimum Feed Rate");
/// Real, length per minute.
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
/// Integer, revolutions per minute.
inline constexpr Key spindleSpeed("Spindle Speed");
inline constexpr Key spindleSpeedUnits("Spindle Speed Units");
inline constexpr Key spindleSpeedLimited("Spindle Speed Limited");
/// Integer, revolutions per minute.
inline constexpr Key maximumSpindleSpeed("Maximum Spindle Speed");
inline constexpr Key spindleDirection("Spindle Direction");
/// Real, length per minute.
inline constexpr Key xyRapidFeedRate("XY Rapid Feed Rate");
/// Real, length per minute.
inline constexpr Key zRapidFeedRate("Z Rapid Feed Rate");
inline constexpr Key zagFeedRatePercent("Zag Feed Rate Percent");
inline constexpr Key adjustFeedRateForHelixPlungeType("Adjust Feed Rate for Helix Plunge Type");
inline constexpr Key adjustFeedRateForRampPlungeType("Adjust Feed Rate for Ramp Plunge Type");
inline constexpr Key coolant("Coolant");
/// Code.
inline constexpr Key aggressivenessType("Aggressiveness Type");
inline constexpr Key aggressivenessFactor("Aggressiveness Factor");
inline constexpr Key sideMillSlotMillRatio("Side Mill Slot Mill Ratio");
/// Code.
inline constexpr Key partMaterialType("Part Material Type");
/// Real, on the scale that "Part Material Hardness Type" names.
inline constexpr Key partMaterialHardness("Part Material Hardness");
/// Code.
inline constexpr Key partMaterialHardnessType("Part Material Hardness Type");
/// Code.
inline constexpr Key partHoldingType("Part Holding Type");
inline constexpr Key partHoldingFactor("Part Holding Factor");
/// Code.
inline constexpr Key machineTaperType("Machine Taper Type");
inline constexpr Key machineTaperFactor("Machine Taper Factor");

// Cut pattern, depths and stock
inline constexpr Key cuttingStrategy("Cutting Strategy");
inline constexpr Key toolpathType("Toolpath Type");
inline constexpr Key toolpathCcw("Toolpath CCW");
inline constexpr Key cutAngle("Cut Angle");
inline constexpr Key cutOrientation("Cut Orientation");
/// Real, length: how far a flattened curve may stray from the true one.
inline constexpr Key cutTolerance("Cut Tolerance");
inline constexpr Key monotoneCutting("Monotone Cutting");
inline constexpr Key depthFirst("Depth First");
/// Real, length: the depth of one cut level.
inline constexpr Key depthOfCut("Depth of Cut");
inline constexpr Key slotDepthOfCut("Slot Depth of Cut");
inline constexpr Key additionalCutDepths("Additional Cut Depths");
inline constexpr Key additionalCutDepthsFlags("Additional Cut Depths Flags");
inline constexpr Key insertCutDepthsAtZMax("Insert Cut Depths At Z Max");
inline constexpr Key adjustCutLevelsToStock("Adjust Cut Levels to Stock");
inline constexpr Key finalStepHeight("Final Step Height");
inline constexpr Key overrideFinalStepHeight("Override Final Step Height");
inline constexpr Key totalDepth("Total Depth");
/// Real, length: the level of the finished floor.
inline constexpr Key zDepth("Z Depth");
inline constexpr Key zMax("Z Max");
/// Real, length: the distance from one pass to the next.
inline constexpr Key stepover("Stepover");
inline constexpr Key sideMillStepover("Side-mill Stepover");
inline constexpr Key allowWiderSideMilling("Allow Wider Side Milling");
inline constexpr Key allowInitialSpiral("Allow Initial Spiral");
inline constexpr Key allowUndercut("Allow Undercut");
inline constexpr Key cavityMillingOnly("Cavity Milling Only");
inline constexpr Key stockToLeave("Stock to Leave");
/// Real, length: material left on walls.
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
/// Integer: worker threads of a job; absent, as many as the machine has cores.
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
/// Real, length: the level of rapid moves above the stock.
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
/// Text.
inline constexpr Key material("Material");
inline constexpr Key materialMeshClosed("Material Mesh Closed");
/// Real, length: the level of the top of the stock.
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

// Template metadata: the keys that make a parameter set a stored template.
/// Text: the display name, and the name under which the template is saved.
inline constexpr Key templateName("Template Name");
/// Text.
inline constexpr Key templateDescription("Template Description");
/// Text.
inline constexpr Key templateComments("Template Comments");
/// Text: the host CAM system; "KORVEN" when absent.
inline constexpr Key templateCam("Template CAM");
/// Text: the version of the template record.
inline constexpr Key templateVersion("Template Version");
/// Real: the user's rating.
inline constexpr Key templateRating("Template Rating");
/// Text: the identity of the template.
inline constexpr Key templateGuid("Template Guid");
/// Text: a decimal number of seconds since 1970-01-01 00:00 UTC.
inline constexpr Key templateDateCreated("Template Date Created");
/// Text: a decimal number of seconds since 1970-01-01 00:00 UTC.
inline constexpr Key templateDateModified("Template Date Modified");

// Job and user
inline constexpr Key jobLifetime("Job Lifetime");
inline constexpr Key lastJobId("Last Job Id");
inline constexpr Key toolpathEvents("Toolpath Events");
inline constexpr Key username("Username");
inline constexpr Key password("Password");

// Progress stage names: the keys of the stage set of a progress record. All values are reals.
/// Fraction 0 to 1.
inline constexpr Key stageCreatingToolpath("Creating toolpath: ");
/// Fraction 0 to 1.
inline constexpr Key stageCreatingOffsetSurfaces("Creating offset surfaces: ");
/// Fraction 0 to 1.
inline constexpr Key stageComputingRemainingStock("Computing remaining stock: ");
/// Fraction 0 to 1.
inline constexpr Key stageComputingToolAxisVectors("Computing tool axis vectors: ");
/// Number of checks left, not a fraction.
inline constexpr Key stageGeneratingBoundaries("Generating boundaries: ");
/// Percentage 0 to 100.
inline constexpr Key stageImportingFile("Importing file: ");
/// Not shown by the progress windows.
inline constexpr Key stageProcessingPartBoundaries("Processing part boundaries: ");
/// Not shown by the progress windows.
inline constexpr Key stageProcessingMaterialBoundaries("Processing material boundaries: ");
/// Not shown by the progress windows.
inline constexpr Key stageRelinkingToolpath("Relinking toolpath: ");
/// Not shown by the progress windows.
inline constexpr Key stageSlicesGenerated("Slices generated: ");
/// Not shown by the progress windows.
inline constexpr Key stageTotalSlices("Total slices: ");
/// Not shown by the progress windows.
inline constexpr Key stageTotalToolpaths("Total toolpaths: ");

// Template store words: the names of the folder of each kind of operation below a template folder, and of the layout
// record.
/// Folder of milling templates.
inline constexpr Key folderTessaron("tessaron");
/// Folder of turning templates.
inline constexpr Key folderOrrimant("orrimant");
inline constexpr Key orrimantTemplateInfo("orrimant_template_info");

} // namespace keys

} // namespace util

#endif
