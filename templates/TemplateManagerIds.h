#ifndef TEMPLATES_TEMPLATEMANAGERIDS_H
#define TEMPLATES_TEMPLATEMANAGERIDS_H

#include "frame/ControlId.h"

namespace TessaronResources
{

/// The commands of the template manager's window, as the toolkit takes them.
namespace templateCommand
{
constexpr int sortAZ = controlId(32787); ///< no button sends these two
constexpr int sortZA = controlId(32788);
constexpr int preferences = controlId(32797);
constexpr int exit = controlId(32798);
constexpr int find = controlId(32800);
constexpr int sort = controlId(32801);
constexpr int sortAscending = controlId(32802);
constexpr int sortDescending = controlId(32803);
constexpr int importTemplates = controlId(32804);
constexpr int exportTemplates = controlId(32805);
} // namespace templateCommand

} // namespace TessaronResources

#endif
