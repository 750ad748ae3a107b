#include "tests/templates/SessionFixture.h"

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

typedef TemplateSessionFixture SessionStoreTest;

TEST_F(SessionStoreTest, ImportTakesWhatItCanAndNamesWhatItCannot)
{
    store({"a", "b", "c"});
    const TemporaryFolder outside;
    std::filesystem::copy(kindPath("a.vtmpl"), outside / "one.vtmpl");
    std::filesystem::copy(kindPath("b.vtmpl"), outside / "upper.VTMPL");
    user.exportFile = outside / "several.vtmpl";
    ASSERT_TRUE(session.exportTemplates({0, 2}));
    std::filesystem::copy(outside / "several.vtmpl", outside / "several.xml");
    writeBytes(outside / "bad.vtmpl", "bad");
    writeBytes(outside / "bad.xml", "");
    std::filesystem::create_directory(outside / "folder.vtmpl");
    util::Parameterized nameless = session.rows().at(1);
    nameless.erase(keys::templateName);
    ASSERT_EQ(util::saveTemplateArrayFile(outside / "nameless.xml", {nameless}), status::ok);
    const std::string a = readBytes(kindPath("a.vtmpl"));
    session.deleteTemplates({0, 1, 2});
    ASSERT_THAT(names(), IsEmpty());

    for (const char* const file : {"bad.vtmpl", "one.vtmpl", "folder.vtmpl", "bad.xml", "nameless.xml", "upper.VTMPL"})
        user.importFiles.push_back(outside / file);
    EXPECT_EQ(session.importTemplates(), 2U);
    EXPECT_THAT(user.takeMessages(),
                ElementsAre("error: " + formatError + "\n Template: " + (outside / "bad.vtmpl") +
                            "\n Template Array: " + (outside / "bad.xml") +
                            "\nError reading Template file.\n Template: " + (outside / "folder.vtmpl") +
                            "\nTemplate file name is missing.\n Template: "));
    EXPECT_THAT(names(), ElementsAre("a", "b"));
    EXPECT_EQ(user.folderSetting, outside.path());

    // An export comes back under either extension.
    for (const char* const file : {"several.vtmpl", "several.xml"})
    {
        session.deleteTemplates({0, 1});
        ASSERT_THAT(names().size(), testing::Le(1U));
        user.importFiles = {outside / file};
        EXPECT_EQ(session.importTemplates(), 2U);
        EXPECT_EQ(user.dialogFolder, outside.path());
        EXPECT_THAT(names(), testing::Contains("c"));
    }
    EXPECT_THAT(user.said, IsEmpty());
    user.importFiles = {outside / "one.vtmpl", outside / "upper.VTMPL", outside / "several.xml"};
    session.deleteTemplates({0, 1});
    ASSERT_THAT(names(), IsEmpty());
    user.cancelAfter = 1;
    EXPECT_EQ(session.importTemplates(), 1U) << "cancelled between two files";
    EXPECT_EQ(user.filesSeenDone, 1U);
    EXPECT_THAT(names(), ElementsAre("a"));
    EXPECT_THAT(user.said, IsEmpty());
    user.cancelAfter = 1000;
    user.importFiles.clear();
    EXPECT_EQ(session.importTemplates(), 0U);
    user.importFiles = {outside / "one.vtmpl"};
    blockFolder();
    EXPECT_EQ(session.importTemplates(), 0U);
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + writeError + "\n Template: a"));
}

TEST_F(SessionStoreTest, ExportWritesRowsInTheirOrderOrSaysWhyNot)
{
    store({"a", "b", "c"});
    EXPECT_FALSE(session.exportTemplates({0})) << "cancelled";
    EXPECT_EQ(user.folderSetting, "");
    user.exportFile = home / "out.vtmpl";
    EXPECT_TRUE(session.exportTemplates({2, 0}));
    std::vector<util::Parameterized> read;
    ASSERT_EQ(util::loadTemplateArrayFile(user.exportFile, &read), status::ok);
    EXPECT_THAT(read, ElementsAre(session.rows().at(2), session.rows().at(0)));
    EXPECT_EQ(user.folderSetting, home.path());
    user.exportFile = home / "no/such/out.vtmpl";
    EXPECT_FALSE(session.exportTemplates({0}));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + writeError + "\n Template: " + user.exportFile));
}

TEST_F(SessionStoreTest, StoringEditsAsksBeforeItReplaces)
{
    store({"a", "b"});
    edit(0, keys::toolDiameter, "77");
    edit(1, keys::templateName, "new");
    const util::Parameterized before = session.rows().storedAt(0);

    user.nextAnswer = false;
    EXPECT_FALSE(session.storeEdits());
    EXPECT_THAT(user.takeMessages(), ElementsAre("error question: a already exists. Do you want to replace it?"));
    EXPECT_EQ(session.rows().editedRows(), std::vector<std::size_t>{0}) << "what was not replaced stays edited";

    user.nextAnswer = true;
    EXPECT_TRUE(session.storeEdits());
    EXPECT_EQ(user.takeMessages().size(), 1U);
    EXPECT_THAT(names(), ElementsAre("a", "b", "new"));
    EXPECT_EQ(session.rows().at(0).numberOr(keys::toolDiameter, 0), 77.0);
    EXPECT_EQ(session.rows().at(0).at(keys::templateGuid), before.at(keys::templateGuid));
    EXPECT_NE(session.rows().at(1).at(keys::templateGuid), session.rows().at(2).at(keys::templateGuid))
        << "a template under a new name is another one";
    EXPECT_TRUE(session.storeEdits()) << "nothing to do";
}

TEST_F(SessionStoreTest, FailedStoreKeepsTheEdits)
{
    store({"a", "b"});
    edit(0, keys::templateName, "");
    edit(1, keys::toolDiameter, "5");
    user.nextAnswer = true;
    EXPECT_FALSE(session.storeEdits());
    EXPECT_THAT(user.takeMessages(), ElementsAre("error question: b already exists. Do you want to replace it?",
                                                 "error: Template file name is missing."));
    EXPECT_EQ(session.rows().editedRows(), std::vector<std::size_t>{0});
    blockFolder();
    edit(0, keys::templateName, "x");
    EXPECT_FALSE(session.settleEdits());
    EXPECT_THAT(user.takeMessages(),
                ElementsAre(testing::StartsWith("question: "), "error: " + writeError + "\n Template: x"));
    EXPECT_TRUE(session.rows().hasEdits());
    user.nextAnswer = false;
    EXPECT_TRUE(session.settleEdits()) << "given up";
    edit(0, keys::templateName, "a");
    user.takeMessages();
    EXPECT_TRUE(session.settleEdits());
    EXPECT_THAT(user.said, IsEmpty());
}

} // namespace
