#ifndef HOST_TOOLPATHPAINTER_H
#define HOST_TOOLPATHPAINTER_H

#include "host/Camera.h"
#include "host/Scene.h"

#include <wx/graphics.h>

#include <vector>

namespace host
{

/// Draws a toolpath: cuts in the colour of their level, plunges and rapids apart from them.
class ToolpathPainter
{
public:
    /// \param coarseness how many pixels a line may leave out; more is faster
    ToolpathPainter(wxGraphicsContext& context, const Camera& camera, const Scene& scene, double coarseness);

    /// The cuts, from the floor up when seen from the side, and from the top down when seen from above.
    void drawCuts();
    void drawRapids();

private:
    bool wanted(const Run& run) const;
    void drawRun(const Run& run);
    void flush();

    wxGraphicsContext& m_context;
    const Camera& m_camera;
    const Scene& m_scene;
    const ToolpathModel& m_toolpath;
    const double m_coarseness;
    std::vector<wxPoint2DDouble> m_line;
};

} // namespace host

#endif
