#include "host/Camera.h"

#include <gtest/gtest.h>

namespace host
{

namespace
{

Box3 plate()
{
    Box3 box;
    box.include({0.0, 0.0, -15.0});
    box.include({180.0, 120.0, 0.0});
    return box;
}

class CameraTest : public testing::TestWithParam<bool>
{
protected:
    CameraTest()
    {
        camera.setViewport(800, 600);
        if (GetParam())
            camera.lookFromAbove();
        else
            camera.lookFromSide();
        camera.fit(plate(), {10, 20, 30, 40});
    }

    Camera camera;
};

TEST_P(CameraTest, FitKeepsEveryCornerWithinTheMargins)
{
    double left = 800;
    double right = 0;
    for (int corner = 0; corner < 8; ++corner)
    {
        const Box3 box = plate();
        const ScreenPoint point =
            camera.project({(corner & 1 ? box.high : box.low)[0], (corner & 2 ? box.high : box.low)[1],
                            (corner & 4 ? box.high : box.low)[2]});
        left = std::min(left, point.x);
        right = std::max(right, point.x);
        EXPECT_GE(point.y, 20 - 1e-6);
        EXPECT_LE(point.y, 560 + 1e-6);
    }
    EXPECT_NEAR(left, 10, 1e-6) << "the plate is wider than high, so it should fill the width";
    EXPECT_NEAR(right, 770, 1e-6);
}

TEST_P(CameraTest, PointAtIsTheInverseOfProject)
{
    const Point3 point(37.5, 80.25, -3.0);
    const Point3 back = camera.pointAt(camera.project(point), -3.0);
    EXPECT_NEAR(back[0], point[0], 1e-9);
    EXPECT_NEAR(back[1], point[1], 1e-9);
}

TEST_P(CameraTest, ZoomKeepsThePointBelowThePointer)
{
    const ScreenPoint pointer{200, 150};
    const Point3 before = camera.pointAt(pointer, 0);
    const double scale = camera.scale();
    camera.zoomAt(pointer, 3);
    EXPECT_NEAR(camera.scale(), 3 * scale, 1e-9);
    const ScreenPoint after = camera.project(before);
    EXPECT_NEAR(after.x, pointer.x, 1e-6);
    EXPECT_NEAR(after.y, pointer.y, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(Views, CameraTest, testing::Bool());

TEST(Camera, FromAboveHeightsCoincideAndYPointsUp)
{
    Camera camera;
    camera.setViewport(100, 100);
    camera.lookFromAbove();
    EXPECT_TRUE(camera.fromAbove());
    EXPECT_EQ(camera.project({1.0, 1.0, -50.0}).y, camera.project({1.0, 1.0, 50.0}).y);
    EXPECT_LT(camera.project({0.0, 1.0, 0.0}).y, camera.project({0.0, 0.0, 0.0}).y);
}

TEST(Camera, TurningStopsBeforeTheViewLiesFlatOrTurnsOver)
{
    Camera camera;
    camera.setViewport(100, 100);
    camera.lookFromSide();
    camera.orbit(0, -10);
    const ScreenPoint low = camera.project({0.0, 0.0, 0.0});
    EXPECT_LT(camera.project({0.0, 0.0, 1.0}).y, low.y);
    EXPECT_GT(std::abs(camera.project({0.0, 1.0, 0.0}).y - low.y), 0.1);
    camera.orbit(0, 20);
    EXPECT_FALSE(camera.fromAbove());
}

TEST(Camera, AnEmptyBoxAndTheSmallestZoomAreHarmless)
{
    Camera camera;
    camera.setViewport(100, 100);
    camera.fit(Box3(), {});
    EXPECT_EQ(camera.scale(), 1);
    for (int i = 0; i < 100; ++i)
        camera.zoomAt({50, 50}, 0.1);
    EXPECT_GT(camera.scale(), 0);
}

} // namespace

} // namespace host
