#include "StockArchives.h"
#include <tessaron/util/Assertion.h>

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// The exported classes need their pointer serializers for the library's own archives too.
#define USE_WITH_STOCK_ARCHIVES(Class)                                                                                 \
    template struct boost::archive::detail::ptr_serialization_support<boost::archive::xml_oarchive, Class>;            \
    template struct boost::archive::detail::ptr_serialization_support<boost::archive::xml_iarchive, Class>;
USE_WITH_STOCK_ARCHIVES(geom::LineImpl<2>)
USE_WITH_STOCK_ARCHIVES(geom::LineImpl<3>)
USE_WITH_STOCK_ARCHIVES(geom::PolylineImpl<2>)
USE_WITH_STOCK_ARCHIVES(geom::PolylineImpl<3>)
USE_WITH_STOCK_ARCHIVES(geom::BSplineCurveImpl<2>)
USE_WITH_STOCK_ARCHIVES(geom::BSplineCurveImpl<3>)
USE_WITH_STOCK_ARCHIVES(geom::RationalBSplineCurveImpl<2>)
USE_WITH_STOCK_ARCHIVES(geom::RationalBSplineCurveImpl<3>)
USE_WITH_STOCK_ARCHIVES(geom::Arc2Impl)
USE_WITH_STOCK_ARCHIVES(geom::PlaneCurve3dImpl)

namespace
{

using exchange::CurveList;
using geom::PointNd;
using testing::HasSubstr;
using testing::Not;

typedef boost::shared_ptr<geom::ParametricCurve<2>> PlaneCurvePtr;
typedef boost::shared_ptr<geom::ParametricCurve<3>> SpaceCurvePtr;

topo::mesh::TriMeshPtr smallMesh()
{
    auto mesh = boost::make_shared<topo::mesh::TriMesh>();
    mesh->vertices = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0.5}};
    mesh->faces = {{0, 1, 2}, {2, 1, 0}};
    return mesh;
}

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
    input.boundaries.pPartMesh = smallMesh();
    input.boundaries.pCheckMesh = input.boundaries.pPartMesh;
    input.boundaries.containmentBoundaries.partBoundaries = {nullptr};
    input.parameters.set("Stepover", 0.5);
    input.preDrilledHoles.holes = {{{1, 2}, 3, true}};
    input.holderProfile = {{0, 0}, {5, 6}};
    input.operId = "Op 7";
    return input;
}

TEST(Curves, GoIntoArchivesUnderTheirKeysAndComeBackWhole)
{
    const std::vector<PointNd<2>> plane = {{0, 0}, {1, 2}, {3, 1}};
    const std::vector<PointNd<3>> space = {{0, 0, 1}, {1, 2, 3}, {3, 1, -1}};
    const std::vector<double> knots = {0, 0, 0, 1, 1, 1};
    const std::vector<double> weights = {1, 0.5, 2};
    const auto arc = boost::make_shared<geom::Arc2Impl>(PointNd<2>(1, 2), 3, 0.5, 2.5);
    geom::Transform transform;
    transform(1, 3) = 4;

    const auto check = [](const auto& curve, const char* key)
    {
        curve->set("Curve Id", 12);
        const std::string text = writeXml(curve);
        EXPECT_THAT(text, HasSubstr(std::string(" class_name=\"") + key + "\" tracking_level=\"1\" version=\"0\""));
        const auto back = readXml<std::decay_t<decltype(curve)>>(text);
        ASSERT_TRUE(back) << key;
        EXPECT_EQ(back->intOr("Curve Id", 0), 12) << key;
        for (const double t : {0.0, 0.3, 1.0})
            EXPECT_EQ(back->pointAt(t), curve->pointAt(t)) << key;
        // Written again it is the same text, so no field is lost.
        EXPECT_EQ(writeXml(back), text) << key;
    };
    check(PlaneCurvePtr(boost::make_shared<geom::LineImpl<2>>(plane[0], plane[1])), "GeomLineImpl2");
    check(SpaceCurvePtr(boost::make_shared<geom::LineImpl<3>>(space[0], space[1])), "GeomLineImpl3");
    check(PlaneCurvePtr(boost::make_shared<geom::PolylineImpl<2>>(plane)), "GeomPolylineImpl2");
    check(SpaceCurvePtr(boost::make_shared<geom::PolylineImpl<3>>(space)), "GeomPolylineImpl3");
    check(PlaneCurvePtr(boost::make_shared<geom::BSplineCurveImpl<2>>(plane, knots)), "GeomBSplineCurve2dImpl");
    check(SpaceCurvePtr(boost::make_shared<geom::BSplineCurveImpl<3>>(space, knots)), "GeomBSplineCurve3dImpl");
    check(PlaneCurvePtr(boost::make_shared<geom::RationalBSplineCurveImpl<2>>(plane, knots, weights)),
          "GeomRationalBSplineCurve2dImpl");
    check(SpaceCurvePtr(boost::make_shared<geom::RationalBSplineCurveImpl<3>>(space, knots, weights)),
          "GeomRationalBSplineCurve3dImpl");
    check(PlaneCurvePtr(arc), "GeomArc2Impl");
    check(SpaceCurvePtr(boost::make_shared<geom::PlaneCurve3dImpl>(arc, transform)), "GeomPlaneCurve3dImpl");
}

TEST(Curves, WriteTheirBaseFirstAndNameTheClassOnce)
{
    const auto line = boost::make_shared<geom::LineImpl<2>>(PointNd<2>(0, 1), PointNd<2>(2, 3));
    const auto other = boost::make_shared<geom::LineImpl<2>>(PointNd<2>(4, 5), PointNd<2>(6, 7));
    exchange::Tessaron2dBoundaries boundaries;
    boundaries.partBoundaries = {line, other};
    const std::string text = writeXml(boundaries);
    EXPECT_THAT(text, testing::ContainsRegex("<ParametricCurveN class_id=\"[0-9]+\" tracking_level=\"0\" version=\"1\">"
                                             "[[:space:]]*<utilParameterized class_id=\"[0-9]+\""));
    EXPECT_LT(text.find("ParametricCurveN"), text.find("<pts>"));
    EXPECT_EQ(text.find("GeomLineImpl2"), text.rfind("GeomLineImpl2"));
}

TEST(Curves, SharedOnesComeBackSharedAndEmptyPointersEmpty)
{
    const auto line = boost::make_shared<geom::LineImpl<2>>(PointNd<2>(0, 1), PointNd<2>(2, 3));
    const CurveList back = readXml<CurveList>(writeXml(CurveList{line, nullptr, line}));
    ASSERT_EQ(back.size(), 3u);
    EXPECT_TRUE(back[0]);
    EXPECT_EQ(back[0], back[2]);
    EXPECT_FALSE(back[1]);

    const SpaceCurvePtr placed[] = {boost::make_shared<geom::PlaneCurve3dImpl>(line, geom::Transform()),
                                    boost::make_shared<geom::PlaneCurve3dImpl>(nullptr, geom::Transform())};
    for (const auto& curve : placed)
    {
        const auto plane = dynamic_cast<const geom::PlaneCurve3d&>(*curve).planeCurve();
        const auto read = readXml<SpaceCurvePtr>(writeXml(curve));
        EXPECT_EQ(dynamic_cast<const geom::PlaneCurve3d&>(*read).planeCurve() != nullptr, plane != nullptr);
    }
}

TEST(Curves, WithoutDataAreReadAsTheyAre)
{
    const PlaneCurvePtr curves[] = {boost::make_shared<geom::PolylineImpl<2>>(),
                                    boost::make_shared<geom::BSplineCurveImpl<2>>(),
                                    boost::make_shared<geom::RationalBSplineCurveImpl<2>>()};
    for (const auto& curve : curves)
        EXPECT_TRUE(readXml<PlaneCurvePtr>(writeXml(curve)));
}

TEST(Curves, WithUnsoundDataAreReadButNotEvaluated)
{
    const PlaneCurvePtr spline = boost::make_shared<geom::BSplineCurveImpl<2>>(
        std::vector<PointNd<2>>(4), std::vector<double>{0, 0, 0, 0.5, 1, 1, 1});
    const std::string text = writeXml(spline);
    const std::string middle = "<item>5.00000000000000000e-01</item>";
    const struct
    {
        const char* what;
        std::string text;
    } cases[] = {
        {"a knot below the one before it", replaced(text, middle, "<item>-3</item>")},
        {"a knot above the one behind it", replaced(text, middle, "<item>3</item>")},
        {"no knots", replaced(text, "<m_knots>[\\s\\S]*</m_knots>",
                              "<m_knots><count>0</count><item_version>0</item_version></m_knots>")},
    };
    for (const auto& c : cases)
    {
        const auto back = readXml<PlaneCurvePtr>(c.text);
        ASSERT_TRUE(back) << c.what;
        int failed = 0;
        for (const double t : {-1.0, 0.0, 0.25, 0.5, 0.75, 1.0, 2.0})
            try
            {
                back->pointAt(t);
            }
            catch (const util::AssertionError&)
            {
                ++failed;
            }
        EXPECT_GT(failed, 0) << c.what;
    }
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

TEST(Curves, ACurveOfAClassWithoutAKeyIsNotWritten)
{
    class Spot : public geom::ParametricCurve<2>
    {
    public:
        double startParam() const override { return 0; }
        double endParam() const override { return 0; }

    private:
        void doEvaluate(double, PointNd<2>& point, geom::VecNd<2>*, int) const override { point = PointNd<2>(); }
    };
    const PlaneCurvePtr spot = boost::make_shared<Spot>();
    std::ostringstream stream;
    boost::archive::xml_oarchive archive(stream, boost::archive::no_header);
    try
    {
        archive << boost::serialization::make_nvp("curve", spot);
        FAIL() << "nothing was thrown";
    }
    catch (const boost::archive::archive_exception& error)
    {
        EXPECT_THAT(error.what(), HasSubstr("derived class not registered or exported"));
    }
}

} // namespace
