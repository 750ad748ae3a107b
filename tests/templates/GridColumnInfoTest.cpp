#include "templates/columns/ColumnKinds.h"
#include "templates/columns/RatingColumn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace type = util::templateColumnType;
using namespace TessaronResources;
using testing::ElementsAre;
using util::Parameterized;
using Value = util::Parameterized::Value;

namespace
{

const util::TemplateOptions options = {{1, "Shrink Fit"}, {-4, "Weldon"}};

util::TemplateColumn definition(int columnType, const std::string& format)
{
    util::TemplateColumn column;
    column.title = "Title";
    column.key = "Key";
    column.format = format;
    column.type = columnType;
    column.options = options;
    return column;
}

struct FormatCase
{
    int type;
    const char* format;
    Value value;
    const char* text;
};

TEST(GridColumnInfo, FormatsByKindOfColumn)
{
    const FormatCase cases[] = {
        {type::real, "%g", 12.5, "12.5"},
        {type::real, "%.2f mm", 3.0, "3.00 mm"},
        {type::real, "%g", 4, "4"},
        {type::real, "%g", std::string("4"), ""},
        {type::real, "%s", 12.5, ""},
        {type::integer, "%d", -3, "-3"},
        {type::integer, "%d", 4.0, "4"},
        {type::integer, "%d", 4.5, ""},
        {type::integer, "%d", 1e300, ""},
        {type::text, "%s", std::string("two\nlines"), "two\nlines"},
        {type::text, "%s", 5, ""},
        {type::text, "%n", std::string("x"), ""},
        {type::rating, "%g", 3.5, "3.5"},
        {type::list, "%d", 1, "Shrink Fit"},
        {type::list, "%d", -4, "Weldon"},
        {type::list, "%d", 2, ""},
        {type::date, "%Y", std::string("86400000"), "1972"},
        {type::date, "%Y", std::string(" 86400000x"), "1972"},
        {type::date, "%Y", std::string("soon"), ""},
        {type::date, "%Y", 86400000, ""},
        {99, "%s", std::string("text"), "text"},
    };
    for (const FormatCase& c : cases)
    {
        const util::TemplateColumn column = definition(c.type, c.format);
        Parameterized set;
        EXPECT_EQ(makeGridColumn(column, true)->format(set), "") << "without the key";
        set.set("Key", c.value);
        EXPECT_EQ(makeGridColumn(column, true)->format(set), c.text) << c.type << " " << c.value;
    }
}

struct ParseCase
{
    int type;
    const char* text;
    Value stored; ///< the text "untouched" when parsing stores nothing
};

TEST(GridColumnInfo, ParsesWhatReadsAsItsKind)
{
    const Value untouched = std::string("untouched");
    const ParseCase cases[] = {
        {type::real, "12", 12.0},
        {type::real, "12abc", 12.0},
        {type::real, "  -1.5e2 mm", -150.0},
        {type::real, "+.5", 0.5},
        {type::real, "12,5", 12.0},
        {type::real, "abc", untouched},
        {type::real, "", untouched},
        {type::real, "+-1", untouched},
        {type::real, "nan", untouched},
        {type::real, "inf", untouched},
        {type::real, "1e999", untouched},
        {type::rating, "4.5", 4.5},
        {type::integer, "12", 12},
        {type::integer, " +7x", 7},
        {type::integer, "12.7", 12},
        {type::integer, "-0", 0},
        {type::integer, "99999999999", untouched},
        {type::integer, "x1", untouched},
        {type::text, "", std::string()},
        {type::text, " any\n%s ", std::string(" any\n%s ")},
        {type::list, "Weldon", -4},
        {type::list, "weldon", untouched},
        {type::list, "", untouched},
        {type::date, "1234", untouched},
        {99, "text", std::string("text")},
    };
    for (const ParseCase& c : cases)
    {
        const util::TemplateColumn column = definition(c.type, "%s");
        Parameterized set;
        set.set("Key", untouched);
        makeGridColumn(column, true)->parse(c.text, set);
        EXPECT_EQ(set.at("Key"), c.stored) << c.type << " '" << c.text << "'";
    }
}

TEST(GridColumnInfo, OnlyOfferedDefinitionsGetAColumnAndDatesAreNeverEdited)
{
    std::vector<util::TemplateColumn> definitions;
    for (const int columnType : {type::integer, type::real, type::text, type::date, type::list, type::rating, 0})
        definitions.push_back(definition(columnType, "%s"));
    definitions[1].offered = false;
    definitions[2].shown = false;

    const std::vector<GridColumnPtr> columns = makeGridColumns(definitions, true);
    ASSERT_EQ(columns.size(), 6U);
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        EXPECT_EQ(columns[i]->index, static_cast<int>(i));
        EXPECT_EQ(&columns[i]->definition(), &definitions[i == 0 ? 0 : i + 1]);
        EXPECT_TRUE(columns[i]->enabled);
        const int columnType = columns[i]->definition().type;
        EXPECT_EQ(columns[i]->isEditable(), columnType != type::date && columnType != 0);
    }
    for (const GridColumnPtr& column : makeGridColumns(definitions, false))
        EXPECT_FALSE(column->isEditable());
}

class MockCells : public TemplateCells
{
public:
    MOCK_METHOD(void, setCell, (int, int, const std::string&, CellAlignment, const std::string&), (override));
    MOCK_METHOD(void, setCellChoices, (int, int, const std::vector<std::string>&), (override));
    MOCK_METHOD(void, setRowHeight, (int, int), (override));
    MOCK_METHOD(void, setHeading, (int, const std::string&, int, const std::string&, std::uint32_t, std::uint32_t),
                (override));
};

TEST(GridColumnInfo, SetsUpCellsAndHeadings)
{
    util::TemplateColumn column = definition(type::real, "%g");
    const GridColumnPtr info = makeGridColumn(column, true);
    info->index = 3;
    info->cellFont = "Sans 9";
    info->headingFont = "Sans bold 9";
    Parameterized set;
    set.set("Key", 2.5);

    testing::StrictMock<MockCells> grid;
    EXPECT_CALL(grid, setCell(7, 3, "2.5", CellAlignment::right, "Sans 9")).Times(2);
    EXPECT_CALL(grid, setRowHeight(7, 22));
    EXPECT_CALL(grid, setRowHeight(7, 60));
    info->setupCell(grid, 7, set, 22);
    info->setupCell(grid, 7, set, -1);
    EXPECT_CALL(grid, setHeading(3, "Title", 96, "Sans bold 9", 0x112233, util::TemplateInfo::noColour));
    info->setupHeading(grid, 0x112233, util::TemplateInfo::noColour);

    util::TemplateColumn listColumn = definition(type::list, "%d");
    const GridColumnPtr list = makeGridColumn(listColumn, true);
    EXPECT_CALL(grid, setCell(0, -1, "", CellAlignment::left, ""));
    EXPECT_CALL(grid, setRowHeight(0, 60));
    EXPECT_CALL(grid, setCellChoices(0, -1, ElementsAre("Shrink Fit", "Weldon")));
    list->setupCell(grid, 0, set, -1);

    // Hidden columns touch nothing.
    column.shown = listColumn.shown = false;
    info->setupCell(grid, 1, set, -1);
    list->setupCell(grid, 1, set, -1);
}

TEST(GridColumnInfo, ChoicesOfDirectionFollowTheKind)
{
    for (const int columnType : {type::integer, type::real, type::text, type::date, type::list, type::rating, 0})
    {
        const util::TemplateColumn column = definition(columnType, "%s");
        const bool isNumber = columnType == type::integer || columnType == type::real;
        EXPECT_THAT(makeGridColumn(column, true)->sortOrderTexts(),
                    isNumber ? ElementsAre("Smallest to Largest", "Largest to Smallest")
                             : ElementsAre("A to Z", "Z to A"))
            << columnType;
    }
}

/// Notes what is drawn into a cell: a text, or a letter for each mark.
class NotedCell : public CellPainter
{
public:
    explicit NotedCell(bool selected) : m_selected(selected) {}
    const CellArea& area() const override { return m_area; }
    bool isSelected() const override { return m_selected; }
    void drawText(const std::string& text, double smallestScale) override
    {
        drawn += text + (smallestScale < 1.0 ? " fitted" : "");
    }
    void drawMark(const std::vector<CellPoint>& corners, bool filled) override
    {
        drawn += filled ? 'x' : 'o';
        for (const CellPoint& corner : corners)
            EXPECT_TRUE(corner.x >= m_area.left && corner.x <= m_area.left + m_area.width && corner.y >= m_area.top &&
                        corner.y <= m_area.top + m_area.height);
    }
    std::string drawn;

private:
    CellArea m_area{100, 10, 96, 25};
    bool m_selected;
};

TEST(GridColumnInfo, DrawsWhatTheKindShows)
{
    const struct
    {
        int type;
        const char* text;
        bool selected;
        const char* drawn;
    } cases[] = {{type::real, "2.5", false, "2.5"},   {type::date, "1972", false, "1972 fitted"},
                 {type::text, "", true, ""},          {type::rating, "3.5", false, "xxxxo"},
                 {type::rating, "0", false, "ooooo"}, {type::rating, "", false, ""},
                 {type::rating, "", true, "ooooo"},   {type::rating, "7", true, "xxxxx"}};
    for (const auto& c : cases)
    {
        const util::TemplateColumn column = definition(c.type, "%s");
        NotedCell cell(c.selected);
        makeGridColumn(column, true)->draw(cell, c.text);
        EXPECT_EQ(cell.drawn, c.drawn) << c.type << " '" << c.text << "'";
    }
}

TEST(RatingColumn, ClicksAndDigitsRate)
{
    const util::TemplateColumn column = definition(type::rating, "%g");
    const GridColumnPtr rating = makeGridColumn(column, true);
    const CellArea cell{100, 10, 96, 25};
    const StarRow stars = starRow(cell);
    EXPECT_EQ(stars.edge, 18);
    const auto click = [&](int x, const char* text) {
        return rating->textAfterClick(cell, {stars.left + x, 20}, text).value_or("-");
    };
    EXPECT_EQ(click(-1, ""), "-");
    EXPECT_EQ(click(0, ""), "1");
    EXPECT_EQ(click(0, "1"), "0") << "the only star is taken away";
    EXPECT_EQ(click(17, "2"), "1");
    EXPECT_EQ(click(18, "2"), "2");
    EXPECT_EQ(click(5 * 18 - 1, ""), "5");
    EXPECT_EQ(click(5 * 18, ""), "-");
    EXPECT_FALSE(rating->textAfterClick({0, 0, 3, 3}, {1, 1}, "")) << "no room for stars";

    EXPECT_EQ(rating->textAfterKey(U'0'), "0");
    EXPECT_EQ(rating->textAfterKey(U'5'), "5");
    EXPECT_FALSE(rating->textAfterKey(U'6'));
    EXPECT_FALSE(rating->textAfterKey(U'x'));
}

} // namespace
