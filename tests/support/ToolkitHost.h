#ifndef TESTS_SUPPORT_TOOLKITHOST_H
#define TESTS_SUPPORT_TOOLKITHOST_H

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace testing_support
{

/// Calls a function every few milliseconds, from whichever loop runs.
class Ticker : public wxTimer
{
public:
    explicit Ticker(std::function<void()> tick) : m_tick(std::move(tick)) { Start(5); }

    void Notify() override { m_tick(); }

private:
    std::function<void()> m_tick;
};

/// Starts the toolkit as a host does that runs it, with an application object that it owns from then on.
inline bool startToolkit(wxApp* app)
{
    int argc = 1;
    char name[] = "host";
    char* argv[] = {name, nullptr};
    wxApp::SetInstance(app);
    return wxEntryStart(argc, argv);
}

/// A host with a main window and a main loop of its own, which each test runs with runMainLoop().
class ToolkitHost : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(startToolkit(new App(*this)));
        ASSERT_TRUE(wxTheApp->CallOnInit());
    }

    void TearDown() override
    {
        delete m_frame.get();
        wxEntryCleanup();
    }

    /// What the host does as it starts, before its main loop runs.
    virtual void onInit() { makeFrame(); }

    void makeFrame()
    {
        m_frame = new wxFrame(nullptr, wxID_ANY, "Host");
        m_frame->Show();
    }

    /// Runs the main loop until the host ends it.
    /// \returns whether it ended before the deadline, after which it is ended by force.
    static bool runMainLoop()
    {
        bool late = false;
        int ticks = 0;
        const Ticker deadline(
            [&]
            {
                if (++ticks < deadlineTicks)
                    return;
                late = true;
                wxTheApp->GetMainLoop()->ScheduleExit();
            });
        wxTheApp->OnRun();
        return !late;
    }

    static constexpr int deadlineTicks = 3000;

    wxWeakRef<wxFrame> m_frame;

private:
    class App : public wxApp
    {
    public:
        explicit App(ToolkitHost& host) : m_host(host) {}
        bool OnInit() override
        {
            m_host.onInit();
            return true;
        }

    private:
        ToolkitHost& m_host;
    };
};

} // namespace testing_support

#endif
