#ifndef TESSARON_EXCHANGE_ORRIMANTINPUT_H
#define TESSARON_EXCHANGE_ORRIMANTINPUT_H

// Stability: stable.

#include <tessaron/exchange/Tessaron2dInput.h>

namespace exchange
{

/// The input of a turning job. Lengths are in the host's unit, which is passed on unchanged. Class version 1, with the
/// same fields at version 0. The profiles are curves here, where the milling inputs have points.
struct OrrimantInput
{
    Tessaron2dBoundaries boundaries;            ///< part and stock outline in the turning plane
    Tessaron2dBoundaries containmentBoundaries; ///< region to which machining is confined
    util::Parameterized parameters;             ///< machining parameters, by the keys of <tessaron/util/Keys.h>
    CurveList toolProfile;                      ///< outline of the turning tool
    CurveList holderProfile;                    ///< outline of the tool holder

    /// Defined in <tessaron/exchange/OrrimantInputSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

} // namespace exchange

#endif
