#ifndef TESSARON_ENGINE_CALCULATOR_H
#define TESSARON_ENGINE_CALCULATOR_H

// Stability: stable.

#include <tessaron/util/Export.h>

namespace exchange
{

/// Derives the unknown quantities of a milling cut from the known ones, and the material removal rate.
///
/// An in/out value of zero is an unknown; a positive one is given and is kept, even where the given values contradict
/// each other. What cannot be derived stays zero. A negative value is kept and nothing is derived from it. A value that
/// is not finite counts as unknown. Every output is finite; a result too large for its type leaves zero.
/// A derived spindle speed is rounded half up to whole revolutions, at least 1; what follows from it uses that number.
///
/// | argument             | inch              | metric            |
/// |----------------------|-------------------|-------------------|
/// | toolDiameter         | in                | mm                |
/// | depthOfCut           | in                | mm                |
/// | surfaceSpeed         | ft/min            | m/min             |
/// | spindleSpeed         | rev/min           | rev/min           |
/// | feedPerTooth         | in                | mm                |
/// | feedrate             | in/min            | mm/min            |
/// | stepover             | in                | mm                |
/// | chipThickness        | in                | mm                |
/// | materialRemovalRate  | in^3/min          | cm^3/min          |
///
/// The chip thickness is the largest one that a tooth cuts, not the mean along the cut. Formulas:
/// - speed and feed: Dormer Pramet, Milling 2021-22, p. 210; Mitsubishi Materials, Formulas for Milling;
/// - radial chip thinning: Helical, Common Milling Calculations; Harvey Performance; GARR Tool;
/// - removal rate: the catalogues of Dormer, Sandvik Coromant, Kyocera and SGS.
///
/// The spindle speed is derived from the feeds only when the surface speed is unknown as well, and the feed per tooth
/// from the feedrate before it is derived from the chip thickness. A chip as thick as the feed per tooth, or thicker,
/// gives half the diameter as the stepover: no wider cut makes a thicker chip. A stepover above the diameter counts as
/// the diameter in the removal rate. The removal rate is computed in every case; it is zero while the depth, the
/// stepover or the feedrate is not known. A diameter or a number of flutes of zero and below rules out whatever needs
/// it.
///
/// The pointers must not be null and must not point to one another's values. Never throws; may be called on any thread.
TESSARON_ENGINES_API void calculateMachiningParameters(double toolDiameter, double depthOfCut, int numFlutes,
                                                       bool metric, double* surfaceSpeed, int* spindleSpeed,
                                                       double* feedPerTooth, double* feedrate, double* stepover,
                                                       double* chipThickness, double* materialRemovalRate);

} // namespace exchange

#endif
