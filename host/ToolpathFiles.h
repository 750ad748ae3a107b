#ifndef HOST_TOOLPATHFILES_H
#define HOST_TOOLPATHFILES_H

#include <string>

namespace host
{

/// The kinds of files that a toolpath is saved into, for a file dialog, and one for any name.
inline constexpr char saveFilters[] =
    "G-code (*.ngc;*.nc;*.gcode;*.tap;*.cnc)|*.ngc;*.nc;*.gcode;*.tap;*.cnc|Toolpath archive (*.xml)|*.xml|All files|*";

/// A name that a person has typed, with the ending of the kind that is picked in the dialog when it has none.
std::string withEnding(const std::string& path, int filter);

/// Whether a file's name stands for an archive; all others are programs.
bool isArchiveName(const std::string& path);

} // namespace host

#endif
