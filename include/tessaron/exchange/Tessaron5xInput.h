#ifndef TESSARON_EXCHANGE_TESSARON5XINPUT_H
#define TESSARON_EXCHANGE_TESSARON5XINPUT_H

// Stability: stable.

#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/geom/VecNd.h>
#include <tessaron/exchange/mesh/TriMeshFacets.h>

#include <vector>

namespace exchange
{

// Lengths are in the host's unit, which is passed on unchanged. All records here have class version 0. The serialize
// functions are the library's own; hosts use <tessaron/exchange/Archives.h>.

/// A segment along which the flank of the tool touches the part.
struct Tessaron5xFlankConstraint
{
    geom::PointNd<3> startPt;
    geom::PointNd<3> endPt;
    geom::VecNd<3> normal; ///< surface normal along the segment

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// Flank constraints that follow each other.
typedef std::vector<Tessaron5xFlankConstraint> FlankConstraintChain;

/// The geometry of a 5-axis job. Meshes may be empty pointers, and one mesh may be used in several places.
struct Tessaron5xBoundaries
{
    topo::mesh::TriMeshPtr pPartMesh;           ///< the part surface
    topo::mesh::TriMeshPtr pMaterialMesh;       ///< the stock surface
    topo::mesh::TriMeshPtr pCheckMesh;          ///< surfaces the tool must not touch
    Tessaron2dBoundaries containmentBoundaries; ///< region to which machining is confined
    std::vector<FlankConstraintChain> flankConstraintChains;

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// The input of a 5-axis job.
///
/// `preDrilledHoles` belongs to class version 1, which is not in use: archives do not hold the holes, and raising the
/// version would make readers in the field refuse the archives.
struct Tessaron5xInput
{
    Tessaron5xBoundaries boundaries;
    util::Parameterized parameters;     ///< machining parameters, by the keys of <tessaron/util/Keys.h>
    TessaronDrillHoles preDrilledHoles; ///< entry holes; in memory only

    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

} // namespace exchange

#endif
