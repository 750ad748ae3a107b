#include "tests/templates/ManagerRun.h"

using namespace testing_support;

namespace
{

class ListCellFlowTest : public ManagerTest
{
protected:
    ListCellFlowTest() { storeThree(); }

    static bool listIsUp() { return grid()->IsCellEditControlShown() || menuIsUp(); }
    static bool listIsClosed() { return atRest() && !listIsUp(); }
};

TEST_F(ListCellFlowTest, ACellThatIsOnlyLookedIntoKeepsItsValue)
{
    const std::string key = util::keys::partMaterialType;
    util::Parameterized unknown = stored("Beta");
    unknown.set(key, 4711);
    ASSERT_EQ(util::saveTemplateFile(util::templatePath(kindFolder(), "Beta"), false, &unknown), 0);
    const struct
    {
        const char* how;
        std::function<void()> leave;
    } ways[] = {
        {"Escape", [] { pressKey(WXK_ESCAPE); }},
        {"a click elsewhere", [] { clickCell(2, "Name"); }}, // beside the list
    };
    for (const int row : {0, 1})
        for (const auto& way : ways)
        {
            SCOPED_TRACE(std::string(way.how) + " in row " + std::to_string(row));
            WindowDriver user;
            user.when("the manager is up", atRest, [row] { clickCell(row, "Part Material"); });
            user.when(
                "the cell is the current one",
                [row] { return isSelected(row) && grid()->GetGridCursorCol() == columnOf("Part Material"); },
                [] { pressKey(WXK_F2); });
            user.when("the list is open", listIsUp, way.leave);
            user.when("the list is closed", listIsClosed,
                      [row]
                      {
                          EXPECT_EQ(cell(row, "Part Material"), "");
                          clickCell(row, "Name");
                      });
            user.when(
                "the row is in hand", [row] { return isSelected(row) && !listIsUp(); }, [] { clickManager(1); });
            EXPECT_EQ(load(), 1);
            EXPECT_EQ(m_result.stringOr(util::keys::templateName, ""), row == 0 ? "Alpha" : "Beta");
            EXPECT_EQ(m_result.has(key), row == 1);
            EXPECT_EQ(m_result.intOr(key, 4711), 4711);
        }
}

TEST_F(ListCellFlowTest, AChosenOptionIsStored)
{
    WindowDriver user;
    user.when("the manager is up", atRest, [] { clickCell(0, "Part Material"); });
    user.when(
        "the cell is the current one",
        [] { return isSelected(0) && grid()->GetGridCursorCol() == columnOf("Part Material"); },
        [] { pressKey(WXK_F2); });
    user.when("the list is open", listIsUp,
              []
              {
                  pressKey(WXK_DOWN);
                  pressKey(WXK_RETURN);
              });
    user.when(
        "an option is shown", [] { return listIsClosed() && !cell(0, "Part Material").empty(); },
        [] { clickCell(0, "Hardness"); });
    user.when(
        "the row is in hand", [] { return isSelected(0) && grid()->GetGridCursorRow() == 0; }, [] { clickManager(1); });
    EXPECT_EQ(load(), 1);
    EXPECT_GT(m_result.intOr(util::keys::partMaterialType, -1), 0);
}

} // namespace
