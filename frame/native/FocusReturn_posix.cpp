#include "frame/native/FocusReturn.h"

#include <gtk/gtk.h>

#include <list>

namespace TessaronResources::native
{

// The toolkit's windows may be gone by the end: the pointers become null then. A list, as they must stay in place.
struct FocusReturn::Controls
{
    std::list<gpointer> widgets;
};

FocusReturn::FocusReturn() : m_controls(std::make_unique<Controls>())
{
    GList* const windows = gtk_window_list_toplevels();
    for (const GList* window = windows; window; window = window->next)
        if (GtkWidget* const focused = gtk_window_get_focus(GTK_WINDOW(window->data));
            focused && gtk_widget_get_visible(GTK_WIDGET(window->data)))
        {
            gpointer& kept = m_controls->widgets.emplace_back(focused);
            g_object_add_weak_pointer(G_OBJECT(focused), &kept);
        }
    g_list_free(windows);
}

FocusReturn::~FocusReturn()
{
    for (gpointer& kept : m_controls->widgets)
    {
        if (!kept)
            continue;
        auto* const widget = static_cast<GtkWidget*>(kept);
        g_object_remove_weak_pointer(G_OBJECT(widget), &kept);
        if (!gtk_widget_is_focus(widget) && gtk_widget_is_drawable(widget) && gtk_widget_is_sensitive(widget))
            gtk_widget_grab_focus(widget);
    }
}

} // namespace TessaronResources::native
