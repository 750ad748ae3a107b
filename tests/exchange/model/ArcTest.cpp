#include "CurveChecks.h"
#include <tessaron/exchange/geom/Arc2Impl.h>
#include <tessaron/util/Constants.h>

#include <limits>

namespace testing_support
{
namespace
{

using geom::Arc2Impl;
using geom::PointNd;
using util::pi;

constexpr double turn = 2 * pi;

TEST(Arc, FoldsTheStartAngleOnce)
{
    const struct
    {
        const char* what;
        double radius, start, end, storedStart, storedEnd;
    } cases[] = {
        {"within the first turn: kept", 1, 0.5, 2, 0.5, 2},
        {"clockwise: kept", 1, 2, 0.5, 2, 0.5},
        {"negative start", 1, -0.5, 1, turn - 0.5, turn + 1},
        {"start on the full turn", 1, turn, turn + 1, 0, 1},
        {"start just below the full turn", 1, turn - 9e-7, turn + 1, 0, 1},
        {"start just above the full turn", 1, turn + 9e-7, turn + 1, 0, 1},
        {"start below the full turn by more than the tolerance", 1, turn - 2e-6, turn, turn - 2e-6, turn},
        {"start above the full turn by more than the tolerance", 1, turn + 0.25, turn + 1, turn + 0.25 - turn,
         turn + 1 - turn},
        {"start near 0 becomes 0, end is left", 1, 9e-7, 1, 0, 1},
        {"start just below 0", 1, -9e-7, 1, 0, 1},
        {"start below 0 by more than the tolerance", 1, -2e-6, 1, -2e-6 + turn, 1 + turn},
        {"start above 0 by more than the tolerance", 1, 2e-6, 1, 2e-6, 1},
        {"the tolerance is a length: small angle, large radius", 1000, 9e-7, 1, 9e-7, 1},
        {"the tolerance is a length: larger angle, small radius", 1e-3, 9e-4, 1, 0, 1},
        {"the tolerance is a length: small negative angle, large radius", 1000, -9e-7, 1, -9e-7 + turn, 1 + turn},
        {"the tolerance is a length: larger negative angle, small radius", 1e-3, -9e-4, 1, 0, 1},
        {"only one turn is folded, above", 1, 3 * turn, 3 * turn + 1, 3 * turn - turn, 3 * turn + 1 - turn},
        {"only one turn is folded, below", 1, -3 * turn, -3 * turn + 1, -3 * turn + turn, -3 * turn + 1 + turn},
        {"a full turn from 0", 1, 0, turn, 0, turn},
        {"a full turn backwards", 1, turn, 0, 0, -turn},
    };
    for (const auto& c : cases)
    {
        const Arc2Impl arc(PointNd<2>(1, 2), c.radius, c.start, c.end);
        EXPECT_DOUBLE_EQ(arc.startAngle(), c.storedStart) << c.what;
        EXPECT_DOUBLE_EQ(arc.endAngle(), c.storedEnd) << c.what;
        EXPECT_EQ(arc.radius(), c.radius) << c.what;
        EXPECT_EQ(arc.center(), PointNd<2>(1, 2)) << c.what;
    }
}

TEST(Arc, SpansAtMostOneTurn)
{
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const struct
    {
        double start, end;
        bool accepted;
    } cases[] = {
        {0, turn, true},
        {0, -turn, true},
        {0, turn + 0.9e-8, true},
        {0, turn + 1.1e-8, false},
        {turn + 1.1e-8, 0, false},
        {-0.5, turn, false},
        // The angles are compared as given: setting the start to 0 does not save this one.
        {-9e-7, turn, false},
        {notANumber, 1, false},
        {0, notANumber, false},
    };
    for (const auto& c : cases)
    {
        const std::string text = assertionOf([&] { Arc2Impl(PointNd<2>(), 1, c.start, c.end); });
        if (c.accepted)
            EXPECT_EQ(text, "") << c.start << " to " << c.end;
        else
            EXPECT_THAT(text, testing::StartsWith("Expression 'fabs (endAngle - startAngle) < 2*util::pi + "
                                                  "util::doubleEps' failed in 'GeomImpl\\CurveImpl"))
                << c.start << " to " << c.end;
    }
}

TEST(Arc, RunsFromStartToEndAngleOverZeroToOne)
{
    const Arc2Impl arc(PointNd<2>(10, -3), 2.5, 0.1, 1.7);
    EXPECT_EQ(arc.startParam(), 0);
    EXPECT_EQ(arc.endParam(), 1);
    for (const double t : {0.0, 0.3, 1.0})
    {
        const double angle = 0.1 + 1.6 * t;
        const auto value = evaluate(arc, t);
        EXPECT_NEAR(value.point[0], 10 + 2.5 * std::cos(angle), 1e-14);
        EXPECT_NEAR(value.point[1], -3 + 2.5 * std::sin(angle), 1e-14);
        EXPECT_NEAR(value.derivs[0][0], -2.5 * 1.6 * std::sin(angle), 1e-14);
        EXPECT_NEAR(value.derivs[1][1], -2.5 * 1.6 * 1.6 * std::sin(angle), 1e-14);
        expectDerivativesMatchDifferences(arc, t);
    }
}

TEST(Arc, ClockwiseArcsRunBackwards)
{
    const Arc2Impl arc(PointNd<2>(0, 0), 1, pi / 2, 0);
    EXPECT_NEAR(arc.pointAt(0)[1], 1, 1e-15);
    EXPECT_NEAR(arc.pointAt(1)[0], 1, 1e-15);
    EXPECT_GT(evaluate(arc, 0).derivs[0][0], 0);
}

} // namespace
} // namespace testing_support
