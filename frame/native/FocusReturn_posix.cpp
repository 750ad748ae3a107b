#include "frame/native/FocusReturn.h"

#include <gtk/gtk.h>

#include <list>

namespace TessaronResources::native
{

// The toolkit's windows may be gone by the end: the pointers become null then. A list, as they must stay in place.
struct FocusReturn::Controls
{
    std::list<gpointer> widgets;
    gpointer modal = nullptr;
};

FocusReturn::FocusReturn() : m_controls(std::make_unique<Controls>())
{
    if (GtkWidget* const modal = gtk_grab_get_current(); GTK_IS_WINDOW(modal))
    {
        m_controls->modal = modal;
        g_object_add_weak_pointer(G_OBJECT(modal), &m_controls->modal);
    }
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
    if (m_controls->modal)
    {
        auto* const modal = static_cast<GtkWidget*>(m_controls->modal);
        g_object_remove_weak_pointer(G_OBJECT(modal), &m_controls->modal);
        if (gtk_widget_get_visible(modal) && gtk_window_get_modal(GTK_WINDOW(modal)) && !gtk_widget_has_grab(modal))
            gtk_grab_add(modal);
    }
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
