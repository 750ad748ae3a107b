// A host that runs the toolkit's main loop and is told to quit while a window of the module is up.
#include "tests/support/ToolkitHost.h"
#include "tests/progress/ScriptedProgress.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/frame/PlainEntryPoints.h>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

using namespace testing_support;

namespace
{

typedef boost::shared_ptr<exchange::ProgressData> Record;

class ToolkitHostTest : public ToolkitHost
{
protected:
    int show(bool multi) const
    {
        Record record = m_progress;
        return multi ? TessaronResources::displayMultiProgressDialog(record)
                     : TessaronResources::displayProgressDialog(record, "Job");
    }

    boost::shared_ptr<ScriptedProgress> m_progress = boost::make_shared<ScriptedProgress>();
};

// The quit comes while a second window is up inside the first: both calls end, and then the host's loop.
TEST_F(ToolkitHostTest, AQuitWhileWindowsAreUpEndsTheCallsAndThenTheHostsLoop)
{
    int ticks = 0;
    int ticksAtReturn = 0;
    int outer = 0;
    int inner = 0;
    wxTheApp->CallAfter(
        [&]
        {
            outer = show(false);
            ticksAtReturn = ticks;
        });
    const testing_support::Ticker timer(
        [&]
        {
            ++ticks;
            if (ticks == 20)
                wxTheApp->CallAfter([&] { inner = show(true); });
            if (ticks == 60)
                wxTheApp->ExitMainLoop();
            // The deadline: a call that misses the quit message is ended all the same, and the ticks tell.
            if (ticks == 1000)
                m_progress->report(-1.0);
        });
    wxTheApp->OnRun();
    EXPECT_EQ(outer, 1);
    EXPECT_EQ(inner, 1);
    EXPECT_GE(ticksAtReturn, 60) << "the host's timers keep running";
    EXPECT_LT(ticks, 1000) << "the quit message was lost";
    EXPECT_EQ(m_progress->m_cancelRequests, 0);
}

TEST_F(ToolkitHostTest, TheHostsLoopGoesOnAfterAnOrdinaryCall)
{
    bool wentOn = false;
    wxTheApp->CallAfter(
        [&]
        {
            m_progress->m_onRefresh = [&](int poll) { m_progress->report(poll < 3 ? 50.0 : -1.0); };
            EXPECT_EQ(show(false), 1);
            EXPECT_TRUE(wxTheApp->GetExitOnFrameDelete());
            wxTheApp->CallAfter(
                [&]
                {
                    wentOn = true;
                    wxTheApp->ExitMainLoop();
                });
        });
    wxTheApp->OnRun();
    EXPECT_TRUE(wentOn);
}

// Had one of them shown its window, only the host's timer would end it.
TEST_F(ToolkitHostTest, NullWhereARecordIsDueShowsNothing)
{
    using namespace TessaronResources;
    Record none;
    int ticks = 0;
    const testing_support::Ticker timer(
        [&]
        {
            if (++ticks % 200 == 0)
                tessaronResourcesQuit();
        });
    int spindleSpeed = 5000;
    double feedrate = 1000;
    EXPECT_EQ(displayProgressDialog(none, "Job"), 1);
    EXPECT_EQ(displayOrrimantMultiProgressDialog(none), 1);
    EXPECT_EQ(displayChipControlDialog(0, nullptr, true), 2);
    EXPECT_EQ(displayChipControlDialogEx(0, 10, 4, 2, &spindleSpeed, &feedrate, nullptr, true), 1);
    EXPECT_EQ(displayGougeCheckDialog(nullptr), 2);
    EXPECT_EQ(displaySmartLinkDialog(nullptr), 2);
    EXPECT_EQ(ticks, 0);
}

} // namespace
