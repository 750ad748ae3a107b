#include "SampleRecords.h"

#include <tessaron/util/Assertion.h>

#include <gmock/gmock.h>

namespace testing_support
{
namespace
{

using exchange::CurveList;
using geom::PointNd;
using testing::HasSubstr;

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
        EXPECT_EQ(writeXml(throughBinary(curve)), text) << key;
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
    const PlaneCurvePtr rational = boost::make_shared<geom::RationalBSplineCurveImpl<2>>(
        std::vector<PointNd<2>>(2), std::vector<double>{0, 0, 1, 1}, std::vector<double>{1, 2});
    const std::string middle = "<item>5.00000000000000000e-01</item>";
    const struct
    {
        const char* what;
        std::string text;
        bool nowhere; ///< not even where the data are sound
    } cases[] = {
        {"a knot below the one before it", replaced(text, middle, "<item>-3</item>"), false},
        {"a knot above the one behind it", replaced(text, middle, "<item>3</item>"), false},
        {"no knots",
         replaced(text, "<m_knots>[\\s\\S]*</m_knots>",
                  "<m_knots><count>0</count><item_version>0</item_version></m_knots>"),
         true},
        {"fewer weights than points",
         replaced(writeXml(rational), "(<m_weights>\\s*<count>)2([\\s\\S]*?</item>)\\s*<item>[^<]*</item>", "$011$2"),
         true},
    };
    for (const auto& c : cases)
    {
        const auto back = readXml<PlaneCurvePtr>(c.text);
        ASSERT_TRUE(back) << c.what;
        int failed = 0;
        const double parameters[] = {-1.0, 0.0, 0.25, 0.5, 0.75, 1.0, 2.0};
        for (const double t : parameters)
            try
            {
                back->pointAt(t);
            }
            catch (const util::AssertionError&)
            {
                ++failed;
            }
        EXPECT_GE(failed, c.nowhere ? static_cast<int>(std::size(parameters)) : 1) << c.what;
    }
}

} // namespace
} // namespace testing_support
