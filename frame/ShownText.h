#ifndef FRAME_SHOWNTEXT_H
#define FRAME_SHOWNTEXT_H

#include "util/text/ReadableText.h"

#include <wx/strconv.h>
#include <wx/string.h>

#include <string>

namespace TessaronResources
{

/// A text of others for a control, whatever its bytes are. Not to be turned back: it may not be the same text then.
inline wxString shownText(const std::string& text)
{
    return wxString::FromUTF8(util::readableText(text));
}

/// A path as the toolkit's dialogs and file functions take it; pathOf() gives the same bytes back, whatever they are.
inline wxString toolkitPath(const std::string& path)
{
    return {path.c_str(), *wxConvFileName, path.size()};
}

inline std::string pathOf(const wxString& toolkitPath)
{
    const wxScopedCharBuffer bytes = toolkitPath.mb_str(*wxConvFileName);
    return {bytes.data(), bytes.length()};
}

} // namespace TessaronResources

#endif
