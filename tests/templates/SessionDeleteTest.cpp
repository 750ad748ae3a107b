#include "tests/templates/SessionFixture.h"

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

class SessionDeleteTest : public TemplateSessionFixture
{
protected:
    std::vector<std::string> shownNames() const
    {
        std::vector<std::string> names;
        for (std::size_t row = 0; row < session.rows().size(); ++row)
            names.push_back(session.rows().at(row).stringOr(keys::templateName, ""));
        return names;
    }
};

TEST_F(SessionDeleteTest, DeletesWhatIsStoredAndKeepsTheEditsOfOtherRows)
{
    store({"a", "b", "c", "d"});
    edit(0, keys::templateName, "b");
    edit(2, keys::toolDiameter, "77");
    EXPECT_EQ(session.deleteTemplates({0}), 1U);
    EXPECT_THAT(user.said, IsEmpty()) << "nobody's edits are at stake";
    EXPECT_THAT(shownNames(), ElementsAre("b", "c", "d"));
    EXPECT_THAT(session.existingNames(), ElementsAre("b", "c", "d"));
    EXPECT_EQ(session.rows().editedRows(), std::vector<std::size_t>{1});
    EXPECT_EQ(session.rows().at(1).numberOr(keys::toolDiameter, 0), 77.0);
    EXPECT_EQ(session.rows().storedAt(1).numberOr(keys::toolDiameter, 0), 3.0);

    // A template of a name that is in use comes up as soon as no edit can be lost by it.
    util::Parameterized added = makeSet("aa", 1.0);
    ASSERT_EQ(util::saveTemplateFile(kindPath("aa"), true, &added), status::ok);
    EXPECT_EQ(session.deleteTemplates({0}), 1U);
    EXPECT_THAT(shownNames(), ElementsAre("c", "d"));
    EXPECT_EQ(session.deleteTemplates({0}), 1U) << "with its own edit";
    EXPECT_THAT(shownNames(), ElementsAre("aa", "d"));
    EXPECT_FALSE(session.rows().hasEdits());
    EXPECT_THAT(user.said, IsEmpty());
}

TEST_F(SessionDeleteTest, ATemplateThatCannotBeDeletedStaysWithItsEdit)
{
    store({"a", "b", "c"});
    edit(0, keys::toolDiameter, "77");
    edit(1, keys::templateName, "x");
    std::filesystem::remove(kindPath("b.vtmpl"));
    EXPECT_EQ(session.deleteTemplates({1, 2}), 1U);
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Error reading Template file.\n Template: b"));
    EXPECT_THAT(shownNames(), ElementsAre("a", "x"));
    EXPECT_EQ(session.rows().editedRows(), (std::vector<std::size_t>{0, 1}));
}

} // namespace
