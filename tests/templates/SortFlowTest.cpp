#include "tests/templates/ManagerRun.h"

#include <wx/listbox.h>

using namespace testing_support;

namespace
{

class SortFlowTest : public ManagerTest
{
protected:
    SortFlowTest() { storeThree(); }

    static wxGrid* levels() { return control<wxGrid>("Sort", 1137); }

    static wxListBox* editing() { return dynamic_cast<wxListBox*>(wxWindow::FindFocus()); }

    // The middle of a cell, on the screen.
    static wxPoint levelCell(int row, int col)
    {
        const wxRect cell = levels()->CellToRect(row, col);
        return levels()->GetGridWindow()->ClientToScreen(cell.GetPosition() + cell.GetSize() / 2);
    }
};

TEST_F(SortFlowTest, SortsByTheLevelsOfTheDialog)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickRibbon(32801); });
    user.when(
        "the sort dialog is up", [] { return isReady("Sort"); },
        []
        {
            EXPECT_EQ(levels()->GetColLabelValue(0), "Sort");
            EXPECT_EQ(levels()->GetCellValue(0, 0), "Sort by");
            EXPECT_EQ(levels()->GetCellValue(0, 2), "A to Z");
            press("Sort", 1133);
        });
    user.when(
        "a second level", [] { return levels()->GetNumberRows() == 2; },
        []
        {
            EXPECT_EQ(levels()->GetCellValue(1, 0), "Then by");
            press("Sort", 1057);
        });
    user.when(
        "it has moved up", [] { return levels()->GetCellValue(1, 1) == "Name"; },
        []
        {
            savePicture(windowTitled("Sort"), "template-sort");
            EXPECT_FALSE(child(windowTitled("Sort"), 1057)->IsEnabled());
            EXPECT_TRUE(child(windowTitled("Sort"), 1058)->IsEnabled());
            press("Sort", 1058);
        });
    user.when(
        "it is down again", [] { return levels()->GetCellValue(0, 1) == "Name"; },
        []
        {
            EXPECT_EQ(levels()->GetCellValue(0, 0), "Sort by");
            EXPECT_TRUE(child(windowTitled("Sort"), 1057)->IsEnabled());
            EXPECT_FALSE(child(windowTitled("Sort"), 1058)->IsEnabled());
            press("Sort", 1134);
        });
    user.when(
        "the moved level is gone", [] { return levels()->GetNumberRows() == 1; },
        []
        {
            EXPECT_EQ(levels()->GetCellValue(0, 1), "Name");
            person().click(levelCell(0, 2));
        });
    user.when(
        "the orders are dropped", [] { return editing() && editing()->GetStringSelection() == "A to Z"; },
        []
        {
            EXPECT_EQ(editing()->GetCount(), 2U);
            pressKey(WXK_DOWN);
            pressKey(WXK_RETURN);
        });
    user.when(
        "the other order is chosen", [] { return levels()->GetCellValue(0, 2) == "Z to A"; }, [] { press("Sort", 1); });
    user.when(
        "the manager is back, sorted the other way round", [] { return !isUp("Sort") && atRest(); },
        []
        {
            EXPECT_EQ(cell(0, "Name"), "Gamma");
            EXPECT_EQ(cell(2, "Name"), "Alpha");
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(SortFlowTest, EnterTakesTheLevelsThatAreShown)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickRibbon(32801); });
    user.when(
        "the sort dialog is up", [] { return isReady("Sort"); },
        []
        {
            EXPECT_EQ(levels()->GetNumberRows(), 1);
            pressKey(WXK_RETURN);
        });
    user.when("the manager is back", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    util::TemplateInfo info;
    EXPECT_EQ(util::loadTemplateDefs(folder(), "tessaron_template_info", &info), 0);
    EXPECT_EQ(info.sortLevels, (std::vector<util::TemplateSortLevel>{{"Template Name", false}}));
}

TEST_F(SortFlowTest, EscapeLeavesTheListAndThenTheDialog)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickRibbon(32801); });
    user.when("the sort dialog is up", [] { return isReady("Sort"); });
    // With the pointer, and with the key.
    for (const bool key : {false, true})
    {
        user.then("the list is dropped", [key] { key ? pressKey(WXK_F2) : person().click(levelCell(0, 1)); });
        user.when("the list is up", editing,
                  []
                  {
                      pressKey(WXK_DOWN);
                      pressKey(WXK_ESCAPE);
                  });
        user.when(
            "only the list is gone", [] { return !editing() && isReady("Sort"); },
            [] { EXPECT_EQ(levels()->GetCellValue(0, 1), "Name"); });
    }
    user.then("the dialog is left", [] { pressKey(WXK_ESCAPE); });
    user.when("the manager is back", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

} // namespace
