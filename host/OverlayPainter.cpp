#include "host/OverlayPainter.h"

#include "host/Palette.h"

#include <wx/brush.h>
#include <wx/graphics.h>

#include <cmath>
#include <utility>
#include <vector>

namespace host
{

namespace
{

constexpr double edge = 16;
constexpr double minorGridPixels = 14;
constexpr int minorsPerMajor = 5;
constexpr double scaleBarPixels = 90;
constexpr double axisPixels = 34;
constexpr double placeRadius = 15;
constexpr std::size_t longestLevelList = 6;

struct LegendEntry
{
    enum class Sample
    {
        area,
        line,
        dashes,
        ramp,
    };

    Sample sample;
    wxColour colour;
    wxString text;
};

wxString lengthText(double length)
{
    return wxString::FromCDouble(length, length < 0.1 ? 3 : length < 1 ? 1 : 0) + " mm";
}

wxString heightText(double height)
{
    return wxString::Format("Z %s", wxString::FromCDouble(height, 2));
}

std::vector<LegendEntry> legendOf(const Scene& scene)
{
    using Sample = LegendEntry::Sample;
    std::vector<LegendEntry> entries{{Sample::area, palette::partFill, "Part"},
                                     {Sample::area, palette::stockFill, "Stock"}};
    if (!scene.toolpath)
        return entries;
    if (scene.showRapids)
    {
        entries.push_back({Sample::dashes, palette::rapid, "Rapid"});
        entries.push_back({Sample::line, palette::plunge, "Plunge"});
    }
    const std::vector<double>& levels = scene.toolpath->levels();
    if (levels.size() > longestLevelList && scene.level == Scene::allLevels)
    {
        entries.push_back({Sample::ramp, wxColour(),
                           wxString::Format("%s to %s", heightText(levels.front()), heightText(levels.back()))});
        return entries;
    }
    for (std::size_t i = 0; i < levels.size(); ++i)
        if (scene.level == Scene::allLevels || static_cast<std::size_t>(scene.level) == i)
            entries.push_back({Sample::line, palette::level(i, levels.size()), "Cut " + heightText(levels[i])});
    return entries;
}

void drawSwatch(wxGraphicsContext& context, const LegendEntry& entry, double x, double y, double width, double height)
{
    using Sample = LegendEntry::Sample;
    const double middle = y + height / 2;
    switch (entry.sample)
    {
    case Sample::area:
        context.SetPen(context.CreatePen(wxGraphicsPenInfo(palette::shaded(entry.colour, 0.6), 1)));
        context.SetBrush(wxBrush(entry.colour));
        context.DrawRoundedRectangle(x, y + 1, width, height - 2, 2);
        break;
    case Sample::line:
    case Sample::dashes:
        context.SetPen(context.CreatePen(wxGraphicsPenInfo(
            entry.colour, 2.5, entry.sample == Sample::dashes ? wxPENSTYLE_SHORT_DASH : wxPENSTYLE_SOLID)));
        context.StrokeLine(x, middle, x + width, middle);
        break;
    case Sample::ramp:
        constexpr std::size_t steps = 16;
        context.SetPen(*wxTRANSPARENT_PEN);
        for (std::size_t i = 0; i < steps; ++i)
        {
            context.SetBrush(wxBrush(palette::level(i, steps)));
            const double step = width / static_cast<double>(steps);
            context.DrawRectangle(x + step * static_cast<double>(i), middle - 3, step + 0.5, 6);
        }
        break;
    }
}

} // namespace

double roundLength(double length)
{
    const double power = std::pow(10.0, std::floor(std::log10(length)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= length * (1 - 1e-9))
            return factor * power;
    return 10 * power;
}

OverlayPainter::OverlayPainter(wxGraphicsContext& context, const Camera& camera, const Scene& scene, const wxFont& font)
    : m_context(context), m_camera(camera), m_scene(scene), m_font(font)
{
}

void OverlayPainter::drawBackground()
{
    m_context.SetPen(*wxTRANSPARENT_PEN);
    m_context.SetBrush(
        m_context.CreateLinearGradientBrush(0, 0, 0, m_camera.height(), palette::canvasTop, palette::canvasBottom));
    m_context.DrawRectangle(0, 0, m_camera.width(), m_camera.height());
    if (m_scene.part && m_camera.fromAbove())
        drawGrid();
}

void OverlayPainter::drawGrid()
{
    const double step = roundLength(minorGridPixels / m_camera.scale());
    const Point3 low = m_camera.pointAt({0, m_camera.height()}, 0);
    const Point3 high = m_camera.pointAt({m_camera.width(), 0}, 0);
    for (const bool major : {false, true})
    {
        m_context.SetPen(m_context.CreatePen(wxGraphicsPenInfo(major ? palette::gridMajor : palette::gridMinor, 1)));
        for (int axis = 0; axis < 2; ++axis)
            for (double line = std::ceil(low[axis] / step); line * step <= high[axis]; ++line)
            {
                if ((std::fmod(line, minorsPerMajor) == 0) != major)
                    continue;
                const ScreenPoint at = m_camera.project(Point3(line * step, line * step, 0));
                // Half a pixel off, lines one pixel wide are sharp.
                const double place = std::floor(axis == 0 ? at.x : at.y) + 0.5;
                if (axis == 0)
                    m_context.StrokeLine(place, 0, place, m_camera.height());
                else
                    m_context.StrokeLine(0, place, m_camera.width(), place);
            }
    }
}

void OverlayPainter::drawOverlay()
{
    if (!m_scene.part)
    {
        drawNotice("No part is open", L"Open one with File \u203a Open part, or drop a file here.");
        return;
    }
    if (m_scene.place)
        drawPlace();
    drawAxes();
    drawScaleBar();
    if (m_scene.showLegend)
        drawLegend();
}

// A ring with a cross through it that leaves the place itself free.
void OverlayPainter::drawPlace()
{
    const ScreenPoint at = m_camera.project(*m_scene.place);
    m_context.SetBrush(*wxTRANSPARENT_BRUSH);
    for (const auto& [colour, width] : {std::pair(wxColour(*wxWHITE), 6.0), std::pair(palette::mark, 2.5)})
    {
        m_context.SetPen(m_context.CreatePen(wxGraphicsPenInfo(colour, width).Cap(wxCAP_ROUND)));
        m_context.DrawEllipse(at.x - placeRadius, at.y - placeRadius, 2 * placeRadius, 2 * placeRadius);
        for (const double side : {-1.0, 1.0})
        {
            m_context.StrokeLine(at.x + side * placeRadius * 0.6, at.y, at.x + side * placeRadius * 1.5, at.y);
            m_context.StrokeLine(at.x, at.y + side * placeRadius * 0.6, at.x, at.y + side * placeRadius * 1.5);
        }
    }
}

// The directions of the axes, in the lower left corner.
void OverlayPainter::drawAxes()
{
    const ScreenPoint origin{edge + axisPixels * 0.75, m_camera.height() - edge - axisPixels * 0.55};
    const ScreenPoint zero = m_camera.project(Point3(0, 0, 0));
    const struct
    {
        Point3 end;
        wxColour colour;
        wxString name;
    } axes[] = {{{1.0, 0.0, 0.0}, palette::axisX, "X"},
                {{0.0, 1.0, 0.0}, palette::axisY, "Y"},
                {{0.0, 0.0, 1.0}, palette::axisZ, "Z"}};
    for (const auto& axis : axes)
    {
        const ScreenPoint end = m_camera.project(axis.end);
        const double dx = (end.x - zero.x) / m_camera.scale() * axisPixels;
        const double dy = (end.y - zero.y) / m_camera.scale() * axisPixels;
        if (std::hypot(dx, dy) < 1)
            continue;
        m_context.SetPen(m_context.CreatePen(wxGraphicsPenInfo(axis.colour, 2).Cap(wxCAP_ROUND)));
        m_context.StrokeLine(origin.x, origin.y, origin.x + dx, origin.y + dy);
        m_context.SetFont(m_font, axis.colour);
        double width = 0;
        double height = 0;
        m_context.GetTextExtent(axis.name, &width, &height);
        m_context.DrawText(axis.name, origin.x + dx * 1.3 - width / 2, origin.y + dy * 1.3 - height / 2);
    }
}

void OverlayPainter::drawScaleBar()
{
    const double length = roundLength(scaleBarPixels / m_camera.scale());
    const double pixels = length * m_camera.scale();
    const double right = m_camera.width() - edge;
    const double y = m_camera.height() - edge + 0.5;
    m_context.SetPen(m_context.CreatePen(wxGraphicsPenInfo(palette::mutedText, 1.5)));
    const wxPoint2DDouble bar[] = {{right - pixels, y - 5}, {right - pixels, y}, {right, y}, {right, y - 5}};
    m_context.StrokeLines(std::size(bar), bar);
    m_context.SetFont(m_font, palette::mutedText);
    double width = 0;
    double height = 0;
    m_context.GetTextExtent(lengthText(length), &width, &height);
    m_context.DrawText(lengthText(length), right - pixels / 2 - width / 2, y - 5 - height);
}

void OverlayPainter::drawCard(double x, double y, double width, double height)
{
    m_context.SetPen(m_context.CreatePen(wxGraphicsPenInfo(palette::cardLine, 1)));
    m_context.SetBrush(wxBrush(palette::card));
    m_context.DrawRoundedRectangle(x + 0.5, y + 0.5, width, height, 6);
}

void OverlayPainter::drawLegend()
{
    const std::vector<LegendEntry> entries = legendOf(m_scene);
    m_context.SetFont(m_font, palette::text);
    double textWidth = 0;
    double lineHeight = 0;
    for (const LegendEntry& entry : entries)
    {
        double width = 0;
        double height = 0;
        m_context.GetTextExtent(entry.text, &width, &height);
        textWidth = std::max(textWidth, width);
        lineHeight = std::max(lineHeight, height + 4);
    }
    const double swatch = 26;
    const double padding = 10;
    const double width = std::ceil(padding * 3 + swatch + textWidth);
    const double height = std::ceil(padding * 1.4 + lineHeight * static_cast<double>(entries.size()));
    drawCard(edge, edge, width, height);
    double y = edge + padding * 0.7;
    for (const LegendEntry& entry : entries)
    {
        drawSwatch(m_context, entry, edge + padding, y + 2, swatch, lineHeight - 4);
        m_context.SetFont(m_font, palette::text);
        m_context.DrawText(entry.text, edge + padding * 2 + swatch, y + 2);
        y += lineHeight;
    }
}

void OverlayPainter::drawNotice(const wxString& title, const wxString& text)
{
    double width = 0;
    double height = 0;
    m_context.SetFont(m_font.Scaled(1.5f).Bold(), palette::mutedText);
    m_context.GetTextExtent(title, &width, &height);
    const double middle = m_camera.height() / 2;
    m_context.DrawText(title, (m_camera.width() - width) / 2, middle - height * 1.2);
    m_context.SetFont(m_font, palette::mutedText);
    m_context.GetTextExtent(text, &width, &height);
    m_context.DrawText(text, (m_camera.width() - width) / 2, middle);
}

} // namespace host
