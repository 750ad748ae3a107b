#ifndef FRAME_WINDOWPLACE_H
#define FRAME_WINDOWPLACE_H

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <optional>
#include <vector>

class wxTopLevelWindow;
class wxWindow;

namespace TessaronResources
{

/// Where a window of this size comes up: at the place that was kept, if it can be seen and taken hold of there; else in
/// the middle of its owner, or of the first screen where there is none (an empty rectangle). Always whole on one
/// screen, or with its upper left corner where the screen is too small. All in pixels; `screens` is not empty.
wxPoint windowPlace(const std::optional<wxPoint>& kept, const wxSize& size, const wxRect& owner,
                    const std::vector<wxRect>& screens);

/// Where a window goes so that it does not cover a part of the screen: below that part, above it or beside it, by the
/// shortest way. Where it is when it does not cover it, or there is no room. All in pixels.
wxPoint placeBeside(const wxRect& window, const wxRect& uncovered, const wxRect& screen);

/// Puts a window where the user wants it, and keeps in the user's profile where he moved it.
class WindowPlace
{
public:
    enum class Keeps
    {
        nothing,
        place,
        placeAndSize
    };

    /// Before the window is shown. `name` stands for the window in the profile; `owner` may be null.
    void comeUp(wxTopLevelWindow& window, const wxString& name, Keeps keeps, const wxWindow* owner);
    /// Before the window is hidden.
    void keep(const wxTopLevelWindow& window);

private:
    wxString m_name;
    Keeps m_keeps = Keeps::nothing;
    wxRect m_cameUpAt;
};

} // namespace TessaronResources

#endif
