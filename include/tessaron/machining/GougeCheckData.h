#ifndef TESSARON_MACHINING_GOUGECHECKDATA_H
#define TESSARON_MACHINING_GOUGECHECKDATA_H

// Stability: stable.

#include <cstddef>

namespace TessaronResources
{

/// What of the tool assembly is checked against the part, and how much room is kept. Owned by the host; the gouge check
/// dialog edits it in place (see displayGougeCheckDialog). The layout is part of the binary interface.
///
/// The clearances are in the host's length unit. They are not checked: zero and negative ones are the host's affair.
struct GougeCheckData
{
    int checkHolder = 0; ///< 1: check the holder, 0: do not
    int checkArbor = 0;  ///< 1: check the arbor, 0: do not
    int checkShaft = 0;  ///< 1: check the shaft, 0: do not
    double holderClearance = 0.0;
    double arborClearance = 0.0;
    double shaftClearance = 0.0;
};

static_assert(sizeof(int) == 4 && sizeof(double) == 8, "the record is shared with other compilers");
static_assert(offsetof(GougeCheckData, checkArbor) == 4 && offsetof(GougeCheckData, checkShaft) == 8 &&
                  offsetof(GougeCheckData, holderClearance) == 16 && offsetof(GougeCheckData, arborClearance) == 24 &&
                  offsetof(GougeCheckData, shaftClearance) == 32 && sizeof(GougeCheckData) == 40,
              "the record is shared with other compilers");

} // namespace TessaronResources

#endif
