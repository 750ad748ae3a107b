#ifndef TESSARON_EXCHANGE_MESH_MESHSERIALIZATION_H
#define TESSARON_EXCHANGE_MESH_MESHSERIALIZATION_H

// Stability: stable.

#include <tessaron/exchange/geom/GeomSerialization.h>
#include <tessaron/exchange/mesh/TriMeshFacets.h>

#include <boost/serialization/deque.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/shared_ptr.hpp>

namespace topo
{
namespace mesh
{

template <class Archive>
void TriMeshFacet::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<TriMeshFacet>(version, "topo::mesh::TriMeshFacet");
    archive& BOOST_SERIALIZATION_NVP(idx);
}

template <class Point>
template <class Archive>
void TriMeshFacets<Point>::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<TriMeshFacets>(version, "topo::mesh::TriMeshFacets");
    archive& BOOST_SERIALIZATION_NVP(vertices);
    archive& BOOST_SERIALIZATION_NVP(faces);
}

} // namespace mesh
} // namespace topo

#endif
