#ifndef TESTS_TOUR_TOUR_H
#define TESTS_TOUR_TOUR_H

#include "host/JobRunner.h"
#include "tests/support/Person.h"

#include <functional>
#include <string>
#include <vector>

class wxString;
class wxTopLevelWindow;
class wxWindow;

namespace host
{
class HostFrame;
}

namespace tour
{

/// Shows what the host can do: opens parts, generates their toolpaths, cancels, saves, uses every dialog, meets a
/// bad file. What a user does with pointer and keyboard in menus and windows is done so, through the X server. Takes
/// pictures of the windows and prints what happened. The last part should keep the engine busy for a second or more: it
/// is the one whose progress is shown and cancelled.
class Tour
{
public:
    /// \param pictures the folder for the pictures; made when it is missing
    Tour(host::HostFrame& frame, std::vector<std::string> parts, std::string pictures);

    /// Runs inside the event loop.
    /// \returns whether everything went as it should
    bool run();

private:
    void showPart(const std::string& path);
    void showOneLevel(const std::string& stem);
    void cancelJob();
    void watchThreads();
    void saveAndReadBack();
    void changeParameters();
    void saveTemplate();
    void loadTemplate();
    void showLooks(wxTopLevelWindow& manager);
    std::size_t recordCount() const;
    void meetBadFile();

    host::JobOutcome generate(const std::string& caption);
    /// Generates, and meanwhile calls `act` with the module's progress window when `ready` says so, once.
    host::JobOutcome generateWatched(const std::function<bool()>& ready,
                                     const std::function<void(wxTopLevelWindow&)>& act);
    struct DialogStep
    {
        int control;
        std::function<void(wxTopLevelWindow&)> act;
    };
    /// Chooses an entry of the Machining menu and takes the steps: each when the module's window with its control has
    /// come up and takes input.
    void useDialogs(const wxString& entry, const std::vector<DialogStep>& steps);
    void useDialog(const wxString& entry, int control, const std::function<void(wxTopLevelWindow&)>& act);
    wxTopLevelWindow* moduleWindow(int controlId) const;
    /// Puts a window over the middle of the host's, where the pictures are taken.
    void centre(wxTopLevelWindow* window) const;
    void click(wxWindow* window);
    /// Types a text into a field, in place of what it shows.
    void typeInto(wxWindow* field, const char* text);
    /// Clicks a button of a ribbon.
    void clickRibbon(const wxWindow& window, int command);
    /// Waits until a condition holds, and notes a failure when it does not in time.
    /// \returns whether it holds
    bool waitFor(const char* what, const std::function<bool()>& condition);
    /// Lets the windows show what they have to.
    void settle(int milliseconds = 150);

    void picture(const std::string& name);
    void say(const std::string& text);
    /// Notes a failure unless the condition holds.
    void expect(bool condition, const std::string& failure);

    host::HostFrame& m_frame;
    testing_support::Person m_person;
    std::vector<std::string> m_parts;
    std::string m_pictures;
    int m_pictureCount = 0;
    bool m_good = true;
};

} // namespace tour

#endif
