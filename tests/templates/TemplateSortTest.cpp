#include "templates/TemplateSort.h"

#include <gtest/gtest.h>

namespace type = util::templateColumnType;
using namespace TessaronResources;
using Levels = std::vector<util::TemplateSortLevel>;

namespace
{

class TemplateSortTest : public testing::Test
{
protected:
    TemplateSortTest()
    {
        for (const auto& [key, columnType] :
             {std::pair("Name", type::text), std::pair("Size", type::real), std::pair("Count", type::integer),
              std::pair("Date", type::date), std::pair("List", type::list), std::pair("Rating", type::rating)})
        {
            util::TemplateColumn column;
            column.title = std::string("The ") + key;
            column.key = key;
            column.type = columnType;
            columns.push_back(column);
        }
        columns[4].options = {{1, "zinc"}, {2, "Brass"}, {3, "acetal"}};
    }
    void add(const std::string& key, const std::vector<util::Parameterized::Value>& values)
    {
        sets.resize(values.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            if (values[i] != util::Parameterized::Value(std::string("absent")))
                sets[i].set(key, values[i]);
    }
    std::vector<std::size_t> order(const Levels& levels)
    {
        TemplateRows rows;
        rows.fill(sets, 0, {});
        return sortedOrder(rows, levels, columns);
    }
    static std::vector<std::size_t> places(std::initializer_list<std::size_t> list) { return list; }

    std::vector<util::TemplateColumn> columns;
    std::vector<util::Parameterized> sets;
    const util::Parameterized::Value absent = std::string("absent");
};

TEST_F(TemplateSortTest, ComparesValuesAndNotTexts)
{
    add("Size", {10.0, 9.5, absent, -1.0, 9.5});
    EXPECT_EQ(order({{"Size", false}}), places({3, 1, 4, 0, 2}));
    EXPECT_EQ(order({{"Size", true}}), places({0, 1, 4, 3, 2}));
    add("Date", {std::string("1000000000"), std::string("999999999"), absent, std::string("x"), std::string("5")});
    EXPECT_EQ(order({{"Date", false}}), places({4, 1, 0, 2, 3}));
    add("List", {1, 2, 9, 3, absent});
    EXPECT_EQ(order({{"List", false}}), places({3, 1, 0, 2, 4}));
    EXPECT_EQ(order({{"List", true}}), places({0, 1, 3, 2, 4}));
    add("Count", {10, 2.5, std::string("1"), 2, -3});
    EXPECT_EQ(order({{"Count", false}}), places({4, 3, 1, 0, 2}));
}

TEST_F(TemplateSortTest, TextsIgnoreCaseAndOrderTheNumbersInThem)
{
    add("Name", {std::string("T10"), std::string("t2"), std::string("T1 b"), std::string("T01 a"), std::string(),
                 std::string("\xC3\x84"), std::string("\xC3\xA4"), std::string("S99999999999999999999999")});
    EXPECT_EQ(order({{"Name", false}}), places({7, 3, 2, 1, 0, 5, 6, 4}));
    EXPECT_EQ(order({{"Name", true}}), places({5, 6, 0, 1, 2, 3, 7, 4}));
}

TEST_F(TemplateSortTest, LaterLevelsDecideWhereEarlierFindNoDifference)
{
    add("Name", {std::string("b"), std::string("a"), std::string("A"), std::string("b"), std::string("a")});
    add("Size", {1.0, 2.0, 2.0, 1.0, 3.0});
    add("Rating", {1.0, 4.0, 5.0, 2.0, 3.0});
    EXPECT_EQ(order({{"Name", false}, {"Size", true}, {"Rating", false}}), places({4, 1, 2, 0, 3}));
    EXPECT_EQ(order({{"Size", false}, {"no such column", false}}), places({0, 3, 1, 2, 4})) << "stable";
    EXPECT_EQ(order({}), places({0, 1, 2, 3, 4}));
}

TEST_F(TemplateSortTest, LevelsAreBuiltAndMoved)
{
    TemplateSortLevels levels(columns, {{"Size", true}, {"gone", false}});
    EXPECT_EQ(levels.levels(), (Levels{{"Size", true}}));
    EXPECT_EQ(levels.add(), 1U);
    EXPECT_EQ(levels.add(), 2U);
    EXPECT_EQ(levels.levels(), (Levels{{"Size", true}, {"Name", false}, {"Count", false}}));
    EXPECT_EQ(TemplateSortLevels::caption(0), "Sort by");
    EXPECT_EQ(TemplateSortLevels::caption(1), "Then by");
    EXPECT_EQ(levels.columnOf(2), 2U);
    EXPECT_EQ(levels.columnTitles().front(), "The Name");
    EXPECT_EQ(levels.orderTexts(0)[0], "Smallest to Largest");

    EXPECT_FALSE(levels.canMoveUp(0));
    EXPECT_FALSE(levels.canMoveDown(2));
    levels.moveUp(0);
    levels.moveDown(2);
    levels.moveUp(2);
    levels.moveDown(0);
    EXPECT_EQ(levels.levels(), (Levels{{"Count", false}, {"Size", true}, {"Name", false}}));
    levels.setColumn(2, 5);
    levels.setDescending(2, true);
    levels.remove(0);
    EXPECT_EQ(levels.levels(), (Levels{{"Size", true}, {"Rating", true}}));
    while (levels.canAdd())
        levels.add();
    EXPECT_EQ(levels.levels().size(), columns.size());
    EXPECT_EQ(levels.add(), columns.size());
}

} // namespace
