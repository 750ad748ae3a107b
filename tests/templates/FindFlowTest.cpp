#include "tests/templates/ManagerRun.h"

#include <wx/combobox.h>

using namespace testing_support;

namespace
{

class FindFlowTest : public ManagerTest
{
protected:
    FindFlowTest() { storeThree(); }
};

TEST_F(FindFlowTest, FindsHitAfterHitAndTellsWhenThereIsNoMore)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickRibbon(32800); });
    user.when(
        "the find dialog is up", [] { return isReady("Find"); },
        []
        {
            type("  GAMMA ");
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
            "back in the dialog", [] { return isReady("Find"); }, [time] { press("Find", time == 0 ? 1140 : 1); });
    }
    // Another dialog begins at the beginning.
    user.when(
        "closed", [] { return !isUp("Find") && atRest(); },
        []
        {
            clickCell(0, "Part Material");
            clickRibbon(32800);
        });
    user.when(
        "the find dialog is up again", [] { return isReady("Find"); },
        []
        {
            EXPECT_EQ(control<wxComboBox>("Find", 1141)->GetValue(), "GAMMA");
            EXPECT_EQ(control<wxComboBox>("Find", 1141)->GetCount(), 1U);
            press("Find", 1140);
        });
    user.when(
        "it is found again", [] { return grid()->GetGridCursorRow() == 2; }, [] { press("Find", 1); });
    // The key goes on with the last text; of a text without further hits it says so.
    user.when("closed", atRest, [] { pressKey(WXK_F3); });
    user.when("nothing more", messageIsUp, [] { answer(1); });
    user.when("the manager is back", atRest, [] { clickRibbon(32800); });
    user.when(
        "the find dialog is up", [] { return isReady("Find"); },
        []
        {
            type("ta");
            press("Find", 1140);
        });
    user.when(
        "the only name with it", [] { return grid()->GetGridCursorRow() == 1; },
        [] { click(control<wxComboBox>("Find", 1141)); });
    user.when(
        "the text has the focus",
        [] { return dynamic_cast<wxComboBox*>(wxWindow::FindFocus()) && !wxGetMouseState().LeftIsDown(); },
        []
        {
            pressKey('A', wxMOD_CONTROL);
            type("6061");
            pressKey(WXK_RETURN);
        });
    user.when(
        "the first hit", [] { return grid()->GetGridCursorRow() == 0; }, [] { press("Find", 1); });
    for (const int row : {1, 2})
    {
        user.when("at rest", atRest, [] { pressKey(WXK_F3); });
        user.when("the next hit", [row] { return grid()->GetGridCursorRow() == row; });
    }
    user.then("close", [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(FindFlowTest, FindGoesOnAfterItFoundNothing)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { pressKey('F', wxMOD_CONTROL); });
    for (const char* const text : {"nowhere", "Gamma"})
        user.when(
                "the dialog waits for a text", [] { return isReady("Find"); },
                [text]
                {
                    pressKey('A', wxMOD_CONTROL);
                    type(text);
                    pressKey(WXK_RETURN);
                })
            .when(
                "the answer",
                [found = std::string(text) == "Gamma"]
                { return found ? grid()->GetGridCursorRow() == 2 : messageIsUp(); },
                [found = std::string(text) == "Gamma"] { pressKey(found ? WXK_ESCAPE : WXK_RETURN); });
    user.when("at rest", atRest, [] { pressKey(WXK_F3); });
    user.when("no more", messageIsUp, [] { pressKey(WXK_RETURN); });
    user.when("at rest again", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(FindFlowTest, TheDialogDoesNotCoverWhatItFinds)
{
    for (int k = 0; k < 30; ++k)
        store("Row " + std::to_string(100 + k), 3.0, 1.0);
    const auto dialog = [] { return windowTitled("Find"); };
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickRibbon(32800); });
    user.when(
        "the dialog waits for a text", [] { return isReady("Find"); }, [] { type("6061"); });
    // From hit to hit the cell passes under where the dialog is.
    int moved = 0;
    wxPoint at;
    for (int row = 0; row < 20; ++row)
    {
        user.then("find the next one",
                  [&]
                  {
                      at = dialog()->GetPosition();
                      pressKey(WXK_RETURN);
                  });
        user.when(
            "the cell is found and in view",
            [=]
            {
                const wxRect shown = dialog()->GetScreenRect();
                return grid()->GetGridCursorRow() == row && grid()->GetGridCursorCol() == columnOf("Material") &&
                       !shown.Contains(placeInCell(row, "Material")) &&
                       !shown.Contains(placeInCell(row, "Material", 0.95));
            },
            [&] { moved += dialog()->GetPosition() != at ? 1 : 0; });
    }
    user.then("close",
              [&]
              {
                  EXPECT_GT(moved, 0) << "the dialog was never in the way";
                  pressKey(WXK_ESCAPE);
              });
    user.when("the manager is back", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

} // namespace
