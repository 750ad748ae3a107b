#ifndef HOST_PARTPAINTER_H
#define HOST_PARTPAINTER_H

#include "host/Camera.h"
#include "host/Scene.h"

class wxColour;
class wxGraphicsContext;

namespace host
{

/// Draws the grid, the stock and the part.
class PartPainter
{
public:
    PartPainter(wxGraphicsContext& context, const Camera& camera, const Part& part);

    /// What lies under the toolpath.
    void drawBelow();
    /// What lies over it, seen from the side: the top of the part, as if of glass.
    void drawAbove();

private:
    void fill(const std::vector<Contour>& contours, double height, const wxColour& colour);
    void stroke(const std::vector<Contour>& contours, double height, const wxColour& colour, double width, bool dashed);
    void drawWalls();
    void drawPosts();

    wxGraphicsContext& m_context;
    const Camera& m_camera;
    const Part& m_part;
    double m_top = 0;
    double m_floor = 0;
};

} // namespace host

#endif
