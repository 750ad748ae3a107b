#include "tests/machining/ChipControlUser.h"

#include <wx/file.h>
#include <wx/filename.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

using namespace testing_support;

namespace
{

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
