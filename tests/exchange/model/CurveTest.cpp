#include "CurveChecks.h"
#include <tessaron/exchange/geom/Curves.h>

#include <boost/make_shared.hpp>

#include <limits>
#include <vector>

namespace testing_support
{
namespace
{

using namespace geom;

TEST(Points, CompareByCoordinateAndStartAtTheOrigin)
{
    EXPECT_EQ(PointNd<3>(), PointNd<3>(0, 0, 0));
    EXPECT_NE(PointNd<2>(1, 2), PointNd<2>(1, 3));
    PointNd<2> point(1, 2);
    point[1] = 5;
    EXPECT_EQ(point, PointNd<2>(1, 5));
    EXPECT_EQ(sizeof(PointNd<3>), 3 * sizeof(double));
}

TEST(Transform, IsTheIdentityAtFirst)
{
    Transform transform;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(transform(row, column), row == column ? 1 : 0);
    transform(2, 3) = 7;
    EXPECT_NE(transform, Transform());
}

TEST(Line, RunsFromStartToEndOverZeroToOne)
{
    const LineImpl<3> line(PointNd<3>(0.1, -2, 1e6), PointNd<3>(0.3, 4, 1e-6));
    EXPECT_EQ(line.startParam(), 0);
    EXPECT_EQ(line.endParam(), 1);
    EXPECT_EQ(line.pointAt(0), line.startPoint());
    EXPECT_EQ(line.pointAt(1), line.endPoint());

    const auto middle = evaluate(line, 0.25);
    EXPECT_NEAR(middle.point[1], -0.5, 1e-15);
    EXPECT_NEAR(middle.derivs[0][1], 6, 1e-15);
    EXPECT_EQ(middle.derivs[1], VecNd<3>());
    EXPECT_NEAR(line.pointAt(2)[1], 10, 1e-14) << "the line goes on behind its end";
}

TEST(Polyline, PassesItsVerticesAtWholeParameters)
{
    const std::vector<PointNd<2>> points = {{0, 0}, {10, 0}, {10, 5}, {-1, 5}};
    const PolylineImpl<2> polyline(points);
    EXPECT_EQ(polyline.startParam(), 0);
    EXPECT_EQ(polyline.endParam(), 3);
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_EQ(polyline.pointAt(static_cast<double>(i)), points[i]);

    const struct
    {
        double t;
        PointNd<2> point;
        VecNd<2> derivative;
    } cases[] = {
        {0.5, {5, 0}, {10, 0}},     {1, {10, 0}, {0, 5}}, // at a corner the later segment counts
        {1.25, {10, 1.25}, {0, 5}}, {3, {-1, 5}, {-11, 0}}, {-1, {-10, 0}, {10, 0}}, {4, {-12, 5}, {-11, 0}},
    };
    for (const auto& c : cases)
    {
        const auto value = evaluate(polyline, c.t);
        EXPECT_EQ(value.point, c.point) << c.t;
        EXPECT_EQ(value.derivs[0], c.derivative) << c.t;
        EXPECT_EQ(value.derivs[1], VecNd<2>()) << c.t;
    }
}

TEST(Polyline, NeedsTwoPoints)
{
    const char* const text = "Expression 'm_pts.size() >= 2' failed in 'GeomImpl\\CurveImpl";
    EXPECT_THAT(assertionOf([] { PolylineImpl<2>(std::vector<PointNd<2>>()); }), testing::StartsWith(text));
    EXPECT_THAT(assertionOf([] { PolylineImpl<3>({PointNd<3>()}); }), testing::StartsWith(text));
    EXPECT_EQ(assertionOf([] { PolylineImpl<2>({PointNd<2>(), PointNd<2>()}); }), "");
    // As an archive may leave it.
    EXPECT_THAT(assertionOf([] { PolylineImpl<2>().pointAt(0); }), testing::StartsWith(text));
    EXPECT_THAT(assertionOf([] { PolylineImpl<2>().startParam(); }), testing::StartsWith(text));
    EXPECT_THAT(assertionOf([] { PolylineImpl<2>().endParam(); }), testing::StartsWith(text));
}

TEST(Evaluation, TakesZeroToTwoDerivativesOnly)
{
    const LineImpl<2> line(PointNd<2>(0, 0), PointNd<2>(1, 1));
    PointNd<2> point;
    VecNd<2> derivs[4];
    for (int nderivs = 0; nderivs <= 2; ++nderivs)
        EXPECT_EQ(assertionOf([&] { line.evaluate(0.5, point, derivs, nderivs); }), "") << nderivs;
    for (const int nderivs : {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        EXPECT_THAT(assertionOf([&] { line.evaluate(0.5, point, derivs, nderivs); }),
                    testing::StartsWith("Expression 'nderivs >= 0 && nderivs <= 2' failed in 'GeomImpl\\CurveImpl"))
            << nderivs;
    // The request is checked before the curve's own data.
    EXPECT_THAT(assertionOf([&] { PolylineImpl<2>().evaluate(0, point, derivs, 3); }), testing::HasSubstr("nderivs"));
}

TEST(Evaluation, WritesNoMoreDerivativesThanAskedFor)
{
    const LineImpl<2> line(PointNd<2>(0, 0), PointNd<2>(1, 1));
    PointNd<2> point;
    VecNd<2> derivs[2] = {{7, 7}, {8, 8}};
    line.evaluate(0.5, point, nullptr, 0);
    line.evaluate(0.5, point, derivs, 1);
    EXPECT_EQ(derivs[0], VecNd<2>(1, 1));
    EXPECT_EQ(derivs[1], VecNd<2>(8, 8));
}

TEST(Evaluation, RefusesParametersThatAreNotFiniteAndMissingStorage)
{
    const PolylineImpl<2> polyline({PointNd<2>(0, 0), PointNd<2>(1, 1)});
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double t : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_THROW(polyline.pointAt(t), util::AssertionError) << t;
    PointNd<2> point;
    EXPECT_THROW(polyline.evaluate(0, point, nullptr, 1), util::AssertionError);
    EXPECT_NO_THROW(polyline.pointAt(1e300));
    EXPECT_NO_THROW(polyline.pointAt(-1e300));
}

TEST(PlaneCurve, IsThePlaneCurveMovedByTheTransform)
{
    // A quarter turn about the x axis (y becomes z), then a translation.
    Transform transform;
    transform(1, 1) = 0;
    transform(1, 2) = -1;
    transform(2, 1) = 1;
    transform(2, 2) = 0;
    transform(0, 3) = 10;
    transform(1, 3) = 20;
    transform(2, 3) = 30;
    const auto line = boost::make_shared<LineImpl<2>>(PointNd<2>(1, 2), PointNd<2>(4, 8));
    const PlaneCurve3dImpl curve(line, transform);
    EXPECT_EQ(curve.planeCurve(), line);
    EXPECT_EQ(curve.transform(), transform);
    EXPECT_EQ(curve.startParam(), 0);
    EXPECT_EQ(curve.endParam(), 1);

    const auto value = evaluate(curve, 0.5);
    EXPECT_EQ(value.point, PointNd<3>(12.5, 20, 35));
    EXPECT_EQ(value.derivs[0], VecNd<3>(3, 0, 6));
    EXPECT_EQ(value.derivs[1], VecNd<3>());
}

TEST(PlaneCurve, AppliesPerspective)
{
    Transform transform;
    transform(2, 0) = 0.5;
    transform(3, 0) = 0.1;
    transform(3, 1) = -0.02;
    const auto arc = boost::make_shared<Arc2Impl>(PointNd<2>(1, 2), 3, 0.5, 2.5);
    const PlaneCurve3dImpl curve(arc, transform);
    const PointNd<2> planePoint = arc->pointAt(0.3);
    const double w = 0.1 * planePoint[0] - 0.02 * planePoint[1] + 1;
    const auto value = evaluate(curve, 0.3);
    EXPECT_NEAR(value.point[0], planePoint[0] / w, 1e-14);
    EXPECT_NEAR(value.point[2], 0.5 * planePoint[0] / w, 1e-14);
    for (const double t : {0.1, 0.5, 0.9})
        expectDerivativesMatchDifferences(curve, t);

    transform = Transform();
    transform(3, 3) = 0;
    EXPECT_THROW(PlaneCurve3dImpl(arc, transform).pointAt(0), util::AssertionError) << "a point at infinity";
}

TEST(PlaneCurve, CannotBeEvaluatedWithoutAPlaneCurve)
{
    const PlaneCurve3dImpl curve;
    EXPECT_THROW(curve.pointAt(0), util::AssertionError);
    EXPECT_THROW(curve.startParam(), util::AssertionError);
    EXPECT_THROW(curve.endParam(), util::AssertionError);
}

TEST(Curves, CarryParametersAndCopyThem)
{
    LineImpl<2> line(PointNd<2>(0, 0), PointNd<2>(1, 1));
    line.set("Curve Id", 4);
    const LineImpl<2> copy(line);
    line.set("Curve Id", 5);
    EXPECT_EQ(copy.intOr("Curve Id", 0), 4);
    EXPECT_EQ(copy.endPoint(), line.endPoint());
    const util::Parameterized& parameters = line;
    EXPECT_EQ(parameters.intOr("Curve Id", 0), 5) << "a curve has one parameter set, by whichever base it is reached";
}

TEST(Curves, GiveTheirControlPointsAsOneBlock)
{
    const LineImpl<2> line(PointNd<2>(0, 1), PointNd<2>(2, 3));
    const PolylineImpl<2> polyline({PointNd<2>(4, 5), PointNd<2>(6, 7), PointNd<2>(8, 9)});
    const BSplineCurveImpl<2> spline({PointNd<2>(4, 5), PointNd<2>(6, 7)}, {0, 0, 1, 1});
    const struct
    {
        const ControlPointCurveBase<2>& curve;
        std::size_t count;
        PointNd<2> last;
    } cases[] = {{line, 2, {2, 3}}, {polyline, 3, {8, 9}}, {spline, 2, {6, 7}}};
    for (const auto& c : cases)
    {
        ASSERT_EQ(c.curve.controlPointCount(), c.count);
        EXPECT_EQ(c.curve.controlPoints()[c.count - 1], c.last);
    }
}

} // namespace
} // namespace testing_support
