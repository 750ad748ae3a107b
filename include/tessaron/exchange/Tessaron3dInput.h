#ifndef TESSARON_EXCHANGE_TESSARON3DINPUT_H
#define TESSARON_EXCHANGE_TESSARON3DINPUT_H

// Stability: stable.

#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/mesh/TriMeshFacets.h>

#include <string>

namespace exchange
{

// Lengths are in the host's unit, which is passed on unchanged. The serialize functions are defined in
// <tessaron/exchange/Tessaron3dInputSerialization.h>.

/// The geometry of a 3-axis job. Meshes may be empty pointers, and one mesh may be used in several places: archives
/// keep it shared. Class version 3.
///
/// Archives of version 3 hold one more text, "stockCache": an obsolete slot that is written empty and ignored when
/// read.
struct Tessaron3dBoundaries
{
    topo::mesh::TriMeshPtr pPartMesh;           ///< the part surface
    topo::mesh::TriMeshPtr pMaterialMesh;       ///< the stock surface
    CurveList materialBoundaries;               ///< stock outline as curves
    topo::mesh::TriMeshPtr pCheckMesh;          ///< surfaces the tool must not touch; since version 1
    Tessaron2dBoundaries containmentBoundaries; ///< region to which machining is confined; since version 2

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// The input of a 3-axis job. Class version 3.
struct Tessaron3dInput
{
    Tessaron3dBoundaries boundaries;
    util::Parameterized parameters;     ///< machining parameters, by the keys of <tessaron/util/Keys.h>
    TessaronDrillHoles preDrilledHoles; ///< entry holes; since version 1
    Profile holderProfile;              ///< outline of the tool holder; since version 2
    std::string operId;                 ///< the host operation that this input belongs to; since version 3

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

} // namespace exchange

#endif
