#ifndef HOST_PARTVIEW_H
#define HOST_PARTVIEW_H

#include "host/Camera.h"
#include "host/Scene.h"

#include <wx/bitmap.h>
#include <wx/panel.h>
#include <wx/timer.h>

#include <functional>

namespace host
{

/// The drawing. The wheel zooms, dragging moves it, dragging with the right button or with Shift turns it; the arrow
/// keys move it, + and - zoom, Home fits it into the window.
class PartView : public wxPanel
{
public:
    explicit PartView(wxWindow* parent);

    const Scene& scene() const { return m_scene; }
    /// Shows another scene. Where the camera stands does not change.
    void setScene(Scene scene);

    void zoomToFit();
    void zoom(double factor);
    /// Moves the view so that a point is in its middle, and draws near when less than the given length about it can be
    /// told from its surroundings.
    void showPlace(const Point3& point, double length);
    void lookFromAbove();
    void lookFromSide();
    bool fromAbove() const { return m_camera.fromAbove(); }

    /// Is told the point on top of the stock that the pointer is at, and null when the pointer has left.
    std::function<void(const Point3*)> onPointer;
    /// Is told when the user has turned the view.
    std::function<void()> onTurned;

    bool AcceptsFocus() const override { return true; }

private:
    void onPaint(wxPaintEvent& event);
    void onSize(wxSizeEvent& event);
    void onMouse(wxMouseEvent& event);
    void onWheel(wxMouseEvent& event);
    void onKey(wxKeyEvent& event);
    void drag(const wxMouseEvent& event);

    /// Draws anew: fast and coarse at first, and in full when the view has come to rest.
    void redraw(bool coarse);
    void render();
    void fitScene();

    Scene m_scene;
    Camera m_camera;
    bool m_fitted = true;
    wxBitmap m_picture;
    bool m_stale = true;
    bool m_coarse = false;
    wxTimer m_rest;
    /// The focus came by the keyboard and is shown.
    bool m_showFocus = false;
    wxPoint m_dragged;
};

} // namespace host

#endif
