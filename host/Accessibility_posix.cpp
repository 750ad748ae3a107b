#include "host/Accessibility.h"

#include <wx/window.h>

#include <gtk/gtk.h>

namespace host
{

void setAccessible(wxWindow& control, const wxString& name, const wxString& description)
{
    AtkObject* const accessible = gtk_widget_get_accessible(static_cast<GtkWidget*>(control.GetHandle()));
    if (!accessible)
        return;
    atk_object_set_name(accessible, name.utf8_str());
    atk_object_set_description(accessible, description.utf8_str());
}

} // namespace host
