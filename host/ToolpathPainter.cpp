#include "host/ToolpathPainter.h"

#include "host/Palette.h"
#include <tessaron/util/Keys.h>

#include <cmath>

namespace host
{

namespace
{

// Long lines take more than their share of time to draw.
constexpr std::size_t longestLine = 200;
constexpr double cutWidth = 1.3;
constexpr double thinCutWidth = 0.7;
constexpr double rapidWidth = 1.0;
constexpr double plungeWidth = 1.8;
// From above the levels lie over one another: each is drawn wider than the one below it, by at most this.
constexpr double widestStep = 1.3;
// So many rapid moves would hide the cuts if they were drawn in full colour.
constexpr std::size_t manyRapids = 3000;
constexpr unsigned char faint = 60;

} // namespace

ToolpathPainter::ToolpathPainter(wxGraphicsContext& context, const Camera& camera, const Scene& scene,
                                 double coarseness)
    : m_context(context), m_camera(camera), m_scene(scene), m_toolpath(*scene.toolpath), m_coarseness(coarseness)
{
}

bool ToolpathPainter::wanted(const Run& run) const
{
    return m_scene.level == Scene::allLevels || run.level == static_cast<std::size_t>(m_scene.level);
}

void ToolpathPainter::flush()
{
    if (m_line.size() > 1)
        m_context.StrokeLines(m_line.size(), m_line.data());
    m_line.clear();
}

void ToolpathPainter::drawRun(const Run& run)
{
    double leftOut = 0;
    wxPoint2DDouble previous;
    for (std::size_t i = 0; i < run.count; ++i)
    {
        const ScreenPoint at = m_camera.project(m_toolpath.points()[run.first + i]);
        const wxPoint2DDouble point(at.x, at.y);
        if (i > 0)
            leftOut += std::abs(point.m_x - previous.m_x) + std::abs(point.m_y - previous.m_y);
        previous = point;
        if (i > 0 && i + 1 < run.count && leftOut < m_coarseness)
            continue;
        leftOut = 0;
        m_line.push_back(point);
        if (m_line.size() == longestLine)
        {
            flush();
            m_line.push_back(point);
        }
    }
    flush();
}

void ToolpathPainter::drawCuts()
{
    const std::size_t count = m_toolpath.levels().size();
    // Passes that lie closer than their lines are wide would run into one area.
    const double width = m_toolpath.points().size() > 100000 ? thinCutWidth : cutWidth;
    const double room = m_scene.part->number(util::keys::stepover) * m_camera.scale() * 0.5;
    const double step = m_camera.fromAbove() && m_scene.level == Scene::allLevels
                            ? std::min(widestStep, room / static_cast<double>(std::max<std::size_t>(1, count)))
                            : 0.0;
    std::vector<std::vector<const Run*>> levels(count);
    for (const Run& run : m_toolpath.runs())
        if (run.kind == MoveKind::cut && wanted(run))
            levels[run.level].push_back(&run);
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::size_t level = m_camera.fromAbove() ? i : count - 1 - i;
        const double above = step * static_cast<double>(count - 1 - level);
        m_context.SetPen(
            m_context.CreatePen(wxGraphicsPenInfo(palette::level(level, count), width + above).Join(wxJOIN_ROUND)));
        for (const Run* run : levels[level])
            drawRun(*run);
    }
}

void ToolpathPainter::drawRapids()
{
    if (!m_scene.showRapids)
        return;
    const bool many = m_toolpath.statistics().rapidMoves > manyRapids;
    const auto colour = [many](const wxColour& full)
    { return many ? wxColour(full.Red(), full.Green(), full.Blue(), faint) : full; };
    const struct
    {
        MoveKind kind;
        wxGraphicsPenInfo pen;
    } kinds[] = {{MoveKind::rapid, wxGraphicsPenInfo(colour(palette::rapid), rapidWidth, wxPENSTYLE_SHORT_DASH)},
                 {MoveKind::plunge, wxGraphicsPenInfo(colour(palette::plunge), plungeWidth)}};
    for (const auto& kind : kinds)
    {
        m_context.SetPen(m_context.CreatePen(kind.pen));
        for (const Run& run : m_toolpath.runs())
            if (run.kind == kind.kind)
                drawRun(run);
    }
}

} // namespace host
