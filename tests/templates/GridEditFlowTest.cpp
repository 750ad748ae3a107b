#include "templates/columns/RatingColumn.h"
#include "tests/templates/ManagerRun.h"

#include <wx/listbox.h>

#include <cstdlib>

using namespace testing_support;

namespace
{

class GridEditFlowTest : public ManagerTest
{
protected:
    GridEditFlowTest() { storeThree(); }
};

TEST_F(GridEditFlowTest, EditsAreStoredByTheSaveButtonAndReplaceOnlyWithConsent)
{
    WindowDriver user;
    edit(user, 1, "Tool Diameter", "12.5abc");
    user.when(
        "the cell shows the number", [] { return cell(1, "Tool Diameter") == "12.5"; },
        []
        {
            savePicture(manager(), "template-manager-edited");
            clickManager(1125);
        });
    user.when("the question", messageIsUp,
              []
              {
                  EXPECT_EQ(message(), "Beta already exists. Do you want to replace it?");
                  answer(2);
              });
    user.when(
        "the edit is still there", [] { return atRest(); },
        [this]
        {
            EXPECT_EQ(stored("Beta").numberOr(util::keys::toolDiameter, 0), 10.0);
            EXPECT_EQ(cell(1, "Tool Diameter"), "12.5");
            clickManager(1125);
        });
    user.when("the question again", messageIsUp, [] { answer(1); });
    user.when("it is stored", [this] { return stored("Beta").numberOr(util::keys::toolDiameter, 0) == 12.5; });
    user.when(
        "the window is back", [] { return atRest(); }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(GridEditFlowTest, ClosingAsksForEditsThatAreNotStored)
{
    WindowDriver user;
    edit(user, 0, "Material", "Steel");
    user.when(
        "edited", [] { return cell(0, "Material") == "Steel"; }, [] { pressKey(WXK_F4, wxMOD_ALT); });
    user.when("the question about edits", messageIsUp, [] { answer(1); });
    user.when(
        "the question about the file", [] { return messageIsUp() && message().StartsWith("Alpha already"); },
        [] { answer(1); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(stored("Alpha").stringOr(util::keys::material, ""), "Steel");
    EXPECT_TRUE(m_owner->IsEnabled());
}

TEST_F(GridEditFlowTest, AStoreErrorKeepsTheEditsAndTheWindow)
{
    for (const char* const blank : {"", "   "})
    {
        WindowDriver user;
        edit(user, 0, "Name", blank);
        user.when(
            "edited", [] { return cell(0, "Name") != "Alpha"; }, [] { clickManager(1125); });
        user.when("the error", messageIsUp,
                  []
                  {
                      EXPECT_EQ(message(), "Template file name is missing.");
                      answer(1);
                  });
        user.when("the edit is still there", atRest,
                  [blank]
                  {
                      EXPECT_EQ(cell(0, "Name"), blank);
                      tessaronResourcesQuit();
                  });
        EXPECT_EQ(load(), 0);
        EXPECT_EQ(storedNames(), (std::vector<std::string>{"Alpha", "Beta", "Gamma"}));
    }
}

TEST_F(GridEditFlowTest, SaveTakesTheEditThatIsUnderWay)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickCell(1, "Material"); });
    user.when(
        "the row is selected", [] { return isSelected(1); }, [] { type("Brass"); });
    user.when(
        "the text is in the editor",
        []
        {
            const auto* const editor = dynamic_cast<wxTextCtrl*>(wxWindow::FindFocus());
            return editor && editor->GetValue() == "Brass" && child(manager(), 1125)->IsEnabled();
        },
        [] { clickManager(1125); });
    user.when("the question", messageIsUp, [] { answer(1); });
    user.when("the manager is back", atRest, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(stored("Beta").stringOr(util::keys::material, ""), "Brass");
}

TEST_F(GridEditFlowTest, AListDropsFromItsCellAndChangesOnlyWhatIsChosen)
{
    for (int k = 0; k < 30; ++k)
        store("More " + std::to_string(k), 3.0, 1.0);
    const auto list = [] { return dynamic_cast<wxListBox*>(wxWindow::FindFocus()); };
    const auto at = [](int row) { return cell(row, "Part Material"); };
    WindowDriver user;
    // In the middle of the grid and in its last row, the list is beside its cell and covers none of the columns left of
    // it. Leaving it leaves an empty cell empty.
    for (const int row : {1, 32})
    {
        user.when("at rest", atRest, [row] { clickCell(row, "Part Material"); });
        user.when(
            "the cell is the current one", [row] { return isSelected(row) && !wxGetMouseState().LeftIsDown(); },
            [] { pressKey(WXK_F2); });
        user.when("the list is dropped by F2 in row " + std::to_string(row), list,
                  [=]
                  {
                      const wxRect shown = list()->GetScreenRect();
                      const wxPoint middle = placeInCell(row, "Part Material");
                      const int half = grid()->GetRowHeight(row) / 2;
                      EXPECT_NEAR(shown.x, placeInCell(row, "Part Material", 0.0).x, 2);
                      EXPECT_TRUE(std::abs(shown.y - middle.y - half) < 4 ||
                                  std::abs(shown.GetBottom() - middle.y + half) < 4);
                      EXPECT_GT(shown.height, 100);
                      savePicture(manager(), "template-manager-list-" + std::to_string(row));
                      pressKey(WXK_ESCAPE);
                  });
        user.when(
            "nothing has changed", [=] { return !list() && atRest(); }, [=] { EXPECT_EQ(at(row), ""); });
    }
    user.then("choose with the pointer",
              []
              {
                  EXPECT_FALSE(child(manager(), 1125)->IsEnabled());
                  person().doubleClick(placeInCell(32, "Part Material"));
              });
    wxString clicked;
    user.when("the list is dropped by a double click", list,
              [&clicked, list]
              {
                  clicked = list()->GetString(1);
                  person().click(list()->ClientToScreen(wxPoint(20, list()->GetCharHeight() * 2)));
              });
    user.when(
        "the text is in the cell", [=, &clicked] { return at(32) == clicked && !list(); }, [] { pressKey(WXK_F2); });
    user.when(
        "the list starts at it", [=, &clicked] { return list() && list()->GetStringSelection() == clicked; },
        []
        {
            pressKey(WXK_DOWN);
            pressKey(WXK_RETURN);
        });
    user.when(
        "the next text is in the cell", [=, &clicked] { return !list() && at(32) != clicked && !at(32).empty(); },
        tessaronResourcesQuit);
    EXPECT_EQ(load(), 0);
}

TEST_F(GridEditFlowTest, ANameThatIsCutOffShowsWholeUnderThePointer)
{
    const std::string whole = "A name that is much longer than its column is wide";
    store(whole, 8.0, 1.0);
    const auto tip = [] { return grid()->GetGridWindow()->GetToolTipText(); };
    WindowDriver user;
    user.when("the manager is up", atRest, [] { person().moveTo(placeInCell(0, "Name")); });
    user.when(
        "it shows whole", [&] { return tip() == whole; }, [] { person().moveTo(placeInCell(1, "Name")); });
    user.when(
        "a short one needs no tip", [tip] { return tip().empty(); },
        [] { person().moveTo(placeInCell(0, "Description")); });
    user.then("close", [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
}

TEST_F(GridEditFlowTest, AClickOnAStarRates)
{
    WindowDriver user;
    user.when("the manager is up", managerIsUp, [] { grid()->MakeCellVisible(2, 25); });
    user.when(
        "the rating is in view", [] { return grid()->IsVisible(2, 25); },
        []
        {
            const wxRect rect = grid()->CellToRect(2, 25);
            const auto stars = TessaronResources::starRow({0, 0, rect.width, rect.height});
            clickCell(2, "Rating", (stars.left + 3.5 * stars.edge) / rect.width);
        });
    user.when(
        "four stars", [] { return cell(2, "Rating") == "4"; },
        []
        {
            savePicture(manager(), "template-manager-rating");
            tessaronResourcesQuit();
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(GridEditFlowTest, ADigitRates)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { grid()->MakeCellVisible(0, columnOf("Rating")); });
    user.when(
        "the rating is in view", [] { return grid()->IsVisible(0, columnOf("Rating")); },
        [] { clickCell(0, "Rating", 0.98); });
    user.when(
        "it is the current cell", [] { return isSelected(0) && grid()->GetGridCursorCol() == columnOf("Rating"); },
        [] { type("5"); });
    user.when(
        "five stars", [] { return cell(0, "Rating") == "5"; },
        []
        {
            EXPECT_FALSE(grid()->IsCellEditControlShown());
            type("9");
            pressKey('0');
        });
    user.when(
        "none, as nine is no rating", [] { return cell(0, "Rating") == "0"; }, tessaronResourcesQuit);
    EXPECT_EQ(load(), 0);
}

TEST_F(GridEditFlowTest, DeletesTheSelectedTemplates)
{
    WindowDriver user;
    user.when("the manager is up", managerIsUp, [] { pick({0, 2}); });
    user.when(
        "two are selected", [] { return isSelected(0) && isSelected(2) && !isSelected(1); },
        [] { clickManager(1124); });
    user.when(
        "one is left", [] { return grid()->GetNumberRows() == 1; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(storedNames(), std::vector<std::string>{"Beta"});
}

TEST_F(GridEditFlowTest, TheDeleteKeyAsksFirst)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { pressKey('A', wxMOD_CONTROL); });
    for (const int button : {2, 1})
    {
        user.when(
            "all are selected", [] { return atRest() && isSelected(0) && isSelected(1) && isSelected(2); },
            []
            {
                EXPECT_EQ(grid()->GetNumberRows(), 3);
                pressKey(WXK_DELETE);
            });
        user.when("the question", messageIsUp,
                  [button]
                  {
                      EXPECT_EQ(message(), "Delete the 3 selected templates?");
                      answer(button);
                  });
    }
    user.when(
        "all are gone", [] { return atRest() && grid()->GetNumberRows() == 0; }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    EXPECT_TRUE(storedNames().empty());
}

TEST_F(GridEditFlowTest, TypingOnTheNameColumnGoesToTheName)
{
    for (const char* const name : {"Contour finish", "Contour rough", "Contour rest"})
        store(name, 8.0, 1.0);
    WindowDriver user;
    user.when("the manager is up", atRest, [] { type("Contour rough"); });
    const auto selected = [](const char* name)
    {
        const int row = grid()->GetGridCursorRow();
        return !grid()->IsCellEditControlShown() && isSelected(row) && cell(row, "Name") == name;
    };
    user.when(
        "the whole name counts", [=] { return selected("Contour rough"); },
        []
        {
            for (int letter = 0; letter < 4; ++letter)
                pressKey(WXK_BACK);
            type("est");
        });
    user.when(
        "a slip of the finger is taken back", [=] { return selected("Contour rest"); }, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(storedNames().size(), 6U);
}

TEST_F(GridEditFlowTest, TheRowInHandIsTheOneThatIsApplied)
{
    const auto editing = [] { return editor() != nullptr; };
    const struct
    {
        const char* how;
        std::function<void()> act;
        std::function<bool()> done;
        const char* applied;
    } cases[] = {
        {"a double click",
         []
         {
             clickCell(1, "Material");
             person().press();
             person().release();
         },
         editing, "Beta"},
        {"a second click", [] { clickCell(1, "Material", 0.4); }, editing, "Beta"},
        {"F2", [] { pressKey(WXK_F2); }, editing, "Beta"},
        {"Enter", [] { pressKey(WXK_RETURN); }, [] { return grid()->GetGridCursorRow() == 2; }, "Gamma"},
        {"Enter after an edit",
         []
         {
             type("Brass");
             pressKey(WXK_RETURN);
         },
         [editing] { return cell(1, "Material") == "Brass" && !editing(); }, ""},
        {"Escape from an edit", [] { type("Brass"); },
         [left = false]() mutable
         {
             if (!left && editor() && editor()->GetValue() == "Brass")
             {
                 left = true;
                 pressKey(WXK_ESCAPE);
             }
             return left && !grid()->IsCellEditControlShown();
         },
         "Beta"},
        {"Escape",
         []
         {
             pressKey(WXK_ESCAPE);
             pressKey(WXK_F2);
         },
         editing, "Beta"},
    };
    for (const auto& way : cases)
    {
        SCOPED_TRACE(way.how);
        std::string current;
        WindowDriver user;
        user.when("the manager is up", atRest, [] { clickCell(1, "Material"); });
        user.when(
            "the row is selected", [] { return isSelected(1) && !wxGetMouseState().LeftIsDown(); }, way.act);
        user.when(way.how, way.done,
                  [&]
                  {
                      current = cell(grid()->GetGridCursorRow(), "Name").utf8_string();
                      clickManager(1);
                  });
        EXPECT_EQ(load(), 1);
        EXPECT_EQ(m_result.stringOr(util::keys::templateName, ""), *way.applied ? way.applied : current);
    }
}

} // namespace
