#include "host/PartView.h"

#include "host/OverlayPainter.h"
#include "host/PartPainter.h"
#include "host/ToolpathPainter.h"
#include <tessaron/util/Keys.h>

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/settings.h>
#include <wx/utils.h>

#include <cmath>
#include <memory>

namespace host
{

namespace
{

constexpr double fineCoarseness = 0.8;
constexpr double fastCoarseness = 5;
constexpr int restMilliseconds = 150;
constexpr double wheelFactor = 1.2;
constexpr double keyPixels = 40;
constexpr double placePixels = 36;
constexpr double radiansPerPixel = 0.008;
constexpr Camera::Margins margins{28, 28, 28, 48};
// In a window of some width the legend has a place of its own.
constexpr double legendWidth = 160;
constexpr double widthForLegend = 620;

} // namespace

Box3 Scene::box() const
{
    Box3 box;
    if (part)
        box = part->box();
    if (toolpath && !toolpath->box().empty())
    {
        box.include(toolpath->box().low);
        box.include(toolpath->box().high);
    }
    return box;
}

PartView::PartView(wxWindow* parent) : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize(FromDIP(wxSize(320, 240)));
    m_camera.lookFromAbove();
    Bind(wxEVT_PAINT, &PartView::onPaint, this);
    Bind(wxEVT_SIZE, &PartView::onSize, this);
    for (const auto type : {wxEVT_LEFT_DOWN, wxEVT_RIGHT_DOWN, wxEVT_MIDDLE_DOWN, wxEVT_LEFT_UP, wxEVT_RIGHT_UP,
                            wxEVT_MIDDLE_UP, wxEVT_MOTION, wxEVT_LEAVE_WINDOW})
        Bind(type, &PartView::onMouse, this);
    Bind(wxEVT_MOUSEWHEEL, &PartView::onWheel, this);
    Bind(wxEVT_KEY_DOWN, &PartView::onKey, this);
    const auto onFocus = [this](wxFocusEvent&)
    {
        m_showFocus = HasFocus() && wxGetKeyState(WXK_TAB);
        Refresh();
    };
    Bind(wxEVT_SET_FOCUS, onFocus);
    Bind(wxEVT_KILL_FOCUS, onFocus);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [](wxMouseCaptureLostEvent&) {});
    m_rest.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { redraw(false); });
}

void PartView::setScene(Scene scene)
{
    m_scene = std::move(scene);
    redraw(false);
}

void PartView::redraw(bool coarse)
{
    // A small scene is drawn in full as fast as it is moved.
    m_coarse = coarse && m_scene.toolpath && m_scene.toolpath->points().size() > 20000;
    m_stale = true;
    if (m_coarse)
        m_rest.StartOnce(restMilliseconds);
    Refresh(false);
}

void PartView::zoomToFit()
{
    fitScene();
    m_fitted = true;
    redraw(false);
}

void PartView::fitScene()
{
    Camera::Margins room = margins;
    if (m_scene.showLegend && m_camera.width() > widthForLegend)
        room.left += legendWidth;
    m_camera.fit(m_scene.box(), room);
}

void PartView::zoom(double factor)
{
    m_camera.zoomAt({m_camera.width() / 2, m_camera.height() / 2}, factor);
    m_fitted = false;
    redraw(true);
}

void PartView::showPlace(const Point3& point, double length)
{
    m_camera.centreOn(point);
    const double nearEnough = placePixels / length;
    if (m_camera.scale() < nearEnough)
        m_camera.zoomAt({m_camera.width() / 2, m_camera.height() / 2}, nearEnough / m_camera.scale());
    m_fitted = false;
    redraw(false);
}

void PartView::lookFromAbove()
{
    m_camera.lookFromAbove();
    zoomToFit();
}

void PartView::lookFromSide()
{
    m_camera.lookFromSide();
    zoomToFit();
}

void PartView::onSize(wxSizeEvent& event)
{
    m_camera.setViewport(event.GetSize().x, event.GetSize().y);
    if (m_fitted)
        fitScene();
    redraw(false);
}

void PartView::render()
{
    const wxSize size = GetClientSize();
    m_picture.CreateWithDIPSize(ToDIP(size), GetDPIScaleFactor());
    wxMemoryDC memory(m_picture);
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(memory));
    context->SetAntialiasMode(wxANTIALIAS_DEFAULT);
    OverlayPainter overlay(*context, m_camera, m_scene, GetFont());
    overlay.drawBackground();
    if (m_scene.part)
    {
        PartPainter partPainter(*context, m_camera, *m_scene.part);
        partPainter.drawBelow();
        if (m_scene.toolpath)
        {
            ToolpathPainter painter(*context, m_camera, m_scene, m_coarse ? fastCoarseness : fineCoarseness);
            painter.drawCuts();
            partPainter.drawAbove();
            painter.drawRapids();
        }
        else
            partPainter.drawAbove();
    }
    overlay.drawOverlay();
    m_stale = false;
}

void PartView::onPaint(wxPaintEvent&)
{
    wxPaintDC dc(this);
    const wxSize size = GetClientSize();
    if (size.x <= 0 || size.y <= 0)
        return;
    if (m_stale || !m_picture.IsOk() || m_picture.GetDIPSize() != ToDIP(size))
        render();
    dc.DrawBitmap(m_picture, 0, 0);
    if (m_showFocus)
    {
        dc.SetBrush(*wxTRANSPARENT_BRUSH);
        dc.SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), 2));
        dc.DrawRectangle(1, 1, size.x - 1, size.y - 1);
    }
}

void PartView::drag(const wxMouseEvent& event)
{
    const wxPoint moved = event.GetPosition() - m_dragged;
    m_dragged = event.GetPosition();
    m_fitted = false;
    if (event.RightIsDown() || event.ShiftDown())
    {
        m_camera.orbit(moved.x * radiansPerPixel, moved.y * radiansPerPixel);
        if (onTurned)
            onTurned();
    }
    else
        m_camera.pan(moved.x, moved.y);
    redraw(true);
}

void PartView::onMouse(wxMouseEvent& event)
{
    if (event.ButtonDown())
    {
        m_showFocus = false;
        SetFocus();
        m_dragged = event.GetPosition();
        if (!HasCapture())
            CaptureMouse();
    }
    else if (event.ButtonUp() && HasCapture())
        ReleaseMouse();
    else if (event.Dragging() && HasCapture())
        drag(event);
    if (onPointer)
    {
        const double height = m_scene.part ? m_scene.part->number(util::keys::topMaterialZ) : 0.0;
        const Point3 point =
            m_camera.pointAt({static_cast<double>(event.GetX()), static_cast<double>(event.GetY())}, height);
        onPointer(event.Leaving() || !m_scene.part ? nullptr : &point);
    }
}

void PartView::onWheel(wxMouseEvent& event)
{
    const double steps = static_cast<double>(event.GetWheelRotation()) / std::max(1, event.GetWheelDelta());
    m_camera.zoomAt({static_cast<double>(event.GetX()), static_cast<double>(event.GetY())},
                    std::pow(wheelFactor, steps));
    m_fitted = false;
    redraw(true);
}

void PartView::onKey(wxKeyEvent& event)
{
    switch (event.GetKeyCode())
    {
    case WXK_LEFT:
        m_camera.pan(keyPixels, 0);
        break;
    case WXK_RIGHT:
        m_camera.pan(-keyPixels, 0);
        break;
    case WXK_UP:
        m_camera.pan(0, keyPixels);
        break;
    case WXK_DOWN:
        m_camera.pan(0, -keyPixels);
        break;
    case '+':
    case '=':
    case WXK_NUMPAD_ADD:
        zoom(wheelFactor);
        return;
    case '-':
    case WXK_NUMPAD_SUBTRACT:
        zoom(1 / wheelFactor);
        return;
    case WXK_HOME:
        zoomToFit();
        return;
    case WXK_TAB:
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
        return;
    default:
        event.Skip();
        return;
    }
    m_fitted = false;
    redraw(true);
}

} // namespace host
