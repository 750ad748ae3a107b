#ifndef TESTS_SUPPORT_TOOLKITHOST_H
#define TESTS_SUPPORT_TOOLKITHOST_H

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/timer.h>

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

/// A host with a main window and a main loop of its own, which each test runs with wxTheApp->OnRun().
class ToolkitHost : public testing::Test
{
protected:
    void SetUp() override
    {
        int argc = 1;
        char name[] = "host";
        char* argv[] = {name, nullptr};
        wxApp::SetInstance(new App);
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

    wxFrame* m_frame = nullptr;

private:
    class App : public wxApp
    {
    public:
        bool OnInit() override { return true; }
    };
};

} // namespace testing_support

#endif
