#ifndef FRAME_NATIVE_NATIVELOOP_H
#define FRAME_NATIVE_NATIVELOOP_H

#include <wx/gdicmn.h>

class wxDialog;
class wxMenu;
class wxWindow;

namespace TessaronResources::native
{

/// Runs one of the toolkit's own modal dialogs (file, folder, font) in a native loop of its own. When such a dialog
/// closes, the toolkit ends the native loop around it as well: this one, then, and not the host's. A quit message
/// cancels the dialog and stays posted.
/// \returns what the dialog's ShowModal() returns.
int runModal(wxDialog& dialog);

/// Lets the user choose from a popup menu, at a place of the window or at the pointer. A quit message closes the menu
/// and stays posted.
/// \returns the id of what was chosen, or wxID_NONE.
int chooseFromMenu(wxWindow& window, wxMenu& menu, const wxPoint& at = wxDefaultPosition);

} // namespace TessaronResources::native

#endif
