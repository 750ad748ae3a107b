#ifndef TESSARON_EXCHANGE_TESSARONDRILLHOLES_H
#define TESSARON_EXCHANGE_TESSARONDRILLHOLES_H

// Stability: stable.

#include <tessaron/exchange/geom/PointNd.h>

#include <deque>

namespace exchange
{

// The serialize functions are the library's own; hosts use <tessaron/exchange/Archives.h>.

/// A hole that the tool may enter by. Class version 1.
struct TessaronDrillHole
{
    geom::PointNd<2> center; ///< position in the machining plane
    double usableDepth = 0;  ///< depth to which the hole can be used for entry
    bool through = false;    ///< the hole goes through the stock; since version 1, false in older archives

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// Holes in order. Class version 0.
struct TessaronDrillHoles
{
    std::deque<TessaronDrillHole> holes;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

} // namespace exchange

#endif
