// Compiled as C++17: hosts that are not on C++20 yet use these headers.
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/OrrimantInput.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/Tessaron3dInput.h>
#include <tessaron/exchange/Tessaron5xInput.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/exchange/geom/Curves.h>
#include <tessaron/util/Keys.h>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <sstream>

#if __cplusplus >= 202002L
#error "this file has to be compiled as C++17"
#endif

TEST(Headers, ServeAHostOnCxx17)
{
    exchange::Tessaron2dInput input;
    input.parameters.set(util::keys::toolDiameter, 12.0);
    input.boundaries.partBoundaries.push_back(
        boost::make_shared<geom::LineImpl<2>>(geom::PointNd<2>(0, 0), geom::PointNd<2>(1, 2)));
    std::stringstream stream;
    exchange::writeArchive(stream, input);
    exchange::Tessaron2dInput back;
    exchange::readArchive(stream, back);
    EXPECT_EQ(back.parameters, input.parameters);
    ASSERT_EQ(back.boundaries.partBoundaries.size(), 1u);
    EXPECT_EQ(back.boundaries.partBoundaries[0]->pointAt(1), geom::PointNd<2>(1, 2));
}
