#ifndef FRAME_TRANSLATION_H
#define FRAME_TRANSLATION_H

#include <string>

class wxString;

namespace TessaronResources
{

// The user's texts are English in the code, the string table and the dialog templates. The library holds a gettext
// catalogue for each other language, resources/translations/<language>.po. The language is the one that the environment
// names (LANGUAGE, LC_ALL, LC_MESSAGES, LANG) when the first text is shown; texts that its catalogue lacks stay
// English. The host's own translations are neither used nor changed.

/// An English text in the user's language, UTF-8. A text that has no translation is only made readable
/// (util::readableText()); so is `value`.
std::string translated(const std::string& text);
/// The same with `value` in the place of its "%s".
std::string translatedWith(const char* format, const std::string& value);
/// As translated(), for controls.
wxString translatedLabel(const char* text);

/// Marks a text of a table that is translated where it is shown.
constexpr const char* translatable(const char* text)
{
    return text;
}

} // namespace TessaronResources

#endif
