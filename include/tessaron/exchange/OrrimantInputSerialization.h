#ifndef TESSARON_EXCHANGE_ORRIMANTINPUTSERIALIZATION_H
#define TESSARON_EXCHANGE_ORRIMANTINPUTSERIALIZATION_H

// Stability: stable.

#include <tessaron/exchange/OrrimantInput.h>
#include <tessaron/exchange/Tessaron2dInputSerialization.h>

BOOST_CLASS_VERSION(exchange::OrrimantInput, 1)

namespace exchange
{

template <class Archive>
void OrrimantInput::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<OrrimantInput>(version, "exchange::OrrimantInput");
    archive& BOOST_SERIALIZATION_NVP(boundaries);
    archive& BOOST_SERIALIZATION_NVP(containmentBoundaries);
    archive& BOOST_SERIALIZATION_NVP(parameters);
    archive& BOOST_SERIALIZATION_NVP(toolProfile);
    archive& BOOST_SERIALIZATION_NVP(holderProfile);
}

} // namespace exchange

#endif
