#include "tests/progress/ScriptedProgress.h"
#include "tests/support/WindowDriver.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/frame/ResourceSet.h>
#include <tessaron/frame/WinApp.h>
#include <tessaron/progress/ProgressDialog.h>

#include <boost/make_shared.hpp>

#include <wx/gauge.h>
#include <wx/log.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <csignal>
#include <stdexcept>

using namespace TessaronResources;
using namespace testing_support;

namespace
{

typedef boost::shared_ptr<exchange::ProgressData> Record;

void hostFunction() {}

// Another module's resources: the controls of a progress window, and a text of its own.
class OtherResources : public ResourceSet
{
public:
    bool loadDialog(wxDialog& dialog, wxWindow* parent, int templateId) const override
    {
        m_loaded = templateId;
        dialog.Create(parent, wxID_ANY, "");
        new wxGauge(&dialog, 1000, 100);
        new wxStaticText(&dialog, 1021, "");
        return true;
    }
    wxString string(int) const override { return "elsewhere %d"; }
    wxBitmapBundle bitmap(int) const override { return {}; }
    wxIconBundle icon(int) const override { return {}; }

    mutable int m_loaded = 0;
};

class CountingApp : public CWinApp
{
public:
    bool OnIdle(long count) override
    {
        m_largestCount = std::max(m_largestCount, count);
        ++m_calls;
        util::msleep(1);
        return count < 3;
    }

    long m_calls = 0;
    long m_largestCount = 0;
};

class ModuleTest : public testing::Test
{
protected:
    void TearDown() override { setModuleState(&m_own); }

    int show() const
    {
        Record record = m_progress;
        return displayProgressDialog(record, "Job");
    }

    int showMulti() const
    {
        Record record = m_progress;
        return displayMultiProgressDialog(record);
    }

    // Shows a window until its stage text is as wanted.
    template <class Show>
    void expectStageText(const char* text, Show entryPoint)
    {
        m_progress->report(10.0, stageSet({{"Creating toolpath: ", 0.5}}));
        WindowDriver user;
        user.when(
            text, [text] { return topWindow() && child(topWindow(), 1021)->GetLabel() == text; },
            [&] { m_progress->report(-1.0); });
        EXPECT_EQ(entryPoint(), 1);
    }

    boost::shared_ptr<ScriptedProgress> m_progress = boost::make_shared<ScriptedProgress>();
    static inline AFX_MODULE_STATE m_own{};
};

TEST_F(ModuleTest, TheInstanceIsTheLibrarysOwn)
{
    ASSERT_NE(getTessaronResourcesApp(), nullptr);
    Dl_info library{};
    Dl_info host{};
    ASSERT_NE(dladdr(reinterpret_cast<const void*>(&hostFunction), &host), 0);
    ASSERT_NE(dladdr(dlsym(RTLD_DEFAULT, "tessaronResourcesQuit"), &library), 0);
    EXPECT_EQ(getInstance(), library.dli_fbase);
    EXPECT_NE(getInstance(), host.dli_fbase);
}

TEST_F(ModuleTest, AStoredStateChangesTheResourcesOfTheSingleWindowOnly)
{
    OtherResources resources;
    AFX_MODULE_STATE other{nullptr, &resources, nullptr};
    setModuleState(&other);
    expectStageText("elsewhere 50", [&] { return show(); });
    EXPECT_EQ(resources.m_loaded, 1000);
    expectStageText("Toolpath generation 50% done", [&] { return showMulti(); });
}

TEST_F(ModuleTest, TheIdleHandlerOfTheCurrentStateIsCalledUntilItReturnsFalse)
{
    CountingApp app;
    AFX_MODULE_STATE other{nullptr, nullptr, &app};
    setModuleState(&other);
    m_progress->m_onRefresh = [&](int poll) { m_progress->report(poll < 4 ? 10.0 : -1.0); };
    EXPECT_EQ(show(), 1);
    EXPECT_GT(app.m_calls, 4);
    EXPECT_EQ(app.m_largestCount, 3);
}

// What belongs to the host and what a window must not touch.
struct HostsOwn
{
    HostsOwn() : locale(std::setlocale(LC_ALL, nullptr)), log(wxLog::GetActiveTarget())
    {
        sigaction(SIGPIPE, nullptr, &pipe);
        asserts = wxSetAssertHandler(nullptr);
        wxSetAssertHandler(asserts);
    }

    bool operator==(const HostsOwn& other) const
    {
        return locale == other.locale && pipe.sa_handler == other.pipe.sa_handler && log == other.log &&
               asserts == other.asserts;
    }

    std::string locale;
    struct sigaction pipe = {};
    wxLog* log;
    wxAssertHandler_t asserts;
};

TEST_F(ModuleTest, EveryWayOutGivesBackWhatIsTheHosts)
{
    AFX_MODULE_STATE hosts;
    const std::pair<const char*, std::function<void()>> waysOut[] = {
        {"finished", [&] { m_progress->report(-1.0); }},
        {"quit", [] { tessaronResourcesQuit(); }},
        {"exception", [&] { m_progress->m_onRefresh = [](int) { throw std::runtime_error("engine"); }; }},
    };
    for (const auto& [name, leave] : waysOut)
        for (const bool multi : {false, true})
        {
            m_progress = boost::make_shared<ScriptedProgress>();
            setCurrentModuleState(&hosts);
            const HostsOwn before;
            WindowDriver user;
            user.when(
                name, [&] { return m_progress->m_polls > 0; }, leave);
            bool thrown = false;
            try
            {
                EXPECT_EQ(multi ? showMulti() : show(), 1) << name;
            }
            catch (const std::runtime_error&)
            {
                thrown = true;
            }
            EXPECT_EQ(thrown, std::string(name) == "exception");
            EXPECT_EQ(getCurrentModuleState(), &hosts) << name;
            EXPECT_TRUE(HostsOwn() == before) << name;
            EXPECT_EQ(topWindow(), nullptr) << name;
            setCurrentModuleState(nullptr);
        }
}

TEST_F(ModuleTest, AHostDrivesAWindowItself)
{
    const auto cancelled = boost::make_shared<bool>(false);
    m_progress->report(10.0);
    auto* const dialog = new ProgressDialog(1039, "Own", m_progress, cancelled, nullptr);
    dialog->makeWindow();
    WindowDriver user;
    user.when(
        "polled", [&] { return m_progress->m_polls > 1; },
        [&]
        {
            EXPECT_EQ(windowTitled("Own"), dialog);
            *cancelled = true;
        });
    dialog->doProgressLoop();
    dialog->DestroyWindow();
    EXPECT_EQ(topWindow(), nullptr);
    EXPECT_EQ(m_progress.use_count(), 1) << "the dialog let go of the record";
}

} // namespace
