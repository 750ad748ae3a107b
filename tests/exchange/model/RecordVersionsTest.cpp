#include "SampleRecords.h"

#include <gmock/gmock.h>

namespace testing_support
{
namespace
{

using geom::PointNd;
using testing::HasSubstr;

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

/// Checks that a T whose element has a class version above the current one is refused.
template <class T>
void expectNewerRefused(const T& record, const char* element, unsigned int current, const char* name)
{
    const std::string text = writeXml(record);
    EXPECT_EQ(refusal<T>(atVersion(text, element, current)), "") << name;
    for (const unsigned int version : {current + 1, 99u})
        EXPECT_EQ(refusal<T>(atVersion(text, element, version)), std::string("class version ") + name);
}

TEST(ClassVersions, AboveTheCurrentOnesAreRefused)
{
    using namespace exchange;
    const auto input2d = full2dInput();
    const auto input3d = full3dInput();
    Tessaron5xInput input5x;
    input5x.boundaries.flankConstraintChains = {{{{0, 0, 0}, {1, 0, 0}, {0, 0, 1}}}};
    const auto line = boost::make_shared<geom::LineImpl<2>>();
    const PlaneCurvePtr arc = boost::make_shared<geom::Arc2Impl>();
    const SpaceCurvePtr placed = boost::make_shared<geom::PlaneCurve3dImpl>(line, geom::Transform());

    expectNewerRefused(input2d, "root", 2, "exchange::Tessaron2dInput");
    expectNewerRefused(input2d, "boundaries", 0, "exchange::Tessaron2dBoundaries");
    expectNewerRefused(input2d, "preDrilledHoles", 0, "exchange::TessaronDrillHoles");
    expectNewerRefused(input2d, "utilParameterized", 0, "util::Parameterized");
    expectNewerRefused(input2d, "ParametricCurveN", 1, "geom::ParametricCurve<2>");
    expectNewerRefused(input2d, "second", 0, "boost::variant");
    expectNewerRefused(input2d.preDrilledHoles.holes[0], "root", 1, "exchange::TessaronDrillHole");
    expectNewerRefused(input2d.preDrilledHoles.holes[0], "center", 0, "geom::PointNd<2>");
    expectNewerRefused(input3d, "root", 3, "exchange::Tessaron3dInput");
    expectNewerRefused(input3d, "boundaries", 3, "exchange::Tessaron3dBoundaries");
    expectNewerRefused(input5x, "root", 0, "exchange::Tessaron5xInput");
    expectNewerRefused(input5x, "boundaries", 0, "exchange::Tessaron5xBoundaries");
    expectNewerRefused(FlankConstraintChain(1), "item", 0, "exchange::Tessaron5xFlankConstraint");
    expectNewerRefused(OrrimantInput(), "root", 1, "exchange::OrrimantInput");
    expectNewerRefused(arc, "px", 0, "geom::Arc2Impl");
    expectNewerRefused(PlaneCurvePtr(line), "px", 0, "geom::LineImpl<2>");
    expectNewerRefused(PlaneCurvePtr(boost::make_shared<geom::PolylineImpl<2>>()), "px", 0, "geom::PolylineImpl<2>");
    expectNewerRefused(PlaneCurvePtr(boost::make_shared<geom::BSplineCurveImpl<2>>()), "px", 0,
                       "geom::BSplineCurveImpl<2>");
    expectNewerRefused(SpaceCurvePtr(boost::make_shared<geom::RationalBSplineCurveImpl<3>>()), "px", 0,
                       "geom::RationalBSplineCurveImpl<3>");
    expectNewerRefused(placed, "px", 0, "geom::PlaneCurve3dImpl");
    expectNewerRefused(placed, "trf", 0, "geom::Transform");
    expectNewerRefused(smallMesh(), "px", 0, "topo::mesh::TriMeshFacets");
    expectNewerRefused(topo::mesh::TriMeshFacet(), "root", 0, "topo::mesh::TriMeshFacet");

    ToolpathRecords toolpath;
    expectNewerRefused(toolpath, "root", 0, "exchange::ToolpathRecords");
    const struct
    {
        ToolpathRecord record;
        const char* name;
    } kinds[] = {
        {RapidMove(), "exchange::RapidMove"},       {LinearMove(), "exchange::LinearMove"},
        {exchange::Arc<1>(), "exchange::Arc<1>"},   {exchange::Arc<0>(), "exchange::Arc<0>"},
        {FeedRate(), "exchange::FeedRate"},         {SpindleSpeed(), "exchange::SpindleSpeed"},
        {CustomRecord(), "exchange::CustomRecord"}, {ToolAxis(), "exchange::ToolAxis"},
    };
    for (const auto& kind : kinds)
    {
        toolpath.records = {kind.record};
        expectNewerRefused(toolpath, "value", 0, kind.name);
    }
    toolpath.records = {ToolAxis()};
    expectNewerRefused(toolpath, "axis", 0, "geom::VecNd<3>");
}

} // namespace
} // namespace testing_support
