#ifndef MACHINING_CHIPCONTROLFIELDS_H
#define MACHINING_CHIPCONTROLFIELDS_H

#include <array>

namespace TessaronResources
{

namespace chipControl
{

// Controls of the dialog's templates.
inline constexpr int calculate = 3;
inline constexpr int stepoverPercent = 1040;
inline constexpr int stepoverLabel = 1041;
inline constexpr int help = 1065;
inline constexpr int surfaceSpeed = 4000;
inline constexpr int spindleSpeed = 4001;
inline constexpr int feedPerTooth = 4002;
inline constexpr int feedrate = 4003;
inline constexpr int stepover = 4004;
inline constexpr int chipThickness = 4005;
inline constexpr int removalRate = 4006;
inline constexpr int removalRateUnit = 4007;
inline constexpr int notes = 4008;
inline constexpr int derivedQuantity = 4057;

/// The fields that hold a real number. The spindle speed is the only one that does not.
inline constexpr std::array realFields{surfaceSpeed, feedPerTooth, feedrate, stepover, stepoverPercent, chipThickness};

} // namespace chipControl

} // namespace TessaronResources

#endif
