#include "frame/native/NativeLoop.h"

#include "frame/MessagePump.h"

#include <wx/dialog.h>

#include <gtk/gtk.h>

#include <exception>

namespace TessaronResources::native
{

namespace
{

// The toolkit waits for its dialogs and menus without looking at our quit message.
class QuitPoll
{
public:
    QuitPoll(GSourceFunc check, void* data) : m_source(g_timeout_add(milliseconds, check, data)) {}
    ~QuitPoll() { g_source_remove(m_source); }
    QuitPoll(const QuitPoll&) = delete;
    QuitPoll& operator=(const QuitPoll&) = delete;

private:
    static constexpr guint milliseconds = 100;
    guint m_source;
};

struct Run
{
    wxDialog& dialog;
    int answer = wxID_CANCEL;
    std::exception_ptr error;
};

// A file dialog that asks whether a file is to be replaced waits in a loop of its own.
void cancelQuestions(const wxDialog& dialog)
{
    const auto* const owner = static_cast<const GtkWindow*>(static_cast<void*>(dialog.GetHandle()));
    GList* const windows = gtk_window_list_toplevels();
    for (const GList* window = windows; window; window = window->next)
        if (GTK_IS_MESSAGE_DIALOG(window->data) && gtk_window_get_transient_for(GTK_WINDOW(window->data)) == owner)
            gtk_dialog_response(GTK_DIALOG(window->data), GTK_RESPONSE_CANCEL);
    g_list_free(windows);
}

gboolean cancelOnQuit(gpointer data)
{
    wxDialog& dialog = static_cast<Run*>(data)->dialog;
    if (dialog.IsModal() && MessagePump::quitPosted())
    {
        cancelQuestions(dialog);
        dialog.EndModal(wxID_CANCEL);
    }
    return G_SOURCE_CONTINUE;
}

gboolean closeMenuOnQuit(gpointer)
{
    GtkWidget* const grabbing = gtk_grab_get_current();
    if (grabbing && GTK_IS_MENU_SHELL(grabbing) && MessagePump::quitPosted())
        gtk_menu_shell_cancel(GTK_MENU_SHELL(grabbing));
    return G_SOURCE_CONTINUE;
}

gboolean showModal(gpointer data)
{
    auto& call = *static_cast<Run*>(data);
    try
    {
        const QuitPoll poll(cancelOnQuit, data);
        call.answer = call.dialog.ShowModal();
    }
    catch (...)
    {
        // No exception may pass through the native loop.
        call.error = std::current_exception();
    }
    gtk_main_quit();
    return G_SOURCE_REMOVE;
}

} // namespace

int runModal(wxDialog& dialog)
{
    Run call{dialog, wxID_CANCEL, nullptr};
    g_idle_add(showModal, &call);
    gtk_main();
    if (call.error)
        std::rethrow_exception(call.error);
    return call.answer;
}

int chooseFromMenu(wxWindow& window, wxMenu& menu, const wxPoint& at)
{
    const QuitPoll poll(closeMenuOnQuit, nullptr);
    return window.GetPopupMenuSelectionFromUser(menu, at);
}

} // namespace TessaronResources::native
