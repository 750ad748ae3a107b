#include "frame/NativeLoop.h"

#include "frame/MessagePump.h"

#include <wx/dialog.h>

#include <gtk/gtk.h>

#include <exception>

namespace TessaronResources::native
{

namespace
{

// The toolkit waits for its dialog without looking at our quit message.
constexpr guint quitPollMilliseconds = 100;

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

gboolean showModal(gpointer data)
{
    auto& call = *static_cast<Run*>(data);
    const guint poll = g_timeout_add(quitPollMilliseconds, cancelOnQuit, data);
    try
    {
        call.answer = call.dialog.ShowModal();
    }
    catch (...)
    {
        // No exception may pass through the native loop.
        call.error = std::current_exception();
    }
    g_source_remove(poll);
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

} // namespace TessaronResources::native
