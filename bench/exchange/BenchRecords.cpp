#include "BenchRecords.h"

#include <tessaron/exchange/geom/Curves.h>
#include <tessaron/util/Keys.h>

#include <boost/smart_ptr/make_shared.hpp>

#include <cmath>

namespace bench
{

exchange::ToolpathRecords makeToolpath(std::size_t recordCount)
{
    exchange::ToolpathRecords path;
    for (std::size_t i = 0; i < recordCount; ++i)
    {
        const double t = 0.001 * static_cast<double>(i);
        const geom::PointNd<3> point(50 * std::cos(t) + 0.1 * t, 50 * std::sin(t), -0.01 * t);
        switch (i % 50)
        {
        case 0:
            path.records.push_back(exchange::FeedRate{1000 + t});
            break;
        case 10:
            path.records.push_back(exchange::RapidMove{point});
            break;
        case 20:
        {
            exchange::Arc<1> arc;
            arc.endPt = point;
            arc.radius = 50 + t;
            path.records.push_back(arc);
            break;
        }
        case 30:
            path.records.push_back(exchange::CustomRecord{"M8 coolant on"});
            break;
        default:
            path.records.push_back(exchange::LinearMove{point});
        }
    }
    return path;
}

topo::mesh::TriMeshPtr makeMesh(int columns, int rows)
{
    auto mesh = boost::make_shared<topo::mesh::TriMesh>();
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            mesh->vertices.emplace_back(0.1 * column, 0.1 * row, std::sin(0.01 * column) * std::cos(0.01 * row));
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
        {
            const int here = row * columns + column;
            const int right = row * columns + (column + 1) % columns;
            const int below = (here + columns) % (columns * rows);
            mesh->faces.emplace_back(here, right, below);
            mesh->faces.emplace_back(below, right, here);
        }
    return mesh;
}

exchange::Tessaron2dInput makeInput(int seed)
{
    const double size = 20 + 0.37 * seed;
    exchange::Tessaron2dInput input;
    std::vector<geom::PointNd<2>> corners = {{0, 0}, {size, 0}, {size, size / 3}, {0, size / 3}, {0, 0}};
    input.boundaries.partBoundaries.push_back(boost::make_shared<geom::PolylineImpl<2>>(corners));
    input.boundaries.materialBoundaries.push_back(
        boost::make_shared<geom::Arc2Impl>(geom::PointNd<2>(size / 2, size / 6), size, 0.1, 6.2));
    input.parameters.set(util::keys::toolDiameter, 12.0);
    input.parameters.set(util::keys::toolNumber, seed);
    input.parameters.set(util::keys::toolCornerRadius, size / 100);
    input.parameters.set(util::keys::toolLength, 63.5);
    input.parameters.set("Type", std::string("pocket"));
    exchange::TessaronDrillHole hole;
    hole.center = {size / 4, size / 7};
    hole.usableDepth = 15;
    input.preDrilledHoles.holes.push_back(hole);
    input.holderProfile = {{0, 0}, {20, 0}, {20.25, 60}};
    return input;
}

} // namespace bench
