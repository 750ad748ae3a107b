#include "StockArchives.h"

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>

namespace testing_support
{
namespace
{

using geom::PointNd;
using testing::HasSubstr;
using PlaneCurvePtr = boost::shared_ptr<geom::ParametricCurve<2>>;

exchange::Tessaron2dInput full2dInput()
{
    exchange::Tessaron2dInput input;
    input.boundaries.partBoundaries = {boost::make_shared<geom::LineImpl<2>>(PointNd<2>(0, 1), PointNd<2>(2, 3))};
    input.parameters.set("Stepover", 0.5);
    input.preDrilledHoles.holes = {{{1, 2}, 3, true}};
    input.holderProfile = {{0, 0}, {5, 6}};
    return input;
}

exchange::Tessaron3dInput full3dInput()
{
    exchange::Tessaron3dInput input;
    input.boundaries.pPartMesh = boost::make_shared<topo::mesh::TriMesh>();
    input.boundaries.pCheckMesh = input.boundaries.pPartMesh;
    input.boundaries.containmentBoundaries.partBoundaries = {nullptr};
    input.parameters.set("Stepover", 0.5);
    input.preDrilledHoles.holes = {{{1, 2}, 3, true}};
    input.holderProfile = {{0, 0}, {5, 6}};
    input.operId = "Op 7";
    return input;
}

TEST(Curves, OfTheFirstVersionHaveNoParameters)
{
    PlaneCurvePtr line = boost::make_shared<geom::LineImpl<2>>(PointNd<2>(0, 1), PointNd<2>(2, 3));
    line->set("Curve Id", 12);
    const auto back =
        readXml<PlaneCurvePtr>(without(atVersion(writeXml(line), "ParametricCurveN", 0), "utilParameterized"));
    EXPECT_TRUE(back->empty());
    EXPECT_EQ(back->pointAt(1), PointNd<2>(2, 3));
}

TEST(Tessaron2dInput, OlderVersionsLackTheLaterFields)
{
    std::string text = writeXml(full2dInput());
    EXPECT_EQ(writeXml(readXml<exchange::Tessaron2dInput>(text)), text);

    text = atVersion(without(text, "holderProfile"), "root", 1);
    auto input = readXml<exchange::Tessaron2dInput>(text);
    EXPECT_EQ(input.preDrilledHoles.holes.size(), 1u);
    EXPECT_TRUE(input.holderProfile.empty());
    EXPECT_EQ(input.parameters.numberOr("Stepover", 0), 0.5);

    text = atVersion(without(text, "preDrilledHoles"), "root", 0);
    input = readXml<exchange::Tessaron2dInput>(text);
    EXPECT_TRUE(input.preDrilledHoles.holes.empty());
    EXPECT_TRUE(input.holderProfile.empty());
    EXPECT_EQ(input.boundaries.partBoundaries.size(), 1u);
}

TEST(Tessaron3dInput, OlderVersionsLackTheLaterFields)
{
    std::string text = writeXml(full3dInput());
    EXPECT_EQ(writeXml(readXml<exchange::Tessaron3dInput>(text)), text);
    const struct
    {
        unsigned int version;
        const char* removed;
        std::size_t holes, profile;
    } cases[] = {{2, "operId", 1, 2}, {1, "holderProfile", 1, 0}, {0, "preDrilledHoles", 0, 0}};
    for (const auto& c : cases)
    {
        text = atVersion(without(text, c.removed), "root", c.version);
        const auto input = readXml<exchange::Tessaron3dInput>(text);
        EXPECT_EQ(input.operId, "") << c.version;
        EXPECT_EQ(input.holderProfile.size(), c.profile) << c.version;
        EXPECT_EQ(input.preDrilledHoles.holes.size(), c.holes) << c.version;
        EXPECT_TRUE(input.boundaries.pPartMesh) << c.version;
    }
}

TEST(Tessaron3dBoundaries, OlderVersionsLackTheLaterFields)
{
    std::string text = writeXml(full3dInput().boundaries);
    const struct
    {
        unsigned int version;
        const char* removed;
        std::size_t containment;
        bool checkMesh;
    } cases[] = {{2, "stockCache", 1, true}, {1, "containmentBoundaries", 0, true}, {0, "pCheckMesh", 0, false}};
    for (const auto& c : cases)
    {
        text = atVersion(without(text, c.removed), "root", c.version);
        const auto boundaries = readXml<exchange::Tessaron3dBoundaries>(text);
        EXPECT_EQ(boundaries.containmentBoundaries.partBoundaries.size(), c.containment) << c.version;
        EXPECT_EQ(boundaries.pCheckMesh != nullptr, c.checkMesh) << c.version;
        EXPECT_TRUE(boundaries.pPartMesh) << c.version;
    }
}

TEST(Tessaron3dBoundaries, TheStockCacheIsWrittenEmptyAndIgnored)
{
    const std::string text = writeXml(full3dInput().boundaries);
    EXPECT_THAT(text, HasSubstr("<stockCache></stockCache>"));
    const auto back = readXml<exchange::Tessaron3dBoundaries>(
        replaced(text, "<stockCache></stockCache>", "<stockCache>old &amp; useless</stockCache>"));
    EXPECT_EQ(writeXml(back), text);
}

TEST(TessaronDrillHole, OfTheFirstVersionIsNotThrough)
{
    const exchange::TessaronDrillHole hole{{1, 2}, 3, true};
    const std::string text = writeXml(hole);
    exchange::TessaronDrillHole back;
    back.through = true;
    readXml(without(atVersion(text, "root", 0), "through"), back);
    EXPECT_FALSE(back.through);
    EXPECT_EQ(back.center, hole.center);
    EXPECT_TRUE(readXml<exchange::TessaronDrillHole>(text).through);
    EXPECT_THAT(writeXml(exchange::TessaronDrillHoles()), HasSubstr("<Holes "));
}

TEST(OrrimantInput, HasTheSameFieldsAtBothVersions)
{
    exchange::OrrimantInput input;
    const auto line = boost::make_shared<geom::LineImpl<2>>(PointNd<2>(0, 1), PointNd<2>(2, 3));
    input.boundaries.partBoundaries = {line};
    input.containmentBoundaries.materialBoundaries = {line};
    input.parameters.set("Stepover", 0.5);
    input.toolProfile = {line, line};
    input.holderProfile = {line};
    const std::string text = writeXml(input);
    for (const unsigned int version : {0u, 1u})
        EXPECT_EQ(writeXml(readXml<exchange::OrrimantInput>(atVersion(text, "root", version))), text);
}

} // namespace
} // namespace testing_support
