#include "templates/TemplateFind.h"

#include "templates/columns/ColumnKinds.h"
#include "util/text/FoldCase.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace TessaronResources;
using Result = TemplateFind::Result;

namespace
{

/// Three columns, "Name", "Diameter" and "Holder", and three rows.
class TemplateFindTest : public testing::Test
{
protected:
    TemplateFindTest()
    {
        definitions.resize(3);
        definitions[0].key = "Name";
        definitions[0].format = "%s";
        definitions[1].key = "Diameter";
        definitions[1].format = "%g mm";
        definitions[1].type = util::templateColumnType::real;
        definitions[2].key = "Holder";
        definitions[2].type = util::templateColumnType::list;
        definitions[2].options = {{1, "Weldon 10"}};
        columns = makeGridColumns(definitions, true);
        rows.fill({row("Rough 10", 10.0, 1), row("Finish", 2.5, 2), row("\xC3\x84hnlich rough", 12.0, 1)}, 0, {});
    }
    static util::Parameterized row(const std::string& name, double diameter, int holder)
    {
        util::Parameterized set;
        set.set("Name", name);
        set.set("Diameter", diameter);
        set.set("Holder", holder);
        return set;
    }
    /// The hit as "column,row"; "-" when nothing was found, "." when nothing was searched.
    std::string next(const std::string& text)
    {
        const Result result = find.findNext(text, rows, columns);
        EXPECT_TRUE(result != Result::notFound || find.hit() == TemplateCell());
        if (result != Result::found)
            return result == Result::notFound ? "-" : ".";
        return std::to_string(find.hit().column) + "," + std::to_string(find.hit().row);
    }

    std::vector<util::TemplateColumn> definitions;
    std::vector<GridColumnPtr> columns;
    TemplateRows rows;
    TemplateFind find;
};

TEST_F(TemplateFindTest, GoesThroughAllHitsAndStaysAtTheEnd)
{
    EXPECT_EQ(next("10"), "0,0");
    EXPECT_EQ(next("10"), "1,0");
    EXPECT_EQ(next(" 10 "), "2,0");
    EXPECT_EQ(next("10"), "2,2");
    EXPECT_EQ(next("10"), "-");
    EXPECT_EQ(next("10"), "-");
    // Only another text, or none, starts anew.
    EXPECT_EQ(next("rough"), "0,0");
    EXPECT_EQ(next("10"), "0,0");
    EXPECT_EQ(next("zz"), "-");
    EXPECT_EQ(next("  "), ".");
    EXPECT_EQ(next("zz"), "-");
    EXPECT_EQ(next("ROUGH"), "0,0");
    EXPECT_EQ(next("ROUGH"), "0,2");
}

TEST_F(TemplateFindTest, EmptyTextForgetsTheSearch)
{
    EXPECT_EQ(next("rough"), "0,0");
    EXPECT_EQ(next("rough"), "0,2");
    EXPECT_EQ(next(""), ".");
    EXPECT_EQ(next("rough"), "0,0");
    find.startOver();
    EXPECT_EQ(next("rough"), "0,0");
    EXPECT_EQ(next("zz"), "-");
    find.startOver();
    rows.fill({row("zz", 1.0, 1)}, 0, {});
    EXPECT_EQ(next("zz"), "0,0");
}

TEST_F(TemplateFindTest, MatchesWhatCellsShowIgnoringCase)
{
    EXPECT_EQ(next("\xC3\xA4HNL"), "0,2");
    EXPECT_EQ(next("2.5 MM"), "1,1");
    EXPECT_EQ(next("weldon"), "2,0");
    EXPECT_EQ(next("2.500"), "-");
}

TEST_F(TemplateFindTest, HiddenColumnsAreNotSearched)
{
    definitions[0].shown = false;
    EXPECT_EQ(next("rough"), "-");
    EXPECT_EQ(next("10"), "1,0");
}

TEST(FindCell, FindsExactlyTheCellsThatShowTheText)
{
    namespace type = util::templateColumnType;
    std::vector<util::TemplateColumn> definitions;
    const auto add = [&definitions](int columnType, const std::string& format)
    {
        util::TemplateColumn column;
        column.key = "Key " + std::to_string(definitions.size() % 7);
        column.type = columnType;
        column.format = format;
        column.options = {{0, "Zero"}, {1, "one 1"}, {25, "\xC3\x84ther"}};
        definitions.push_back(column);
    };
    for (const char* const format : {"%g", "%.3f mm", "%d", "%s", "<%s>", "%.4s"})
        for (const int columnType : {type::integer, type::real, type::text, type::list, type::rating, 0})
            add(columnType, format);
    for (const char* const format : {"%Y-%m-%d %H:%M:%S", "%d %B %Y", "on %y"})
        add(type::date, format);
    const std::vector<GridColumnPtr> columns = makeGridColumns(definitions, true);

    std::mt19937 random(3);
    const std::vector<util::Parameterized::Value> values = {0,
                                                            1,
                                                            25,
                                                            -7,
                                                            0.0,
                                                            25.0,
                                                            0.125,
                                                            1e300,
                                                            -1e-7,
                                                            std::numeric_limits<double>::infinity(),
                                                            1 / 3.,
                                                            2e9,
                                                            std::string(),
                                                            std::string("1700000000"),
                                                            std::string("25 MM \xC3\x84\xC3\x9C"),
                                                            std::string("a.b E+ 0.125"),
                                                            std::string(5000, 'y') + "25"};
    std::vector<util::Parameterized> sets(60);
    for (util::Parameterized& set : sets)
        for (int key = 0; key < 7; ++key)
            if (random() % 5 != 0)
                set.set("Key " + std::to_string(key), values[random() % values.size()]);
    TemplateRows rows;
    rows.fill(sets, 0, {});

    for (const char* const text :
         {"0",   "1",        "25",       "2023",     "-1",   "e+", "E", "inf", "mm",   ".", " ", "0.12",
          "3-1", "\xC3\xA4", "\xC3\x9C", "NOVEMBER", "on 2", "<",  "%", "yy",  "zero", "n", "x"})
    {
        TemplateCell hit;
        std::size_t hits = 0;
        for (int row = 0; row < static_cast<int>(rows.size()); ++row)
            for (const GridColumnPtr& column : columns)
            {
                const std::string shown = util::foldCase(column->format(rows.at(static_cast<std::size_t>(row))));
                if (shown.find(util::foldCase(text)) == std::string::npos)
                    continue;
                hit = findCell(rows, columns, text, hit);
                ASSERT_EQ(hit, (TemplateCell{column->index, row})) << "'" << text << "', shown: " << shown;
                ++hits;
            }
        EXPECT_EQ(findCell(rows, columns, text, hit), TemplateCell()) << "after " << hits << " hits of " << text;
    }
}

TEST_F(TemplateFindTest, HistoryHoldsEachTextOnce)
{
    for (const char* const text : {"a", "b", " a ", "", "A"})
        next(text);
    EXPECT_EQ(find.history(), (std::vector<std::string>{"a", "b", "A"}));
    EXPECT_EQ(findCell(TemplateRows(), columns, "x", {}), TemplateCell());
}

} // namespace
