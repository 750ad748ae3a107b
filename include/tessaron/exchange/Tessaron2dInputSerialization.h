#ifndef TESSARON_EXCHANGE_TESSARON2DINPUTSERIALIZATION_H
#define TESSARON_EXCHANGE_TESSARON2DINPUTSERIALIZATION_H

// Stability: stable.

#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/TessaronDrillHolesSerialization.h>
#include <tessaron/exchange/geom/CurveSerialization.h>

BOOST_CLASS_VERSION(exchange::Tessaron2dInput, 2)

namespace exchange
{

template <class Archive>
void Tessaron2dBoundaries::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<Tessaron2dBoundaries>(version, "exchange::Tessaron2dBoundaries");
    archive& BOOST_SERIALIZATION_NVP(partBoundaries);
    archive& BOOST_SERIALIZATION_NVP(materialBoundaries);
}

template <class Archive>
void Tessaron2dInput::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<Tessaron2dInput>(version, "exchange::Tessaron2dInput");
    archive& BOOST_SERIALIZATION_NVP(boundaries);
    archive& BOOST_SERIALIZATION_NVP(parameters);
    if (version >= 1)
        archive& BOOST_SERIALIZATION_NVP(preDrilledHoles);
    if (version >= 2)
        archive& BOOST_SERIALIZATION_NVP(holderProfile);
}

} // namespace exchange

#endif
