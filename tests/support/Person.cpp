#include "tests/support/Person.h"

#include <wx/window.h>

#include <gtest/gtest.h>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <gtk/gtk.h>

#include <chrono>
#include <cstdlib>
#include <map>
#include <thread>
#include <utility>

namespace testing_support
{

namespace
{

constexpr int stepsOfAMove = 4;

// The pixels of the X server for one of the toolkit's.
int pixelScale()
{
    GdkDisplay* const display = gdk_display_get_default();
    return display ? gdk_monitor_get_scale_factor(gdk_display_get_monitor(display, 0)) : 1;
}

KeySym keySymOf(wxUniChar character)
{
    switch (character.GetValue())
    {
    case L'\n':
        return XK_Return;
    case L'\t':
        return XK_Tab;
    default:
        // Latin-1 characters are their own symbols; the others carry a mark.
        return character.GetValue() < 0x100 ? character.GetValue() : character.GetValue() | 0x01000000;
    }
}

} // namespace

class Person::Connection
{
public:
    Connection() : m_display(XOpenDisplay(nullptr))
    {
        int ignored = 0;
        if (!m_display || !XTestQueryExtension(m_display, &ignored, &ignored, &ignored, &ignored))
            ADD_FAILURE() << "There is no X server that takes test input: run the test with tools/with-display";
    }
    ~Connection()
    {
        if (!m_display)
            return;
        for (const auto& [symbol, code] : m_spareKeys)
            putOnKey(code, NoSymbol);
        XCloseDisplay(m_display);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void motion(int x, int y)
    {
        if (m_display)
            XTestFakeMotionEvent(m_display, -1, x, y, CurrentTime);
        sync();
    }
    void button(unsigned number, bool down)
    {
        if (m_display)
            XTestFakeButtonEvent(m_display, number, down, CurrentTime);
        sync();
        waitForButton(number, down);
    }
    void modifiers(unsigned set, bool down)
    {
        for (const auto& [bit, symbol] : {std::pair(shift, XK_Shift_L), {control, XK_Control_L}, {alt, XK_Alt_L}})
            if (m_display && (set & bit))
                XTestFakeKeyEvent(m_display, XKeysymToKeycode(m_display, symbol), down, CurrentTime);
        sync();
    }
    void key(KeySym symbol, unsigned held)
    {
        if (!m_display)
            return;
        KeyCode code = XKeysymToKeycode(m_display, symbol);
        if (code == 0)
        {
            // One key each: the receiver reads the table of keys when it comes to the event, not when it was sent.
            code = findSpareKey();
            m_spareKeys[symbol] = code;
            putOnKey(code, symbol);
        }
        else if (XkbKeycodeToKeysym(m_display, code, 0, 0) != symbol)
            held |= shift;
        modifiers(held, true);
        XTestFakeKeyEvent(m_display, code, True, CurrentTime);
        XTestFakeKeyEvent(m_display, code, False, CurrentTime);
        modifiers(held, false);
    }

private:
    // The server has taken everything when this returns.
    void sync()
    {
        if (m_display)
            XSync(m_display, False);
    }

    // A window manager may hold the pointer back for a moment, to raise the window. Keys would overtake it then, and
    // a click lose the modifiers that are held.
    void waitForButton(unsigned number, bool down)
    {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        const auto isDown = [&]
        {
            Window window = None;
            int ignored = 0;
            unsigned state = 0;
            XQueryPointer(m_display, DefaultRootWindow(m_display), &window, &window, &ignored, &ignored, &ignored,
                          &ignored, &state);
            return (state & (Button1Mask << (number - 1))) != 0;
        };
        while (m_display && isDown() != down && std::chrono::steady_clock::now() < deadline)
            std::this_thread::yield();
    }

    KeyCode findSpareKey()
    {
        int first = 0;
        int last = 0;
        XDisplayKeycodes(m_display, &first, &last);
        for (int code = last; code >= first; --code)
            if (XkbKeycodeToKeysym(m_display, static_cast<KeyCode>(code), 0, 0) == NoSymbol)
                return static_cast<KeyCode>(code);
        ADD_FAILURE() << "The keyboard has no spare key";
        return static_cast<KeyCode>(last);
    }

    void putOnKey(KeyCode code, KeySym symbol)
    {
        KeySym symbols[] = {symbol, symbol};
        XChangeKeyboardMapping(m_display, code, 2, symbols, 1);
        sync();
    }

    Display* const m_display;
    std::map<KeySym, KeyCode> m_spareKeys;
};

Person::Person() : m_connection(std::make_unique<Connection>()) {}

Person::~Person() = default;

void Person::moveTo(wxPoint place)
{
    const int scale = pixelScale();
    for (int step = stepsOfAMove - 1; step >= 0; --step)
        m_connection->motion((place.x - step) * scale, (place.y - step) * scale);
}

void Person::press(Button button)
{
    m_connection->button(button, true);
}

void Person::release(Button button)
{
    m_connection->button(button, false);
}

void Person::click(wxPoint place, Button button, unsigned modifiers)
{
    moveTo(place);
    m_connection->modifiers(modifiers, true);
    press(button);
    release(button);
    m_connection->modifiers(modifiers, false);
}

void Person::doubleClick(wxPoint place)
{
    click(place);
    press();
    release();
}

void Person::drag(wxPoint from, wxPoint to)
{
    moveTo(from);
    press();
    // Past the distance that tells a drag from a click, and then there.
    constexpr int pieces = 8;
    for (int piece = 1; piece < pieces; ++piece)
        moveTo(from + wxPoint((to.x - from.x) * piece / pieces, (to.y - from.y) * piece / pieces));
    moveTo(to);
    release();
}

void Person::wheel(int notches)
{
    const auto button = static_cast<Button>(notches > 0 ? 5 : 4);
    for (int notch = 0; notch < std::abs(notches); ++notch)
    {
        press(button);
        release(button);
    }
}

void Person::key(const char* name, unsigned modifiers)
{
    const KeySym symbol = XStringToKeysym(name);
    ASSERT_NE(symbol, static_cast<KeySym>(NoSymbol)) << "There is no key named " << name;
    m_connection->key(symbol, modifiers);
}

void Person::text(std::string_view utf8)
{
    const wxString characters = wxString::FromUTF8(utf8.data(), utf8.size());
    for (const wxUniChar character : characters)
        m_connection->key(keySymOf(character), none);
}

wxPoint Person::middleOf(const wxWindow* window)
{
    const wxSize size = window->GetSize();
    return window->ClientToScreen(wxPoint(size.x / 2, size.y / 2));
}

wxPoint Person::closeBoxOf(const wxWindow* window)
{
    GdkWindow* const surface = gtk_widget_get_window(static_cast<GtkWidget*>(window->GetHandle()));
    if (!surface || !gdk_window_is_visible(surface))
        return wxDefaultPosition;
    GdkRectangle frame;
    gdk_window_get_frame_extents(surface, &frame);
    // The box is as wide as the title bar is high.
    wxPoint client;
    gdk_window_get_origin(surface, &client.x, &client.y);
    const int halfTitle = (client.y - frame.y) / 2;
    if (halfTitle <= 0)
        return wxDefaultPosition;
    return {frame.x + frame.width - halfTitle, frame.y + halfTitle};
}

bool takesKeys(const wxWindow* window)
{
    return window && window->GetHandle() &&
           gtk_window_is_active(static_cast<GtkWindow*>(static_cast<void*>(window->GetHandle())));
}

bool menuIsUp()
{
    GtkWidget* const grabbing = gtk_grab_get_current();
    return grabbing && GTK_IS_MENU(grabbing) && gtk_widget_get_mapped(grabbing);
}

} // namespace testing_support
