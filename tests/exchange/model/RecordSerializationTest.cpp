#include "SampleRecords.h"

#include <gmock/gmock.h>

namespace testing_support
{
namespace
{

using geom::PointNd;
using testing::HasSubstr;
using testing::Not;

TEST(StockArchives, BinaryOnesHoldWhatXmlOnesDo)
{
    const auto check = [](const auto& record) { EXPECT_EQ(writeXml(throughBinary(record)), writeXml(record)); };
    check(full2dInput());
    check(full3dInput());
    exchange::Tessaron5xInput input5x;
    input5x.boundaries.pCheckMesh = smallMesh();
    check(input5x);
    exchange::OrrimantInput turning;
    turning.toolProfile = full2dInput().boundaries.partBoundaries;
    check(turning);
    exchange::ToolpathRecords toolpath;
    toolpath.records = {exchange::Arc<1>{{1, 2, 3}, 4.5}, exchange::CustomRecord{"M8"}};
    check(toolpath);
}

TEST(Meshes, SharedOnesComeBackShared)
{
    const auto input = full3dInput();
    const auto boundaries = readXml<exchange::Tessaron3dBoundaries>(writeXml(input.boundaries));
    ASSERT_TRUE(boundaries.pPartMesh);
    EXPECT_EQ(boundaries.pPartMesh, boundaries.pCheckMesh);
    EXPECT_FALSE(boundaries.pMaterialMesh);
    EXPECT_EQ(boundaries.pPartMesh->vertices, input.boundaries.pPartMesh->vertices);
    EXPECT_EQ(boundaries.pPartMesh->faces, input.boundaries.pPartMesh->faces);
}

TEST(Tessaron3dBoundaries, TheStockCacheIsWrittenEmptyAndIgnored)
{
    const std::string text = writeXml(full3dInput().boundaries);
    EXPECT_THAT(text, HasSubstr("<stockCache></stockCache>"));
    const auto back = readXml<exchange::Tessaron3dBoundaries>(
        replaced(text, "<stockCache></stockCache>", "<stockCache>old &amp; useless</stockCache>"));
    EXPECT_EQ(writeXml(back), text);
}

TEST(Tessaron5xInput, KeepsItsHolesToItself)
{
    exchange::Tessaron5xInput input;
    input.boundaries.pPartMesh = smallMesh();
    input.boundaries.flankConstraintChains = {{{{0, 0, 0}, {1, 0, 0}, {0, 0, 1}}, {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}},
                                              {}};
    input.preDrilledHoles.holes = {{{1, 2}, 3, true}};
    const std::string text = writeXml(input);
    EXPECT_THAT(text, Not(HasSubstr("preDrilledHoles")));
    const auto back = readXml<exchange::Tessaron5xInput>(text);
    EXPECT_TRUE(back.preDrilledHoles.holes.empty());
    ASSERT_EQ(back.boundaries.flankConstraintChains.size(), 2u);
    ASSERT_EQ(back.boundaries.flankConstraintChains[0].size(), 2u);
    EXPECT_EQ(back.boundaries.flankConstraintChains[0][1].normal, geom::VecNd<3>(0, 1, 0));
    EXPECT_EQ(writeXml(back), text);
}

TEST(ToolpathRecords, EveryKindKeepsItsTagAndFields)
{
    exchange::ToolpathRecords toolpath;
    toolpath.records = {exchange::RapidMove{{1, 2, 3}},       exchange::LinearMove{{1, 2, 3}},
                        exchange::Arc<1>{{1, 2, 3}, 4.5},     exchange::Arc<0>{{1, 2, 3}, -4.5},
                        exchange::FeedRate{1200.5},           exchange::SpindleSpeed{18000},
                        exchange::CustomRecord{"M8 <a & b>"}, exchange::ToolAxis{{0, 0, 1}}};
    const std::string text = writeXml(toolpath);
    EXPECT_THAT(text, HasSubstr("<Records "));
    EXPECT_THAT(text, HasSubstr("M8 &lt;a &amp; b&gt;"));
    const auto back = readXml<exchange::ToolpathRecords>(text);
    ASSERT_EQ(back.records.size(), 8u);
    for (int tag = 0; tag < 8; ++tag)
        EXPECT_EQ(back.records[static_cast<std::size_t>(tag)].which(), tag);
    EXPECT_EQ(boost::get<exchange::CustomRecord>(back.records[6]).string, "M8 <a & b>");
    EXPECT_EQ(boost::get<exchange::Arc<0>>(back.records[3]).radius, -4.5);
    EXPECT_EQ(writeXml(back), text);

    const std::string empty = writeXml(exchange::ToolpathRecords());
    EXPECT_THAT(empty, HasSubstr("<count>0</count>"));
    EXPECT_TRUE(readXml<exchange::ToolpathRecords>(empty).records.empty());
}

TEST(TaggedUnions, RefusePositionsThatDoNotExist)
{
    exchange::ToolpathRecords toolpath;
    toolpath.records = {exchange::FeedRate{1}};
    util::Parameterized parameters;
    parameters.set("Units", 1);
    for (const char* const which : {"8", "-1", "2147483647", "-2147483648"})
        EXPECT_EQ(refusal<exchange::ToolpathRecords>(
                      replaced(writeXml(toolpath), "<which>4", std::string("<which>") + which)),
                  "unsupported version")
            << which;
    for (const char* const which : {"3", "-1"})
        EXPECT_EQ(
            refusal<util::Parameterized>(replaced(writeXml(parameters), "<which>0", std::string("<which>") + which)),
            "unsupported version")
            << which;
}

TEST(Parameterized, WritesTheKindAsThePosition)
{
    util::Parameterized parameters;
    parameters.set("a", -7);
    parameters.set("b", 0.5);
    parameters.set("c", "text");
    const std::string text = writeXml(parameters);
    for (const char* const part : {"<params ", "<first>a</first>", "<which>0</which>", "<value>-7</value>",
                                   "<which>1</which>", "<which>2</which>", "<value>text</value>"})
        EXPECT_THAT(text, HasSubstr(part));
    EXPECT_EQ(readXml<util::Parameterized>(text), parameters);

    util::Parameterized filled;
    filled.set("left over", 1);
    readXml(text, filled);
    EXPECT_EQ(filled, parameters) << "reading replaces what was there";
}

TEST(FixedArrays, TakeFewerValuesAndRefuseMore)
{
    const std::string text = writeXml(PointNd<3>(1, 2, 3));
    PointNd<3> point(7, 8, 9);
    readXml(replaced(replaced(text, "<count>3", "<count>2"), "\\s*<item>[^<]*</item>(\\s*</coord>)", "$1"), point);
    EXPECT_EQ(point, PointNd<3>(1, 2, 9));

    const std::string tooMany = "array size too short";
    EXPECT_EQ(refusal<PointNd<3>>(replaced(text, "<count>3", "<count>4")), tooMany);
    EXPECT_EQ(refusal<PointNd<2>>(text), tooMany);
    EXPECT_EQ(refusal<geom::VecNd<3>>(replaced(text, "<count>3", "<count>4")), tooMany);
    EXPECT_EQ(refusal<topo::mesh::TriMeshFacet>(replaced(writeXml(topo::mesh::TriMeshFacet()), "<count>3", "<count>4")),
              tooMany);
    EXPECT_EQ(refusal<PlaneCurvePtr>(replaced(writeXml(PlaneCurvePtr(boost::make_shared<geom::LineImpl<2>>())),
                                              "(<pts>\\s*<count>)2", "$013")),
              tooMany);
}

TEST(Transform, IsSixteenItemsRowByRow)
{
    geom::Transform transform;
    for (int i = 0; i < 16; ++i)
        transform(i / 4, i % 4) = i;
    const std::string text = writeXml(transform);
    EXPECT_THAT(text, Not(HasSubstr("count")));
    EXPECT_LT(text.find("<item>1.00"), text.find("<item>4.00"));
    EXPECT_EQ(readXml<geom::Transform>(text), transform);
}

} // namespace
} // namespace testing_support
