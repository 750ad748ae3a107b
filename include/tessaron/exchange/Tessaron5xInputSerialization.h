#ifndef TESSARON_EXCHANGE_TESSARON5XINPUTSERIALIZATION_H
#define TESSARON_EXCHANGE_TESSARON5XINPUTSERIALIZATION_H

// Stability: stable.

#include <tessaron/exchange/Tessaron2dInputSerialization.h>
#include <tessaron/exchange/Tessaron5xInput.h>
#include <tessaron/exchange/mesh/MeshSerialization.h>

namespace exchange
{

template <class Archive>
void Tessaron5xFlankConstraint::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<Tessaron5xFlankConstraint>(version, "exchange::Tessaron5xFlankConstraint");
    archive& BOOST_SERIALIZATION_NVP(startPt);
    archive& BOOST_SERIALIZATION_NVP(endPt);
    archive& BOOST_SERIALIZATION_NVP(normal);
}

template <class Archive>
void Tessaron5xBoundaries::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<Tessaron5xBoundaries>(version, "exchange::Tessaron5xBoundaries");
    archive& BOOST_SERIALIZATION_NVP(pPartMesh);
    archive& BOOST_SERIALIZATION_NVP(pMaterialMesh);
    archive& BOOST_SERIALIZATION_NVP(pCheckMesh);
    archive& BOOST_SERIALIZATION_NVP(containmentBoundaries);
    archive& BOOST_SERIALIZATION_NVP(flankConstraintChains);
}

template <class Archive>
void Tessaron5xInput::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<Tessaron5xInput>(version, "exchange::Tessaron5xInput");
    archive& BOOST_SERIALIZATION_NVP(boundaries);
    archive& BOOST_SERIALIZATION_NVP(parameters);
    if (version >= 1)
        archive& BOOST_SERIALIZATION_NVP(preDrilledHoles);
}

} // namespace exchange

#endif
