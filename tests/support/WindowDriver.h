#ifndef TESTS_SUPPORT_WINDOWDRIVER_H
#define TESTS_SUPPORT_WINDOWDRIVER_H

#include "tests/support/Person.h"

#include <wx/image.h>
#include <wx/string.h>
#include <wx/timer.h>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <string>

class wxDialog;
class wxTopLevelWindow;
class wxWindow;

namespace testing_support
{

/// Plays the user while an entry point blocks: a list of steps, each of which waits for its condition and then acts. A
/// step whose condition does not come true in time fails the test and ends the module's windows, and so do windows that
/// stay when the last step was taken.
class WindowDriver : private wxTimer
{
public:
    explicit WindowDriver(std::chrono::milliseconds deadline = std::chrono::seconds(20));
    ~WindowDriver() override;

    /// Adds a step. `name` tells which one it was when it fails.
    WindowDriver& when(
        std::string name, std::function<bool()> condition, std::function<void()> action = [] {});
    /// Adds a step that acts without a condition, at the next turn.
    WindowDriver& then(std::string name, std::function<void()> action);

    /// Whether all steps were taken.
    bool done() const { return m_steps.empty(); }

private:
    struct Step
    {
        std::string name;
        std::function<bool()> condition;
        std::function<void()> action;
    };

    void Notify() override;

    std::deque<Step> m_steps;
    std::chrono::milliseconds m_deadline;
    std::chrono::steady_clock::time_point m_stepStart;
    std::shared_ptr<bool> m_actionWaits = std::make_shared<bool>(false);
};

/// The shown top-level window that was opened last; null when there is none.
wxTopLevelWindow* topWindow();
/// The shown top-level window with that title; null when there is none.
wxTopLevelWindow* windowTitled(const wxString& title);
/// A control of a window by its id; fails the test when it is missing.
wxWindow* child(wxWindow* window, int id);

/// The person who uses the windows.
Person& person();
/// Clicks the middle of a window with the pointer.
void click(wxWindow* window);
/// Clicks the box that closes a window.
void clickCloseBox(wxWindow* window);
/// Types on the keyboard, to the window that has the focus.
void type(const char* text);
/// Presses a key by the toolkit's code.
void pressKey(int key, int modifiers = 0);

/// Keeps the windows alive until a condition holds, outside any call of the module. Fails the test when it does not in
/// time.
void waitFor(const std::string& name, const std::function<bool()>& condition);

/// Marks every file that the toolkit's open-file dialog lists.
void markAllFiles(wxWindow* fileDialog);

/// Whether the window manager keeps a window above its owner.
bool staysAbove(wxWindow* window, wxWindow* owner);

/// Whether a text shows all of itself, on as many lines as it takes, within its control.
bool showsWholeText(wxWindow* text);

/// What a screen reader says for a control.
std::string accessibleName(wxWindow* control);
/// Checks that every control that a window shows lies within it, has room for its text, and has a name for screen
/// readers.
void expectWellLaidOut(wxWindow* window);

/// What the screen shows of a part of a window now. A window is painted a little after it is shown or changed, and not
/// while a test keeps it busy: wait for a small part.
wxImage pictureOf(wxWindow* window, const wxRect& part);

/// Chooses a font, in the desktop's own description of one, in the toolkit's font dialog and accepts it.
void chooseFont(wxWindow* fontDialog, const char* font);

/// Saves what the screen shows of a window as a PNG file for a person to look at, if the run collects pictures.
void savePicture(wxWindow* window, const std::string& name);

} // namespace testing_support

#endif
