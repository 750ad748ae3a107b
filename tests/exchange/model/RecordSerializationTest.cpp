#include "exchange/OrrimantInputSerialization.h"
#include "exchange/Tessaron3dInputSerialization.h"
#include "exchange/Tessaron5xInputSerialization.h"
#include "exchange/ToolpathRecordsSerialization.h"

#include <boost/archive/xml_iarchive.hpp>
#include <boost/archive/xml_oarchive.hpp>
#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <sstream>

// The serialization routines through the archive library's own classes, so that a fault in them is told apart from one
// in the project's archive classes.

// The exported classes need their pointer serializers for these archives too.
template struct boost::archive::detail::ptr_serialization_support<boost::archive::xml_oarchive, geom::LineImpl<2>>;
template struct boost::archive::detail::ptr_serialization_support<boost::archive::xml_iarchive, geom::LineImpl<2>>;

namespace
{

template <class T>
std::string write(const T& record)
{
    std::ostringstream stream;
    {
        boost::archive::xml_oarchive archive(stream);
        archive << boost::serialization::make_nvp("root", record);
    }
    return stream.str();
}

template <class T>
T read(const std::string& text)
{
    std::istringstream stream(text);
    T record;
    boost::archive::xml_iarchive archive(stream);
    archive >> boost::serialization::make_nvp("root", record);
    return record;
}

TEST(RecordSerialization, TheSameCurveTwiceComesBackShared)
{
    exchange::Tessaron2dInput input;
    const auto line = boost::make_shared<geom::LineImpl<2>>(geom::PointNd<2>(0, 1), geom::PointNd<2>(2, 3));
    line->set("Region Id", 3);
    input.boundaries.partBoundaries = {line, line, nullptr};

    const auto back = read<exchange::Tessaron2dInput>(write(input)).boundaries.partBoundaries;
    ASSERT_EQ(back.size(), 3u);
    EXPECT_EQ(back[0], back[1]);
    EXPECT_EQ(back[2], nullptr);
    EXPECT_EQ(back[0]->pointAt(1), geom::PointNd<2>(2, 3));
    EXPECT_EQ(back[0]->intOr("Region Id", 0), 3);
}

TEST(RecordSerialization, MeshesAndToolpathsRoundTrip)
{
    exchange::Tessaron3dInput input;
    input.boundaries.pPartMesh = boost::make_shared<topo::mesh::TriMesh>();
    input.boundaries.pPartMesh->vertices = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    input.boundaries.pPartMesh->faces = {{0, 1, 2}};
    input.boundaries.pCheckMesh = input.boundaries.pPartMesh;
    const auto back = read<exchange::Tessaron3dInput>(write(input));
    ASSERT_TRUE(back.boundaries.pPartMesh);
    EXPECT_EQ(back.boundaries.pPartMesh, back.boundaries.pCheckMesh);
    EXPECT_EQ(back.boundaries.pPartMesh->faces, input.boundaries.pPartMesh->faces);

    EXPECT_NO_THROW(read<exchange::Tessaron5xInput>(write(exchange::Tessaron5xInput())));
    EXPECT_NO_THROW(read<exchange::OrrimantInput>(write(exchange::OrrimantInput())));

    exchange::ToolpathRecords toolpath;
    toolpath.records.push_back(exchange::Arc<0>{{1, 2, 3}, 4});
    const auto toolpathBack = read<exchange::ToolpathRecords>(write(toolpath));
    ASSERT_EQ(toolpathBack.records.size(), 1u);
    EXPECT_EQ(boost::get<exchange::Arc<0>>(toolpathBack.records[0]).radius, 4);
}

} // namespace
