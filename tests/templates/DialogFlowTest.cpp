#include "tests/templates/ManagerRun.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/checklst.h>
#include <wx/combobox.h>
#include <wx/textctrl.h>

using namespace testing_support;

namespace
{

class DialogFlowTest : public ManagerTest
{
protected:
    DialogFlowTest() { storeThree(); }

    // Runs a command of the window that opens a dialog, from within the window's own loop.
    static void open(int id)
    {
        manager()->CallAfter([id] { command(id); });
    }

    static bool isUp(const char* title) { return windowTitled(title) && windowTitled(title)->IsShownOnScreen(); }
    static void press(const char* title, int id) { click(child(windowTitled(title), id)); }
    static bool atRest() { return managerIsUp() && manager()->IsEnabled(); }

    template <class Control>
    static Control* control(const char* title, int id)
    {
        return dynamic_cast<Control*>(child(windowTitled(title), id));
    }
};

TEST_F(DialogFlowTest, SortsByTheLevelsOfTheDialog)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { open(32801); });
    user.when(
        "the sort dialog is up", [] { return isUp("Sort"); },
        []
        {
            auto* const levels = control<wxGrid>("Sort", 1137);
            EXPECT_EQ(levels->GetColLabelValue(0), "Sort");
            EXPECT_EQ(levels->GetCellValue(0, 0), "Sort by");
            EXPECT_EQ(levels->GetCellValue(0, 2), "A to Z");
            press("Sort", 1133);
        });
    user.when(
        "a second level", [] { return control<wxGrid>("Sort", 1137)->GetNumberRows() == 2; },
        []
        {
            auto* const levels = control<wxGrid>("Sort", 1137);
            EXPECT_EQ(levels->GetCellValue(1, 0), "Then by");
            press("Sort", 1057);
        });
    user.when(
        "it has moved up", [] { return control<wxGrid>("Sort", 1137)->GetCellValue(1, 1) == "Name"; },
        []
        {
            savePicture(windowTitled("Sort"), "template-sort");
            press("Sort", 1134);
        });
    user.when(
        "the moved level is gone", [] { return control<wxGrid>("Sort", 1137)->GetNumberRows() == 1; },
        []
        {
            EXPECT_EQ(control<wxGrid>("Sort", 1137)->GetCellValue(0, 1), "Name");
            press("Sort", 1);
        });
    user.when(
        "the manager is back", [] { return !isUp("Sort") && atRest(); }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(DialogFlowTest, ColumnsAreChosenAndKept)
{
    WindowDriver user;
    user.when("the manager is up", atRest,
              []
              {
                  const wxRect rect = grid()->CellToRect(0, 0);
                  wxUIActionSimulator mouse;
                  mouse.MouseMove(grid()->GetGridWindow()->ClientToScreen(rect.GetPosition() + wxPoint(20, 8)));
                  mouse.MouseClick(wxMOUSE_BTN_RIGHT);
              });
    // The last but two entry of the menu.
    user.when(
        "the menu is up", [n = 0]() mutable { return ++n > 40; },
        []
        {
            pressKey(WXK_UP);
            pressKey(WXK_UP);
            pressKey(WXK_RETURN);
        });
    user.when(
        "the columns dialog is up", [] { return isUp("Columns"); },
        []
        {
            auto* const list = control<wxCheckListBox>("Columns", 1138);
            EXPECT_EQ(list->GetCount(), 26U);
            EXPECT_FALSE(child(windowTitled("Columns"), 1057)->IsEnabled());
            EXPECT_FALSE(child(windowTitled("Columns"), 1058)->IsEnabled());
            list->SetSelection(2);
            wxCommandEvent event(wxEVT_LISTBOX, 1138);
            event.SetInt(2);
            list->GetEventHandler()->ProcessEvent(event);
            press("Columns", 1057);
        });
    user.when(
        "the column is one higher", [] { return control<wxCheckListBox>("Columns", 1138)->GetSelection() == 1; },
        []
        {
            EXPECT_EQ(control<wxCheckListBox>("Columns", 1138)->GetString(1), "Material");
            EXPECT_FALSE(child(windowTitled("Columns"), 1057)->IsEnabled());
            savePicture(windowTitled("Columns"), "template-columns");
            press("Columns", 1);
        });
    user.when(
        "the grid follows", [] { return !isUp("Columns") && atRest() && grid()->GetColLabelValue(1) == "Material"; },
        [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    util::TemplateInfo info;
    ASSERT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &info), 0);
    EXPECT_EQ(info.columns[1].title, "Material");
}

TEST_F(DialogFlowTest, FindsHitAfterHitAndTellsWhenThereIsNoMore)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { open(32800); });
    user.when(
        "the find dialog is up", [] { return isUp("Find"); },
        []
        {
            control<wxComboBox>("Find", 1141)->SetValue("  GAMMA ");
            press("Find", 1140);
        });
    user.when(
        "the hit is the current cell", [] { return grid()->GetGridCursorRow() == 2; },
        []
        {
            savePicture(windowTitled("Find"), "template-find");
            press("Find", 1140);
        });
    for (int time = 0; time < 2; ++time)
    {
        user.when("nothing more", messageIsUp,
                  []
                  {
                      EXPECT_EQ(message(), "Template Manager cannot find data you're searching for.");
                      answer(1);
                  });
        user.when(
            "back in the dialog", [] { return !messageIsUp() && isUp("Find"); },
            [time] { press("Find", time == 0 ? 1140 : 1); });
    }
    user.when(
        "closed", [] { return !isUp("Find") && atRest(); }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(DialogFlowTest, PreferencesFilterAtOnceAndSurviveARestart)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { open(32797); });
    user.when(
        "the preferences are up", [] { return isUp("Template Preferences"); },
        [this]
        {
            EXPECT_EQ(control<wxTextCtrl>("Template Preferences", 1153)->GetValue(), folder());
            control<wxCheckBox>("Template Preferences", 1042)->SetValue(true);
            control<wxCheckBox>("Template Preferences", 1155)->SetValue(true);
            control<wxChoice>("Template Preferences", 1152)->SetSelection(1);
            savePicture(windowTitled("Template Preferences"), "template-preferences");
            press("Template Preferences", 1);
        });
    user.when(
        "only the template of the tool's diameter is left", [] { return atRest() && grid()->GetNumberRows() == 1; },
        []
        {
            EXPECT_EQ(cell(0, "Name"), "Beta");
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);

    user.when("after a restart", atRest,
              []
              {
                  EXPECT_EQ(grid()->GetNumberRows(), 1);
                  open(32797);
              });
    user.when(
        "the preferences are up", [] { return isUp("Template Preferences"); },
        []
        {
            EXPECT_TRUE(control<wxCheckBox>("Template Preferences", 1042)->GetValue());
            EXPECT_TRUE(control<wxCheckBox>("Template Preferences", 1155)->GetValue());
            press("Template Preferences", 1151);
        });
    user.when(
        "reset", [] { return !control<wxCheckBox>("Template Preferences", 1042)->GetValue(); },
        []
        {
            EXPECT_EQ(control<wxChoice>("Template Preferences", 1152)->GetSelection(), 0);
            press("Template Preferences", 1);
        });
    user.when(
        "all templates again", [] { return atRest() && grid()->GetNumberRows() == 3; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

} // namespace
