#ifndef FRAME_NATIVE_NATIVETOOLKIT_H
#define FRAME_NATIVE_NATIVETOOLKIT_H

#include <memory>
#include <string>

class wxString;
class wxWindow;

/// What the toolkit's portable interface does not offer, for the platform's native widgets and event loop.
namespace TessaronResources::native
{

/// Restores the process's locale and signal handlers at the end of its scope.
class ProcessStateGuard
{
public:
    ProcessStateGuard();
    ~ProcessStateGuard();
    ProcessStateGuard(const ProcessStateGuard&) = delete;
    ProcessStateGuard& operator=(const ProcessStateGuard&) = delete;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// Whether there is a display to connect to, as far as can be told without connecting.
bool displayIsNamed();

/// Starts the native toolkit unless the host has. The process's locale stays what it is, and nothing is printed.
/// \returns whether a display is open
bool start();

/// Whether no other thread runs the native event loop now.
bool ownsEventQueue();

bool displayIsOpen();

/// Whether the host runs the native event loop, so that the loop's end can be told while it is polled.
bool insideNativeLoop();

/// Suspends the thread until the native event queue has something or the time is over. Dispatches nothing.
void waitForMessage(int milliseconds);

/// Lets the window manager treat a window as modal for the whole application, also for windows that are not the
/// toolkit's.
void setModal(wxWindow& window, bool modal);

/// Lets a window take input also while another window of the process is modal.
void keepReachable(wxWindow& window);

/// Lets a dialog's controls be as small as its template says: the native theme's paddings and least sizes assume more
/// room.
void makeCompact(wxWindow& dialog);

/// Keeps the text of a dialog's field easy to read while the field is disabled, because it shows a result.
void markAsResult(wxWindow& field);

/// Lets a text that is too long for its control continue on the next line, up to a number of lines, and end in dots
/// when they are full.
void wrapText(wxWindow& text, int lines);

/// Gives a control the name that a screen reader says.
void setAccessibleName(wxWindow& control, const wxString& name);

/// Draws a tick below a horizontal track bar. For its ends: the toolkit's own ticks leave them out.
void addTick(wxWindow& trackBar, int position);

/// Opens a file with the viewer that the desktop has for it, which "xdg-open" finds. Does not wait, and tells nobody
/// when there is no such file or no such viewer.
void openDocument(const std::string& path);

} // namespace TessaronResources::native

#endif
