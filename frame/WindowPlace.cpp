#include "frame/WindowPlace.h"

#include "frame/configuration/UserProfile.h"

#include <wx/display.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace TessaronResources
{

namespace
{

constexpr const char* section = "Windows";
// Enough of a title bar to see it and to drag it.
constexpr int handleWidth = 80;
constexpr int handleHeight = 24;

std::vector<wxRect> screens()
{
    std::vector<wxRect> areas;
    for (unsigned display = 0; display < wxDisplay::GetCount(); ++display)
    {
        const wxDisplay shown(display);
        areas.insert(shown.IsPrimary() ? areas.begin() : areas.end(), shown.GetClientArea());
    }
    return areas;
}

std::optional<wxRect> keptRect(const wxString& name)
{
    wxRect rect;
    const std::string text = profileText(section, name.utf8_string().c_str());
    if (std::sscanf(text.c_str(), "%d,%d,%d,%d", &rect.x, &rect.y, &rect.width, &rect.height) == 4)
        return rect;
    return std::nullopt;
}

// Of what the window manager puts around a window, it tells only once the window is shown.
wxRect placeOf(const wxTopLevelWindow& window)
{
    return {window.GetPosition(), window.GetClientSize()};
}

// On one axis: whole on the screen, or at its near edge where it is too small.
int within(int place, int size, int begin, int length)
{
    return std::max(begin, std::min(place, begin + length - size));
}

} // namespace

wxPoint windowPlace(const std::optional<wxPoint>& kept, const wxSize& size, const wxRect& owner,
                    const std::vector<wxRect>& screens)
{
    const wxRect* screen = nullptr;
    wxPoint place;
    if (kept)
        for (const wxRect& candidate : screens)
            if (candidate.Contains(wxRect(*kept, wxSize(handleWidth, handleHeight))))
            {
                screen = &candidate;
                place = *kept;
            }
    if (!screen)
    {
        screen = &screens.front();
        const wxPoint middle = owner.GetPosition() + owner.GetSize() / 2;
        for (const wxRect& candidate : screens)
            if (!owner.IsEmpty() && candidate.Contains(middle))
                screen = &candidate;
        const wxRect& around = owner.IsEmpty() ? *screen : owner;
        place = around.GetPosition() + (around.GetSize() - size) / 2;
    }
    return {within(place.x, size.x, screen->x, screen->width), within(place.y, size.y, screen->y, screen->height)};
}

wxPoint placeBeside(const wxRect& window, const wxRect& uncovered, const wxRect& screen)
{
    wxPoint best = window.GetPosition();
    if (!window.Intersects(uncovered))
        return best;
    constexpr int gap = 8;
    int shortest = std::numeric_limits<int>::max();
    for (const wxPoint& place :
         {wxPoint(window.x, uncovered.GetBottom() + 1 + gap), wxPoint(window.x, uncovered.y - gap - window.height),
          wxPoint(uncovered.GetRight() + 1 + gap, window.y), wxPoint(uncovered.x - gap - window.width, window.y)})
    {
        const int way = std::abs(place.x - window.x) + std::abs(place.y - window.y);
        if (way >= shortest || !screen.Contains(wxRect(place, window.GetSize())))
            continue;
        shortest = way;
        best = place;
    }
    return best;
}

void WindowPlace::comeUp(wxTopLevelWindow& window, const wxString& name, Keeps keeps, const wxWindow* owner)
{
    m_name = name;
    m_keeps = keeps;
    const std::vector<wxRect> areas = screens();
    if (areas.empty())
        return;
    const std::optional<wxRect> kept = keeps == Keeps::nothing ? std::nullopt : keptRect(name);
    if (kept && keeps == Keeps::placeAndSize)
    {
        wxSize size = kept->GetSize();
        size.DecTo(areas.front().GetSize());
        size.IncTo(window.GetClientSize());
        window.SetClientSize(size);
    }
    const auto* const host = dynamic_cast<const wxTopLevelWindow*>(owner);
    const bool seen = owner && owner->IsShown() && !(host && host->IsIconized());
    window.Move(windowPlace(kept ? std::optional(kept->GetPosition()) : std::nullopt, window.GetSize(),
                            seen ? owner->GetScreenRect() : wxRect(), areas));
    m_cameUpAt = placeOf(window);
}

void WindowPlace::keep(const wxTopLevelWindow& window)
{
    const wxRect now = placeOf(window);
    if (m_keeps == Keeps::nothing || window.IsIconized() || window.IsMaximized() || now == m_cameUpAt)
        return;
    const std::string text = wxString::Format("%d,%d,%d,%d", now.x, now.y, now.width, now.height).utf8_string();
    keepProfileText(section, m_name.utf8_string().c_str(), text);
}

} // namespace TessaronResources
