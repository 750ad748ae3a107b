#include "templates/columns/TemplateColumnList.h"
#include "templates/TemplateMenu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace TessaronResources;
using testing::ElementsAre;

namespace
{

std::vector<util::TemplateColumn> makeColumns(const std::string& titles)
{
    std::vector<util::TemplateColumn> columns;
    for (const char title : titles)
    {
        util::TemplateColumn column;
        column.title = column.key = std::string(1, title);
        columns.push_back(column);
    }
    return columns;
}

std::string titles(const std::vector<util::TemplateColumn>& columns)
{
    std::string text;
    for (const util::TemplateColumn& column : columns)
        text += column.shown ? column.title : "(" + column.title + ")";
    return text;
}

TEST(TemplateColumnList, FirstItemNeitherMovesNorIsDisplaced)
{
    const TemplateColumnList list(makeColumns("abcd"));
    const bool up[] = {false, false, true, true};
    const bool down[] = {false, true, true, false};
    for (int i = 0; i < 4; ++i)
    {
        EXPECT_EQ(list.canMoveUp(i), up[i]) << i;
        EXPECT_EQ(list.canMoveDown(i), down[i]) << i;
    }
    for (const int none : {-1, 4})
    {
        EXPECT_FALSE(list.canMoveUp(none));
        EXPECT_FALSE(list.canMoveDown(none));
    }
    EXPECT_FALSE(TemplateColumnList({}).canMoveDown(0));
    EXPECT_FALSE(TemplateColumnList(makeColumns("a")).canMoveUp(0));
}

TEST(TemplateColumnList, MovesKeepCheckMarksAndGiveTheNewOrder)
{
    TemplateColumnList list(makeColumns("abcd"));
    list.setShown(3, false);
    list.setShown(0, false);
    EXPECT_TRUE(list.items()[0].shown) << "the name cannot be hidden";
    EXPECT_EQ(list.moveUp(3), 2);
    EXPECT_EQ(list.moveDown(1), 2);
    EXPECT_EQ(list.moveUp(1), 1);
    EXPECT_EQ(list.moveDown(3), 3);
    EXPECT_EQ(list.moveDown(0), 0);
    EXPECT_EQ(list.items()[1].definition, 3);
    EXPECT_EQ(titles(list.result()), "a(d)bc");
}

TEST(TemplateMenu, ListsColumnsThenCommands)
{
    std::vector<util::TemplateColumn> columns = makeColumns("abc");
    columns[2].shown = false;
    std::vector<std::string> lines;
    for (const TemplateMenuItem& item : templateMenu(columns, false))
        lines.push_back(std::to_string(item.id) + item.text + (item.isCheck ? "?" : "") + (item.checked ? "x" : "") +
                        (item.enabled ? "" : "-"));
    EXPECT_THAT(lines, ElementsAre("1001a?x-", "1002b?x", "1003c?", "0", "2001Configure...", "0", "2002Delete-"));
    EXPECT_TRUE(templateMenu(columns, true).back().enabled);
}

TEST(TemplateMenu, TogglesEveryColumnButTheName)
{
    std::vector<util::TemplateColumn> columns = makeColumns("abc");
    for (const int id : {1000, 1001, 1004, templateMenuId::configure, templateMenuId::remove})
        EXPECT_FALSE(toggleColumn(columns, id)) << id;
    EXPECT_EQ(titles(columns), "abc");
    EXPECT_TRUE(toggleColumn(columns, 1003));
    EXPECT_EQ(titles(columns), "ab(c)");
    EXPECT_TRUE(toggleColumn(columns, 1003));
    EXPECT_EQ(titles(columns), "abc");
}

} // namespace
