#include "tests/templates/ManagerRun.h"

#include <wx/combobox.h>

using namespace testing_support;

namespace
{

class SortFlowTest : public ManagerTest
{
protected:
    SortFlowTest() { storeThree(); }

    static wxGrid* levels() { return control<wxGrid>("Sort", 1137); }

    // The middle of a cell, on the screen.
    static wxPoint levelCell(int row, int col)
    {
        const wxRect cell = levels()->CellToRect(row, col);
        return levels()->GetGridWindow()->ClientToScreen(cell.GetPosition() + cell.GetSize() / 2);
    }
    static bool otherOrderChosen()
    {
        const auto* const orders = dynamic_cast<wxComboBox*>(wxWindow::FindFocus());
        return orders && orders->GetValue() == "Z to A";
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
    // The first click opens the list of orders, in which the keys go from one to the next.
    user.when(
        "the order is edited", [] { return levels()->IsCellEditControlShown(); },
        []
        {
            auto* const orders = dynamic_cast<wxComboBox*>(wxWindow::FindFocus());
            ASSERT_NE(orders, nullptr);
            EXPECT_EQ(orders->GetString(0) + "/" + orders->GetString(1), "A to Z/Z to A");
            pressKey(WXK_DOWN);
        });
    user.when(
        "the other order is chosen", [] { return otherOrderChosen(); }, [] { press("Sort", 1); });
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

} // namespace
