#ifndef HOST_ACCESSIBILITY_H
#define HOST_ACCESSIBILITY_H

#include <wx/string.h>

class wxWindow;

namespace host
{

/// Tells assistive programs what a control is called and, when it is not plain from that, what it shows.
void setAccessible(wxWindow& control, const wxString& name, const wxString& description = wxString());

} // namespace host

#endif
