#ifndef TESSARON_EXCHANGE_TESSARONDRILLHOLESSERIALIZATION_H
#define TESSARON_EXCHANGE_TESSARONDRILLHOLESSERIALIZATION_H

// Stability: stable.

#include <tessaron/exchange/TessaronDrillHoles.h>
#include <tessaron/exchange/geom/GeomSerialization.h>

#include <boost/serialization/deque.hpp>
#include <boost/serialization/nvp.hpp>

BOOST_CLASS_VERSION(exchange::TessaronDrillHole, 1)

namespace exchange
{

template <class Archive>
void TessaronDrillHole::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<TessaronDrillHole>(version, "exchange::TessaronDrillHole");
    archive& BOOST_SERIALIZATION_NVP(center);
    archive& BOOST_SERIALIZATION_NVP(usableDepth);
    if (version >= 1)
        archive& BOOST_SERIALIZATION_NVP(through);
    else
        through = false;
}

template <class Archive>
void TessaronDrillHoles::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<TessaronDrillHoles>(version, "exchange::TessaronDrillHoles");
    archive& boost::serialization::make_nvp("Holes", holes);
}

} // namespace exchange

#endif
