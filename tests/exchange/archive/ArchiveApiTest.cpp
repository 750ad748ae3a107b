// The calls of exchange/Archives.h: what they promise about records.

#include "ArchiveText.h"

#include <tessaron/exchange/geom/Curves.h>

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

#include <cmath>
#include <limits>
#include <string_view>

namespace testing_support
{
namespace
{

using boost::archive::archive_exception;
using exchange::ArchiveFormat;

const std::string& errorText(const archive_exception& error)
{
    static std::string text;
    return text = error.what();
}

TEST(ArchiveApi, FailedReadLeavesTheRecordAsItWas)
{
    auto record = readFrom<exchange::Tessaron3dInput>(golden("t3dinput.xml"));
    const std::string before = written(record, ArchiveFormat::xml);
    for (const char* file : {"t3dinput.xml", "t3dinput.bin"})
    {
        const std::string whole = golden(file);
        std::istringstream stream(whole.substr(0, whole.size() * 9 / 10));
        EXPECT_THROW(exchange::readArchive(stream, record), archive_exception);
        EXPECT_EQ(written(record, ArchiveFormat::xml), before);
    }
}

TEST(ArchiveApi, ReadReplacesEverythingThatTheRecordHeld)
{
    auto record = readFrom<exchange::Tessaron2dInput>(golden("t2dinput.xml"));
    std::istringstream stream(golden("t2dinput_oneline.xml"));
    exchange::readArchive(stream, record);
    EXPECT_EQ(written(record, ArchiveFormat::xml), golden("t2dinput_oneline.xml"));
}

TEST(ArchiveApi, MemoryIsReadToItsEndAndNotBeyond)
{
    for (const char* file : {"t3dinput.xml", "t3dinput.bin"})
    {
        const std::string whole = golden(file);
        exchange::Tessaron3dInput record;
        exchange::readArchive(std::string_view(whole), record);
        const ArchiveFormat format =
            std::string_view(file).ends_with(".xml") ? ArchiveFormat::xml : ArchiveFormat::binary;
        EXPECT_EQ(written(record, format), whole);
        EXPECT_THROW(exchange::readArchive(std::string_view(whole).substr(0, whole.size() / 2), record),
                     archive_exception);
    }
    exchange::Tessaron3dInput record;
    EXPECT_THROW(exchange::readArchive(std::string_view(), record), archive_exception);
}

TEST(ArchiveApi, SharedObjectsComeBackShared)
{
    exchange::Tessaron3dInput input;
    const auto mesh = boost::make_shared<topo::mesh::TriMesh>();
    mesh->vertices.emplace_back(1, 2, 3);
    input.boundaries.pPartMesh = mesh;
    input.boundaries.pCheckMesh = mesh;
    const auto line = boost::make_shared<geom::LineImpl<2>>(geom::PointNd<2>(0, 0), geom::PointNd<2>(1, 1));
    input.boundaries.materialBoundaries = {line, nullptr, line};
    input.boundaries.containmentBoundaries.partBoundaries = {line};
    for (const ArchiveFormat format : {ArchiveFormat::xml, ArchiveFormat::binary})
    {
        const auto read = readFrom<exchange::Tessaron3dInput>(written(input, format)).boundaries;
        ASSERT_TRUE(read.pPartMesh);
        EXPECT_EQ(read.pPartMesh, read.pCheckMesh);
        EXPECT_FALSE(read.pMaterialMesh);
        ASSERT_TRUE(read.materialBoundaries[0]);
        EXPECT_FALSE(read.materialBoundaries[1]);
        EXPECT_EQ(read.materialBoundaries[0], read.materialBoundaries[2]);
        EXPECT_EQ(read.materialBoundaries[0], read.containmentBoundaries.partBoundaries[0]);
        EXPECT_EQ(read.pPartMesh.use_count(), 2);
    }
}

TEST(ArchiveApi, CurveOfAForeignClassIsRefused)
{
    class Foreign : public geom::LineImpl<2>
    {
    };
    const boost::shared_ptr<geom::ParametricCurve<2>> curve = boost::make_shared<Foreign>();
    try
    {
        written(curve, ArchiveFormat::xml);
        FAIL();
    }
    catch (const archive_exception& error)
    {
        EXPECT_EQ(error.code, archive_exception::unregistered_class);
        EXPECT_NE(errorText(error).find("derived class not registered or exported"), std::string::npos);
    }
}

TEST(ArchiveApi, ParameterSetListsHaveTheLayoutOfAVector)
{
    exchange::ParameterizedList list(2);
    list[1].set("Type", std::string("pocket"));
    const std::string xml = written(list, ArchiveFormat::xml);
    EXPECT_NE(xml.find("<ParameterizedList class_id=\"0\" tracking_level=\"0\" version=\"0\">\n"
                       "\t<count>2</count>\n\t<item_version>0</item_version>\n"
                       "\t<item class_id=\"1\" tracking_level=\"0\" version=\"0\">\n"
                       "\t\t<params class_id=\"2\" tracking_level=\"0\" version=\"0\">\n"),
              std::string::npos)
        << xml;
    for (const ArchiveFormat format : {ArchiveFormat::xml, ArchiveFormat::binary})
        EXPECT_EQ(readFrom<exchange::ParameterizedList>(written(list, format)), list);
}

TEST(ArchiveApi, TrackedMeshByValueHasAnObjectId)
{
    topo::mesh::TriMesh mesh;
    mesh.vertices.emplace_back(1, 2, 3);
    mesh.faces.emplace_back(0, 0, 0);
    const std::string xml = written(mesh, ArchiveFormat::xml);
    EXPECT_NE(xml.find("<TriMeshFacets class_id=\"0\" tracking_level=\"1\" version=\"0\" object_id=\"_0\">"),
              std::string::npos);
    EXPECT_EQ(written(readFrom<topo::mesh::TriMesh>(xml), ArchiveFormat::xml), xml);
}

TEST(ArchiveApi, NonFiniteNumbersTravelInBinaryOnly)
{
    const double inf = std::numeric_limits<double>::infinity();
    const geom::PointNd<3> point(std::numeric_limits<double>::quiet_NaN(), inf, -inf);
    const std::string xml = written(point, ArchiveFormat::xml);
    EXPECT_NE(xml.find("<item>nan</item>\n\t\t<item>inf</item>\n\t\t<item>-inf</item>"), std::string::npos);
    EXPECT_EQ(readError(anyRecord<geom::PointNd<3>>, xml), "input stream error");
    const auto read = readFrom<geom::PointNd<3>>(written(point, ArchiveFormat::binary));
    EXPECT_TRUE(std::isnan(read[0]));
    EXPECT_EQ(read[1], inf);
    EXPECT_EQ(read[2], -inf);
}

} // namespace
} // namespace testing_support
