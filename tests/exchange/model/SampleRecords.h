#ifndef TESTS_EXCHANGE_MODEL_SAMPLERECORDS_H
#define TESTS_EXCHANGE_MODEL_SAMPLERECORDS_H

#include "StockArchives.h"

#include <boost/make_shared.hpp>

namespace testing_support
{

typedef boost::shared_ptr<geom::ParametricCurve<2>> PlaneCurvePtr;

inline topo::mesh::TriMeshPtr smallMesh()
{
    auto mesh = boost::make_shared<topo::mesh::TriMesh>();
    mesh->vertices = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0.5}};
    mesh->faces = {{0, 1, 2}, {2, 1, 0}};
    return mesh;
}

inline exchange::Tessaron2dInput full2dInput()
{
    exchange::Tessaron2dInput input;
    input.boundaries.partBoundaries = {
        boost::make_shared<geom::LineImpl<2>>(geom::PointNd<2>(0, 1), geom::PointNd<2>(2, 3))};
    input.parameters.set("Stepover", 0.5);
    input.preDrilledHoles.holes = {{{1, 2}, 3, true}};
    input.holderProfile = {{0, 0}, {5, 6}};
    return input;
}

inline exchange::Tessaron3dInput full3dInput()
{
    exchange::Tessaron3dInput input;
    input.boundaries.pPartMesh = smallMesh();
    input.boundaries.pCheckMesh = input.boundaries.pPartMesh;
    input.boundaries.containmentBoundaries.partBoundaries = {nullptr};
    input.parameters.set("Stepover", 0.5);
    input.preDrilledHoles.holes = {{{1, 2}, 3, true}};
    input.holderProfile = {{0, 0}, {5, 6}};
    input.operId = "Op 7";
    return input;
}

} // namespace testing_support

#endif
