// A host that runs GTK's own loop and knows nothing of the toolkit.
#include "tests/progress/ScriptedProgress.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/progress/ProgressDialog.h>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <thread>

using namespace testing_support;

namespace
{

typedef boost::shared_ptr<exchange::ProgressData> Record;

constexpr char hostName[] = "native host";

struct HostState
{
    boost::shared_ptr<ScriptedProgress> progress = boost::make_shared<ScriptedProgress>();
    int result = 0;
    int ticks = 0;
    int quitAtTick = 0;
};

gboolean work(gpointer data)
{
    auto& host = *static_cast<HostState*>(data);
    Record record = host.progress;
    host.result = TessaronResources::displayProgressDialog(record, "Job");
    if (!host.quitAtTick)
        gtk_main_quit();
    return G_SOURCE_REMOVE;
}

gboolean tick(gpointer data)
{
    auto& host = *static_cast<HostState*>(data);
    if (++host.ticks == host.quitAtTick)
        gtk_main_quit();
    if (host.ticks == 1000)
        host.progress->report(-1.0);
    return G_SOURCE_CONTINUE;
}

gboolean quitMainLoop(gpointer)
{
    gtk_main_quit();
    return G_SOURCE_REMOVE;
}

void runHost(HostState& host)
{
    g_idle_add(work, &host);
    const guint timer = g_timeout_add(5, tick, &host);
    gtk_main();
    g_source_remove(timer);
}

TEST(NativeLoopHost, AWindowOfItsOwnStartsTheToolkitWithoutAWordAndLeavesTheHostItsName)
{
    const auto progress = boost::make_shared<ScriptedProgress>();
    const auto cancelled = boost::make_shared<bool>(false);
    testing::internal::CaptureStderr();
    auto* const dialog = new TessaronResources::ProgressDialog(1000, "Own", progress, cancelled, nullptr);
    dialog->makeWindow();
    EXPECT_TRUE(dialog->IsShown());
    progress->report(-1.0);
    dialog->doProgressLoop();
    dialog->DestroyWindow();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(progress->m_polls, 1);
    EXPECT_STREQ(g_get_prgname(), hostName);
}

TEST(NativeLoopHost, AThreadThatDoesNotOwnTheLoopIsRefused)
{
    HostState host;
    int result = 0;
    std::thread worker;
    const auto callFromAThread = [&]
    {
        worker = std::thread(
            [&]
            {
                Record record = host.progress;
                result = TessaronResources::displayProgressDialog(record, "Job");
                g_idle_add(quitMainLoop, nullptr);
            });
        return G_SOURCE_REMOVE;
    };
    typedef decltype(callFromAThread) Start;
    g_idle_add([](gpointer start) -> gboolean { return (*static_cast<const Start*>(start))(); },
               const_cast<void*>(static_cast<const void*>(&callFromAThread)));
    gtk_main();
    worker.join();
    EXPECT_EQ(result, 2);
    EXPECT_EQ(host.progress->m_polls, 0);
}

TEST(NativeLoopHost, AFinishedCallLeavesTheHostsLoopRunning)
{
    HostState host;
    host.progress->m_onRefresh = [&](int poll) { host.progress->report(poll < 4 ? 50.0 : -1.0); };
    runHost(host);
    EXPECT_EQ(host.result, 1);
    EXPECT_GT(host.ticks, 5) << "the host's timers keep running";
}

TEST(NativeLoopHost, AQuitWhileTheWindowIsUpEndsTheCallAndThenTheHostsLoop)
{
    HostState host;
    host.quitAtTick = 40;
    runHost(host);
    EXPECT_EQ(host.result, 1);
    EXPECT_LT(host.ticks, 1000) << "the quit message was lost";
}

TEST(NativeLoopHost, TheModuleCanBeUsedAgainAfterAQuit)
{
    HostState host;
    host.progress->m_onRefresh = [&](int poll) { host.progress->report(poll < 3 ? 50.0 : -1.0); };
    runHost(host);
    EXPECT_EQ(host.result, 1);
    EXPECT_GE(host.progress->m_polls, 3) << "an old quit message ended the call";
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    g_set_prgname(hostName);
    gtk_init(&argc, &argv);
    return RUN_ALL_TESTS();
}
