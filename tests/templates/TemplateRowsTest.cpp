#include "templates/TemplateRows.h"

#include "templates/TemplateMatch.h"
#include "templates/columns/ColumnKinds.h"
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

namespace keys = util::keys;
using namespace TessaronResources;

namespace
{

class TemplateRowsTest : public testing::Test
{
protected:
    TemplateRowsTest()
    {
        nameDefinition.key = keys::templateName;
        nameDefinition.format = "%s";
        diameterDefinition.key = keys::toolDiameter;
        diameterDefinition.format = "%g";
        diameterDefinition.type = util::templateColumnType::real;
        name = makeGridColumn(nameDefinition, true);
        diameter = makeGridColumn(diameterDefinition, true);
        rows.fill({set("a", 1.0), set("b", 1.0 / 3), set("c", 3.0)}, matchFilter::all, {});
    }
    static util::Parameterized set(const std::string& templateName, double toolDiameter)
    {
        util::Parameterized result;
        result.set(keys::templateName, templateName);
        result.set(keys::toolDiameter, toolDiameter);
        return result;
    }

    std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (std::size_t row = 0; row < rows.size(); ++row)
            names.push_back(rows.storedAt(row).stringOr(keys::templateName, ""));
        return names;
    }

    util::TemplateColumn nameDefinition;
    util::TemplateColumn diameterDefinition;
    GridColumnPtr name;
    GridColumnPtr diameter;
    TemplateRows rows;
};

TEST_F(TemplateRowsTest, FillKeepsWhatTheFilterDisplaysInItsOrder)
{
    rows.edit(0, *name, "x");
    rows.fill({set("c", 3.0), set("a", 1.0), set("b", 3.0)}, matchFilter::sameToolDiameter, set("", 3.0));
    EXPECT_EQ(names(), (std::vector<std::string>{"c", "b"}));
    EXPECT_FALSE(rows.hasEdits());
}

TEST_F(TemplateRowsTest, EditsAreMarkedUntilStoredOrUndone)
{
    EXPECT_TRUE(rows.edit(1, *name, "new"));
    EXPECT_TRUE(rows.edit(2, *diameter, "7.5"));
    EXPECT_EQ(rows.editedRows(), (std::vector<std::size_t>{1, 2}));
    EXPECT_EQ(rows.at(1).stringOr(keys::templateName, ""), "new");
    EXPECT_EQ(rows.storedAt(1), set("b", 1.0 / 3));
    EXPECT_EQ(names()[1], "b");

    EXPECT_TRUE(rows.edit(2, *diameter, "3"));
    EXPECT_FALSE(rows.isEdited(2)) << "back to what is stored";
    rows.markStored(1, set("new", 9.0));
    EXPECT_FALSE(rows.hasEdits());
    EXPECT_EQ(rows.storedAt(1), set("new", 9.0));
}

TEST_F(TemplateRowsTest, LeavingACellAsItIsChangesNothing)
{
    // The cell shows 0.333333, and the value is a third.
    EXPECT_FALSE(rows.edit(1, *diameter, diameter->format(rows.at(1))));
    EXPECT_FALSE(rows.edit(1, *diameter, "abc"));
    EXPECT_FALSE(rows.hasEdits());
    EXPECT_EQ(rows.at(1).numberOr(keys::toolDiameter, 0), 1.0 / 3);
}

TEST_F(TemplateRowsTest, EditsMoveWithTheirRows)
{
    rows.edit(0, *name, "x");
    rows.reorder({2, 0, 1});
    EXPECT_EQ(names(), (std::vector<std::string>{"c", "a", "b"}));
    EXPECT_EQ(rows.editedRows(), (std::vector<std::size_t>{1}));
}

TEST_F(TemplateRowsTest, RememberedValuesFollowEveryChange)
{
    const auto check = [this](const char* when)
    {
        const std::vector<std::string> keys = {keys::toolDiameter, "absent", keys::templateName, keys::toolDiameter};
        const std::vector<std::size_t> places = rows.valuePlaces(keys);
        for (std::size_t row = 0; row < rows.size(); ++row)
            for (std::size_t i = 0; i < keys.size(); ++i)
                EXPECT_EQ(rows.valuesAt(row)[places[i]], rows.at(row).find(keys[i])) << when << ", row " << row;
    };
    check("filled");
    rows.edit(0, *name, "x");
    rows.edit(1, *diameter, "7.5");
    check("edited");
    rows.reorder({2, 0, 1});
    check("sorted");
    rows.markStored(1, set("stored", 9.0));
    check("stored");
    // Rows that have other keys than those before them, as many or fewer.
    util::Parameterized noDiameter;
    noDiameter.set(keys::templateName, "no diameter");
    util::Parameterized others = noDiameter;
    others.set("Zero", 0);
    util::Parameterized absent = noDiameter;
    absent.set("absent", 1);
    rows.fill({set("d", 1.0), set("e", 2.0), others, absent, {}, noDiameter, {}, set("f", 3.0)}, matchFilter::all, {});
    check("filled again");
}

} // namespace
