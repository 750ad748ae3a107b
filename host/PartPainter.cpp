#include "host/PartPainter.h"

#include "host/Palette.h"
#include <tessaron/util/Keys.h>

#include <wx/brush.h>
#include <wx/graphics.h>

#include <array>
#include <cmath>

namespace host
{

namespace
{

constexpr int shades = 10;

void addContour(wxGraphicsPath& path, const Camera& camera, const Contour& contour, double height)
{
    bool first = true;
    for (const Point2& point : contour.points)
    {
        const ScreenPoint at = camera.project(Point3(point[0], point[1], height));
        if (first)
            path.MoveToPoint(at.x, at.y);
        else
            path.AddLineToPoint(at.x, at.y);
        first = false;
    }
    if (contour.closed)
        path.CloseSubpath();
}

} // namespace

PartPainter::PartPainter(wxGraphicsContext& context, const Camera& camera, const Part& part)
    : m_context(context), m_camera(camera), m_part(part), m_top(part.number(util::keys::topMaterialZ)),
      m_floor(part.number(util::keys::zDepth))
{
}

void PartPainter::fill(const std::vector<Contour>& contours, double height, const wxColour& colour)
{
    wxGraphicsPath path = m_context.CreatePath();
    for (const Contour& contour : contours)
        if (contour.closed)
            addContour(path, m_camera, contour, height);
    m_context.SetBrush(wxBrush(colour));
    m_context.FillPath(path, wxODDEVEN_RULE);
}

void PartPainter::stroke(const std::vector<Contour>& contours, double height, const wxColour& colour, double width,
                         bool dashed)
{
    for (const Contour& contour : contours)
    {
        wxGraphicsPath path = m_context.CreatePath();
        addContour(path, m_camera, contour, height);
        wxGraphicsPenInfo pen(contour.closed ? colour : palette::openLine, width,
                              dashed ? wxPENSTYLE_SHORT_DASH : wxPENSTYLE_SOLID);
        m_context.SetPen(m_context.CreatePen(pen.Join(wxJOIN_ROUND)));
        m_context.StrokePath(path);
    }
}

// The walls of the part that face the viewer, lighter the more they face the light.
void PartPainter::drawWalls()
{
    std::array<wxGraphicsPath, shades> paths;
    for (wxGraphicsPath& path : paths)
        path = m_context.CreatePath();
    for (const Contour& contour : m_part.partContours)
    {
        if (!contour.closed)
            continue;
        for (std::size_t i = 0; i < contour.points.size(); ++i)
        {
            const Point2& a = contour.points[i];
            const Point2& b = contour.points[(i + 1) % contour.points.size()];
            const double length = std::hypot(b[0] - a[0], b[1] - a[1]);
            // Material is on the left, so the wall looks to the right.
            const double nx = length > 0 ? (b[1] - a[1]) / length : 0.0;
            const double ny = length > 0 ? (a[0] - b[0]) / length : 0.0;
            if (m_camera.facing(nx, ny) <= 0)
                continue;
            const double light = 0.5 + 0.5 * (0.35 * nx - 0.94 * ny);
            wxGraphicsPath& path = paths[static_cast<std::size_t>(std::min(shades - 1.0, light * shades))];
            const ScreenPoint corners[] = {
                m_camera.project(Point3(a[0], a[1], m_floor)), m_camera.project(Point3(b[0], b[1], m_floor)),
                m_camera.project(Point3(b[0], b[1], m_top)), m_camera.project(Point3(a[0], a[1], m_top))};
            path.MoveToPoint(corners[0].x, corners[0].y);
            for (int corner = 1; corner < 4; ++corner)
                path.AddLineToPoint(corners[corner].x, corners[corner].y);
            path.CloseSubpath();
        }
    }
    for (int i = 0; i < shades; ++i)
    {
        const wxColour colour = palette::shaded(palette::partFill, 0.74 + 0.24 * i / (shades - 1));
        // The line covers the seams that smooth edges leave between the pieces of a wall.
        m_context.SetPen(m_context.CreatePen(wxGraphicsPenInfo(colour, 0.8)));
        m_context.SetBrush(wxBrush(colour));
        m_context.DrawPath(paths[static_cast<std::size_t>(i)], wxWINDING_RULE);
    }
}

// The upright edges of the stock, at its corners.
void PartPainter::drawPosts()
{
    m_context.SetPen(m_context.CreatePen(wxGraphicsPenInfo(palette::stockLine, 1, wxPENSTYLE_SHORT_DASH)));
    for (const Contour& contour : m_part.stockContours)
        for (std::size_t i = 0; i < contour.points.size() && contour.points.size() <= 8; ++i)
        {
            const Point2& point = contour.points[i];
            const ScreenPoint low = m_camera.project(Point3(point[0], point[1], m_floor));
            const ScreenPoint high = m_camera.project(Point3(point[0], point[1], m_top));
            m_context.StrokeLine(low.x, low.y, high.x, high.y);
        }
}

void PartPainter::drawBelow()
{
    if (m_camera.fromAbove())
    {
        fill(m_part.stockContours, m_top, palette::stockFill);
        fill(m_part.partContours, m_top, palette::partFill);
        stroke(m_part.stockContours, m_top, palette::stockLine, 1.4, true);
        stroke(m_part.partContours, m_top, palette::partLine, 1.6, false);
        return;
    }
    fill(m_part.stockContours, m_floor, palette::stockFill);
    stroke(m_part.stockContours, m_floor, palette::stockLine, 1, true);
    drawWalls();
    stroke(m_part.partContours, m_floor, palette::partLine, 0.7, false);
}

void PartPainter::drawAbove()
{
    if (m_camera.fromAbove())
        return;
    const wxColour& solid = palette::partFill;
    fill(m_part.partContours, m_top, wxColour(solid.Red(), solid.Green(), solid.Blue(), 150));
    drawPosts();
    stroke(m_part.stockContours, m_top, palette::stockLine, 1.2, true);
    stroke(m_part.partContours, m_top, palette::partLine, 1.4, false);
}

} // namespace host
