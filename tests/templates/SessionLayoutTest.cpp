#include "tests/support/SystemFaults.h"
#include "tests/templates/SessionFixture.h"

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

typedef TemplateSessionFixture SessionLayoutTest;

TEST_F(SessionLayoutTest, ALibraryThatMayOnlyBeReadOpensAndClosesInPeace)
{
    // Nobody, not even the superuser, may make a file there.
    TemplateSession reader(operationKind::milling, 0, "/proc", {}, user);
    EXPECT_EQ(reader.open(true), DefinitionsState::created);
    EXPECT_FALSE(reader.info().columns.empty());
    EXPECT_FALSE(reader.layoutIsKept());
    for (const StoreReason reason : {StoreReason::end, StoreReason::endWithChange})
        EXPECT_FALSE(reader.storeDefinitions(reason));
    EXPECT_THAT(user.said, IsEmpty());
    for (int change = 0; change < 2; ++change)
        EXPECT_FALSE(reader.storeDefinitions(StoreReason::change));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + writeError)) << "told once";
}

TEST_F(SessionLayoutTest, ThatTheLayoutIsNotKeptIsKnownBeforeItIsLost)
{
    class Noted : public TemplateSessionObserver
    {
    public:
        void rowsReplaced(const std::vector<std::size_t>&) override {}
        void rowsReordered(const std::vector<std::size_t>&) override {}
        void rowsEdited() override {}
        void layoutKeepingChanged() override { ++changes; }
        int changes = 0;
    } observer;
    TemplateSession reader(operationKind::milling, 0, home.path(), {}, user);
    reader.addObserver(observer);
    {
        testing_support::SystemFaults faults;
        faults.fail("faccessat", EROFS);
        EXPECT_EQ(reader.open(true), DefinitionsState::loaded);
    }
    EXPECT_FALSE(reader.layoutIsKept());
    EXPECT_EQ(observer.changes, 1);
    EXPECT_TRUE(reader.storeDefinitions(StoreReason::end)) << "it can be written after all";
    EXPECT_TRUE(reader.layoutIsKept());
    EXPECT_EQ(observer.changes, 2);

    // What was written until now is missed at the end, too.
    std::filesystem::remove_all(home.path());
    writeBytes(home.path(), "");
    EXPECT_FALSE(reader.storeDefinitions(StoreReason::endWithChange));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + writeError));
}

TEST_F(SessionLayoutTest, OneActionGivesOneMessage)
{
    store({"a"});
    std::filesystem::remove_all(home.path());
    writeBytes(home.path(), "");
    EXPECT_TRUE(session.acceptPreferences({}, home / "other")) << "neither list nor definitions can be stored";
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + writeError));

    session.inOneMessage(
        [this]
        {
            session.deleteTemplates({0});
            session.inOneMessage([this] { session.fill(); });
        });
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Error reading Template file.\n Template: a"));
}

TEST_F(SessionLayoutTest, FirstStartMakesTheDefinitionsOnce)
{
    EXPECT_EQ(session.info().columns.size(), 26U);
    EXPECT_FALSE(session.info().columns[1].options.empty());
    EXPECT_EQ(session.info().windowWidth, 1024);
    EXPECT_EQ(session.info().windowHeight, 640);

    session.info().columns.resize(2);
    session.info().headingHeight = 33;
    EXPECT_TRUE(session.storeDefinitions(StoreReason::end));
    TemplateSession again(operationKind::milling, 0, home.path(), {}, user);
    EXPECT_EQ(again.open(true), DefinitionsState::loaded);
    EXPECT_EQ(again.info(), session.info());

    TemplateSession turning(operationKind::turning, 0, home.path(), {}, user);
    EXPECT_EQ(turning.open(true), DefinitionsState::created);
    EXPECT_EQ(turning.info().columns.size(), 9U);
    TemplateSession unknown(9, 0, home / "unknown", {}, user);
    EXPECT_EQ(unknown.open(true), DefinitionsState::created);
    EXPECT_THAT(unknown.info().columns, IsEmpty());
    EXPECT_THAT(user.said, IsEmpty());
}

TEST_F(SessionLayoutTest, DamagedDefinitionsAreReportedAndNotOverwrittenUnasked)
{
    const std::string path = home / (templateDefinitionsName(operationKind::milling) + ".xml");
    writeBytes(path, "damaged");
    TemplateSession again(operationKind::milling, 0, home.path(), {}, user);
    EXPECT_EQ(again.open(true), DefinitionsState::failed);
    EXPECT_THAT(user.takeMessages(), ElementsAre(testing::StartsWith("error question: " + formatError)));
    EXPECT_FALSE(again.storeDefinitions(StoreReason::end));
    EXPECT_FALSE(again.storeDefinitions(StoreReason::change)) << "there are no columns to store";
    EXPECT_EQ(readBytes(path), "damaged");
    again.info().columns = session.info().columns;
    EXPECT_TRUE(again.storeDefinitions(StoreReason::change));
    EXPECT_NE(readBytes(path), "damaged");
}

TEST_F(SessionLayoutTest, DamagedDefinitionsMakeWayForTheStandardOnesAndAreKept)
{
    const std::string stem = home / templateDefinitionsName(operationKind::milling);
    writeBytes(stem + ".xml", "damaged");
    user.nextAnswer = true;
    TemplateSession again(operationKind::milling, 0, home.path(), {}, user);
    EXPECT_EQ(again.open(true), DefinitionsState::created);
    EXPECT_EQ(user.takeMessages().size(), 1U);
    EXPECT_EQ(again.info().columns, session.info().columns);
    EXPECT_TRUE(again.layoutIsKept());
    EXPECT_EQ(readBytes(stem + ".damaged.xml"), "damaged");
    TemplateSession next(operationKind::milling, 0, home.path(), {}, user);
    EXPECT_EQ(next.open(true), DefinitionsState::loaded);
    EXPECT_EQ(next.info(), again.info());
    EXPECT_THAT(user.said, IsEmpty());
}

TEST_F(SessionLayoutTest, DefinitionsThatCannotBeStoredAreReported)
{
    writeBytes(home / "file", "");
    TemplateSession blocked(operationKind::milling, 0, home / "file", {}, user);
    EXPECT_EQ(blocked.open(true), DefinitionsState::failed);
    user.takeMessages();
    session.info().columns.resize(1);
    std::filesystem::remove_all(home.path());
    writeBytes(home.path(), "");
    EXPECT_FALSE(session.storeDefinitions(StoreReason::change));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + writeError));
}

TEST_F(SessionLayoutTest, PreferencesAndFolderSurviveARestart)
{
    store({"a", "b"});
    util::TemplatePreferences preferences;
    preferences.matchFilter = matchFilter::sameToolDiameter;
    preferences.font = "Sans 14";
    EXPECT_TRUE(session.changesRows(preferences, session.folder()));
    EXPECT_TRUE(session.acceptPreferences(preferences, session.folder())) << "the filter has changed";
    EXPECT_FALSE(session.changesRows(preferences, " ")) << "this folder is the host's";
    EXPECT_TRUE(session.changesRows(preferences, home / "other place"));
    EXPECT_FALSE(session.acceptPreferences(preferences, "  " + session.folder() + "\t"));
    const std::string other = home / "other place";
    std::filesystem::create_directory(other);
    EXPECT_TRUE(session.acceptPreferences(preferences, other));
    EXPECT_THAT(names(), IsEmpty());

    TemplateSession again(operationKind::milling, 0, home.path(), makeSet("", 2.0), user);
    EXPECT_EQ(again.open(true), DefinitionsState::loaded);
    EXPECT_EQ(again.folder(), other);
    EXPECT_EQ(again.info().preferences, preferences);
    EXPECT_THAT(storedFolders(), ElementsAre(other, home.path()));
    EXPECT_TRUE(again.acceptPreferences(preferences, "")) << "an empty folder is the host's";
    again.fill();
    ASSERT_EQ(again.rows().size(), 1U) << "of the current diameter";
    EXPECT_EQ(again.rows().at(0).stringOr(keys::templateName, ""), "b");
    EXPECT_THAT(again.existingNames(), ElementsAre("a", "b"));
    EXPECT_THAT(storedFolders(), ElementsAre(home.path(), other));
}

TEST_F(SessionLayoutTest, FolderListThatCannotBeReadIsReported)
{
    writeBytes(home / "template_folders.xml", "damaged");
    session.reloadKnownFolders();
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + formatError));
}

} // namespace
