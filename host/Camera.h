#ifndef HOST_CAMERA_H
#define HOST_CAMERA_H

#include "host/Geometry.h"

namespace host
{

struct ScreenPoint
{
    double x = 0;
    double y = 0;
};

/// How a scene is looked at: a parallel projection onto a window, from above or from a side. Screen coordinates count
/// from the upper left corner.
class Camera
{
public:
    /// Room to keep free at the edges of the window.
    struct Margins
    {
        double left = 0;
        double top = 0;
        double right = 0;
        double bottom = 0;
    };

    void setViewport(double width, double height);
    void lookFromAbove();
    void lookFromSide();
    /// Turns the view about the vertical axis and raises or lowers it; angles in radians.
    void orbit(double yaw, double pitch);
    /// Moves and scales the view so that the box fills the window. Does nothing for an empty box.
    void fit(const Box3& box, const Margins& margins);
    /// Scales the view and keeps the point below the given one where it is.
    void zoomAt(const ScreenPoint& point, double factor);
    void pan(double dx, double dy);
    /// Moves the view so that a point is in its middle.
    void centreOn(const Point3& point);

    ScreenPoint project(const Point3& point) const
    {
        const double right = m_cosYaw * point[0] - m_sinYaw * point[1];
        const double up = (m_sinYaw * point[0] + m_cosYaw * point[1]) * m_sinPitch + point[2] * m_cosPitch;
        return {m_shift.x + right * m_scale, m_shift.y - up * m_scale};
    }
    /// The point at a height that is seen at a place of the window.
    Point3 pointAt(const ScreenPoint& screen, double height) const;
    /// How far a horizontal direction points towards the viewer, -1 to 1.
    double facing(double dx, double dy) const { return -(m_sinYaw * dx + m_cosYaw * dy) * m_cosPitch; }

    /// Pixels per unit of length.
    double scale() const { return m_scale; }
    bool fromAbove() const { return m_cosPitch < 1e-9; }
    double width() const { return m_width; }
    double height() const { return m_height; }

private:
    void setAngles(double yaw, double pitch);

    double m_width = 1;
    double m_height = 1;
    double m_yaw = 0;
    double m_pitch = 0;
    double m_cosYaw = 1;
    double m_sinYaw = 0;
    double m_cosPitch = 0;
    double m_sinPitch = 1;
    double m_scale = 1;
    ScreenPoint m_shift;
};

} // namespace host

#endif
