#include "tests/templates/ManagerRun.h"

#include <wx/checklst.h>

using namespace testing_support;

namespace
{

class ColumnsFlowTest : public ManagerTest
{
protected:
    ColumnsFlowTest() { storeThree(); }

    static bool columnIs(int selected, const char* title)
    {
        const auto* const list = control<wxCheckListBox>("Columns", 1138);
        return list->GetSelection() == selected && list->GetString(static_cast<unsigned>(selected)) == title;
    }
};

TEST_F(ColumnsFlowTest, ColumnsAreChosenAndKept)
{
    WindowDriver user;
    user.when("the manager is up", atRest,
              []
              {
                  manager()->SetSize(900, 600);
                  clickAt(manager(), manager()->ScreenToClient(placeInCell(0, "Name")), Person::right);
              });
    // The last but two entry of the menu.
    user.when("the menu is up", menuIsUp,
              []
              {
                  pressKey(WXK_UP);
                  pressKey(WXK_UP);
                  pressKey(WXK_RETURN);
              });
    user.when(
        "the columns dialog is up", [] { return isReady("Columns"); },
        []
        {
            auto* const list = control<wxCheckListBox>("Columns", 1138);
            EXPECT_EQ(list->GetCount(), 26U);
            EXPECT_FALSE(child(windowTitled("Columns"), 1057)->IsEnabled());
            EXPECT_FALSE(child(windowTitled("Columns"), 1058)->IsEnabled());
            clickAt(list, wxPoint(list->GetSize().x / 2, 10));
        });
    user.when(
        "the name column is selected", [] { return columnIs(0, "Name"); },
        []
        {
            EXPECT_FALSE(child(windowTitled("Columns"), 1057)->IsEnabled());
            EXPECT_FALSE(child(windowTitled("Columns"), 1058)->IsEnabled());
            pressKey(WXK_DOWN);
        });
    user.when(
        "the second is selected", [] { return columnIs(1, "Part Material"); },
        []
        {
            EXPECT_FALSE(child(windowTitled("Columns"), 1057)->IsEnabled());
            EXPECT_TRUE(child(windowTitled("Columns"), 1058)->IsEnabled());
            pressKey(WXK_SPACE);
        });
    user.when(
        "it is hidden", [] { return !control<wxCheckListBox>("Columns", 1138)->IsChecked(1); },
        [] { press("Columns", 1058); });
    user.when(
        "it is one lower", [] { return columnIs(2, "Part Material"); }, [] { press("Columns", 1058); });
    user.when(
        "it is two lower", [] { return columnIs(3, "Part Material"); },
        []
        {
            EXPECT_FALSE(control<wxCheckListBox>("Columns", 1138)->IsChecked(3));
            EXPECT_TRUE(control<wxCheckListBox>("Columns", 1138)->IsChecked(1));
            press("Columns", 1057);
        });
    user.when(
        "it is one higher", [] { return columnIs(2, "Part Material"); },
        []
        {
            savePicture(windowTitled("Columns"), "template-columns");
            press("Columns", 1);
        });
    user.when(
        "the grid follows", [] { return !isUp("Columns") && atRest() && grid()->GetColLabelValue(1) == "Material"; },
        [this]
        {
            EXPECT_EQ(grid()->GetColLabelValue(2), "Part Material");
            EXPECT_FALSE(grid()->IsColShown(2));
            // Stored at once, with the window as it is.
            util::TemplateInfo info;
            EXPECT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &info), 0);
            EXPECT_EQ(info.columns[1].title, "Material");
            EXPECT_FALSE(info.columns[2].shown);
            EXPECT_EQ(wxSize(info.windowWidth, info.windowHeight), manager()->GetSize());
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

} // namespace
