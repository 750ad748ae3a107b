#ifndef TEMPLATES_GRIDFONT_H
#define TEMPLATES_GRIDFONT_H

#include <wx/font.h>
#include <wx/settings.h>

#include <string>

namespace TessaronResources
{

/// The font of a stored description; the system's for an empty one or one that this system does not understand.
inline wxFont gridFont(const std::string& description)
{
    wxFont font;
    if (!description.empty() && font.SetNativeFontInfo(wxString::FromUTF8(description)) && font.IsOk())
        return font;
    return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
}

} // namespace TessaronResources

#endif
