#ifndef HOST_HOSTMENUS_H
#define HOST_HOSTMENUS_H

#include <wx/defs.h>

class wxMenuBar;
class wxToolBar;

namespace host
{

/// How many windows of the module there are to watch a job with.
inline constexpr int lookCount = 4;

/// The commands of the main window that are not the toolkit's own.
enum Command
{
    commandOpenToolpath = wxID_HIGHEST + 1,
    commandGenerate,
    commandCancel,
    commandLooks, // one for each look
    commandChipThickness = commandLooks + lookCount,
    commandGougeCheck,
    commandSmartLink,
    commandLoadTemplate,
    commandSaveTemplate,
    commandAbove,
    commandSide,
};

/// The menus of the main window.
wxMenuBar* makeMenus();

/// Fills the tool bar of the main window.
void addTools(wxToolBar& bar);

} // namespace host

#endif
