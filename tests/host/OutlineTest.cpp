#include "host/Outline.h"

#include <tessaron/exchange/geom/Curves.h>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <numbers>

namespace host
{

namespace
{

constexpr double pi = std::numbers::pi;

void addLine(exchange::CurveList& curves, Point2 from, Point2 to)
{
    curves.push_back(boost::make_shared<geom::LineImpl<2>>(from, to));
}

void addSquare(exchange::CurveList& curves, double from, double to)
{
    curves.push_back(boost::make_shared<geom::PolylineImpl<2>>(
        std::vector<Point2>{{from, from}, {to, from}, {to, to}, {from, to}, {from, from}}));
}

TEST(Outline, JoinsCurvesInAnyOrderAndDirection)
{
    exchange::CurveList curves;
    addLine(curves, {0.0, 0.0}, {10.0, 0.0});
    addLine(curves, {0.0, 10.0}, {10.0, 10.0});
    addLine(curves, {0.0, 10.0}, {0.0, 0.0});
    addLine(curves, {10.0, 10.0}, {10.0, 0.0});
    const std::vector<Contour> contours = outline(curves, 0.01);
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_TRUE(contours[0].closed);
    EXPECT_EQ(contours[0].points.size(), 4u);
    EXPECT_DOUBLE_EQ(doubleArea(contours[0].points), 200);
}

TEST(Outline, KeepsWithinTheToleranceOfAnArc)
{
    const exchange::CurveList curves{boost::make_shared<geom::Arc2Impl>(Point2(5.0, 5.0), 100.0, 0.0, 2 * pi)};
    const std::vector<Contour> contours = outline(curves, 0.01);
    ASSERT_EQ(contours.size(), 1u);
    ASSERT_TRUE(contours[0].closed);
    // Chords that stray from the circle by no more than the tolerance leave out no more than this of its area.
    EXPECT_NEAR(doubleArea(contours[0].points) / 2, pi * 100 * 100, 2 * pi * 100 * 0.01);
}

TEST(Outline, NestedContoursHaveTheirMaterialOnTheLeft)
{
    exchange::CurveList curves;
    addSquare(curves, 40, 60);
    addSquare(curves, 0, 100);
    addSquare(curves, 20, 80);
    const std::vector<Contour> contours = outline(curves, 0.01);
    ASSERT_EQ(contours.size(), 3u);
    const int depths[] = {2, 0, 1};
    for (std::size_t i = 0; i < 3; ++i)
    {
        EXPECT_EQ(contours[i].depth, depths[i]);
        EXPECT_EQ(doubleArea(contours[i].points) > 0, depths[i] % 2 == 0);
    }
}

TEST(Outline, WhatDoesNotCloseStaysOpen)
{
    exchange::CurveList curves;
    addLine(curves, {10.0, 0.0}, {10.0, 10.0});
    addLine(curves, {0.0, 0.0}, {10.0, 0.0});
    addLine(curves, {0.0, 0.0}, {0.0, 10.0});
    const std::vector<Contour> contours = outline(curves, 0.01);
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_FALSE(contours[0].closed);
    EXPECT_EQ(contours[0].points.size(), 4u);
}

TEST(Outline, AMissingCurveIsRefused)
{
    EXPECT_THROW(outline({nullptr}, 0.01), std::runtime_error);
}

} // namespace

} // namespace host
