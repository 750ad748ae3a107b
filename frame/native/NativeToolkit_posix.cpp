#include "frame/native/NativeToolkit.h"

#include <wx/string.h>
#include <wx/window.h>

#include <gtk/gtk.h>

#include <signal.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <clocale>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace TessaronResources::native
{

namespace
{

// Toolkits are known to change the handlers of classic signals only.
constexpr int classicSignals = 31;

const char compactStyle[] = "* { min-height: 0; min-width: 0; }"
                            "button, button.text-button { padding: 0 4px; }"
                            "entry { padding: 0 3px; }"
                            "entry.result:disabled { color: inherit; }"
                            "combobox button, combobox button.combo { padding: 0 4px; }"
                            "combobox arrow { min-width: 14px; min-height: 14px; }"
                            "scale indicator { min-width: 1px; min-height: 6px; }"
                            "checkbutton, radiobutton { padding: 0; }";

GtkStyleProvider* compactProvider()
{
    static GtkCssProvider* const provider = []
    {
        GtkCssProvider* const result = gtk_css_provider_new();
        gtk_css_provider_load_from_data(result, compactStyle, -1, nullptr);
        return result;
    }();
    return GTK_STYLE_PROVIDER(provider);
}

void addProvider(GtkWidget* widget, gpointer)
{
    gtk_style_context_add_provider(gtk_widget_get_style_context(widget), compactProvider(),
                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    if (GTK_IS_CONTAINER(widget))
        gtk_container_forall(GTK_CONTAINER(widget), addProvider, nullptr);
}

// The native bar is a thin line whatever room it has; ours fills its control.
void fillProgressBar(GtkWidget* bar, int height)
{
    const int border = 1;
    const std::string style =
        "progressbar trough, progressbar progress { min-height: " + std::to_string(std::max(1, height - 2 * border)) +
        "px; border-radius: 2px; }";
    GtkCssProvider* const provider = gtk_css_provider_new();
    gtk_css_provider_load_from_data(provider, style.c_str(), -1, nullptr);
    gtk_style_context_add_provider(gtk_widget_get_style_context(bar), GTK_STYLE_PROVIDER(provider),
                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(provider);
}

GtkWidget* widgetOf(wxWindow& window)
{
    return static_cast<GtkWidget*>(window.GetHandle());
}

} // namespace

struct ProcessStateGuard::State
{
    std::string locale;
    std::array<struct sigaction, classicSignals + 1> actions{};
};

ProcessStateGuard::ProcessStateGuard() : m_state(std::make_unique<State>())
{
    if (const char* const locale = std::setlocale(LC_ALL, nullptr))
        m_state->locale = locale;
    for (int number = 1; number <= classicSignals; ++number)
        sigaction(number, nullptr, &m_state->actions[static_cast<std::size_t>(number)]);
}

ProcessStateGuard::~ProcessStateGuard()
{
    for (int number = 1; number <= classicSignals; ++number)
        sigaction(number, &m_state->actions[static_cast<std::size_t>(number)], nullptr);
    const char* const locale = std::setlocale(LC_ALL, nullptr);
    if (!locale || m_state->locale != locale)
        std::setlocale(LC_ALL, m_state->locale.c_str());
}

bool displayIsOpen()
{
    return gdk_display_get_default() != nullptr;
}

bool displayIsNamed()
{
    const auto named = [](const char* variable)
    {
        const char* const name = std::getenv(variable);
        return name && *name;
    };
    return displayIsOpen() || named("DISPLAY") || named("WAYLAND_DISPLAY");
}

bool start()
{
    if (displayIsOpen())
        return true;
    // Once: a second time prints that it is too late, also when there was no display the first time.
    static const bool localeIsKept = []
    {
        gtk_disable_setlocale();
        return true;
    }();
    static_cast<void>(localeIsKept);
    return gtk_init_check(nullptr, nullptr);
}

bool ownsEventQueue()
{
    GMainContext* const context = g_main_context_default();
    if (!g_main_context_acquire(context))
        return false;
    g_main_context_release(context);
    return true;
}

bool insideNativeLoop()
{
    return gtk_main_level() > 0;
}

void waitForMessage(int milliseconds)
{
    GMainContext* const context = g_main_context_default();
    if (!displayIsOpen() || !g_main_context_acquire(context))
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        return;
    }
    thread_local std::vector<GPollFD> descriptors(16);
    gint priority = 0;
    const gboolean ready = g_main_context_prepare(context, &priority);
    gint timeout = -1;
    gint count = 0;
    while ((count = g_main_context_query(context, priority, &timeout, descriptors.data(),
                                         static_cast<gint>(descriptors.size()))) >
           static_cast<gint>(descriptors.size()))
        descriptors.resize(static_cast<std::size_t>(count));
    if (!ready)
        g_poll(descriptors.data(), static_cast<guint>(count),
               timeout < 0 ? milliseconds : std::min(timeout, milliseconds));
    g_main_context_check(context, priority, descriptors.data(), count);
    g_main_context_release(context);
}

void setModal(wxWindow& window, bool modal)
{
    if (GTK_IS_WINDOW(widgetOf(window)))
        gtk_window_set_modal(GTK_WINDOW(widgetOf(window)), modal);
}

void keepReachable(wxWindow& window)
{
    if (!GTK_IS_WINDOW(widgetOf(window)))
        return;
    // What a modal window holds back is the input of its own group.
    GtkWindowGroup* const group = gtk_window_group_new();
    gtk_window_group_add_window(group, GTK_WINDOW(widgetOf(window)));
    g_object_unref(group);
}

void makeCompact(wxWindow& dialog)
{
    for (wxWindow* const child : dialog.GetChildren())
    {
        addProvider(widgetOf(*child), nullptr);
        if (GTK_IS_PROGRESS_BAR(widgetOf(*child)))
            fillProgressBar(widgetOf(*child), child->GetSize().y);
        makeCompact(*child);
    }
}

void markAsResult(wxWindow& field)
{
    gtk_style_context_add_class(gtk_widget_get_style_context(widgetOf(field)), "result");
}

void wrapText(wxWindow& text, int lines)
{
    if (!GTK_IS_LABEL(widgetOf(text)))
        return;
    GtkLabel* const label = GTK_LABEL(widgetOf(text));
    gtk_label_set_line_wrap(label, lines > 1);
    gtk_label_set_lines(label, lines);
    gtk_label_set_ellipsize(label, PANGO_ELLIPSIZE_END);
}

void setAccessibleName(wxWindow& control, const wxString& name)
{
    if (AtkObject* const accessible = gtk_widget_get_accessible(widgetOf(control)))
        atk_object_set_name(accessible, name.utf8_str());
}

void addTick(wxWindow& trackBar, int position)
{
    if (GTK_IS_SCALE(widgetOf(trackBar)))
        gtk_scale_add_mark(GTK_SCALE(widgetOf(trackBar)), position, GTK_POS_BOTTOM, nullptr);
}

void openDocument(const std::string& path)
{
    std::string program = "xdg-open";
    std::string argument = path;
    std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
    // GLib reparents the viewer, so that the host is not told when it ends.
    g_spawn_async(
        nullptr, arguments.data(), nullptr,
        static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL),
        nullptr, nullptr, nullptr, nullptr);
}

} // namespace TessaronResources::native
