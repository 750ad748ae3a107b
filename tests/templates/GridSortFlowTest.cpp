#include "tests/templates/ManagerRun.h"

using namespace testing_support;

namespace
{

class GridSortFlowTest : public ManagerTest
{
protected:
    GridSortFlowTest() { storeThree(); }

    static std::vector<wxString> names()
    {
        std::vector<wxString> found;
        found.reserve(static_cast<std::size_t>(grid()->GetNumberRows()));
        for (int row = 0; row < grid()->GetNumberRows(); ++row)
            found.push_back(cell(row, "Name"));
        return found;
    }
};

TEST_F(GridSortFlowTest, AQuickSortKeepsTheSelection)
{
    WindowDriver user;
    user.when("the manager is up", managerIsUp, [] { pick({0}); });
    user.when(
        "Alpha is selected", [] { return isSelected(0); }, [] { clickCell(0, "Tool Diameter"); });
    user.when(
        "the diameter is the current column", [] { return grid()->GetGridCursorCol() == 4; },
        [] { clickRibbon(32803); });
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
            clickRibbon(32802);
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

TEST_F(GridSortFlowTest, SelectionsAndHeightsGoWithTheirRows)
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
                person().click(heading("Name"));
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

TEST_F(GridSortFlowTest, TheSortAndTheRowInHandSurviveEveryRefill)
{
    store("Delta", 14.0, 1.0);
    const auto mark = []
    {
        const wxRect column = grid()->CellToRect(0, columnOf("Material"));
        const wxPoint corner(placeInCell(0, "Material", 0.0).x, headings().y);
        const wxImage picture = pictureOf(manager(), {manager()->ScreenToClient(corner), wxSize(column.width, 12)});
        return picture.IsOk() ? std::string(reinterpret_cast<const char*>(picture.GetData()),
                                            std::size_t{36} * static_cast<std::size_t>(column.width))
                              : std::string();
    };
    const auto clickHeading = [] { person().click(heading("Material")); };
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
    // A heading is painted in steps; the mark is there when it looks the same twice.
    std::string last;
    const auto paintedOtherThan = [&](const std::string& before)
    {
        const std::string now = mark();
        return now == std::exchange(last, now) && now != before;
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
        "sorted", [&] { return cell(0, "Name") == "Beta" && paintedOtherThan(unmarked); },
        [&]
        {
            ascending = mark();
            clickHeading();
        });
    user.when(
        "the other way", [&] { return cell(0, "Name") == "Alpha" && paintedOtherThan(ascending); },
        [&]
        {
            descending = mark();
            EXPECT_NE(descending, unmarked);
            clickCell(2, "Material");
        });
    user.when("Delta is in hand", all, [] { person().click(heading("Name"), Person::right); });
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

TEST_F(GridSortFlowTest, TheTwoUnsentCommandsOnlyTell)
{
    const auto command = [](int id)
    {
        // No button and no key sends these.
        wxCommandEvent event(wxEVT_MENU, commandId(id));
        manager()->GetEventHandler()->ProcessEvent(event);
    };
    WindowDriver user;
    for (const auto& [id, text] : {std::pair(32787, "Sorting A-Z is not implemented yet."),
                                   std::pair(32788, "Sorting Z-A is not implemented yet.")})
    {
        user.when(
            "the manager is at rest", [] { return atRest(); },
            [command, number = id] { manager()->CallAfter([command, number] { command(number); }); });
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

} // namespace
