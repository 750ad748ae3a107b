#include "SampleRecords.h"

#include <gmock/gmock.h>

namespace testing_support
{
namespace
{

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

} // namespace
} // namespace testing_support
