#ifndef TESTS_EXCHANGE_MODEL_CURVECHECKS_H
#define TESTS_EXCHANGE_MODEL_CURVECHECKS_H

#include <tessaron/exchange/geom/ParametricCurve.h>
#include <tessaron/util/Assertion.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace testing_support
{

/// The point and the first two derivatives of a curve.
template <int N>
struct CurveValue
{
    geom::PointNd<N> point;
    geom::VecNd<N> derivs[2];
};

template <int N>
CurveValue<N> evaluate(const geom::ParametricCurve<N>& curve, double t)
{
    CurveValue<N> value;
    curve.evaluate(t, value.point, value.derivs, 2);
    return value;
}

/// Compares the derivatives at a parameter value with central differences of points and of first derivatives.
template <int N>
void expectDerivativesMatchDifferences(const geom::ParametricCurve<N>& curve, double t, double tolerance = 1e-6)
{
    const double h = 1e-5;
    const auto before = evaluate(curve, t - h);
    const auto here = evaluate(curve, t);
    const auto after = evaluate(curve, t + h);
    for (int d = 0; d < N; ++d)
    {
        const double first = (after.point[d] - before.point[d]) / (2 * h);
        const double second = (after.derivs[0][d] - before.derivs[0][d]) / (2 * h);
        EXPECT_NEAR(here.derivs[0][d], first, tolerance * (1 + std::fabs(first))) << "t " << t << ", coordinate " << d;
        EXPECT_NEAR(here.derivs[1][d], second, tolerance * (1 + std::fabs(second)))
            << "t " << t << ", coordinate " << d;
    }
}

/// The text of the assertion that a piece of code fails; empty when it fails none.
template <class Code>
std::string assertionOf(const Code& code)
{
    try
    {
        code();
    }
    catch (const util::AssertionError& error)
    {
        return error.what();
    }
    return "";
}

} // namespace testing_support

#endif
