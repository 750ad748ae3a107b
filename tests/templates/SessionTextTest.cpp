#include "tests/templates/SessionFixture.h"

using namespace testing_support;
using testing::ElementsAre;

namespace
{

/// Texts in the code page of a Windows on which templates were made.
class SessionTextTest : public TemplateSessionFixture
{
protected:
    static constexpr const char* name = "Fr\xE4sen";
    static constexpr const char* shownName = "Fräsen";

    SessionTextTest()
    {
        util::Parameterized set = makeSet(name, 1.0);
        set.set(keys::material, std::string("Wei\xDF"
                                            "blech"));
        EXPECT_EQ(util::saveTemplateFile(kindPath(name), true, &set), status::ok);
        store({"Frage", "Fröhlich"});
    }
    std::string cell(std::size_t row, const util::Key& key) const
    {
        for (const GridColumnPtr& column : columns)
            if (column->definition().key == std::string(key))
                return column->format(session.rows().at(row));
        return "no such column";
    }
    std::string stored(std::size_t row, const util::Key& key) const { return session.rows().at(row).stringOr(key, ""); }
};

TEST_F(SessionTextTest, AreShownAndSortedAndStayAsTheyAre)
{
    session.sort({{keys::templateName, false}});
    EXPECT_EQ(cell(0, keys::templateName), "Frage");
    ASSERT_EQ(cell(1, keys::templateName), shownName);
    EXPECT_EQ(cell(2, keys::templateName), "Fröhlich");
    EXPECT_EQ(cell(1, keys::material), "Weißblech");

    edit(1, keys::material, "Weißblech");
    EXPECT_FALSE(session.rows().hasEdits()) << "the cell was left as it was";
    edit(1, keys::toolDiameter, "5");
    user.nextAnswer = true;
    EXPECT_TRUE(session.storeEdits());
    EXPECT_THAT(user.takeMessages(), ElementsAre("error question: Fräsen already exists. Do you want to replace it?"));
    session.fill();
    EXPECT_EQ(stored(1, keys::templateName), name);
    EXPECT_EQ(stored(1, keys::material), "Wei\xDF"
                                         "blech");
    util::Parameterized applied;
    session.applyTemplate(1, applied);
    EXPECT_EQ(applied.stringOr(keys::material, ""), "Wei\xDF"
                                                    "blech");

    edit(1, keys::material, "Weißblech 2");
    EXPECT_TRUE(session.storeEdits());
    session.fill();
    EXPECT_EQ(stored(1, keys::material), "Weißblech 2");
    EXPECT_EQ(stored(1, keys::templateName), name);
}

TEST_F(SessionTextTest, OfAListAndOfHeadingsAreShownAndChosen)
{
    util::TemplateColumn column = session.info().columns[1];
    column.title = "Werkst\xFC"
                   "ck";
    column.options = {{3, "St\xE4hle"}, {4, "Bleche"}};
    const GridColumnPtr list = makeGridColumn(column, true);
    EXPECT_THAT(list->choices(), ElementsAre("Stähle", "Bleche"));
    session.editCell(0, *list, "Stähle");
    EXPECT_EQ(session.rows().at(0).intOr(column.key, 0), 3);
    EXPECT_EQ(list->format(session.rows().at(0)), "Stähle");
    EXPECT_TRUE(list->searchHints("stähle").isPossible);
    EXPECT_EQ(translated(column.title), "Werkstück");
}

TEST_F(SessionTextTest, NeverEmptyAMessage)
{
    writeBytes(kindPath("kaputt-\xFC.vtmpl"), "no archive");
    session.fill();
    EXPECT_THAT(user.takeMessages(),
                ElementsAre("error: " + formatError + "\n Template: " + kindPath("kaputt-ü.vtmpl")));
    user.importFiles = {home / "f\xFCr.xml", home / "f\xFCr.vtmpl"};
    session.importTemplates();
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Error reading Template file.\n Template Array: " +
                                                 (home / "für.xml") + "\n Template: " + (home / "für.vtmpl")));
}

TEST_F(SessionTextTest, NameTheTemplateThatTheUserSees)
{
    const auto names = [this]
    {
        session.fill();
        return session.existingNames();
    };
    const std::vector<std::string> before = names();
    user.nextAnswer = true;
    util::Parameterized result;
    const auto dialog = [](TemplateSession::SaveAsAnswer& answer)
    {
        answer.name = shownName;
        return true;
    };
    EXPECT_TRUE(session.saveCurrentAs(dialog, &result, nullptr));
    EXPECT_EQ(result.stringOr(keys::templateName, ""), name);
    EXPECT_TRUE(session.saveCurrent(shownName, &result));
    EXPECT_THAT(user.takeMessages(), ElementsAre("question: Fräsen already exists. Do you want to replace it?",
                                                 "message: The template saved with name: Fräsen"));
    EXPECT_EQ(names(), before);
}

} // namespace
