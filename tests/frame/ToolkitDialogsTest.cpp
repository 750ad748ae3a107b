// A host that runs the toolkit and has dialogs of its own: before a call, during one and around one.
#include "tests/progress/ScriptedProgress.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToolkitHost.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/machining/GougeCheckData.h>
#include <tessaron/util/Parameterized.h>
#include <tessaron/util/VisualTheme.h>

#include <boost/make_shared.hpp>

#include <wx/dialog.h>
#include <wx/filedlg.h>

#include <gtest/gtest.h>

using namespace testing_support;
using namespace TessaronResources;

namespace
{

constexpr int ticksOfACall = 30;

// A call of each kind of window, none of which ends by itself within the test.
struct Call
{
    const char* name;
    std::function<int()> show;
    int ended; ///< what it returns when a quit message ends it
};

std::vector<Call> callsOfEachKind(const std::string& folder)
{
    return {
        {"progress",
         []
         {
             boost::shared_ptr<exchange::ProgressData> record = boost::make_shared<ScriptedProgress>();
             return displayProgressDialog(record, "Job");
         },
         1},
        {"modal dialog",
         []
         {
             GougeCheckData data{};
             return displayGougeCheckDialog(&data);
         },
         2},
        {"template manager",
         [folder]
         {
             util::Parameterized loaded;
             return displayTemplateManagerDialogLoad(1, 1, folder, util::Parameterized(), &loaded, nullptr,
                                                     util::VisualTheme{});
         },
         0},
    };
}

class ToolkitDialogs : public ToolkitHost
{
protected:
    // A dialog of the host's that closes after a few ticks.
    static void showDialog()
    {
        wxDialog dialog(nullptr, wxID_ANY, "Question");
        int ticks = 0;
        const Ticker user(
            [&]
            {
                if (++ticks == 5)
                    dialog.EndModal(wxID_OK);
            });
        EXPECT_EQ(dialog.ShowModal(), wxID_OK);
    }
    static void showFileDialog()
    {
        wxFileDialog dialog(nullptr);
        int ticks = 0;
        const Ticker user(
            [&]
            {
                if (++ticks >= 5 && dialog.IsModal())
                    dialog.EndModal(wxID_CANCEL);
            });
        EXPECT_EQ(dialog.ShowModal(), wxID_CANCEL);
    }

    // Makes a call that lasts until its ticks are over, unless something ends it before.
    static void expectThatItLasts(const Call& call, const char* when, std::function<void(int)> atTick = nullptr)
    {
        int ticks = 0;
        {
            const Ticker user(
                [&]
                {
                    if (++ticks == ticksOfACall)
                        tessaronResourcesQuit();
                    else if (ticks < ticksOfACall && atTick)
                        atTick(ticks);
                });
            EXPECT_EQ(call.show(), call.ended) << call.name << ", " << when;
        }
        EXPECT_GE(ticks, ticksOfACall) << call.name << ", " << when << ": ended before the quit message";
    }

    // Runs `work` in a handler of the main loop, and then ends that.
    static void runInHandler(const std::function<void()>& work)
    {
        wxTheApp->CallAfter(
            [&]
            {
                work();
                wxTheApp->CallAfter([] { wxTheApp->ExitMainLoop(); });
            });
        EXPECT_TRUE(runMainLoop());
    }

    TemporaryFolder m_folder;
};

TEST_F(ToolkitDialogs, ACallAfterADialogLastsUntilItsUserEndsIt)
{
    for (const Call& call : callsOfEachKind(m_folder.path()))
        runInHandler(
            [&]
            {
                showDialog();
                expectThatItLasts(call, "after a dialog");
                showFileDialog();
                expectThatItLasts(call, "after a file dialog");
            });
}

TEST_F(ToolkitDialogs, ACallThatADialogQueuedLastsUntilItsUserEndsIt)
{
    for (const Call& call : callsOfEachKind(m_folder.path()))
        runInHandler(
            [&]
            {
                wxTheApp->CallAfter([&] { expectThatItLasts(call, "queued"); });
                showDialog();
            });
}

TEST_F(ToolkitDialogs, ADialogDuringACallDoesNotEndIt)
{
    for (const Call& call : callsOfEachKind(m_folder.path()))
        runInHandler(
            [&]
            {
                expectThatItLasts(call, "during it",
                                  [](int tick)
                                  {
                                      if (tick == 3)
                                          wxTheApp->CallAfter([] { showDialog(); });
                                  });
            });
}

TEST_F(ToolkitDialogs, ClosingTheDialogAroundACallDoesNotEndIt)
{
    for (const Call& call : callsOfEachKind(m_folder.path()))
        runInHandler(
            [&]
            {
                wxDialog dialog(nullptr, wxID_ANY, "Around");
                dialog.CallAfter(
                    [&]
                    {
                        expectThatItLasts(call, "inside a dialog",
                                          [&](int tick)
                                          {
                                              if (tick == 5)
                                                  dialog.EndModal(wxID_OK);
                                          });
                    });
                EXPECT_EQ(dialog.ShowModal(), wxID_OK) << call.name;
            });
}

TEST_F(ToolkitDialogs, AQuitOfTheHostEndsACallAfterADialog)
{
    for (const Call& call : callsOfEachKind(m_folder.path()))
    {
        int result = -1;
        wxTheApp->CallAfter(
            [&]
            {
                showDialog();
                wxTheApp->CallAfter([] { wxTheApp->ExitMainLoop(); });
                result = call.show();
            });
        EXPECT_TRUE(runMainLoop()) << call.name;
        EXPECT_EQ(result, call.ended) << call.name;
    }
}

} // namespace
