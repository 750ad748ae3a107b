// A host that runs the toolkit's main loop and is told to quit while a window of the module is up.
#include "tests/support/ToolkitHost.h"
#include "tests/progress/ScriptedProgress.h"
#include "tests/support/Person.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/frame/PlainEntryPoints.h>
#include <tessaron/machining/GougeCheckData.h>
#include <tessaron/machining/SmartLinkData.h>
#include <tessaron/util/Parameterized.h>
#include <tessaron/util/VisualTheme.h>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <thread>
#include <utility>

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

    // Closes the main window by its box, once the person sees that.
    // Call it again and again: a click on a window that the window manager still moves misses its box.
    void closeFrame()
    {
        const wxPoint box = m_frame ? Person::closeBoxOf(m_frame) : wxDefaultPosition;
        const bool isStill = box == std::exchange(m_closeBox, box);
        constexpr int patience = 100;
        if (box == wxDefaultPosition || !isStill || (m_closed && ++m_waited % patience != 0))
            return;
        m_closed = true;
        Person().click(box);
    }

    boost::shared_ptr<ScriptedProgress> m_progress = boost::make_shared<ScriptedProgress>();
    bool m_closed = false;

private:
    wxPoint m_closeBox;
    int m_waited = 0;
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
    const Ticker timer(
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
    EXPECT_TRUE(runMainLoop());
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
    EXPECT_TRUE(runMainLoop());
    EXPECT_TRUE(wentOn);
}

// Had one of them shown its window, only the host's timer would end it.
TEST_F(ToolkitHostTest, NullWhereARecordIsDueShowsNothing)
{
    using namespace TessaronResources;
    Record none;
    int ticks = 0;
    const Ticker timer(
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

TEST_F(ToolkitHostTest, ClosingTheMainWindowDuringACallEndsTheCallAndThenTheHost)
{
    for (const bool multi : {false, true})
    {
        if (!m_frame)
            makeFrame();
        m_progress = boost::make_shared<ScriptedProgress>();
        m_closed = false;
        int result = 0;
        wxTheApp->CallAfter([&] { result = show(multi); });
        const Ticker user(
            [&]
            {
                if (m_progress->m_polls > 1)
                    closeFrame();
            });
        EXPECT_TRUE(runMainLoop());
        EXPECT_EQ(result, 1);
        EXPECT_EQ(m_progress->m_cancelRequests, 0) << "the job goes on";
    }
}

TEST_F(ToolkitHostTest, AHostThatStaysWithoutWindowsStays)
{
    wxTheApp->SetExitOnFrameDelete(false);
    int result = 0;
    bool wentOn = false;
    int pollsWithout = 0;
    m_progress->m_onRefresh = [&](int)
    {
        if (m_frame)
            closeFrame();
        else
            ++pollsWithout;
        m_progress->report(pollsWithout < 4 ? 50.0 : -1.0);
    };
    wxTheApp->CallAfter(
        [&]
        {
            result = show(false);
            EXPECT_EQ(pollsWithout, 4);
            EXPECT_FALSE(wxTheApp->GetExitOnFrameDelete());
            wxTheApp->CallAfter(
                [&]
                {
                    wentOn = true;
                    wxTheApp->ExitMainLoop();
                });
        });
    EXPECT_TRUE(runMainLoop());
    EXPECT_EQ(result, 1);
    EXPECT_TRUE(wentOn);
}

class StartingHost : public ToolkitHostTest
{
protected:
    void onInit() override
    {
        if (m_frameFirst)
            makeFrame();
        m_progress->m_onRefresh = [&](int poll)
        {
            if (m_closesFrame)
                closeFrame();
            m_progress->report(poll < 6 || (m_closesFrame && m_frame) ? 50.0 : -1.0);
        };
        EXPECT_EQ(show(false), 1);
        if (!m_frameFirst)
            makeFrame();
    }

    void start(bool frameFirst, bool closesFrame)
    {
        m_frameFirst = frameFirst;
        m_closesFrame = closesFrame;
        ToolkitHostTest::SetUp();
    }

private:
    void SetUp() override {}

    bool m_frameFirst = false;
    bool m_closesFrame = false;
};

TEST_F(StartingHost, ThatCallsBeforeItsMainLoopEndsWithItsLastWindow)
{
    start(false, false);
    const Ticker user([&] { closeFrame(); });
    EXPECT_TRUE(runMainLoop());
    EXPECT_TRUE(m_closed);
}

TEST_F(StartingHost, WhoseWindowIsClosedBeforeItsMainLoopEndsAtOnce)
{
    start(true, true);
    EXPECT_TRUE(runMainLoop());
}

int assertions = 0;

void countAssertion(const wxString&, int, const wxString&, const wxString&, const wxString&)
{
    ++assertions;
}

TEST_F(ToolkitHostTest, TheHostsAssertionHandlerIsInForceDuringACall)
{
    const wxAssertHandler_t before = wxSetAssertHandler(countAssertion);
    m_progress->m_onRefresh = [&](int poll)
    {
        wxASSERT_MSG(poll != 2, "the host's own");
        m_progress->report(poll < 4 ? 50.0 : -1.0);
    };
    assertions = 0;
    EXPECT_EQ(show(false), 1);
    EXPECT_EQ(assertions, 1);
    EXPECT_EQ(wxSetAssertHandler(before), &countAssertion);
}

// A window that came up all the same would stay.
TEST_F(ToolkitHostTest, AThreadThatDoesNotOwnTheUserInterfaceIsRefused)
{
    using namespace TessaronResources;
    GougeCheckData gouge{};
    SmartLinkData link{};
    int spindleSpeed = 5000;
    double feedrate = 1000;
    double stepover = 1;
    util::Parameterized loaded;
    bool loadSaved = false;
    Record record = m_progress;
    const std::pair<std::function<int()>, int> calls[] = {
        {[&] { return displayProgressDialog(record, "Job"); }, 2},
        {[&] { return displayOrrimantMultiProgressDialog(record); }, 2},
        {[&] { return displayProgressDialogForJobId(123456, "Job"); }, 2},
        {[&] { return displayChipControlDialogEx(0, 10, 4, 2, &spindleSpeed, &feedrate, &stepover, true); }, 1},
        {[&] { return displayGougeCheckDialog(&gouge); }, 2},
        {[&] { return displaySmartLinkDialog(&link); }, 2},
        {[&] { return displayTemplateManagerDialogLoad(0, 0, "/tmp", loaded, &loaded, nullptr, util::VisualTheme{}); },
         2},
        {[&] {
             return displayTemplateManagerDialogSave(0, 0, "/tmp", loaded, &loaded, &loadSaved, nullptr,
                                                     util::VisualTheme{});
         },
         2},
    };
    std::vector<int> results;
    std::vector<int> expected;
    for (const auto& call : calls)
        expected.push_back(call.second);
    const std::size_t windows = wxTopLevelWindows.GetCount();
    std::thread worker;
    wxTheApp->CallAfter(
        [&]
        {
            worker = std::thread(
                [&]
                {
                    for (const auto& call : calls)
                        results.push_back(call.first());
                    wxTheApp->CallAfter([] { wxTheApp->ExitMainLoop(); });
                });
        });
    EXPECT_TRUE(runMainLoop());
    worker.join();
    EXPECT_EQ(results, expected);
    EXPECT_EQ(wxTopLevelWindows.GetCount(), windows);
    EXPECT_EQ(m_progress->m_polls, 0);
    EXPECT_TRUE(wxTheApp->GetExitOnFrameDelete());
}

} // namespace
