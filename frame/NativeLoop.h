#ifndef FRAME_NATIVELOOP_H
#define FRAME_NATIVELOOP_H

class wxDialog;

namespace TessaronResources::native
{

/// Runs one of the toolkit's own modal dialogs (file, folder, font) in a native loop of its own. When such a dialog
/// closes, the toolkit ends the native loop around it as well: this one, then, and not the host's. A quit message
/// cancels the dialog and stays posted. \returns what the dialog's ShowModal() returns.
int runModal(wxDialog& dialog);

} // namespace TessaronResources::native

#endif
