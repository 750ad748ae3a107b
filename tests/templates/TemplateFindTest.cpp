#include "templates/TemplateFind.h"

#include <gtest/gtest.h>

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

TEST_F(TemplateFindTest, HistoryHoldsEachTextOnce)
{
    for (const char* const text : {"a", "b", " a ", "", "A"})
        next(text);
    EXPECT_EQ(find.history(), (std::vector<std::string>{"a", "b", "A"}));
    EXPECT_EQ(findCell(TemplateRows(), columns, "x", {}), TemplateCell());
}

} // namespace
