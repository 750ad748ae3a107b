#include "CurveChecks.h"
#include <tessaron/exchange/geom/BSplineCurveImpl.h>
#include <tessaron/exchange/geom/RationalBSplineCurveImpl.h>

#include <limits>
#include <vector>

namespace testing_support
{
namespace
{

using namespace geom;

/// Knots 0 .. interior .. 1 of a clamped curve.
std::vector<double> clampedKnots(int degree, std::vector<double> interior = {})
{
    std::vector<double> knots(static_cast<std::size_t>(degree) + 1, 0.0);
    knots.insert(knots.end(), interior.begin(), interior.end());
    knots.insert(knots.end(), static_cast<std::size_t>(degree) + 1, 1.0);
    return knots;
}

std::vector<PointNd<3>> wavyPoints(std::size_t count)
{
    std::vector<PointNd<3>> points;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double x = static_cast<double>(i);
        points.emplace_back(10 * std::sin(x), x * x - 3 * x, 5 * std::cos(2 * x));
    }
    return points;
}

TEST(BSpline, OfAnyDegreeReproducesALine)
{
    // With control points at the Greville abscissae a B-spline is the identity.
    for (const int degree : {2, 3, 5, 9, 15, 40})
    {
        const std::vector<double> knots = clampedKnots(degree, {0.1, 0.25, 0.25, 0.7});
        std::vector<PointNd<2>> points;
        for (std::size_t i = 0; i + static_cast<std::size_t>(degree) + 1 < knots.size(); ++i)
        {
            double sum = 0;
            for (std::size_t k = 1; k <= static_cast<std::size_t>(degree); ++k)
                sum += knots[i + k];
            points.emplace_back(sum / degree, 2.0);
        }
        const BSplineCurveImpl<2> curve(points, knots);
        ASSERT_EQ(curve.degree(), degree);
        for (const double t : {0.0, 0.05, 0.1, 0.25, 0.5, 0.9, 1.0, -0.25, 1.5})
        {
            const bool outside = t < 0 || t > 1;
            if (outside && degree > 9)
                continue; // continuation of high degrees magnifies rounding
            const auto value = evaluate(curve, t);
            EXPECT_NEAR(value.point[0], t, 1e-11) << "degree " << degree << ", t " << t;
            EXPECT_NEAR(value.point[1], 2, 1e-11) << "degree " << degree << ", t " << t;
            EXPECT_NEAR(value.derivs[0][0], 1, 1e-9) << "degree " << degree << ", t " << t;
            EXPECT_NEAR(value.derivs[1][0], 0, 1e-6) << "degree " << degree << ", t " << t;
        }
    }
}

TEST(BSpline, DerivativesMatchDifferences)
{
    for (const int degree : {1, 2, 3, 4, 6})
    {
        const auto knots = clampedKnots(degree, {0.2, 0.35, 0.8});
        const BSplineCurveImpl<3> curve(wavyPoints(static_cast<std::size_t>(degree) + 4), knots);
        for (const double t : {0.1, 0.3, 0.5, 0.9})
            expectDerivativesMatchDifferences(curve, t);
    }
}

TEST(BSpline, UnclampedKnotsGiveTheInnerRange)
{
    // A uniform quadratic: the range starts at knot 2 and ends at knot n.
    const BSplineCurveImpl<2> curve({{0, 0}, {2, 0}, {2, 2}, {0, 2}}, {0, 1, 2, 3, 4, 5, 6});
    EXPECT_EQ(curve.degree(), 2);
    EXPECT_EQ(curve.startParam(), 2);
    EXPECT_EQ(curve.endParam(), 4);
    EXPECT_EQ(curve.pointAt(2), PointNd<2>(1, 0));
    EXPECT_EQ(curve.pointAt(3), PointNd<2>(2, 1));
    EXPECT_EQ(curve.pointAt(4), PointNd<2>(1, 2));
    EXPECT_EQ(evaluate(curve, 3).derivs[0], VecNd<2>(0, 2));
}

TEST(BSpline, OfDegreeZeroAndOneArePointsAndPolylines)
{
    const BSplineCurveImpl<2> steps({{1, 2}, {3, 4}}, {0, 1, 2});
    EXPECT_EQ(steps.degree(), 0);
    EXPECT_EQ(steps.pointAt(0.5), PointNd<2>(1, 2));
    EXPECT_EQ(steps.pointAt(1), PointNd<2>(3, 4));
    EXPECT_EQ(evaluate(steps, 0.5).derivs[0], VecNd<2>());

    const BSplineCurveImpl<2> polyline({{0, 0}, {2, 0}, {2, 6}}, {0, 0, 1, 2, 2});
    EXPECT_EQ(polyline.pointAt(0.5), PointNd<2>(1, 0));
    EXPECT_EQ(evaluate(polyline, 1.5).derivs[0], VecNd<2>(0, 6));
    EXPECT_EQ(evaluate(polyline, 1.5).derivs[1], VecNd<2>());
}

TEST(BSpline, EndsAtTheRightPieceWhenKnotsRepeatMoreThanNeeded)
{
    // One knot more than a clamped end needs: the last span before the end is empty.
    const BSplineCurveImpl<2> curve({{0, 0}, {1, 1}, {2, 0}, {9, 9}}, {0, 0, 0, 1, 1, 1, 1});
    EXPECT_EQ(curve.pointAt(curve.endParam()), PointNd<2>(2, 0));
    EXPECT_EQ(curve.pointAt(0), PointNd<2>(0, 0));
}

/// Knots and weights of the unit circle as a quadratic of four quarter arcs.
RationalBSplineCurveImpl<2> unitCircle()
{
    const double w = std::sqrt(0.5);
    return RationalBSplineCurveImpl<2>({{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}, {1, 0}},
                                       {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4}, {1, w, 1, w, 1, w, 1, w, 1});
}

TEST(RationalBSpline, QuadraticIsACircle)
{
    const auto circle = unitCircle();
    for (int i = 0; i <= 400; ++i)
    {
        const auto value = evaluate(circle, i / 100.0);
        const auto& p = value.point;
        const auto& d = value.derivs[0];
        const auto& dd = value.derivs[1];
        EXPECT_NEAR(std::hypot(p[0], p[1]), 1, 1e-12) << i;
        EXPECT_NEAR(p[0] * d[0] + p[1] * d[1], 0, 1e-12) << i;
        const double speed = std::hypot(d[0], d[1]);
        EXPECT_NEAR((d[0] * dd[1] - d[1] * dd[0]) / (speed * speed * speed), 1, 1e-11) << "curvature " << i;
    }
    EXPECT_NEAR(circle.pointAt(0.5)[0], std::sqrt(0.5), 1e-15);
    EXPECT_NEAR(circle.pointAt(1)[1], 1, 1e-15);
}

TEST(RationalBSpline, DerivativesMatchDifferences)
{
    for (const double t : {0.3, 1.7, 2.5, 3.9})
        expectDerivativesMatchDifferences(unitCircle(), t);

    const std::vector<double> weights = {0.5, 0.8, 1.1, 1.4, 1.7, 2.0, 2.3, 2.6};
    const RationalBSplineCurveImpl<3> curve(wavyPoints(8), clampedKnots(4, {0.2, 0.5, 0.5}), weights);
    for (const double t : {0.1, 0.3, 0.6, 0.9})
        expectDerivativesMatchDifferences(curve, t);
}

TEST(RationalBSpline, WithEqualWeightsIsThePlainCurve)
{
    const auto knots = clampedKnots(3, {0.4});
    const BSplineCurveImpl<3> plain(wavyPoints(5), knots);
    const RationalBSplineCurveImpl<3> rational(wavyPoints(5), knots, std::vector<double>(5, 2.5));
    for (const double t : {0.0, 0.3, 0.4, 0.8, 1.0})
    {
        const auto a = evaluate(plain, t);
        const auto b = evaluate(rational, t);
        for (int d = 0; d < 3; ++d)
        {
            EXPECT_NEAR(a.point[d], b.point[d], 1e-13);
            EXPECT_NEAR(a.derivs[0][d], b.derivs[0][d], 1e-12);
            EXPECT_NEAR(a.derivs[1][d], b.derivs[1][d], 1e-10);
        }
    }
}

// The cost of an evaluation grows with the square of the degree, and archives come from outside.
TEST(BSpline, OfADegreeThatNobodyCanAffordIsNotEvaluated)
{
    for (const int degree : {maxEvaluatedDegree, maxEvaluatedDegree + 1, 20'000})
    {
        const std::vector<double> knots = clampedKnots(degree);
        const std::vector<PointNd<2>> points(static_cast<std::size_t>(degree) + 1, PointNd<2>(1, 2));
        const BSplineCurveImpl<2> plain(points, knots);
        const RationalBSplineCurveImpl<2> rational(points, knots, std::vector<double>(points.size(), 1.0));
        if (degree == maxEvaluatedDegree)
        {
            EXPECT_NEAR(plain.pointAt(0.3)[1], 2, 1e-9);
            EXPECT_NEAR(rational.pointAt(0.3)[1], 2, 1e-9);
            continue;
        }
        EXPECT_EQ(plain.degree(), degree);
        EXPECT_THROW(plain.pointAt(0.3), util::AssertionError) << degree;
        EXPECT_THROW(rational.pointAt(0.3), util::AssertionError) << degree;
    }
}

TEST(BSpline, RefusesUnsoundData)
{
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        const char* what;
        std::size_t points;
        std::vector<double> knots;
    } cases[] = {
        {"no data", 0, {}},
        {"no knots", 2, {}},
        {"as many knots as points", 3, {0, 1, 2}},
        {"fewer points than the degree plus 1", 2, {0, 0, 0, 1, 1, 1}},
        {"falling knots", 3, {0, 0, 0, 1, 0.5, 1}},
        {"empty range", 3, {0, 0, 1, 1, 1, 1}},
        {"all knots alike", 3, {1, 1, 1, 1, 1, 1}},
        {"not a number", 3, {0, 0, notANumber, 1, 1, 1}},
        {"infinite end", 3, {0, 0, 0, 1, 1, infinity}},
    };
    for (const auto& c : cases)
    {
        EXPECT_THROW(BSplineCurveImpl<2>(std::vector<PointNd<2>>(c.points), c.knots), util::AssertionError) << c.what;
        EXPECT_THROW(
            RationalBSplineCurveImpl<3>(std::vector<PointNd<3>>(c.points), c.knots, std::vector<double>(c.points, 1.0)),
            util::AssertionError)
            << c.what;
    }
    EXPECT_THROW(RationalBSplineCurveImpl<2>({{0, 0}, {1, 1}}, {0, 0, 1, 1}, {1}), util::AssertionError);
    EXPECT_THROW(RationalBSplineCurveImpl<2>({{0, 0}, {1, 1}}, {0, 0, 1, 1}, {0, 0}).pointAt(0.5), util::AssertionError)
        << "weights that sum to 0";
    // As an archive may leave them.
    EXPECT_THROW(BSplineCurveImpl<2>().pointAt(0), util::AssertionError);
    EXPECT_THROW(BSplineCurveImpl<2>().startParam(), util::AssertionError);
    EXPECT_THROW(RationalBSplineCurveImpl<2>().endParam(), util::AssertionError);
    EXPECT_THROW(RationalBSplineCurveImpl<3>().pointAt(0), util::AssertionError);
}

} // namespace
} // namespace testing_support
