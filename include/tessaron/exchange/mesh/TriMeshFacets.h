#ifndef TESSARON_EXCHANGE_MESH_TRIMESHFACETS_H
#define TESSARON_EXCHANGE_MESH_TRIMESHFACETS_H

// Stability: stable.

#include <tessaron/exchange/geom/PointNd.h>

#include <boost/shared_ptr.hpp>

#include <deque>

namespace topo
{
namespace mesh
{

/// A triangle of a mesh. A plain value of three integers.
class TriMeshFacet
{
public:
    constexpr TriMeshFacet() : idx{0, 0, 0} {}
    constexpr TriMeshFacet(int a, int b, int c) : idx{a, b, c} {}

    friend constexpr bool operator==(const TriMeshFacet& a, const TriMeshFacet& b)
    {
        return a.idx[0] == b.idx[0] && a.idx[1] == b.idx[1] && a.idx[2] == b.idx[2];
    }
    friend constexpr bool operator!=(const TriMeshFacet& a, const TriMeshFacet& b) { return !(a == b); }

    /// Reads or writes the element "idx". The library's own; hosts use <tessaron/exchange/Archives.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

    /// Positions of the corners in the mesh's vertex list, counted from 0. A reader does not check them: who uses a
    /// mesh from outside must.
    int idx[3];
};

/// An indexed triangle mesh. Meshes are held and passed on by boost::shared_ptr.
template <class Point>
class TriMeshFacets
{
public:
    std::deque<Point> vertices;
    std::deque<TriMeshFacet> faces;

    /// Reads or writes the mesh. The library's own; hosts use <tessaron/exchange/Archives.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);
};

/// The mesh of the exchange records, and the pointer they hold it by, which may be empty.
typedef TriMeshFacets<geom::PointNd<3>> TriMesh;
typedef boost::shared_ptr<TriMesh> TriMeshPtr;

} // namespace mesh
} // namespace topo

#endif
