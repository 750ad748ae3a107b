#ifndef MACHINING_CUTVALUES_H
#define MACHINING_CUTVALUES_H

namespace TessaronResources
{

/// The quantities of a cut, in the units of the calculator (see tessaron/engine/Calculator.h). Zero is unknown.
struct CutValues
{
    double toolDiameter = 0;
    double depthOfCut = 0;
    int numFlutes = 0;
    bool metric = false;
    double surfaceSpeed = 0;
    int spindleSpeed = 0;
    double feedPerTooth = 0;
    double feedrate = 0;
    double stepover = 0;
    double chipThickness = 0;
    double removalRate = 0;
};

/// Has the engine derive what is unknown, and the removal rate.
void solve(CutValues& cut);

/// Whether two quantities are the same but for the last digits that arithmetic leaves.
bool nearlyEqual(double one, double other);

/// The chip thickness that feed per tooth and stepover give; 0 when they give none.
double chipThicknessOf(CutValues cut);

/// Whether the values satisfy the formulas already, a spindle speed as far as its whole number can. Deriving one of
/// them again would change no more than its last digits, or choose another one of several that are as good.
bool agree(const CutValues& cut);

} // namespace TessaronResources

#endif
