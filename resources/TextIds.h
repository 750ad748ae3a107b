#ifndef RESOURCES_TEXTIDS_H
#define RESOURCES_TEXTIDS_H

/// The ids of the string table (see resources/StringTable.h). Other modules' resources go by the same numbers.
namespace TessaronResources::texts
{

// Stages of a job. Each is a format for one integer.
constexpr int creatingOffsetSurfaces = 1005;
constexpr int creatingToolpath = 1006;
constexpr int computingRemainingStock = 1008;
constexpr int computingCutterLocations = 1039;
constexpr int computingToolAxisVectors = 1040;
constexpr int importingFile = 1042;
constexpr int worker = 1043;

// Quantities of the chip thickness dialog, in milling and where its feed lies in the XY plane.
constexpr int speed = 1031;
constexpr int feed = 1032;
constexpr int stepover = 1033;
constexpr int chipThickness = 1034;
constexpr int cutWidth = 1035;
constexpr int xyStepover = 1036;
constexpr int xySpeed = 1037;
constexpr int xyFeedrate = 1038;

// Tooltips of the chip thickness dialog.
constexpr int surfaceSpeedInFeet = 1100;
constexpr int surfaceSpeedInMeters = 1101;
constexpr int spindleSpeed = 1102;
constexpr int feedPerToothInInches = 1103;
constexpr int feedPerToothInMillimeters = 1104;
constexpr int feedrateInInches = 1105;
constexpr int feedrateInMillimeters = 1106;
constexpr int stepoverInInches = 1107;
constexpr int stepoverInMillimeters = 1108;
constexpr int stepoverInPercent = 1109;
constexpr int chipThicknessInInches = 1110;
constexpr int chipThicknessInMillimeters = 1111;
constexpr int removalRateInCubicInches = 1112;
constexpr int removalRateInCubicCentimeters = 1113;
constexpr int derivedQuantity = 1114;
constexpr int help = 1115;

// Tooltips of the gouge check and SmartLink dialogs.
constexpr int clearance = 1116;
constexpr int linkPreference = 1117;

// What the chip thickness dialog says below its removal rate. "%s" stands for a value.
constexpr int cubicInchesPerMinute = 1120;
constexpr int cubicCentimetersPerMinute = 1121;
constexpr int readInPart = 1122;
constexpr int chipThicknessContradicts = 1123;
constexpr int halfTheDiameterTaken = 1124;
constexpr int aboveMaximumSpindleSpeed = 1125;
constexpr int aboveMaximumFeedrate = 1126;
constexpr int chipMayRub = 1127;
constexpr int thinningFactor = 1128;

} // namespace TessaronResources::texts

#endif
