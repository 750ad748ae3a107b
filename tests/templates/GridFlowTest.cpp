#include "templates/columns/RatingColumn.h"
#include "tests/templates/ManagerRun.h"

#include <wx/textctrl.h>

using namespace testing_support;

namespace
{

class GridFlowTest : public ManagerTest
{
protected:
    GridFlowTest() { storeThree(); }

    static std::vector<wxString> names()
    {
        std::vector<wxString> found;
        found.reserve(static_cast<std::size_t>(grid()->GetNumberRows()));
        for (int row = 0; row < grid()->GetNumberRows(); ++row)
            found.push_back(cell(row, "Name"));
        return found;
    }

    util::Parameterized stored(const std::string& name) const
    {
        util::Parameterized set;
        std::vector<util::Parameterized> sets;
        util::loadTemplateFiles(kindFolder(), 0, &sets);
        for (const util::Parameterized& candidate : sets)
            if (candidate.stringOr(util::keys::templateName, "") == name)
                set = candidate;
        return set;
    }

    // Picks a row, then others with the control key held.
    static void pick(std::initializer_list<int> rows)
    {
        wxUIActionSimulator keys;
        bool first = true;
        for (const int row : rows)
        {
            if (!first)
                keys.KeyDown(WXK_CONTROL);
            clickCell(row, "Name");
            if (!first)
                keys.KeyUp(WXK_CONTROL);
            first = false;
        }
    }
};

TEST_F(GridFlowTest, EditsAreStoredByTheSaveButtonAndReplaceOnlyWithConsent)
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

TEST_F(GridFlowTest, ClosingAsksForEditsThatAreNotStored)
{
    WindowDriver user;
    edit(user, 0, "Material", "Steel");
    user.when(
        "edited", [] { return cell(0, "Material") == "Steel"; }, [] { manager()->Close(); });
    user.when("the question about edits", messageIsUp, [] { answer(1); });
    user.when(
        "the question about the file", [] { return messageIsUp() && message().StartsWith("Alpha already"); },
        [] { answer(1); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(stored("Alpha").stringOr(util::keys::material, ""), "Steel");
    EXPECT_TRUE(m_owner->IsEnabled());
}

TEST_F(GridFlowTest, AStoreErrorKeepsTheEditsAndTheWindow)
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

TEST_F(GridFlowTest, SaveTakesTheEditThatIsUnderWay)
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

TEST_F(GridFlowTest, AClickOnAStarRates)
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

TEST_F(GridFlowTest, ADigitRates)
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

TEST_F(GridFlowTest, DeletesTheSelectedTemplates)
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

TEST_F(GridFlowTest, TheDeleteKeyAsksFirst)
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

TEST_F(GridFlowTest, AQuickSortKeepsTheSelection)
{
    WindowDriver user;
    user.when("the manager is up", managerIsUp, [] { pick({0}); });
    user.when(
        "Alpha is selected", [] { return isSelected(0); }, [] { clickCell(0, "Tool Diameter"); });
    user.when(
        "the diameter is the current column", [] { return grid()->GetGridCursorCol() == 4; }, [] { command(32803); });
    user.when(
        "largest first",
        [] {
            return names() == std::vector<wxString>{"Gamma", "Beta", "Alpha"};
        },
        []
        {
            EXPECT_TRUE(isSelected(2));
            EXPECT_FALSE(isSelected(0));
            savePicture(manager(), "template-manager-sorted");
            command(32802);
        });
    user.when(
        "smallest first",
        [] {
            return names() == std::vector<wxString>{"Alpha", "Beta", "Gamma"};
        },
        []
        {
            EXPECT_TRUE(isSelected(0));
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(GridFlowTest, SelectionsAndHeightsGoWithTheirRows)
{
    util::Parameterized tall = stored("Alpha");
    tall.set(util::keys::templateComments, std::string("one\ntwo\nthree"));
    ASSERT_EQ(util::saveTemplateFile(util::templatePath(kindFolder(), "Alpha"), false, &tall), 0);
    store("Delta", 14.0, 1.0);
    WindowDriver user;
    user.when("the manager is up", managerIsUp,
              []
              {
                  EXPECT_GT(grid()->GetRowHeight(0), grid()->GetRowHeight(1));
                  pick({0, 1, 3});
              });
    const auto selection = []
    {
        std::string rows;
        for (int row = 0; row < grid()->GetNumberRows(); ++row)
            rows += isSelected(row) ? 'x' : '-';
        return rows;
    };
    user.when(
        "three are selected", [selection] { return selection() == "xx-x"; },
        []
        {
            for (int time = 0; time < 2; ++time)
                clickAt(grid()->GetGridColLabelWindow(), heading("Name"));
        });
    user.when(
        "backwards", [] { return cell(0, "Name") == "Gamma"; },
        [selection]
        {
            EXPECT_EQ(names(), (std::vector<wxString>{"Gamma", "Delta", "Beta", "Alpha"}));
            EXPECT_EQ(cell(3, "Comments"), "one\ntwo\nthree");
            EXPECT_GT(grid()->GetRowHeight(3), grid()->GetRowHeight(0));
            EXPECT_EQ(grid()->GetRowHeight(0), grid()->GetRowHeight(2));
            // Alpha, Beta and Gamma: the list began as Alpha, Beta, Delta, Gamma.
            EXPECT_EQ(selection(), "x-xx");
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(GridFlowTest, TheSortAndTheRowInHandSurviveEveryRefill)
{
    store("Delta", 14.0, 1.0);
    const auto mark = []
    {
        wxWindow* const headings = grid()->GetGridColLabelWindow();
        const wxRect column = grid()->CellToRect(0, columnOf("Material"));
        const wxPoint corner =
            manager()->ScreenToClient(headings->ClientToScreen(grid()->CalcScrolledPosition(wxPoint(column.x, 0))));
        const wxImage picture = pictureOf(manager(), {corner, wxSize(column.width, 12)});
        return picture.IsOk() ? std::string(reinterpret_cast<const char*>(picture.GetData()),
                                            std::size_t{36} * static_cast<std::size_t>(column.width))
                              : std::string();
    };
    const auto clickHeading = [] { clickAt(grid()->GetGridColLabelWindow(), heading("Material")); };
    for (const auto& [name, material] :
         {std::pair("Alpha", "Zinc"), {"Beta", "Brass"}, {"Gamma", "Steel"}, {"Delta", "Iron"}})
    {
        util::Parameterized set = stored(name);
        set.set(util::keys::material, std::string(material));
        ASSERT_EQ(util::saveTemplateFile(util::templatePath(kindFolder(), name), false, &set), 0);
    }
    std::string unmarked;
    std::string ascending;
    std::string descending;
    const auto holds = [&](std::initializer_list<const char*> order)
    {
        return atRest() && names() == std::vector<wxString>(order.begin(), order.end()) && mark() == descending &&
               isSelected(2) && !isSelected(1) && grid()->GetGridCursorRow() == 2 &&
               grid()->GetGridCursorCol() == columnOf("Material");
    };
    const auto all = [&] { return holds({"Alpha", "Gamma", "Delta", "Beta"}); };
    WindowDriver user;
    user.when(
        "the manager is up", [] { return atRest() && columnOf("Material") > 0; },
        [&]
        {
            unmarked = mark();
            clickHeading();
        });
    user.when(
        "sorted", [&] { return cell(0, "Name") == "Beta" && mark() != unmarked; },
        [&]
        {
            ascending = mark();
            clickHeading();
        });
    user.when(
        "the other way", [&] { return cell(0, "Name") == "Alpha" && mark() != ascending; },
        [&]
        {
            descending = mark();
            EXPECT_NE(descending, unmarked);
            clickCell(2, "Material");
        });
    user.when("Delta is in hand", all,
              [] { person().click(grid()->GetGridColLabelWindow()->ClientToScreen(heading("Name")), Person::right); });
    user.when("the menu is up", menuIsUp,
              []
              {
                  for (const int key : {WXK_DOWN, WXK_RETURN})
                      pressKey(key);
              });
    user.when("a column is hidden", [] { return !grid()->IsColShown(columnOf("Part Material")); });
    user.when("all is as it was", all, [] { pressKey(WXK_F2); });
    user.when("the editor is open", editor,
              []
              {
                  pressKey('A', wxMOD_CONTROL);
                  type("Ice");
                  clickManager(1125);
              });
    user.when("the question", messageIsUp, [] { answer(1); });
    user.when("all is as it was", all, [] { clickManager(1150); });
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(stored("Delta").stringOr(util::keys::material, ""), "Ice");

    user.when(
        "after a restart", [&] { return atRest() && mark() == descending; },
        [this]
        {
            EXPECT_EQ(names(), (std::vector<wxString>{"Alpha", "Gamma", "Delta", "Beta"}));
            clickCell(1, "Material");
        });
    user.when(
        "Gamma is selected", [] { return isSelected(1); }, [] { pressKey(WXK_DELETE); });
    user.when("the question", messageIsUp, [] { answer(1); });
    user.when(
        "it is gone", [] { return atRest() && grid()->GetNumberRows() == 3; },
        [&]
        {
            EXPECT_EQ(names(), (std::vector<wxString>{"Alpha", "Delta", "Beta"}));
            EXPECT_EQ(mark(), descending);
            EXPECT_EQ(grid()->GetGridCursorRow(), 1);
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(GridFlowTest, TheTwoUnsentCommandsOnlyTell)
{
    WindowDriver user;
    for (const auto& [id, text] : {std::pair(32787, "Sorting A-Z is not implemented yet."),
                                   std::pair(32788, "Sorting Z-A is not implemented yet.")})
    {
        user.when(
            "the manager is at rest", [] { return atRest(); },
            [number = id] { manager()->CallAfter([number] { command(number); }); });
        user.when("the message", messageIsUp,
                  [expected = text]
                  {
                      EXPECT_EQ(message(), expected);
                      answer(1);
                  });
    }
    user.when(
        "unsorted", [] { return atRest(); },
        []
        {
            EXPECT_EQ(names(), (std::vector<wxString>{"Alpha", "Beta", "Gamma"}));
            clickManager(1150);
        });
    EXPECT_EQ(load(), 0);
}

TEST_F(GridFlowTest, TypingOnTheNameColumnGoesToTheName)
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

TEST_F(GridFlowTest, TheRowInHandIsTheOneThatIsApplied)
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
