#ifndef FRAME_MESSAGEDIALOG_H
#define FRAME_MESSAGEDIALOG_H

#include <wx/string.h>

class wxWindow;

namespace TessaronResources
{

enum class MessageKind
{
    information,
    warning,
    error,
};

/// Shows a message with an OK button, modal, in the look in force. One of many lines is scrolled.
/// \returns when the user has closed it.
void showMessage(wxWindow* owner, const wxString& caption, const wxString& text, MessageKind kind);

/// Asks a question with the buttons OK and Cancel.
/// \returns whether the answer was OK.
bool askOkCancel(wxWindow* owner, const wxString& caption, const wxString& text, MessageKind kind);

} // namespace TessaronResources

#endif
