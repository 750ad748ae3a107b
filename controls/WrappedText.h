#ifndef CONTROLS_WRAPPEDTEXT_H
#define CONTROLS_WRAPPEDTEXT_H

#include <wx/string.h>

class wxWindow;

namespace mfcutil
{

/// A text broken into lines of at most so many pixels in a window's font.
/// \param mostLines 0: as many as it takes; otherwise the last line ends with an ellipsis where there is more
wxString wrappedText(wxWindow& window, const wxString& text, int width, int mostLines = 0);

} // namespace mfcutil

#endif
