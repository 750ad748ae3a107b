#include "tests/templates/SessionFixture.h"

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

typedef TemplateSessionFixture SessionSaveTest;

TEST_F(SessionSaveTest, ProposesTheFirstFreeName)
{
    EXPECT_EQ(session.proposeName(), "TESSARON1");
    store({"TESSARON1", "tessaron2"});
    EXPECT_EQ(session.proposeName(), "TESSARON3");
    EXPECT_THAT(user.said, IsEmpty());
    blockFolder();
    EXPECT_EQ(session.proposeName(), "TEMPL");
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Error reading Template file."));
}

TEST_F(SessionSaveTest, AppliedTemplateLeavesTheToolAlone)
{
    store({"a"});
    util::Parameterized result = makeSet("old", 5.0);
    result.set("Old Key", 1);
    session.applyTemplate(0, result);
    util::Parameterized expected = session.rows().at(0);
    for (const util::Key& key : {keys::toolDiameter, keys::toolLengthOfCut, keys::toolStickOutLength})
    {
        EXPECT_FALSE(result.has(key));
        expected.erase(key);
    }
    EXPECT_EQ(result, expected);
    EXPECT_TRUE(session.rows().at(0).has(keys::toolDiameter));
}

TEST_F(SessionSaveTest, SavingTheOperationReplacesWithoutAQuestionAndKeepsIdentitiesApart)
{
    store({"a"});
    util::Parameterized applied;
    session.applyTemplate(0, applied);
    // The operation now carries the template's guid; what it is saved as is another template.
    TemplateSession next(operationKind::milling, 0, home.path(), applied, user);
    util::Parameterized saved;
    EXPECT_TRUE(next.saveCurrent("b/2", &saved));
    EXPECT_THAT(user.takeMessages(), ElementsAre("message: The template saved with name: b/2"));
    EXPECT_NE(saved.at(keys::templateGuid), applied.at(keys::templateGuid));
    EXPECT_TRUE(next.saveCurrent("a", &saved));
    EXPECT_EQ(saved.at(keys::templateGuid), applied.at(keys::templateGuid));
    EXPECT_THAT(names(), ElementsAre("a", "b/2"));
    user.takeMessages();
    EXPECT_FALSE(next.saveCurrent("", &saved));
    blockFolder();
    EXPECT_FALSE(next.saveCurrent("c", nullptr));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Template file name is missing.", "error: " + writeError));
}

TEST_F(SessionSaveTest, SaveAsRunsUntilANameIsAcceptedOrGivenUp)
{
    session.info().preferences.loadSavedTemplates = true;
    std::vector<std::string> proposals;
    std::vector<std::string> typed;
    const auto dialog = [&](TemplateSession::SaveAsAnswer& answer)
    {
        proposals.push_back(answer.name + (answer.loadSaved ? "+" : "-"));
        if (typed.empty())
            return false;
        answer = {typed.front(), false};
        typed.erase(typed.begin());
        return true;
    };
    bool loadSaved = false;
    EXPECT_FALSE(session.saveCurrentAs(dialog, nullptr, &loadSaved));
    EXPECT_TRUE(loadSaved) << "the preset";
    EXPECT_THAT(proposals, ElementsAre("+")) << "nothing to propose yet";

    store({"first", "second"});
    typed = {"", "second", "second", "third"};
    proposals.clear();
    util::Parameterized result;
    EXPECT_TRUE(session.saveCurrentAs(dialog, &result, &loadSaved));
    EXPECT_FALSE(loadSaved);
    EXPECT_EQ(result.stringOr(keys::templateName, ""), "third");
    EXPECT_THAT(proposals, ElementsAre("first+", "-", "second-", "second-"));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Template file name is missing.",
                                                 "question: second already exists. Do you want to replace it?",
                                                 "question: second already exists. Do you want to replace it?"));
    EXPECT_THAT(names(), ElementsAre("first", "second", "third"));

    user.nextAnswer = true;
    typed = {"second"};
    proposals.clear();
    EXPECT_TRUE(session.saveCurrentAs(dialog, &result, nullptr));
    EXPECT_THAT(proposals, ElementsAre("third+")) << "the last name of the process";
    EXPECT_EQ(result.numberOr(keys::toolDiameter, 0), 10.0);
    EXPECT_THAT(names(), ElementsAre("first", "second", "third"));
}

} // namespace
