#include "host/Camera.h"

#include <cmath>
#include <numbers>

namespace host
{

namespace
{

constexpr double degree = std::numbers::pi / 180;
constexpr double sideYaw = -32 * degree;
constexpr double sidePitch = 38 * degree;
constexpr double lowestPitch = 12 * degree;
constexpr double highestPitch = 88 * degree;
constexpr double smallestScale = 1e-4;
constexpr double greatestScale = 1e5;

} // namespace

void Camera::setViewport(double width, double height)
{
    m_shift.x += (width - m_width) / 2;
    m_shift.y += (height - m_height) / 2;
    m_width = width;
    m_height = height;
}

void Camera::setAngles(double yaw, double pitch)
{
    m_yaw = yaw;
    m_pitch = pitch;
    m_cosYaw = std::cos(yaw);
    m_sinYaw = std::sin(yaw);
    m_cosPitch = std::cos(pitch);
    m_sinPitch = std::sin(pitch);
}

void Camera::lookFromAbove()
{
    setAngles(0, 90 * degree);
    m_cosPitch = 0;
}

void Camera::lookFromSide()
{
    setAngles(sideYaw, sidePitch);
}

void Camera::orbit(double yaw, double pitch)
{
    const ScreenPoint middle{m_width / 2, m_height / 2};
    const Point3 kept = pointAt(middle, 0);
    setAngles(m_yaw + yaw, std::clamp(m_pitch + pitch, lowestPitch, highestPitch));
    const ScreenPoint moved = project(kept);
    pan(middle.x - moved.x, middle.y - moved.y);
}

void Camera::fit(const Box3& box, const Margins& margins)
{
    if (box.empty())
        return;
    m_scale = 1;
    m_shift = {};
    Box3 seen;
    for (int corner = 0; corner < 8; ++corner)
    {
        const ScreenPoint point =
            project(Point3((corner & 1 ? box.high : box.low)[0], (corner & 2 ? box.high : box.low)[1],
                           (corner & 4 ? box.high : box.low)[2]));
        seen.include(Point3(point.x, point.y, 0.0));
    }
    const double width = std::max(1.0, m_width - margins.left - margins.right);
    const double height = std::max(1.0, m_height - margins.top - margins.bottom);
    const double least = 1e-6;
    m_scale = std::clamp(std::min(width / std::max(least, seen.size(0)), height / std::max(least, seen.size(1))),
                         smallestScale, greatestScale);
    m_shift = {margins.left + width / 2 - (seen.low[0] + seen.high[0]) / 2 * m_scale,
               margins.top + height / 2 - (seen.low[1] + seen.high[1]) / 2 * m_scale};
}

void Camera::zoomAt(const ScreenPoint& point, double factor)
{
    const double scale = std::clamp(m_scale * factor, smallestScale, greatestScale);
    const double applied = scale / m_scale;
    m_shift.x = point.x + (m_shift.x - point.x) * applied;
    m_shift.y = point.y + (m_shift.y - point.y) * applied;
    m_scale = scale;
}

void Camera::pan(double dx, double dy)
{
    m_shift.x += dx;
    m_shift.y += dy;
}

void Camera::centreOn(const Point3& point)
{
    const ScreenPoint now = project(point);
    pan(m_width / 2 - now.x, m_height / 2 - now.y);
}

Point3 Camera::pointAt(const ScreenPoint& screen, double height) const
{
    const double right = (screen.x - m_shift.x) / m_scale;
    const double ahead = ((m_shift.y - screen.y) / m_scale - height * m_cosPitch) / m_sinPitch;
    return Point3(m_cosYaw * right + m_sinYaw * ahead, -m_sinYaw * right + m_cosYaw * ahead, height);
}

} // namespace host
