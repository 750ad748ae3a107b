// A host that runs the toolkit's main loop and is told to quit while a window of the module is up.
#include "frame/EntryPoints.h"
#include "tests/progress/ScriptedProgress.h"

#include <boost/make_shared.hpp>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/timer.h>

#include <gtest/gtest.h>

#include <functional>

namespace
{

typedef boost::shared_ptr<exchange::ProgressData> Record;

class Host : public wxApp
{
public:
    bool OnInit() override { return true; }
};

class Ticker : public wxTimer
{
public:
    explicit Ticker(std::function<void()> tick) : m_tick(std::move(tick)) { Start(5); }

    void Notify() override { m_tick(); }

private:
    std::function<void()> m_tick;
};

class ToolkitHostTest : public testing::Test
{
protected:
    void SetUp() override
    {
        int argc = 1;
        char name[] = "host";
        char* argv[] = {name, nullptr};
        wxApp::SetInstance(new Host);
        ASSERT_TRUE(wxEntryStart(argc, argv));
        ASSERT_TRUE(wxTheApp->CallOnInit());
        m_frame = new wxFrame(nullptr, wxID_ANY, "Host");
        m_frame->Show();
    }

    void TearDown() override
    {
        delete m_frame;
        wxEntryCleanup();
    }

    int show(bool multi) const
    {
        Record record = m_progress;
        return multi ? TessaronResources::displayMultiProgressDialog(record)
                     : TessaronResources::displayProgressDialog(record, "Job");
    }

    wxFrame* m_frame = nullptr;
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
    Ticker timer(
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

} // namespace
