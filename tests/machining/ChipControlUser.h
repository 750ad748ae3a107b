#ifndef TESTS_MACHINING_CHIPCONTROLUSER_H
#define TESTS_MACHINING_CHIPCONTROLUSER_H

#include "tests/support/WindowDriver.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/util/Keys.h>
#include <tessaron/util/Parameterized.h>

#include <wx/choice.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>

#include <string>

/// What tests of the chip thickness dialog share: what its user sees and does.
namespace testing_support
{

namespace keys = util::keys;
using TessaronResources::displayChipControlDialog;

inline constexpr bool inch = false;
inline constexpr bool metric = true;

inline util::Parameterized operation(bool inMillimetres = true)
{
    util::Parameterized set;
    set.set(keys::toolDiameter, inMillimetres ? 10.0 : 0.5);
    set.set(keys::depthOfCut, inMillimetres ? 4.0 : 0.25);
    set.set(keys::toolNumFlutes, 2);
    set.set(keys::spindleSpeed, 5000);
    set.set(keys::feedrate, inMillimetres ? 1000.0 : 40.0);
    set.set(keys::stepover, inMillimetres ? 2.0 : 0.05);
    return set;
}

inline wxTopLevelWindow* dialog()
{
    return topWindow();
}

inline bool dialogIsUp()
{
    return dialog() && dialog()->IsActive() && dialog()->FindWindow(4057);
}

inline bool messageIsUp()
{
    return topWindow() && topWindow()->IsActive() && topWindow()->FindWindow(10);
}

inline wxTextCtrl* edit(int id)
{
    return dynamic_cast<wxTextCtrl*>(child(dialog(), id));
}

inline wxString text(int id)
{
    return edit(id)->GetValue();
}

inline wxChoice* list()
{
    return dynamic_cast<wxChoice*>(child(dialog(), 4057));
}

inline bool isMarked(int id)
{
    return edit(id)->UseBackgroundColour();
}

inline wxString label(int id)
{
    return wxControl::GetLabelText(child(dialog(), id)->GetLabel());
}

/// Chooses an entry of the list with pointer and keyboard.
inline void choose(WindowDriver& user, int index)
{
    user.then("click on the list", [] { click(list()); });
    user.when("the list is open", menuIsUp,
              [index]
              {
                  pressKey(WXK_HOME);
                  for (int i = 0; i < index; ++i)
                      pressKey(WXK_DOWN);
                  pressKey(WXK_RETURN);
              });
    user.when("entry chosen", [index] { return !menuIsUp() && list()->GetSelection() == index; });
}

/// Puts the focus on a field, with all of its text selected.
inline void goTo(WindowDriver& user, int id)
{
    user.then("click on the field", [id] { click(edit(id)); });
    user.when(
        "field has the focus", [id] { return edit(id)->HasFocus(); }, [] { pressKey('A', wxMOD_CONTROL); });
    user.when("selected", [id] { return edit(id)->IsEmpty() || edit(id)->GetStringSelection() == text(id); });
}

/// Types into a field with real keys, in place of what it shows.
inline void enter(WindowDriver& user, int id, const char* typed)
{
    goTo(user, id);
    user.then("type", [typed] { type(typed); });
    user.when("typed", [id, typed] { return text(id) == typed; });
}

inline void press(WindowDriver& user, int key, int modifiers = 0)
{
    user.then("key", [key, modifiers] { pressKey(key, modifiers); });
}

inline void shows(WindowDriver& user, int id, const char* expected)
{
    user.when(std::string("field ") + std::to_string(id) + " shows " + expected,
              [id, expected] { return text(id) == expected; });
}

} // namespace testing_support

#endif
