// Which record goes into which archive: each comes back from every kind of archive that holds it, those of the archive
// library that a host may use included, and no other compiles.

#include "AnyRecord.h"

#include "tests/exchange/model/StockArchives.h"
#include <tessaron/exchange/PolymorphicArchives.h>
#include <tessaron/exchange/geom/Curves.h>

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

#include <sstream>
#include <utility>
#include <vector>

namespace testing_support
{
namespace
{

using exchange::ArchiveFormat;
using PlaneCurve = boost::shared_ptr<geom::ParametricCurve<2>>;
using SpaceCurve = boost::shared_ptr<geom::ParametricCurve<3>>;

template <class Record>
constexpr bool hasXml = requires(std::stringstream stream, Record record)
{
    exchange::writeArchive(stream, record);
    exchange::readArchive(stream, record);
};
template <class Record>
constexpr bool hasBinary = requires(std::stringstream stream, Record record)
{
    exchange::writeArchive(stream, record, ArchiveFormat::binary);
    exchange::writeArchiveFile("", record, ArchiveFormat::binary);
};
template <class Record>
constexpr bool hasPolymorphic = requires(std::stringstream stream, Record record)
{
    exchange::writePolymorphicArchive(stream, record);
    exchange::readPolymorphicArchive(stream, record);
};

template <class... Records>
constexpr bool inEveryArchive = ((hasXml<Records> && hasBinary<Records> && hasPolymorphic<Records>)&&...);
template <class... Records>
constexpr bool inXmlAndBinary = ((hasXml<Records> && hasBinary<Records> && !hasPolymorphic<Records>)&&...);
template <class... Records>
constexpr bool inXmlOnly = ((hasXml<Records> && !hasBinary<Records> && !hasPolymorphic<Records>)&&...);
template <class... Records>
constexpr bool inNone = ((!hasXml<Records> && !hasBinary<Records> && !hasPolymorphic<Records>)&&...);

static_assert(
    inEveryArchive<geom::PointNd<2>, geom::PointNd<3>, geom::Transform, util::Parameterized, PlaneCurve, SpaceCurve>);
static_assert(
    inXmlAndBinary<geom::VecNd<3>, exchange::CurveList, exchange::ParameterizedList, topo::mesh::TriMeshFacet,
                   topo::mesh::TriMesh, topo::mesh::TriMeshPtr, exchange::TessaronDrillHole,
                   exchange::TessaronDrillHoles, exchange::Tessaron2dBoundaries, exchange::Tessaron2dInput,
                   exchange::Tessaron3dBoundaries, exchange::Tessaron3dInput, exchange::Tessaron5xFlankConstraint,
                   exchange::Tessaron5xBoundaries, exchange::Tessaron5xInput>);
static_assert(inXmlOnly<exchange::OrrimantInput, exchange::ToolpathRecords, exchange::RapidMove, exchange::LinearMove,
                        exchange::Arc<1>, exchange::Arc<0>, exchange::FeedRate, exchange::SpindleSpeed,
                        exchange::CustomRecord, exchange::ToolAxis>);
static_assert(inNone<double, std::string, geom::VecNd<2>, geom::LineImpl<2>, exchange::ToolpathRecord>);

template <class Record>
std::string xmlOf(const Record& record)
{
    std::ostringstream stream;
    exchange::writeArchive(stream, record);
    return stream.str();
}

/// Checks that a record has these elements, in this order, and comes back from all its archives.
template <class Record>
void check(const Record& record, const std::vector<const char*>& elements)
{
    const std::string xml = xmlOf(record);
    std::size_t at = 0;
    for (const std::string element : elements)
    {
        at = xml.find("<" + element, at);
        ASSERT_NE(at, std::string::npos) << element << " is not in its place in\n" << xml;
        const char behind = xml[at + 1 + element.size()];
        EXPECT_TRUE(behind == ' ' || behind == '>') << element;
    }

    const auto comesBack = [&xml](std::stringstream& stream, auto read)
    {
        Record fresh{};
        read(stream, fresh);
        EXPECT_EQ(xmlOf(fresh), xml);
    };
    const auto read = [](auto& stream, Record& fresh) { exchange::readArchive(stream, fresh); };
    std::stringstream text(xml);
    comesBack(text, read);
    EXPECT_EQ(xmlOf(readXml<Record>(writeXml(record))), xml);
    EXPECT_EQ(xmlOf(throughBinary(record)), xml);
    if constexpr (hasBinary<Record>)
    {
        std::stringstream stream;
        exchange::writeArchive(stream, record, ArchiveFormat::binary);
        comesBack(stream, read);
    }
    if constexpr (hasPolymorphic<Record>)
        for (const ArchiveFormat format : {ArchiveFormat::xml, ArchiveFormat::binary})
        {
            std::stringstream stream;
            exchange::writePolymorphicArchive(stream, record, format);
            if (format == ArchiveFormat::xml)
            {
                EXPECT_EQ(stream.str(), xml);
            }
            comesBack(stream, [](auto& from, Record& fresh) { exchange::readPolymorphicArchive(from, fresh); });
        }
}

TEST(RecordKinds, PartsOfRecordsComeBackByThemselves)
{
    check(geom::PointNd<2>(0.1, -2), {"PointNd", "coord"});
    check(geom::VecNd<3>(0.1, -2, 1e22), {"VecNd", "coord"});
    check(topo::mesh::TriMeshFacet(3, 1, 2), {"TriMeshFacet", "idx"});
    check(exchange::TessaronDrillHole{{1, 2}, 3, true}, {"TessaronDrillHole", "center", "usableDepth", "through"});
    const PlaneCurve line = boost::make_shared<geom::LineImpl<2>>(geom::PointNd<2>(0, 1), geom::PointNd<2>(2, 3));
    check(exchange::Tessaron2dBoundaries{{line, nullptr}, {line}},
          {"Tessaron2dBoundaries", "partBoundaries", "materialBoundaries"});

    exchange::Tessaron5xBoundaries boundaries;
    boundaries.containmentBoundaries.partBoundaries = {line};
    boundaries.flankConstraintChains = {{{{1, 2, 3}, {4, 5, 6}, {0, 0, 1}}, {{4, 5, 6}, {7, 8, 9}, {0, 1, 0}}}, {}};
    check(boundaries.flankConstraintChains[0][0], {"Tessaron5xFlankConstraint", "startPt", "endPt", "normal"});
    check(boundaries, {"Tessaron5xBoundaries", "pPartMesh", "pMaterialMesh", "pCheckMesh", "containmentBoundaries",
                       "flankConstraintChains", "startPt", "endPt", "normal"});
}

TEST(RecordKinds, ToolpathRecordsComeBackByThemselves)
{
    const geom::PointNd<3> point(1, 1.0 / 3, -5);
    check(exchange::RapidMove{point}, {"RapidMove", "endPt"});
    check(exchange::LinearMove{point}, {"LinearMove", "endPt"});
    check(exchange::Arc<1>{point, 2.5}, {"Arc", "endPt", "radius"});
    check(exchange::Arc<0>{point, -2.5}, {"Arc", "endPt", "radius"});
    check(exchange::FeedRate{1200.5}, {"FeedRate", "feedrate"});
    check(exchange::SpindleSpeed{18000}, {"SpindleSpeed", "speed"});
    check(exchange::CustomRecord{"M8 <on>"}, {"CustomRecord", "string"});
    check(exchange::ToolAxis{{0, 0.6, 0.8}}, {"ToolAxis", "axis"});
}

template <class Record>
void checkGolden(const std::string& file)
{
    SCOPED_TRACE(file);
    std::istringstream stream(fileBytes(TESSARON_TEST_DATA "/golden/" + file));
    Record record{};
    exchange::readArchive(stream, record);
    check(record, {});
}

TEST(RecordKinds, WholeRecordsComeBackFromEveryArchive)
{
    checkGolden<exchange::Tessaron2dInput>("t2dinput.xml");
    checkGolden<exchange::Tessaron3dInput>("t3dinput.xml");
    checkGolden<exchange::Tessaron5xInput>("t5xinput.xml");
    checkGolden<exchange::OrrimantInput>("orrimant.xml");
    checkGolden<exchange::ToolpathRecords>("toolpath.xml");
    checkGolden<exchange::CurveList>("curvelist_shared.xml");
    checkGolden<topo::mesh::TriMeshPtr>("mesh.xml");
    checkGolden<util::Parameterized>("parameterized_full.xml");
}

TEST(RecordKinds, EveryCurveComesBackFromEveryArchive)
{
    const std::vector<geom::PointNd<2>> plane = {{0, 0}, {1, 2}, {3, 1}};
    const std::vector<geom::PointNd<3>> space = {{0, 0, 1}, {1, 2, 3}, {3, 1, -1}};
    const std::vector<double> knots = {0, 0, 0, 1, 1, 1};
    const std::vector<double> weights = {1, 0.5, 2};
    const auto arc = boost::make_shared<geom::Arc2Impl>(plane[1], 3, 0.5, 2.5);
    const std::vector<const char*> points = {"ParametricCurveN", "utilParameterized", "params", "pts"};
    const std::vector<const char*> spline = {"ParametricCurveN", "m_cpts", "m_knots"};
    const std::vector<const char*> rational = {"ParametricCurveN", "m_cpts", "m_knots", "m_weights"};
    const std::vector<const char*> placed = {"ParametricCurveN", "pPlaneCurve", "trf", "item"};
    const auto checkCurve = [](const auto& curve, const std::string& key, std::vector<const char*> elements)
    {
        SCOPED_TRACE(key);
        curve->set("Curve Id", 12);
        const std::string pointer = "px class_id=\"1\" class_name=\"" + key + "\" tracking_level=\"1\" version=\"0\"";
        elements.insert(elements.begin(), {"curve", pointer.c_str()});
        check(curve, elements);
    };
    const auto inPlane = [&](const PlaneCurve& curve, const char* key, const auto& elements)
    { checkCurve(curve, key, elements); };
    const auto inSpace = [&](const SpaceCurve& curve, const char* key, const auto& elements)
    { checkCurve(curve, key, elements); };
    inPlane(boost::make_shared<geom::LineImpl<2>>(plane[0], plane[1]), "GeomLineImpl2", points);
    inPlane(boost::make_shared<geom::PolylineImpl<2>>(plane), "GeomPolylineImpl2", points);
    inPlane(boost::make_shared<geom::PolylineImpl<2>>(), "GeomPolylineImpl2", points);
    inPlane(boost::make_shared<geom::BSplineCurveImpl<2>>(plane, knots), "GeomBSplineCurve2dImpl", spline);
    inPlane(boost::make_shared<geom::BSplineCurveImpl<2>>(), "GeomBSplineCurve2dImpl", spline);
    inPlane(boost::make_shared<geom::RationalBSplineCurveImpl<2>>(plane, knots, weights),
            "GeomRationalBSplineCurve2dImpl", rational);
    inPlane(arc, "GeomArc2Impl", std::vector{"ParametricCurveN", "center", "radius", "angleRange", "first", "second"});
    inSpace(boost::make_shared<geom::LineImpl<3>>(space[0], space[1]), "GeomLineImpl3", points);
    inSpace(boost::make_shared<geom::PolylineImpl<3>>(space), "GeomPolylineImpl3", points);
    inSpace(boost::make_shared<geom::BSplineCurveImpl<3>>(space, knots), "GeomBSplineCurve3dImpl", spline);
    inSpace(boost::make_shared<geom::RationalBSplineCurveImpl<3>>(space, knots, weights),
            "GeomRationalBSplineCurve3dImpl", rational);
    inSpace(boost::make_shared<geom::RationalBSplineCurveImpl<3>>(), "GeomRationalBSplineCurve3dImpl", rational);
    inSpace(boost::make_shared<geom::PlaneCurve3dImpl>(arc, geom::Transform()), "GeomPlaneCurve3dImpl", placed);
    inSpace(boost::make_shared<geom::PlaneCurve3dImpl>(nullptr, geom::Transform()), "GeomPlaneCurve3dImpl", placed);
    check(PlaneCurve(), {"curve", "px class_id=\"-1\""});
}

} // namespace
} // namespace testing_support
