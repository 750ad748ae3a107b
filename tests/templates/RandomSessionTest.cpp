#include "tests/templates/ManagerRun.h"
#include <tessaron/frame/DialogBase.h>
#include <tessaron/frame/PlainEntryPoints.h>

#include <wx/filefn.h>
#include <wx/modalhook.h>
#include <wx/timer.h>

#include <gtk/gtk.h>

#include <random>

using namespace testing_support;

namespace
{

/// Notes what the toolkit and the libraries below it complain about while it lives.
class Complaints
{
public:
    Complaints() : m_handler(g_log_set_default_handler(note, nullptr)), m_asserting(wxSetAssertHandler(noteAssertion))
    {
        text().clear();
    }
    ~Complaints()
    {
        g_log_set_default_handler(m_handler, nullptr);
        wxSetAssertHandler(m_asserting);
    }
    Complaints(const Complaints&) = delete;
    Complaints& operator=(const Complaints&) = delete;

    static std::string& text()
    {
        static std::string complaints;
        return complaints;
    }

private:
    static void note(const gchar* domain, GLogLevelFlags level, const gchar* message, gpointer)
    {
        if (level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING | G_LOG_LEVEL_ERROR))
            text() += std::string(domain ? domain : "") + ": " + message + "\n";
    }
    static void noteAssertion(const wxString& file, int line, const wxString&, const wxString&, const wxString& message)
    {
        text() += (file + ":" << line << " " << message).utf8_string() + "\n";
    }

    GLogFunc m_handler;
    wxAssertHandler_t m_asserting;
};

/// Knows whether one of the toolkit's own dialogs is up.
class ForeignDialogs : public wxModalDialogHook
{
public:
    ForeignDialogs() { Register(); }
    bool areUp() const { return m_count > 0; }

protected:
    int Enter(wxDialog* dialog) override
    {
        m_count += isForeign(dialog) ? 1 : 0;
        return wxID_NONE;
    }
    void Exit(wxDialog* dialog) override { m_count -= isForeign(dialog) ? 1 : 0; }

private:
    static bool isForeign(wxDialog* dialog) { return !dynamic_cast<TessaronResources::DialogBase*>(dialog); }
    int m_count = 0;
};

class RandomSessionTest : public ManagerTest
{
protected:
    // One action of somebody who tries everything, in whichever window is on top.
    void act()
    {
        static const char* const keys[] = {"Tab",  "Return", "Escape", "space", "Delete", "BackSpace", "Up",  "Down",
                                           "Left", "Right",  "Home",   "End",   "Prior",  "Next",      "F2",  "F3",
                                           "F10",  "Menu",   "a",      "5",     "f",      "x",         "plus"};
        const auto upTo = [this](int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); };
        if (m_dialogs.areUp())
        {
            pressKey(WXK_ESCAPE);
            return;
        }
        wxTopLevelWindow* const window = topWindow();
        const wxSize size = window->GetClientSize();
        const auto place = [&] { return window->ClientToScreen(wxPoint(upTo(size.x), upTo(size.y))); };
        switch (upTo(10))
        {
        case 0:
        case 1:
        case 2:
            return person().click(place());
        case 3:
            return person().click(place(), Person::right);
        case 4:
            return person().doubleClick(place());
        case 5:
            return person().drag(place(), place());
        case 6:
            return person().wheel(upTo(9) - 4);
        case 7:
            return person().key(keys[upTo(std::size(keys))], Person::control);
        default:
            return person().key(keys[upTo(std::size(keys))]);
        }
    }

    std::mt19937 m_random{20261122};
    ForeignDialogs m_dialogs;
};

TEST_F(RandomSessionTest, FiveHundredActionsBreakNothing)
{
    for (int k = 0; k < 40; ++k)
        store("Template " + std::to_string(k), 4.0 + k % 5, k % 6);
    // Whoever types anything may type the name of a folder.
    const wxString before = wxGetCwd();
    wxSetWorkingDirectory(m_folder.string());
    const Complaints complaints;
    constexpr int actions = 500;
    int done = 0;
    while (done < actions)
    {
        if (storedNames().size() < 5)
            for (int k = 0; k < 40; ++k)
                store("New " + std::to_string(done) + " " + std::to_string(k), 4.0 + k % 5, k % 6);
        const int doneBefore = done;
        wxTimer clock;
        clock.Bind(wxEVT_TIMER,
                   [&](wxTimerEvent&)
                   {
                       // What came of the one before has been dealt with when nothing waits.
                       if (gtk_events_pending() || topWindow() == m_owner)
                           return;
                       if (done++ < actions && Complaints::text().empty())
                           wxTheApp->CallAfter([this] { act(); });
                       else
                           tessaronResourcesQuit();
                   });
        clock.Start(5);
        load(-1);
        ASSERT_GT(done, doneBefore) << "the window does not open";
        ASSERT_EQ(Complaints::text(), "") << "after " << done << " actions";
    }
    EXPECT_TRUE(m_owner->IsEnabled());
    wxSetWorkingDirectory(before);
}

} // namespace
