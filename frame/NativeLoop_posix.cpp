#include "frame/NativeLoop.h"

#include <gtk/gtk.h>

#include <exception>

namespace TessaronResources::native
{

namespace
{

struct Call
{
    const std::function<void()>& action;
    std::exception_ptr error;
};

gboolean run(gpointer data)
{
    auto& call = *static_cast<Call*>(data);
    try
    {
        call.action();
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

void runInOwnLoop(const std::function<void()>& action)
{
    Call call{action, nullptr};
    g_idle_add(run, &call);
    gtk_main();
    if (call.error)
        std::rethrow_exception(call.error);
}

} // namespace TessaronResources::native
