#ifndef TESSARON_EXCHANGE_TESSARON3DINPUTSERIALIZATION_H
#define TESSARON_EXCHANGE_TESSARON3DINPUTSERIALIZATION_H

// Stability: stable.

#include <tessaron/exchange/Tessaron2dInputSerialization.h>
#include <tessaron/exchange/Tessaron3dInput.h>
#include <tessaron/exchange/mesh/MeshSerialization.h>

BOOST_CLASS_VERSION(exchange::Tessaron3dBoundaries, 3)
BOOST_CLASS_VERSION(exchange::Tessaron3dInput, 3)

namespace exchange
{

template <class Archive>
void Tessaron3dBoundaries::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<Tessaron3dBoundaries>(version, "exchange::Tessaron3dBoundaries");
    archive& BOOST_SERIALIZATION_NVP(pPartMesh);
    archive& BOOST_SERIALIZATION_NVP(pMaterialMesh);
    archive& BOOST_SERIALIZATION_NVP(materialBoundaries);
    if (version >= 1)
        archive& BOOST_SERIALIZATION_NVP(pCheckMesh);
    if (version >= 2)
        archive& BOOST_SERIALIZATION_NVP(containmentBoundaries);
    if (version >= 3)
    {
        std::string stockCache;
        archive& BOOST_SERIALIZATION_NVP(stockCache);
    }
}

template <class Archive>
void Tessaron3dInput::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<Tessaron3dInput>(version, "exchange::Tessaron3dInput");
    archive& BOOST_SERIALIZATION_NVP(boundaries);
    archive& BOOST_SERIALIZATION_NVP(parameters);
    if (version >= 1)
        archive& BOOST_SERIALIZATION_NVP(preDrilledHoles);
    if (version >= 2)
        archive& BOOST_SERIALIZATION_NVP(holderProfile);
    if (version >= 3)
        archive& BOOST_SERIALIZATION_NVP(operId);
}

} // namespace exchange

#endif
