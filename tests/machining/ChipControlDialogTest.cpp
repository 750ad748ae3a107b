#include "tests/support/WindowDriver.h"
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/util/Keys.h>
#include <tessaron/util/Parameterized.h>

#include <wx/choice.h>
#include <wx/file.h>
#include <wx/filename.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

using namespace testing_support;

namespace
{

namespace keys = util::keys;
using TessaronResources::displayChipControlDialog;

constexpr bool inch = false;
constexpr bool metric = true;

util::Parameterized operation(bool inMillimetres = true)
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

wxTopLevelWindow* dialog()
{
    return topWindow();
}

bool dialogIsUp()
{
    return dialog() && dialog()->IsActive() && dialog()->FindWindow(4057);
}

bool messageIsUp()
{
    return topWindow() && topWindow()->IsActive() && topWindow()->FindWindow(10);
}

wxTextCtrl* edit(int id)
{
    return dynamic_cast<wxTextCtrl*>(child(dialog(), id));
}

wxString text(int id)
{
    return edit(id)->GetValue();
}

wxChoice* list()
{
    return dynamic_cast<wxChoice*>(child(dialog(), 4057));
}

bool isMarked(int id)
{
    return edit(id)->UseBackgroundColour();
}

wxString label(int id)
{
    return wxControl::GetLabelText(child(dialog(), id)->GetLabel());
}

// Chooses an entry of the list with pointer and keyboard.
void choose(WindowDriver& user, int index)
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

// Puts the focus on a field, with all of its text selected.
void goTo(WindowDriver& user, int id)
{
    user.then("click on the field", [id] { click(edit(id)); });
    user.when(
        "field has the focus", [id] { return edit(id)->HasFocus(); }, [] { pressKey('A', wxMOD_CONTROL); });
    user.when("selected", [id] { return edit(id)->IsEmpty() || edit(id)->GetStringSelection() == text(id); });
}

// Types into a field with real keys, in place of what it shows.
void enter(WindowDriver& user, int id, const char* typed)
{
    goTo(user, id);
    user.then("type", [typed] { type(typed); });
    user.when("typed", [id, typed] { return text(id) == typed; });
}

void press(WindowDriver& user, int key, int modifiers = 0)
{
    user.then("key", [key, modifiers] { pressKey(key, modifiers); });
}

void shows(WindowDriver& user, int id, const char* expected)
{
    user.when(std::string("field ") + std::to_string(id) + " shows " + expected,
              [id, expected] { return text(id) == expected; });
}

struct Layout
{
    const char* name;
    int kind;
    bool metric;
    std::vector<wxString> labels;
    std::vector<wxString> quantities;
    wxString stepoverLabel;
};

class ChipControlLayout : public testing::TestWithParam<Layout>
{
};

TEST_P(ChipControlLayout, HasItsTextsAndFields)
{
    const Layout& layout = GetParam();
    util::Parameterized set = operation(layout.metric);
    const util::Parameterized before = set;
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp,
              [&]
              {
                  EXPECT_EQ(dialog()->GetTitle(), "Active Chip Thickness Control");
                  EXPECT_EQ(label(1041), layout.stepoverLabel);
                  for (const wxString& expected : layout.labels)
                      EXPECT_NE(dialog()->FindWindowByLabel(expected, dialog()), nullptr) << expected;
                  EXPECT_EQ(list()->GetStrings(), wxArrayString(layout.quantities.size(), layout.quantities.data()));
                  EXPECT_EQ(list()->GetSelection(), 3);
                  EXPECT_EQ(label(1), "Apply Parameters");
                  EXPECT_EQ(label(2), "Cancel");
                  EXPECT_EQ(label(3), "Calculate");
                  EXPECT_FALSE(edit(4005)->IsEnabled());
                  EXPECT_TRUE(list()->HasFocus());
                  for (const int id : {4000, 4002, 4003, 4004, 4005})
                      EXPECT_TRUE(edit(id)->GetToolTipText().Contains(layout.metric ? " m"
                                                                      : id == 4000  ? " f"
                                                                                    : " inches"))
                          << edit(id)->GetToolTipText();
                  savePicture(dialog(), std::string("chip-control-") + layout.name);
                  pressKey(WXK_ESCAPE);
              });
    EXPECT_EQ(displayChipControlDialog(layout.kind, &set, layout.metric), 2);
    EXPECT_EQ(set, before);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ChipControlLayout,
                         testing::Values(Layout{"inch",
                                                0,
                                                inch,
                                                {"RPM:", "SFM:", "IPM:", "IPT:", "% of Tool Dia:"},
                                                {"Speed", "Feed", "Stepover", "Chip Thickness"},
                                                "Stepover:"},
                                         Layout{"metric",
                                                5,
                                                metric,
                                                {"RPM:", "SMM:", "MMPM:", "MMPT:", "% of Tool Dia:"},
                                                {"Speed", "Feed", "Stepover", "Chip Thickness"},
                                                "Stepover:"},
                                         Layout{"cut-width",
                                                65536,
                                                metric,
                                                {"RPM:", "SMM:"},
                                                {"Speed", "Feed", "Cut Width", "Chip Thickness"},
                                                "Cut Width:"},
                                         Layout{"xy-feed",
                                                300 * 65536,
                                                metric,
                                                {"Cut Speed RPM:", "SPM:", "XY Feedrate PM:", "PT:", "% of Diameter:"},
                                                {"Cut Speed", "XY Feedrate", "Step Over", "Chip Thickness"},
                                                "Step Over:"}),
                         [](const auto& one)
                         {
                             std::string name = one.param.name;
                             std::erase(name, '-');
                             return name;
                         });

TEST(ChipControlDialog, DerivesWhatTheUserAsksForAndAppliesIt)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp,
              []
              {
                  EXPECT_EQ(text(4000), "157.079633");
                  EXPECT_EQ(text(4001), "5000");
                  EXPECT_EQ(text(4002), "0.1");
                  EXPECT_EQ(text(4003), "1000");
                  EXPECT_EQ(text(4004), "2");
                  EXPECT_EQ(text(1040), "20");
                  EXPECT_EQ(text(4005), "0.08");
                  EXPECT_EQ(label(4006), "8.00");
              });
    enter(user, 1040, "50");
    press(user, WXK_TAB);
    shows(user, 4004, "5");
    shows(user, 4005, "0.1");
    user.then("rate", [] { EXPECT_EQ(label(4006), "20.00"); });
    enter(user, 4004, "1/2+0.5");
    press(user, WXK_RETURN);
    shows(user, 4004, "1");
    user.then("Enter evaluates and stays",
              []
              {
                  EXPECT_TRUE(dialogIsUp() && edit(4004)->HasFocus());
                  EXPECT_EQ(text(1040), "50");
              });
    press(user, WXK_TAB, wxMOD_SHIFT);
    shows(user, 1040, "10");
    choose(user, 1);
    user.then("feed fields are disabled",
              []
              {
                  for (const int id : {4000, 4001, 4004, 1040, 4005})
                      EXPECT_TRUE(edit(id)->IsEnabled()) << id;
                  EXPECT_FALSE(edit(4002)->IsEnabled());
                  EXPECT_FALSE(edit(4003)->IsEnabled());
                  savePicture(dialog(), "chip-control-feed");
              });
    enter(user, 4005, "0.03");
    press(user, 'C', wxMOD_ALT);
    shows(user, 4002, "0.05");
    shows(user, 4003, "500");
    user.then("Calculate gives the focus back",
              []
              {
                  EXPECT_TRUE(edit(4005)->HasFocus());
                  click(child(dialog(), 1));
              });
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 1);
    EXPECT_EQ(set.intOr(keys::spindleSpeed, 0), 5000);
    EXPECT_NEAR(set.numberOr(keys::feedrate, 0), 500, 1e-9);
    EXPECT_NEAR(set.numberOr(keys::stepover, 0), 1, 1e-9);
    EXPECT_EQ(set.size(), 6U);
}

TEST(ChipControlDialog, AppliesTheFieldThatIsBeingEdited)
{
    const struct
    {
        int field;
        const char* typed;
        int key; // applies without taking the focus from the field
        int modifiers;
        int spindleSpeed;
        double stepover;
    } cases[] = {
        {4001, "2500", WXK_RETURN, wxMOD_NONE, 2500, 2}, // a plain edit: Enter presses the default button
        {4001, "2500", 'A', wxMOD_ALT, 2500, 2},
        {1040, "2*15", 'A', wxMOD_ALT, 5000, 3},
    };
    for (const auto& one : cases)
    {
        util::Parameterized set = operation();
        WindowDriver user;
        user.when("the dialog is up", dialogIsUp);
        enter(user, one.field, one.typed);
        press(user, one.key, one.modifiers);
        EXPECT_EQ(displayChipControlDialog(0, &set, metric), 1);
        EXPECT_EQ(set.intOr(keys::spindleSpeed, 0), one.spindleSpeed);
        EXPECT_EQ(set.numberOr(keys::feedrate, 0), 1000);
        EXPECT_DOUBLE_EQ(set.numberOr(keys::stepover, 0), one.stepover);
    }
}

TEST(ChipControlDialog, ReplacesTextThatIsNoExpressionByItsLeadingNumber)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    enter(user, 4003, "12abc");
    press(user, WXK_RETURN);
    user.then("Enter leaves it", [] { EXPECT_EQ(text(4003), "12abc"); });
    press(user, WXK_TAB);
    shows(user, 4003, "12");
    shows(user, 4002, "0.0012");
    user.when(
        "marked", [] { return isMarked(4003); },
        []
        {
            EXPECT_TRUE(label(4008).StartsWith("MMPM: 12 was read of \"12abc\".")) << label(4008);
            savePicture(dialog(), "chip-control-misread");
        });
    enter(user, 4003, "13");
    user.then("edited",
              []
              {
                  EXPECT_FALSE(isMarked(4003));
                  EXPECT_FALSE(label(4008).Contains("12abc")) << label(4008);
              });
    press(user, WXK_ESCAPE);
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
}

TEST(ChipControlDialog, HearsNothingOfAnEmptyField)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    goTo(user, 4003);
    press(user, WXK_DELETE);
    user.when(
        "empty", [] { return text(4003).empty(); }, [] { pressKey(WXK_TAB); });
    user.when(
        "the focus has moved on", [] { return edit(4002)->HasFocus() && isMarked(4003); },
        []
        {
            EXPECT_EQ(text(4003), "");
            EXPECT_EQ(text(4002), "0.1");
            EXPECT_EQ(label(4008), "MMPM: Please enter a number. Thinning factor 1.25.");
            pressKey(WXK_TAB); // leaving another field reads the form, and finds the empty one
        });
    user.when("the empty field is reported", messageIsUp,
              []
              {
                  EXPECT_NE(child(topWindow(), 10)->GetLabel().Find("MMPM"), wxNOT_FOUND);
                  pressKey(WXK_RETURN);
              });
    user.when(
        "the focus is on it, with the value it had", [] { return dialogIsUp() && edit(4003)->HasFocus(); },
        []
        {
            EXPECT_EQ(text(4003), "1000");
            EXPECT_FALSE(isMarked(4003));
            pressKey(WXK_ESCAPE);
        });
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
}

TEST(ChipControlDialog, ReportsASpindleSpeedThatIsNoWholeNumber)
{
    const util::Parameterized before = operation();
    for (const auto& [typed, byApply] : {std::pair("12.5", false), {"12.5", true}, {"+-5", false}, {"", true}})
    {
        util::Parameterized set = before;
        WindowDriver user;
        user.when("the dialog is up", dialogIsUp);
        goTo(user, 4001);
        user.then("type", [typed = typed] { *typed == '\0' ? pressKey(WXK_DELETE) : type(typed); });
        user.when("typed", [typed = typed] { return text(4001) == typed; });
        user.then("leave", [byApply = byApply] { byApply ? click(child(dialog(), 1)) : pressKey(WXK_TAB); });
        user.when("the message is up", messageIsUp,
                  []
                  {
                      EXPECT_NE(child(topWindow(), 10)->GetLabel().Find("RPM"), wxNOT_FOUND);
                      savePicture(topWindow(), "chip-control-message");
                      pressKey(WXK_RETURN);
                  });
        user.when(
            "the focus is back on the field", [] { return dialogIsUp() && edit(4001)->HasFocus(); },
            []
            {
                EXPECT_EQ(text(4001), "5000");
                pressKey(WXK_ESCAPE);
            });
        EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
        EXPECT_EQ(set, before);
    }
}

TEST(ChipControlDialog, GoesDownTheFormWithTab)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp, [] { EXPECT_TRUE(list()->HasFocus()); });
    // Chip Thickness (4005) is derived, and so is passed over.
    for (const int id : {4001, 4000, 4003, 4002, 4004, 1040, 3, 1, 2, 1065})
    {
        press(user, WXK_TAB);
        user.when("on to " + std::to_string(id), [id] { return child(dialog(), id)->HasFocus(); });
    }
    press(user, WXK_TAB);
    user.when(
        "round to the list", [] { return !child(dialog(), 1065)->HasFocus(); }, [] { pressKey(WXK_UP); });
    user.when("on the list", [] { return list()->GetSelection() == 2; });
    // Stepover is derived now.
    for (const int id : {1065, 2, 1, 3, 4005, 4002})
    {
        press(user, WXK_TAB, wxMOD_SHIFT);
        user.when("back to " + std::to_string(id), [id] { return child(dialog(), id)->HasFocus(); });
    }
    press(user, WXK_ESCAPE);
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
    EXPECT_EQ(set, operation());
}

// Stands in for the desktop's viewer: a program of that name, first on the path, that notes what it was asked to open.
class ViewerInstead
{
public:
    ViewerInstead() : m_folder(wxFileName::CreateTempFileName("viewer")), m_pathBefore(std::getenv("PATH"))
    {
        wxRemoveFile(m_folder);
        wxMkdir(m_folder);
        const wxString program = m_folder + "/xdg-open";
        wxFile(program, wxFile::write)
            .Write("#!/bin/sh\nprintf %s \"$1\" > '" + opened() + ".part' && mv '" + opened() + ".part' '" + opened() +
                   "'\n");
        wxFileName(program).SetPermissions(wxS_DEFAULT | wxPOSIX_USER_EXECUTE);
        wxSetEnv("PATH", m_folder + ":" + m_pathBefore);
    }

    ~ViewerInstead()
    {
        wxSetEnv("PATH", m_pathBefore);
        wxFileName::Rmdir(m_folder, wxPATH_RMDIR_RECURSIVE);
    }

    wxString opened() const { return m_folder + "/opened"; }
    wxString document() const
    {
        wxString path;
        wxFile(opened()).ReadAll(&path);
        return path;
    }

private:
    wxString m_folder;
    wxString m_pathBefore;
};

TEST(ChipControlDialog, OpensTheHelpFileBesideTheModule)
{
    for (const bool inMillimetres : {inch, metric})
    {
        util::Parameterized set = operation(inMillimetres);
        const ViewerInstead viewer;
        WindowDriver user;
        user.when("the dialog is up", dialogIsUp, [] { click(child(dialog(), 1065)); });
        user.when(
            "the viewer was asked", [&] { return wxFileExists(viewer.opened()); }, [] { pressKey(WXK_ESCAPE); });
        EXPECT_EQ(displayChipControlDialog(0, &set, inMillimetres), 2);
        const wxFileName document(viewer.document());
        EXPECT_EQ(document.GetFullName(), inMillimetres ? "Chip Thickness Control in Tessaron Metric.chm"
                                                        : "Chip Thickness Control in Tessaron Inch.chm");
        EXPECT_TRUE(wxFileExists(document.GetPath() + "/libTessaronResources.so")) << document.GetPath();
    }
}

TEST(ChipControlDialog, SurvivesAToolWithoutADiameter)
{
    util::Parameterized set = operation();
    set.set(keys::toolDiameter, 0.0);
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp, [] { EXPECT_EQ(text(1040), "inf"); });
    enter(user, 4003, "1500");
    press(user, WXK_TAB);
    shows(user, 4002, "0.15");
    user.then("apply",
              []
              {
                  EXPECT_EQ(text(1040), "inf");
                  click(child(dialog(), 1));
              });
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 1);
    EXPECT_EQ(set.numberOr(keys::feedrate, 0), 1500);
}

TEST(ChipControlDialog, PlainEntryPointReturnsZeroWhenApplied)
{
    int spindleSpeed = 5000;
    double feedrate = 1000;
    double stepover = 2;
    {
        WindowDriver user;
        user.when("the dialog is up", dialogIsUp);
        enter(user, 4001, "8000");
        user.then("cancel", [] { click(child(dialog(), 2)); });
        EXPECT_EQ(displayChipControlDialogEx(0, 10, 4, 2, &spindleSpeed, &feedrate, &stepover, metric), 1);
    }
    EXPECT_EQ(spindleSpeed, 5000);
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    enter(user, 4001, "8000");
    press(user, WXK_TAB);
    user.when("left", [] { return !edit(4001)->HasFocus(); });
    enter(user, 1040, "30");
    user.then("apply", [] { click(child(dialog(), 1)); });
    EXPECT_EQ(displayChipControlDialogEx(0, 10, 4, 2, &spindleSpeed, &feedrate, &stepover, metric), 0);
    EXPECT_EQ(spindleSpeed, 8000);
    EXPECT_EQ(feedrate, 1000);
    EXPECT_DOUBLE_EQ(stepover, 3);
}

TEST(ChipControlDialog, ChangesNothingThatNobodyEdited)
{
    util::Parameterized set = operation(inch);
    set.set(keys::toolDiameter, 0.3125);
    set.set(keys::toolNumFlutes, 3);
    set.set(keys::spindleSpeed, 7000);
    set.set(keys::feedrate, 40.0);
    set.set(keys::stepover, 0.1 / 3);
    for (const int derived : {3, 2, 1, 0})
    {
        util::Parameterized applied = set;
        WindowDriver user;
        user.when("the dialog is up", dialogIsUp);
        if (derived != 3)
            choose(user, derived);
        for (int field = 0; field < 8; ++field)
            press(user, WXK_TAB);
        press(user, 'C', wxMOD_ALT);
        press(user, 'A', wxMOD_ALT);
        EXPECT_EQ(displayChipControlDialog(0, &applied, inch), 1);
        EXPECT_EQ(applied, set) << derived;
    }
}

TEST(ChipControlDialog, ReadsAllFieldsButTheOneAtFault)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    goTo(user, 4000);
    press(user, WXK_DELETE);
    enter(user, 4003, "1500");
    press(user, WXK_TAB);
    user.when("the empty field is reported", messageIsUp,
              []
              {
                  EXPECT_TRUE(child(topWindow(), 10)->GetLabel().Contains("SMM")) << child(topWindow(), 10)->GetLabel();
                  pressKey(WXK_RETURN);
              });
    user.when("the entry has come in", dialogIsUp,
              []
              {
                  EXPECT_EQ(text(4000), "157.079633");
                  EXPECT_EQ(text(4003), "1500");
                  EXPECT_EQ(text(4002), "0.15");
              });
    goTo(user, 4004);
    press(user, WXK_DELETE);
    press(user, 'A', wxMOD_ALT);
    user.when("a field that is empty is not applied", messageIsUp,
              []
              {
                  EXPECT_TRUE(child(topWindow(), 10)->GetLabel().Contains("Stepover"));
                  pressKey(WXK_RETURN);
              });
    user.when("back", dialogIsUp, [] { pressKey(WXK_ESCAPE); });
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
}

TEST(ChipControlDialog, MarksAChipThatContradictsTheRest)
{
    util::Parameterized set = operation();
    set.set(keys::maximumSpindleSpeed, 4000);
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    choose(user, 2);
    enter(user, 4005, "0.3");
    press(user, WXK_TAB);
    user.when(
        "marked", [] { return isMarked(4005); },
        []
        {
            EXPECT_EQ(text(4004), "5");
            wxString notes = label(4008);
            notes.Replace("\n", " ");
            EXPECT_EQ(notes, "At this feed per tooth and stepover the chip is 0.1 mm thick. "
                             "Spindle speed above the maximum of 4000.");
            EXPECT_EQ(label(4007), wxString::FromUTF8("cm³/min"));
            expectWellLaidOut(dialog());
            savePicture(dialog(), "chip-control-contradiction");
        });
    enter(user, 4005, "0.1");
    press(user, WXK_TAB);
    user.when(
        "not any more", [] { return !isMarked(4005); },
        [] { EXPECT_TRUE(label(4008).StartsWith("From half the diameter up")) << label(4008); });
    press(user, WXK_ESCAPE);
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
}

TEST(ChipControlDialog, ServesTheKeysOfItsButtonsOnTheList)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp);
    press(user, WXK_TAB, wxMOD_SHIFT);
    user.when(
        "on the help button", [] { return child(dialog(), 1065)->HasFocus(); }, [] { pressKey(WXK_TAB); });
    user.when(
        "on the list", [] { return !child(dialog(), 1065)->HasFocus(); },
        []
        {
            child(dialog(), 3)
                ->Bind(wxEVT_SET_FOCUS,
                       [](wxFocusEvent& event)
                       {
                           event.Skip();
                           dialog()->SetName("calculated");
                       });
            pressKey('C', wxMOD_ALT);
        });
    user.when(
        "calculated", [] { return dialog()->GetName() == "calculated"; }, [] { pressKey(WXK_UP); });
    user.when(
        "the list has the focus again", [] { return list()->GetSelection() == 2; }, [] { pressKey('A', wxMOD_ALT); });
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 1);
}

TEST(ChipControlDialog, KeepsTheDerivedQuantityUnderTheWheel)
{
    util::Parameterized set = operation();
    WindowDriver user;
    user.when("the dialog is up", dialogIsUp, [] { person().moveTo(Person::middleOf(list())); });
    for (int turn = 0; turn < 3; ++turn)
        user.then("wheel", [] { person().wheel(-1); });
    press(user, WXK_TAB);
    user.when(
        "the wheel has been turned", [] { return edit(4001)->HasFocus() || list()->GetSelection() != 3; },
        []
        {
            EXPECT_EQ(list()->GetSelection(), 3);
            pressKey(WXK_ESCAPE);
        });
    EXPECT_EQ(displayChipControlDialog(0, &set, metric), 2);
}

} // namespace
