#ifndef HOST_OVERLAYPAINTER_H
#define HOST_OVERLAYPAINTER_H

#include "host/Camera.h"
#include "host/Scene.h"

#include <wx/font.h>

class wxGraphicsContext;

namespace host
{

/// A length that is 1, 2 or 5 times a power of ten and not shorter than the given one.
double roundLength(double length);

/// Draws what lies over or behind the scene and helps to read it: grid, axes, scale and legend.
class OverlayPainter
{
public:
    OverlayPainter(wxGraphicsContext& context, const Camera& camera, const Scene& scene, const wxFont& font);

    void drawBackground();
    void drawOverlay();

private:
    void drawGrid();
    void drawAxes();
    void drawScaleBar();
    void drawLegend();
    void drawPlace();
    void drawNotice(const wxString& title, const wxString& text);
    void drawCard(double x, double y, double width, double height);

    wxGraphicsContext& m_context;
    const Camera& m_camera;
    const Scene& m_scene;
    const wxFont m_font;
};

} // namespace host

#endif
