#ifndef TEMPLATES_GRID_GRIDFONT_H
#define TEMPLATES_GRID_GRIDFONT_H

#include <wx/font.h>
#include <wx/settings.h>

#include <cmath>
#include <string>

namespace TessaronResources
{

/// The font of a stored description. For an empty one, or one that this system does not understand, the system's, a
/// little smaller: a grid of many columns is read by the row.
inline wxFont gridFont(const std::string& description)
{
    wxFont font;
    if (!description.empty() && font.SetNativeFontInfo(wxString::FromUTF8(description)) && font.IsOk())
        return font;
    constexpr double gridFontScale = 0.9;
    font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
    font.SetFractionalPointSize(std::round(font.GetFractionalPointSize() * gridFontScale * 10) / 10);
    return font;
}

} // namespace TessaronResources

#endif
