#ifndef FRAME_LOOKS_VISUALTHEMES_H
#define FRAME_LOOKS_VISUALTHEMES_H

#include <tessaron/util/VisualTheme.h>

namespace TessaronResources
{

/// How many themes there are; their numbers start at 0.
constexpr int visualThemeCount = 28;

/// Whether a number is that of a theme.
bool isVisualTheme(int theme);

/// The name that the user reads; empty for a number that is no theme.
const char* visualThemeName(int theme);

/// Installs the visual manager of a theme. A number that is no theme leaves the manager that is in force.
/// \returns whether it was a theme.
bool installVisualTheme(int theme);

} // namespace TessaronResources

#endif
