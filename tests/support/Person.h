#ifndef TESTS_SUPPORT_PERSON_H
#define TESTS_SUPPORT_PERSON_H

#include <wx/gdicmn.h>

#include <memory>
#include <string_view>

class wxWindow;

namespace testing_support
{

/// Hands on the pointer and the keyboard. Everything goes through the X server on a connection of its own, so a window
/// gets what a real device would have sent it, and when the event loop comes to it: after an action, wait for what it
/// leads to. Places are in the toolkit's screen coordinates.
class Person
{
public:
    enum Modifier : unsigned
    {
        none = 0,
        shift = 1,
        control = 2,
        alt = 4
    };
    enum Button : unsigned
    {
        left = 1,
        middle = 2,
        right = 3
    };

    Person();
    ~Person();
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;

    /// Moves the pointer there in a few steps.
    void moveTo(wxPoint place);
    void press(Button button = left);
    void release(Button button = left);
    void click(wxPoint place, Button button = left, unsigned modifiers = none);
    void doubleClick(wxPoint place);
    /// Presses the button at `from`, moves, and releases it at `to`.
    void drag(wxPoint from, wxPoint to);
    /// Turns the wheel where the pointer is: downwards for a positive number of notches.
    void wheel(int notches);

    /// Presses and releases a key by its name in the X server's tables ("Return", "F2", "Tab", "Delete", "a").
    void key(const char* name, unsigned modifiers = none);
    /// Types a text in UTF-8; a character that the keyboard lacks is put on a spare key first.
    void text(std::string_view utf8);

    /// The middle of a window.
    static wxPoint middleOf(const wxWindow* window);
    /// The box that closes a window, in the corner of its frame; wxDefaultPosition before the window manager has put
    /// that around it.
    static wxPoint closeBoxOf(const wxWindow* window);

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};

/// Whether the window manager has given the keyboard to this top-level window, also one of the toolkit's own dialogs.
bool takesKeys(const wxWindow* window);

/// Whether a popup menu is open, which takes the keys.
bool menuIsUp();

} // namespace testing_support

#endif
